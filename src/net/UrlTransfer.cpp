#include "net/UrlTransfer.h"

#include <curl/curl.h>
#include <fmt/core.h>

#include <memory>
#include <mutex>

#include "net/AnswerHeaders.h"
#include "net/TransferPool.h"
#include "net/Url.h"
#include "net/UrlHandle.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr curl_off_t kMaxBytes = 64L << 20;
constexpr long kMaxRedirects = 10;
// With two ways to choose from, the library sends a login only when it is asked for.
constexpr long kLoginWays = CURLAUTH_BASIC | CURLAUTH_DIGEST;
constexpr long kStatusUnauthorized = 401;

struct FreeList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using HeaderList = std::unique_ptr<curl_slist, FreeList>;

// A handle for `address` with `query`, which is not encoded. Null when the two are no URL, or
// contain a control character: a line break would end the request line.
UrlHandle RawAddress(const std::string& address, const std::string& query) {
  UrlHandle url(curl_url());
  const auto set = [&url](CURLUPart part, const std::string& text, unsigned flags) {
    return curl_url_set(url.get(), part, text.c_str(), flags) == CURLUE_OK;
  };
  if (HasControls(address) || HasControls(query) || !set(CURLUPART_URL, address, 0)) return nullptr;
  // The library cuts a whole address at "#". It accepts "#" in a query that is set separately, but
  // then changes the escapes in it.
  const bool isSet =
      query.empty() ||
      (query.find('#') == query.npos ? set(CURLUPART_URL, address + "?" + query, CURLU_ALLOW_SPACE)
                                     : set(CURLUPART_QUERY, query, 0));
  return isSet ? std::move(url) : nullptr;
}

// The login for the server of the request's address.
std::optional<HostLogin> LoginFor(const TransferRequest& request) {
  const std::string origin = UrlOrigin(request.address);
  if (request.login && request.login->origin == origin) return request.login->login;
  return FindHostLogin(request.web.loginFile, origin);
}

void InitializeCurlOnce() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

// One attempt at a transfer, and the data that its callbacks need.
class Transfer {
 public:
  Transfer(const TransferRequest& request, const std::optional<HostLogin>& login,
           TransferHandles& handles, bool newConnection)
      : request_(request),
        login_(login),
        host_(UrlHost(request.address)),
        multi_(handles.multi.get()),
        easy_(handles.easy.get()) {
    Set(CURLOPT_FRESH_CONNECT, newConnection ? 1L : 0L);
    SetTarget();
    SetLogin();
    SetHeaders();
    SetLimits();
    SetProxy();
    SetCallbacks();
  }

  // The handle outlives this object and must not keep pointers to it. Its cookies outlive a reset.
  ~Transfer() {
    Set(CURLOPT_COOKIELIST, "ALL");
    curl_easy_reset(easy_);
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  TransferResult Run(std::stop_token stop) {
    Report(TransferEvent::Created);
    curl_multi_add_handle(multi_, easy_);
    const std::stop_callback wake(stop, [this] { curl_multi_wakeup(multi_); });
    const CURLcode code = Drive(stop);
    curl_multi_remove_handle(multi_, easy_);
    Report(TransferEvent::ClosingConnection);
    TransferResult result = Result(code);
    Report(TransferEvent::ConnectionClosed);
    return result;
  }

  // True when the transfer used a connection that an earlier transfer left open, and no answer
  // came.
  bool FoundStaleConnection(const TransferResult& result) const {
    long connects = 0;
    curl_off_t connected = 0;  // microseconds until there was a connection; 0 without one
    curl_easy_getinfo(easy_, CURLINFO_NUM_CONNECTS, &connects);
    curl_easy_getinfo(easy_, CURLINFO_PRETRANSFER_TIME_T, &connected);
    return !result.ok && result.status == 0 && connected > 0 && connects == 0;
  }

 private:
  void SetTarget() {
    if (request_.rawQuery) {
      url_ = RawAddress(request_.address, *request_.rawQuery);
      Set(CURLOPT_CURLU, url_.get());  // null makes the transfer fail
    } else {
      Set(CURLOPT_URL, request_.address.c_str());
    }
    Set(CURLOPT_PROTOCOLS_STR, request_.allowFile ? "http,https,file" : "http,https");
    Set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_USERAGENT, request_.web.userAgent.c_str());
    Set(CURLOPT_ACCEPT_ENCODING, "");  // every compression that the library supports
    if (request_.form) {
      Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.form->size()));
      Set(CURLOPT_POSTFIELDS, request_.form->data());
    }
  }

  void SetLogin() {
    // A cookie that has expired begins to keep cookies in memory. CURLOPT_COOKIEFILE would lose its
    // memory when the handle is reset.
    Set(CURLOPT_COOKIELIST, "Set-Cookie: a=; expires=Thu, 01 Jan 1970 00:00:00 GMT");
    Set(CURLOPT_UNRESTRICTED_AUTH, 0L);
    if (!login_) return;
    Set(CURLOPT_HTTPAUTH, kLoginWays);
    Set(CURLOPT_USERNAME, login_->name.c_str());
    Set(CURLOPT_PASSWORD, login_->password.c_str());
  }

  void SetHeaders() {
    const auto add = [this](const char* name, const std::string& value) {
      if (value.empty() || HasControls(value)) return;
      curl_slist* const longer = curl_slist_append(headers_.get(), (name + value).c_str());
      if (longer == nullptr) return;
      headers_.release();
      headers_.reset(longer);
    };
    add("If-None-Match: ", request_.known.etag);
    add("If-Modified-Since: ", request_.known.lastModified);
    Set(CURLOPT_HTTPHEADER, headers_.get());
  }

  void SetLimits() {
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(CURLOPT_MAXREDIRS, kMaxRedirects);
    Set(CURLOPT_MAXFILESIZE_LARGE, kMaxBytes);
    Set(CURLOPT_FAILONERROR, 1L);
    Set(CURLOPT_NOSIGNAL, 1L);
    // A stopped transfer must not wait for a name server: the resolver's thread ends by itself.
    Set(CURLOPT_QUICK_EXIT, 1L);
    Set(CURLOPT_ERRORBUFFER, errorText_);
  }

  void SetProxy() {
    // Without a value, the library would read the environment; an empty one prevents that.
    Set(CURLOPT_PROXY, ProxyFor(request_.web.proxy, UrlScheme(request_.address)).c_str());
    Set(CURLOPT_NOPROXY, DirectHosts(request_.web.proxy, host_).c_str());
  }

  void SetCallbacks() {
    Set(CURLOPT_WRITEFUNCTION, &OnBody);
    Set(CURLOPT_WRITEDATA, this);
    Set(CURLOPT_HEADERFUNCTION, &OnHeader);
    Set(CURLOPT_HEADERDATA, this);
    if (!request_.onEvent) return;
    Set(CURLOPT_RESOLVER_START_FUNCTION, &OnResolverStart);
    Set(CURLOPT_RESOLVER_START_DATA, this);
    Set(CURLOPT_SOCKOPTFUNCTION, &OnSocket);
    Set(CURLOPT_SOCKOPTDATA, this);
    Set(CURLOPT_PREREQFUNCTION, &OnRequest);
    Set(CURLOPT_PREREQDATA, this);
  }

  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_easy_setopt(easy_, option, value);
  }

  CURLcode Drive(const std::stop_token& stop) {
    constexpr int kLongestPollMs = 1000;
    int running = 1;
    while (!stop.stop_requested()) {
      if (curl_multi_perform(multi_, &running) != CURLM_OK) return CURLE_FAILED_INIT;
      if (running == 0) return Outcome();
      curl_multi_poll(multi_, nullptr, 0, kLongestPollMs, nullptr);
    }
    return CURLE_ABORTED_BY_CALLBACK;
  }

  CURLcode Outcome() {
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(multi_, &left);
    return message != nullptr ? message->data.result : CURLE_FAILED_INIT;
  }

  TransferResult Result(CURLcode code) {
    TransferResult result;
    curl_easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &result.status);
    result.retryAfter = AnswerRetryAfter(easy_);
    result.ok = code == CURLE_OK;
    if (result.ok || result.status != 0) result.address = EffectiveAddress();
    if (redirects_.AllPermanent()) result.movedTo = result.address;
    result.wantsLogin = result.status == kStatusUnauthorized && OffersLogin();
    result.failure = Failure(code, result);
    if (!result.ok) {
      result.error = ErrorText(code, result);
      return result;
    }
    result.validators = AnswerValidators(easy_);
    result.maxAge = AnswerMaxAge(easy_);
    Report(TransferEvent::Complete);
    return result;
  }

  TransferFailure Failure(CURLcode code, const TransferResult& result) const {
    if (tooLong_) return TransferFailure::TooLarge;
    if (result.wantsLogin && code == CURLE_HTTP_RETURNED_ERROR) return TransferFailure::LoginWanted;
    return FailureOf(code, result.status != 0);
  }

  std::string ErrorText(CURLcode code, const TransferResult& result) const {
    switch (result.failure) {
      case TransferFailure::Stopped:
        return "stopped";
      case TransferFailure::TooLarge:
        return fmt::format("longer than {} bytes", kMaxBytes);
      case TransferFailure::LoginWanted:
        return WasSent(result.address) ? "the server refuses the name and the password"
                                       : "the server wants a name and a password";
      default:
        return *errorText_ != '\0' ? errorText_ : curl_easy_strerror(code);
    }
  }

  bool OffersLogin() const {
    long ways = 0;
    curl_easy_getinfo(easy_, CURLINFO_HTTPAUTH_AVAIL, &ways);
    return (ways & kLoginWays) != 0;
  }

  // Whether the server of `address` was sent a login. The library prefers login_ to the address's.
  bool WasSent(const std::string& address) const {
    const bool hasLogin = login_ || UrlWithoutLogin(request_.address) != request_.address;
    return hasLogin && UrlOrigin(address) == UrlOrigin(request_.address);
  }

  std::string EffectiveAddress() const {
    const char* address = nullptr;
    curl_easy_getinfo(easy_, CURLINFO_EFFECTIVE_URL, &address);
    return address == nullptr ? "" : UrlWithoutLogin(address);
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
    auto* transfer = static_cast<Transfer*>(self);
    transfer->redirects_.TakeLine(header);
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
  const std::optional<HostLogin>& login_;
  const std::string host_;
  char errorText_[CURL_ERROR_SIZE] = "";
  UrlHandle url_;
  HeaderList headers_;
  CURLM* const multi_;
  CURL* const easy_;
  curl_off_t received_ = 0;
  bool tooLong_ = false;
  RedirectWatch redirects_;
};

TransferResult RunWithLogin(const TransferRequest& request, const std::stop_token& stop) {
  TransferPool ownPool;
  TransferPool& pool = request.pool == nullptr ? ownPool : *request.pool;
  const auto login = LoginFor(request);
  auto handles = pool.Take(UrlOrigin(request.address));
  TransferResult result;
  bool isStale = false;
  do {
    Transfer transfer(request, login, *handles, isStale);
    result = transfer.Run(stop);
    isStale = !isStale && transfer.FoundStaleConnection(result) && !stop.stop_requested();
  } while (isStale);
  pool.GiveBack(std::move(handles));
  return result;
}

}  // namespace

TransferResult RunTransfer(const TransferRequest& request, std::stop_token stop) {
  InitializeCurlOnce();
  TransferResult result = RunWithLogin(request, stop);
  const bool isElsewhere = UrlOrigin(result.address) != UrlOrigin(request.address);
  if (result.wantsLogin && isElsewhere && !request.form) {
    TransferRequest there = request;
    there.address = result.address;
    there.rawQuery.reset();
    if (LoginFor(there)) {
      const std::string movedTo = std::move(result.movedTo);
      result = RunWithLogin(there, stop);
      result.movedTo = movedTo;
    }
  }
  if (!result.ok) result.movedTo.clear();
  return result;
}

}  // namespace feedloom
