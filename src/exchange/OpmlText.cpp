#include "exchange/OpmlText.h"

#include "text/Text.h"

namespace feedloom {
namespace {

// All of them are ASCII that no second byte of the Korean code page equals.
std::string EscapedChar(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {static_cast<unsigned char>(c) < ' ' ? ' ' : c};
  }
}

// Writes a list's outlines.
class OutlineWriter {
 public:
  OutlineWriter(OpmlEscaping escaping, std::string& opml) : escaping_(escaping), opml_(opml) {}

  void Append(const SubscriptionFolder& folder) {
    opml_.append(R"(<outline text=")").append(Escaped(folder.name)).append(R"(">)");
    for (const Channel& channel : folder.channels) Append(channel);
    opml_.append("</outline>");
  }

 private:
  void Append(const Channel& channel) {
    const std::string title = Escaped(channel.title);
    opml_.append(R"(<outline type="rss" text=")").append(title);
    opml_.append(R"(" title=")").append(title);
    opml_.append(R"(" xmlUrl=")").append(Escaped(channel.xmlLink)).append(R"("/>)");
  }

  std::string Escaped(const std::string& text) const {
    if (escaping_ == OpmlEscaping::AmpersandOnly) return ReplaceAll(text, "&", "&amp;");
    std::string escaped;
    for (const char c : text) escaped += EscapedChar(c);
    return escaped;
  }

  const OpmlEscaping escaping_;
  std::string& opml_;
};

}  // namespace

std::string BuildOpml(const SubscriptionList& list, CodePage codePage, const std::string& created,
                      OpmlEscaping escaping) {
  std::string opml = R"(<?xml version="1.0" encoding=")";
  opml.append(codePage.DeclaredName()).append(R"("?><opml version="1.0"><head>)");
  opml.append("<title>Skyfold OPML</title><dateCreated>").append(created).append("</dateCreated>");
  opml.append("<ownerName>Skyfold</ownerName></head><body>");
  for (const SubscriptionFolder& folder : list) OutlineWriter(escaping, opml).Append(folder);
  return opml.append("</body></opml>");
}

}  // namespace feedloom
