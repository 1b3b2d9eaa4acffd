#pragma once

#include <stop_token>
#include <string>

#include "platform/UrlTransfer.h"

namespace feedloom {

// Fetches the request's address (http, https or file:) whole into the file `path`, which is created
// or emptied first; `path` is in the file system's own bytes. The request needs no sink. The limits
// of RunTransfer hold. After a failure, and after an answer without content (status 304), `path`
// may hold a part of the content or nothing. file: is for addresses that the user typed: whoever
// takes addresses from documents refuses it before they get here. Any thread may call it.
TransferResult UrlDownloadToFile(TransferRequest request, const std::string& path,
                                 std::stop_token stop);

}  // namespace feedloom
