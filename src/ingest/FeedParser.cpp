#include "ingest/FeedParser.h"

namespace feedloom {
namespace {

// OPML 2.0 has its outlines in "body". Outlines directly below the root are read too, because some
// lists have no "body".
int ReadOpml(const XmlElement& root, CodePage codePage, const std::stop_token& stop,
             std::vector<OpmlOutline>& out) {
  int code = ReadOpmlOutlines(root, codePage, stop, out);
  for (const XmlElement& body : root.Children("body")) {
    if (code >= 0) code = ReadOpmlOutlines(body, codePage, stop, out);
  }
  return stop.stop_requested() ? kParseStopped : code;
}

}  // namespace

int FeedParser::Parse(const std::string& path, std::stop_token stop) {
  XmlDocument document;
  const XmlDocument::LoadStatus status = document.Load(path, stop, options_.limits);
  if (stop.stop_requested()) return kParseStopped;
  if (status == XmlDocument::LoadStatus::OutOfMemory) return kDocumentNotCreated;
  isTooLarge_ = status == XmlDocument::LoadStatus::TooLarge;
  if (status != XmlDocument::LoadStatus::Loaded) return kDocumentUnreadable;
  const XmlElement root = document.Root();
  if (!root) return kNoDocumentElement;
  ParseCode code = DetectFormat(root, format_, header_.variants);
  if (code < 0) return code;
  if (format_ == FeedFormat::Opml) {
    return options_.readsOutlines ? ReadOpml(root, codePage_, stop, outlines_) : kParsed;
  }
  code = ReadFeedHeader(root, codePage_, header_);
  if (code < 0) return code;
  return ReadFeedItems(root, header_.variants, codePage_, std::move(stop), items_);
}

}  // namespace feedloom
