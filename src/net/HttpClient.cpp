#include "net/HttpClient.h"

#include <fmt/core.h>

#include <algorithm>

namespace feedloom {
namespace {

// Every address that does not begin with "https://" is asked by plain HTTP.
std::string CompleteAddress(std::string_view address) {
  constexpr std::string_view kHttp = "http://";
  if (address.starts_with("https://")) return std::string(address);
  if (address.starts_with(kHttp)) address.remove_prefix(kHttp.size());
  return std::string(kHttp).append(address);
}

}  // namespace

std::string HttpStatusLine(TransferEvent event, std::string_view name) {
  switch (event) {
    case TransferEvent::Created:
      return "Handle created";
    case TransferEvent::ResolvingName:
      return fmt::format("Resolving name {}", name);
    case TransferEvent::NameResolved:
      return fmt::format("Name resolved {}", name);
    case TransferEvent::Connecting:
      return "Connecting to socket address";
    case TransferEvent::Connected:
      return "Connected to socket address";
    case TransferEvent::SendingRequest:
      return "Sending request";
    case TransferEvent::RequestSent:
      return "Request sent";
    case TransferEvent::ResponseReceived:
      return "Response received";
    case TransferEvent::Redirecting:
      return "Being redirected";
    case TransferEvent::ClosingConnection:
      return "Closing the connection to the server";
    case TransferEvent::ConnectionClosed:
      return "Connection to the server closed";
    case TransferEvent::Complete:
      return "Request complete";
  }
  return fmt::format("Unknown status: {}", static_cast<int>(event));
}

HttpClient::HttpClient(const Registry& registry, StatusLog log)
    : web_(ReadWebAccess(registry)), log_(std::move(log)) {}

std::string HttpClient::Get(const std::string& address, std::stop_token stop) {
  return Exchange(address, std::nullopt, std::move(stop));
}

std::string HttpClient::Post(const std::string& address, const std::string& formData,
                             std::stop_token stop) {
  return Exchange(address, formData, std::move(stop));
}

std::string HttpClient::Exchange(const std::string& address, std::optional<std::string> form,
                                 std::stop_token stop) {
  constexpr long kStatusOk = 200;
  std::string body;
  const auto query = std::min(address.find('?'), address.size());
  TransferRequest request{
      .address = CompleteAddress(std::string_view(address).substr(0, query)),
      .rawQuery = address.substr(std::min(query + 1, address.size())),
      .form = std::move(form),
      .web = web_,
      .sink =
          [&body](std::string_view bytes) {
            body += bytes;
            return true;
          },
  };
  if (log_) {
    request.onEvent = [this](TransferEvent event, std::string_view name) {
      log_(HttpStatusLine(event, name));
    };
  }
  const TransferResult result = RunTransfer(request, std::move(stop));
  return result.ok && result.status == kStatusOk ? body : std::string();
}

}  // namespace feedloom
