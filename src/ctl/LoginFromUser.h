// A name and a password that the user gives for a feed's server.
#pragma once

#include <optional>
#include <string>

#include "ctl/FetchOnce.h"

namespace feedloom {

// Reads the password of `name` (UTF-8) for the server of `address` (ASCII). After a failure prints
// an error and returns nothing.
std::optional<GivenLogin> AskLogin(const std::string& name, const std::string& address);

// FetchOnce with `login`, if any. A redirect to the same host, usually from http to https, takes
// the login along, which then is for that server.
FetchedOnce FetchWithLogin(Session& session, const std::string& address,
                           std::optional<GivenLogin>& login, FeedParser& parser);

}  // namespace feedloom
