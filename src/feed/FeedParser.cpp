#include "feed/FeedParser.h"

namespace feedloom {

int FeedParser::Parse(const std::string& path, std::stop_token stop) {
  XmlDocument document;
  const XmlFaults faults = reading_.isLenient ? XmlFaults::Mended : XmlFaults::Refused;
  const XmlDocument::LoadStatus status = document.Load(path, stop, limits_, faults);
  error_ = document.Excess();
  if (stop.stop_requested()) return kParseStopped;
  if (status == XmlDocument::LoadStatus::OutOfMemory) return kDocumentNotCreated;
  if (status != XmlDocument::LoadStatus::Loaded) return kDocumentUnreadable;
  const XmlElement root = document.Root();
  if (!root) return kNoDocumentElement;
  ParseCode code = DetectFormat(root, format_, header_.variants);
  if (code < 0) return code;
  if (format_ == FeedFormat::Opml) return kParsed;
  code = ReadFeedHeader(root, reading_, header_);
  if (code < 0) return code;
  return ReadFeedItems(root, header_.variants, reading_, std::move(stop), items_);
}

}  // namespace feedloom
