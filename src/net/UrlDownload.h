#pragma once

#include <stop_token>
#include <string>

#include "net/UrlTransfer.h"

namespace feedloom {

// Fetches the content of the request's address (http, https or file:) into the file `path`, which
// is created, or emptied if it exists. The address is made fit by RequestAddress. `path` consists
// of the file system's bytes. The request's sink and allowFile are ignored; the limits of
// RunTransfer apply. After a failure `path` may hold a part of the content, and after an answer
// without content (status 304) nothing. file: is meant for addresses that the user typed: a caller
// must refuse it in addresses from documents. Any thread may call it.
[[nodiscard]] TransferResult UrlDownloadToFile(TransferRequest request, const std::string& path,
                                               std::stop_token stop);

}  // namespace feedloom
