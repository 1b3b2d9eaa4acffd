#include "host/HandOver.h"

#include <QByteArray>
#include <algorithm>
#include <charconv>
#include <filesystem>

#include "text/Text.h"

namespace feedloom {
namespace {

// A frame is the length of its body, four bytes with the highest one first, and the body: fields
// that each end with a zero byte, which no argument contains. They are kMark, the number of omitted
// contents, the activation token, kHidden or nothing, and the contents.
constexpr std::size_t kLengthBytes = 4;
constexpr std::string_view kMark = "feedloom hand-over 1";
constexpr std::string_view kHidden = "hidden";

void AddField(std::string& body, std::string_view text) { body.append(text).push_back('\0'); }

std::string LengthOf(std::string_view body) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(char(body.size() >> shift & 0xFF));
  return bytes;
}

std::size_t ReadLength(std::string_view bytes) {
  std::size_t length = 0;
  for (const char byte : bytes.substr(0, kLengthBytes))
    length = length << 8 | static_cast<unsigned char>(byte);
  return length;
}

std::optional<std::size_t> ReadNumber(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::vector<std::string> FieldsOf(std::string_view body) {
  std::vector<std::string> fields;
  for (std::size_t end = 0; (end = body.find('\0')) != body.npos; body.remove_prefix(end + 1))
    fields.emplace_back(body.substr(0, end));
  return fields;
}

ReceivedFrame ReadBody(std::string_view body) {
  constexpr std::size_t kHeadFields = 4;
  std::vector<std::string> fields = FieldsOf(body);
  if (fields.size() < kHeadFields || fields[0] != kMark || !body.ends_with('\0')) {
    return {ReceivedFrame::State::Nonsense};
  }
  const auto omitted = ReadNumber(fields[1]);
  if (!omitted) return {ReceivedFrame::State::Nonsense};
  HandOver handOver{
      .omitted = *omitted, .activationToken = fields[2], .isHidden = fields[3] == kHidden};
  handOver.contents.assign(fields.begin() + kHeadFields, fields.end());
  return {ReceivedFrame::State::Whole, std::move(handOver)};
}

// By RFC 3986. One letter alone is no scheme that anybody uses.
std::string SchemeOf(std::string_view text) {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";
  const std::string scheme = ToUpperAscii(text.substr(0, std::min(text.find(':'), text.size())));
  const bool isScheme = scheme.size() > 1 && scheme.size() < text.size() && scheme[0] >= 'A' &&
                        scheme.find_first_not_of(kLetters) == scheme.npos;
  return isScheme ? scheme : "";
}

// By RFC 8089; none of a file on another machine.
std::optional<std::string> PathOfFileAddress(std::string_view address) {
  std::string_view path = address.substr(address.find(':') + 1);
  if (path.starts_with("//")) {
    const std::string_view host = path.substr(2, path.find('/', 2) - 2);
    if (!host.empty() && host != "localhost") return std::nullopt;
    path.remove_prefix(2 + host.size());
  }
  if (!path.starts_with('/')) return std::nullopt;
  return QByteArray::fromPercentEncoding({path.data(), qsizetype(path.size())}).toStdString();
}

}  // namespace

std::string ContentOf(const std::string& argument, const std::string& directory) {
  const std::string scheme = SchemeOf(argument);
  if (scheme.empty()) return (std::filesystem::path(directory) / argument).string();
  return scheme == "FILE" ? PathOfFileAddress(argument).value_or(argument) : argument;
}

std::string FrameOf(HandOver handOver) {
  // The number of omitted contents is known last and has this room.
  constexpr std::size_t kNumberBytes = 20;
  std::string contents;
  const std::size_t taken = kLengthBytes + kMark.size() + kNumberBytes +
                            handOver.activationToken.size() + kHidden.size() + 4;
  for (const std::string& content : handOver.contents) {
    const bool fits = taken + contents.size() + content.size() < kMaxFrame;
    fits ? AddField(contents, content) : void(++handOver.omitted);
  }
  std::string body;
  AddField(body, kMark);
  AddField(body, std::to_string(handOver.omitted));
  AddField(body, handOver.activationToken);
  AddField(body, handOver.isHidden ? kHidden : "");
  body += contents;
  return LengthOf(body) + body;
}

ReceivedFrame ReadFrame(std::string_view received) {
  if (received.size() < kLengthBytes) return {};
  const std::size_t length = ReadLength(received);
  const std::string_view body = received.substr(kLengthBytes);
  if (length > kMaxFrame - kLengthBytes || body.size() > length) {
    return {ReceivedFrame::State::Nonsense};
  }
  return body.size() < length ? ReceivedFrame() : ReadBody(body);
}

}  // namespace feedloom
