#include "exchange/DirectorySearch.h"

#include <chrono>
#include <utility>

#include "ingest/TimeLimit.h"

namespace feedloom {
namespace {

constexpr std::chrono::seconds kLongestRequest{10};

struct Page {
  DirectoryAnswer answer;
  int total = 0;
};

Page AskFor(const IngestServices& services, const std::string& service, const std::string& word,
            int number, const std::stop_token& stop) {
  Page page;
  HttpClient client(services.registry);
  const TimeLimit limit(services.clock, kLongestRequest, stop);
  page.total = SearchDirectory(client, service, page.answer.rows, word, number, limit.Token(),
                               page.answer.isAnswered);
  return page;
}

}  // namespace

DirectorySearch::DirectorySearch(SharedServices services, std::string service,
                                 BackgroundJobs::Post toOwner)
    : services_(std::move(services)), service_(std::move(service)), jobs_(std::move(toOwner)) {}

void DirectorySearch::Begin(const std::string& word, OnAnswer onAnswer) {
  GiveUp();
  word_ = word;
  page_ = 0;
  total_ = 0;
  Ask(1, std::move(onAnswer));
}

void DirectorySearch::More(OnAnswer onAnswer) {
  if (!isRunning_ && HasMore()) Ask(page_ + 1, std::move(onAnswer));
}

bool DirectorySearch::HasMore() const {
  return total_ >= 1 && std::int64_t{page_} * kDirectoryPageSize < total_;
}

void DirectorySearch::GiveUp() {
  jobs_.StopAll();
  isRunning_ = false;
}

void DirectorySearch::Ask(int number, OnAnswer onAnswer) {
  isRunning_ = true;
  jobs_.Start([this, services = services_, service = service_, word = word_, number,
               onAnswer = std::move(onAnswer)](const std::stop_token& stop,
                                               const BackgroundJobs::Tell& tell) {
    tell([this, onAnswer, number, page = AskFor(*services, service, word, number, stop)] {
      isRunning_ = false;
      if (page.answer.isAnswered) page_ = number;
      if (page.answer.isAnswered && number == 1) total_ = page.total;
      onAnswer(page.answer);
    });
  });
}

}  // namespace feedloom
