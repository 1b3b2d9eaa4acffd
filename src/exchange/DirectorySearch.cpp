#include "exchange/DirectorySearch.h"

#include <utility>

#include "fetch/TimeLimit.h"

namespace feedloom {
namespace {

DirectoryAnswer RequestPage(const FetchServices& services, const std::string& service,
                            const std::string& word, int number, const std::stop_token& stop) {
  HttpClient client(services.registry);
  const TimeLimit limit(services.clock, kDirectoryTimeLimit, stop);
  return SearchDirectory(client, service, word, number, limit.Token());
}

}  // namespace

DirectorySearch::DirectorySearch(SharedServices services, std::string service,
                                 BackgroundJobs::Post toOwner)
    : services_(std::move(services)), service_(std::move(service)), jobs_(std::move(toOwner)) {}

void DirectorySearch::Begin(const std::string& word, OnAnswer onAnswer) {
  GiveUp();
  Request(word, 1, std::move(onAnswer));
}

void DirectorySearch::More(OnAnswer onAnswer) {
  if (!isRunning_ && HasMore()) Request(word_, page_ + 1, std::move(onAnswer));
}

bool DirectorySearch::HasMore() const {
  return total_ >= 1 && std::int64_t{page_} * kDirectoryPageSize < total_;
}

void DirectorySearch::GiveUp() {
  jobs_.StopAll();
  isRunning_ = false;
}

void DirectorySearch::Request(const std::string& word, int number, OnAnswer onAnswer) {
  isRunning_ = true;
  const auto take = [this, word, number, onAnswer = std::move(onAnswer)](DirectoryAnswer page) {
    isRunning_ = false;
    StoreResult(word, number, page.isAnswered ? number : number - 1, page.total);
    onAnswer(std::move(page));
  };
  const auto request = [services = services_, service = service_, word, number, take](
                           const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    tell([take, page = RequestPage(*services, service, word, number, stop)]() mutable {
      take(std::move(page));
    });
  };
  jobs_.Start(request, [take] { take({}); });
}

// Called only when a request has ended: until then More continues the search before it.
void DirectorySearch::StoreResult(const std::string& word, int requested, int arrived, int total) {
  word_ = word;
  page_ = arrived;
  if (requested == 1) total_ = total;
}

}  // namespace feedloom
