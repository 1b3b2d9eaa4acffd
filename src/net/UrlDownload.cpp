#include "net/UrlDownload.h"

#include <cstring>
#include <fstream>

#include "net/RequestAddress.h"

namespace feedloom {

TransferResult UrlDownloadToFile(TransferRequest request, const std::string& path,
                                 std::stop_token stop) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) return {.error = std::string("cannot write the file: ") + std::strerror(errno)};
  request.address = RequestAddress(request.address);
  request.allowFile = true;
  request.sink = [&file](std::string_view bytes) {
    return static_cast<bool>(file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())));
  };
  TransferResult result = RunTransfer(request, std::move(stop));
  file.close();
  if (result.ok && !file) return {.error = "cannot write the file"};
  return result;
}

}  // namespace feedloom
