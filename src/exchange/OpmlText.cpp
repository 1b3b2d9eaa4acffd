#include "exchange/OpmlText.h"

#include "text/Text.h"

namespace feedloom {
namespace {

std::string Escaped(const std::string& text) { return ReplaceAll(text, "&", "&amp;"); }

void AppendChannel(const Channel& channel, std::string& opml) {
  const std::string title = Escaped(channel.title);
  opml.append(R"(<outline type="rss" text=")").append(title);
  opml.append(R"(" title=")").append(title);
  opml.append(R"(" xmlUrl=")").append(Escaped(channel.xmlLink)).append(R"("/>)");
}

void AppendFolder(const SubscriptionFolder& folder, std::string& opml) {
  opml.append(R"(<outline text=")").append(Escaped(folder.name)).append(R"(">)");
  for (const Channel& channel : folder.channels) AppendChannel(channel, opml);
  opml.append("</outline>");
}

}  // namespace

std::string BuildOpml(const SubscriptionList& list, CodePage codePage, const std::string& created) {
  std::string opml = R"(<?xml version="1.0" encoding=")";
  opml.append(codePage.DeclaredName()).append(R"("?><opml version="1.0"><head>)");
  opml.append("<title>Skyfold OPML</title><dateCreated>").append(created).append("</dateCreated>");
  opml.append("<ownerName>Skyfold</ownerName></head><body>");
  for (const SubscriptionFolder& folder : list) AppendFolder(folder, opml);
  return opml.append("</body></opml>");
}

}  // namespace feedloom
