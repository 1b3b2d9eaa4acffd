#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "net/HttpClient.h"

namespace feedloom {

// A bare server that keeps the first lines of requests as they came over the wire. Answers each
// connection's request with status 200 and "body", until its lines are asked for.
class RequestRecorder {
 public:
  RequestRecorder() {
    auto* const name = reinterpret_cast<sockaddr*>(&address_);
    socklen_t size = sizeof address_;
    if (bind(listener_, name, size) != 0 || getsockname(listener_, name, &size) != 0 ||
        listen(listener_, SOMAXCONN) != 0) {
      throw std::runtime_error("no port to listen on");
    }
    thread_ = std::thread([this] { Serve(); });
  }
  ~RequestRecorder() {
    if (thread_.joinable()) Lines();
    close(listener_);
  }

  std::string HostAndPort() const {
    return "127.0.0.1:" + std::to_string(ntohs(address_.sin_port));
  }
  std::vector<std::string> Lines() {
    shutdown(listener_, SHUT_RDWR);  // wakes the thread
    thread_.join();
    return lines_;
  }

 private:
  void Serve() {
    const std::string answer =
        "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: 4\r\n\r\nbody";
    for (int connection = -1; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
      std::string head;
      char block[4096];
      while (head.find("\r\n\r\n") == head.npos) {
        const ssize_t count = recv(connection, block, sizeof block, 0);
        if (count <= 0) break;
        head.append(block, static_cast<std::size_t>(count));
      }
      lines_.push_back(head.substr(0, head.find("\r\n")));
      send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
      close(connection);
    }
  }

  const int listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address_{
      .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
  std::vector<std::string> lines_;
  std::thread thread_;
};

using Lines = std::vector<std::string>;

struct HttpExchange : testing::Test {
  std::string Get(const std::string& address) { return Client().Get(address); }
  std::string Post(const std::string& address) { return Client().Post(address, "a=%EA"); }
  HttpClient Client() {
    return HttpClient(registry_, [this](auto line) { told_.append(line).append("; "); });
  }

  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
  std::string told_;
  FeedServer server_;
};

TEST_F(HttpExchange, GetsABodyByteForByteAndPostsAForm) {
  const std::string host = server_.Url("/").substr(7), bytes("a\0\xB0\xA1z", 5);
  server_.Serve("/", bytes);
  server_.Echo("/echo");
  server_.Fail("/created", 201);
  EXPECT_EQ(Get(host) + Post(host + "echo"), bytes + "a=%EA");
  EXPECT_EQ(server_.LastHeader("/echo", "Content-Type"), "application/x-www-form-urlencoded");
  EXPECT_EQ(Get("https://" + host) + Get(host + "404") + Get(host + "created") + Get(""), "");
  EXPECT_EQ(server_.Requests("/"), 1) << "https is not sent in the clear";
}

TEST_F(HttpExchange, SendsAQueryByteForByteAlsoThroughAProxyButNoControlCharacter) {
  RequestRecorder recorder;
  constexpr const char* kKey =
      R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
  Lines lines;
  for (const std::string& start : Lines{"", "http://feeds.invalid"}) {
    const std::string address = start.empty() ? recorder.HostAndPort() : start;
    for (const std::string& query : Lines{"str=\xB0\xA1 b&c=#d", "\xFF?/%B0%a1+%zz%<\"'>[]{}|\\^`",
                                          " #", "http://x/?../a/./b", std::string(50'000, '&')}) {
      EXPECT_EQ(Get(address + "/search?" + query), "body") << query;
      lines.push_back("GET " + start + "/search?" + query + " HTTP/1.1");
    }
    EXPECT_EQ(Post(address + "?a b#c"), "body");
    lines.push_back("POST " + start + "/?a b#c HTTP/1.1");
    for (const char* rest : {"?# HTTP/1.1\r\nX-Injected: 1\r\n\r\n", "?a\n", "?a\x7F", "a path?x"})
      EXPECT_EQ(Get(address + "/x" + rest) + Post(address + "/x" + rest), "") << rest;
    ASSERT_TRUE(registry_.WriteString(kKey, "ProxyServer", recorder.HostAndPort()) &&
                registry_.WriteDword(kKey, "ProxyEnable", 1));
  }
  EXPECT_EQ(recorder.Lines(), lines);
}

TEST_F(HttpExchange, TellsEachStepToALog) {
  server_.Serve("/new", "body");
  server_.Redirect("/old", "/new");
  EXPECT_EQ(Get(server_.Url("/old")), "body");
  const std::string exchange =
      "Name resolved 127.0.0.1; Connecting to socket address; Connected to socket address; "
      "Sending request; Request sent; Response received; ";
  EXPECT_EQ(told_, "Handle created; Resolving name 127.0.0.1; " + exchange + "Being redirected; " +
                       exchange +
                       "Closing the connection to the server; Request complete; "
                       "Connection to the server closed; ");
}

}  // namespace feedloom
