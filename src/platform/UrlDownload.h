#pragma once

#include <stop_token>
#include <string>

#include "platform/ProxySettings.h"
#include "platform/UrlTransfer.h"

namespace feedloom {

// Fetches `address` (http, https or file:) whole into the file `path`, which is created or emptied
// first; `path` is in the file system's own bytes. The limits of RunTransfer hold. After a failure
// `path` may hold a part of the content. file: is for addresses that the user typed: whoever takes
// addresses from documents refuses it before they get here. Any thread may call it.
TransferResult UrlDownloadToFile(const std::string& address, const std::string& path,
                                 const ProxySettings& proxy, std::stop_token stop);

}  // namespace feedloom
