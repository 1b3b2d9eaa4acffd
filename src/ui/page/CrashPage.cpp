#include <fmt/format.h>

#include "ui/page/EscapedText.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

// {0} the text, {1} the link's address, {2} the link's text
constexpr char kCrashPage[] = R"(<!DOCTYPE html><html><head><title>Feedloom</title></head>)"
                              R"(<body style="margin:40px;font-family:sans-serif">)"
                              R"(<p>{0}</p><p><a href="{1}">{2}</a></p></body></html>)";

}  // namespace

std::string BuildCrashPage(std::string_view whatHappened, std::string_view again,
                           std::string_view address) {
  return fmt::format(kCrashPage, EscapedText(whatHappened), EscapedText(address),
                     EscapedText(again));
}

}  // namespace feedloom
