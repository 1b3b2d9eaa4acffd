#include "ctl/LoginFromUser.h"

#include <fmt/core.h>

#include "ctl/Output.h"
#include "ctl/Password.h"
#include "net/RequestAddress.h"
#include "net/Url.h"

namespace feedloom {

std::optional<GivenLogin> AskLogin(const std::string& name, const std::string& address) {
  const std::string origin = UrlOrigin(RequestAddress(address));
  if (origin.empty()) {
    PrintError("--user is for an address on a web server");
    return std::nullopt;
  }
  const auto password = ReadPassword(fmt::format("Password of {} at {}: ", name, origin));
  if (!password) PrintError("no password on standard input");
  return password ? std::optional(GivenLogin{origin, {name, *password}}) : std::nullopt;
}

FetchedOnce FetchWithLogin(Session& session, const std::string& address,
                           std::optional<GivenLogin>& login, FeedParser& parser) {
  FetchedOnce fetched = FetchOnce(session, address, parser, login);
  const FetchOutcome& outcome = fetched.outcome;
  const bool hasMoved = login && outcome.result == kLoginWanted &&
                        outcome.loginServer != login->origin &&
                        UrlHost(outcome.loginServer) == UrlHost(login->origin);
  if (!hasMoved) return fetched;
  login->origin = outcome.loginServer;
  return FetchOnce(session, address, parser, login);
}

}  // namespace feedloom
