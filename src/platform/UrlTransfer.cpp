#include "platform/UrlTransfer.h"

#include <curl/curl.h>
#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <mutex>

#include "platform/Text.h"
#include "platform/UrlHandle.h"
#include "platform/UrlParts.h"

namespace feedloom {
namespace {

constexpr curl_off_t kMaxBytes = 64L << 20;
constexpr long kMaxRedirects = 10;
constexpr const char* kUserAgent = "Feedloom/" FEEDLOOM_VERSION;

struct CleanUpEasy {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct CleanUpMulti {
  void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};

bool HasControls(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; });
}

// The address with a query that is not encoded; null when it is none, or would end the request
// line.
UrlHandle RawAddress(const std::string& address, const std::string& query) {
  UrlHandle url(curl_url());
  const auto set = [&url](CURLUPart part, const std::string& text, unsigned flags) {
    return curl_url_set(url.get(), part, text.c_str(), flags) == CURLUE_OK;
  };
  if (HasControls(address) || HasControls(query) || !set(CURLUPART_URL, address, 0)) return nullptr;
  // A whole address is cut at a "#"; a query by itself is not, but the library tidies its escapes.
  const bool isSet =
      query.empty() ||
      (query.find('#') == query.npos ? set(CURLUPART_URL, address + "?" + query, CURLU_ALLOW_SPACE)
                                     : set(CURLUPART_QUERY, query, 0));
  return isSet ? std::move(url) : nullptr;
}

void InitializeCurlOnce() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

// One transfer under way: what its callbacks need, and the handle.
class Transfer {
 public:
  explicit Transfer(const TransferRequest& request)
      : request_(request), host_(UrlHost(request.address)), easy_(curl_easy_init()) {
    SetTarget();
    SetLimits();
    SetProxy();
    SetCallbacks();
  }

  TransferResult Run(std::stop_token stop) {
    const std::unique_ptr<CURLM, CleanUpMulti> multi(curl_multi_init());
    Report(TransferEvent::Created);
    curl_multi_add_handle(multi.get(), easy_.get());
    const std::stop_callback wake(stop, [&multi] { curl_multi_wakeup(multi.get()); });
    const CURLcode code = Drive(multi.get(), stop);
    curl_multi_remove_handle(multi.get(), easy_.get());
    Report(TransferEvent::ClosingConnection);
    TransferResult result = Result(code);
    Report(TransferEvent::ConnectionClosed);
    return result;
  }

 private:
  void SetTarget() {
    if (request_.rawQuery) {
      url_ = RawAddress(request_.address, *request_.rawQuery);
      Set(CURLOPT_CURLU, url_.get());  // without one the library refuses to go
    } else {
      Set(CURLOPT_URL, request_.address.c_str());
    }
    Set(CURLOPT_PROTOCOLS_STR, request_.allowFile ? "http,https,file" : "http,https");
    Set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_USERAGENT, kUserAgent);
    Set(CURLOPT_ACCEPT_ENCODING, "");  // every compression that the library knows
    if (request_.form) {
      Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.form->size()));
      Set(CURLOPT_POSTFIELDS, request_.form->data());
    }
  }

  void SetLimits() {
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(CURLOPT_MAXREDIRS, kMaxRedirects);
    Set(CURLOPT_MAXFILESIZE_LARGE, kMaxBytes);
    Set(CURLOPT_FAILONERROR, 1L);
    Set(CURLOPT_NOSIGNAL, 1L);
    // A stop must not wait for a name server: the resolver's thread ends by itself.
    Set(CURLOPT_QUICK_EXIT, 1L);
    Set(CURLOPT_ERRORBUFFER, errorText_);
  }

  void SetProxy() {
    // An empty text, unlike none, keeps the library from asking the environment.
    Set(CURLOPT_PROXY, ProxyFor(request_.proxy, UrlScheme(request_.address)).c_str());
    Set(CURLOPT_NOPROXY, DirectHosts(request_.proxy).c_str());
  }

  void SetCallbacks() {
    Set(CURLOPT_WRITEFUNCTION, &OnBody);
    Set(CURLOPT_WRITEDATA, this);
    if (!request_.onEvent) return;
    Set(CURLOPT_HEADERFUNCTION, &OnHeader);
    Set(CURLOPT_HEADERDATA, this);
    Set(CURLOPT_RESOLVER_START_FUNCTION, &OnResolverStart);
    Set(CURLOPT_RESOLVER_START_DATA, this);
    Set(CURLOPT_SOCKOPTFUNCTION, &OnSocket);
    Set(CURLOPT_SOCKOPTDATA, this);
    Set(CURLOPT_PREREQFUNCTION, &OnRequest);
    Set(CURLOPT_PREREQDATA, this);
  }

  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_easy_setopt(easy_.get(), option, value);
  }

  CURLcode Drive(CURLM* multi, const std::stop_token& stop) {
    constexpr int kLongestPollMs = 1000;
    int running = 1;
    while (!stop.stop_requested()) {
      if (curl_multi_perform(multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
      if (running == 0) return Outcome(multi);
      curl_multi_poll(multi, nullptr, 0, kLongestPollMs, nullptr);
    }
    return CURLE_ABORTED_BY_CALLBACK;
  }

  static CURLcode Outcome(CURLM* multi) {
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(multi, &left);
    return message != nullptr ? message->data.result : CURLE_FAILED_INIT;
  }

  TransferResult Result(CURLcode code) {
    TransferResult result;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &result.status);
    result.ok = code == CURLE_OK;
    if (result.ok) {
      result.address = EffectiveAddress();
      Report(TransferEvent::Complete);
    } else if (code == CURLE_ABORTED_BY_CALLBACK) {
      result.error = "stopped";
    } else if (tooLong_ || code == CURLE_FILESIZE_EXCEEDED) {
      result.error = fmt::format("longer than {} bytes", kMaxBytes);
    } else {
      result.error = *errorText_ != '\0' ? errorText_ : curl_easy_strerror(code);
    }
    return result;
  }

  std::string EffectiveAddress() const {
    const char* address = nullptr;
    curl_easy_getinfo(easy_.get(), CURLINFO_EFFECTIVE_URL, &address);
    return address == nullptr ? "" : address;
  }

  void Report(TransferEvent event) const {
    if (request_.onEvent) request_.onEvent(event, host_);
  }

  static std::size_t OnBody(char* bytes, std::size_t, std::size_t count, void* self) {
    auto* transfer = static_cast<Transfer*>(self);
    transfer->received_ += static_cast<curl_off_t>(count);
    transfer->tooLong_ = transfer->received_ > kMaxBytes;
    const bool go = !transfer->tooLong_ && transfer->request_.sink({bytes, count});
    return go ? count : 0;
  }

  static std::size_t OnHeader(char* line, std::size_t, std::size_t count, void* self) {
    const std::string_view header(line, count);
    const auto* transfer = static_cast<const Transfer*>(self);
    if (header.starts_with("HTTP/")) transfer->Report(TransferEvent::ResponseReceived);
    if (EqualsIgnoringAsciiCase(header.substr(0, 9), "Location:")) {
      transfer->Report(TransferEvent::Redirecting);
    }
    return count;
  }

  static int OnResolverStart(void*, void*, void* self) {
    static_cast<const Transfer*>(self)->Report(TransferEvent::ResolvingName);
    return 0;
  }

  static int OnSocket(void* self, curl_socket_t, curlsocktype) {
    static_cast<const Transfer*>(self)->Report(TransferEvent::NameResolved);
    static_cast<const Transfer*>(self)->Report(TransferEvent::Connecting);
    return CURL_SOCKOPT_OK;
  }

  static int OnRequest(void* self, char*, char*, int, int) {
    for (const auto event :
         {TransferEvent::Connected, TransferEvent::SendingRequest, TransferEvent::RequestSent}) {
      static_cast<const Transfer*>(self)->Report(event);
    }
    return CURL_PREREQFUNC_OK;
  }

  const TransferRequest& request_;
  const std::string host_;
  char errorText_[CURL_ERROR_SIZE] = "";
  UrlHandle url_;
  std::unique_ptr<CURL, CleanUpEasy> easy_;
  curl_off_t received_ = 0;
  bool tooLong_ = false;
};

}  // namespace

TransferResult RunTransfer(const TransferRequest& request, std::stop_token stop) {
  InitializeCurlOnce();
  return Transfer(request).Run(std::move(stop));
}

}  // namespace feedloom
