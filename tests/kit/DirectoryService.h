// A web directory for tests: a real server that answers the word "word" page by page.
#pragma once

#include "kit/FeedServer.h"

namespace feedloom {

class DirectoryService {
 public:
  std::string Address() const { return server_.Url("/search"); }

  // The records with these numbers as one page of `total`: "Title 7", of "http://feed/7".
  void Serve(int page, int total, int first, int last) {
    std::string answer = "[TO]" + std::to_string(total);
    for (int record = first; record <= last; ++record) {
      const std::string number = std::to_string(record);
      answer += "[HS]h[IT]Title " + number + "[IU]http://post/" + number + "[RT]r[RU]http://feed/" +
                number + "[DT]20080501093045[ID]About <b>" + number + "</b>[PO]0";
    }
    ServeText(page, answer + "[QK]");
  }
  void ServeText(int page, const std::string& answer) { server_.Serve(Query(page), answer); }
  void ServeTwoPages() {
    Serve(1, 73, 1, 50);
    Serve(2, 73, 51, 73);
  }
  void Fail(int page) { server_.Fail(Query(page), 500); }
  void Hang(int page) { server_.Hang(Query(page)); }
  [[nodiscard]] bool WaitForRequest(int page) const { return server_.WaitForRequest(Query(page)); }
  int Requests(int page) const { return server_.Requests(Query(page)); }

 private:
  static std::string Query(int page) {
    return "/search?ver=0611&maxnum=50&pg=" + std::to_string(page) + "&str=word";
  }

  FeedServer server_;
};

}  // namespace feedloom
