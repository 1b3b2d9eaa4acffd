#include "feed/FeedParser.h"

#include "feed/FeedPeriod.h"
#include "feed/JsonFeed.h"

namespace feedloom {

int FeedParser::Parse(const std::string& path, std::stop_token stop, const std::string& address) {
  reading_.address = address;
  const ParseCode code = ParseAny(path, std::move(stop));
  const bool isRefused = code < 0 || !IsFeed();
  if (isRefused && code != kParseStopped && fault_.kind == DocumentFaultKind::None) {
    fault_ = UnreadableFault(path, error_);
  }
  return code;
}

ParseCode FeedParser::ParseAny(const std::string& path, std::stop_token stop) {
  return reading_.isLenient && LooksLikeJson(path) ? ParseJson(path, stop)
                                                   : ParseXml(path, std::move(stop));
}

ParseCode FeedParser::ParseJson(const std::string& path, const std::stop_token& stop) {
  JsonFeed feed = ReadJsonFeed(path, reading_, limits_, stop);
  if (feed.code == kParsed) format_ = FeedFormat::JsonFeed;
  error_ = std::move(feed.error);
  header_ = std::move(feed.header);
  items_ = std::move(feed.items);
  return feed.code;
}

ParseCode FeedParser::ParseXml(const std::string& path, std::stop_token stop) {
  XmlDocument document;
  const XmlFaults faults = reading_.isLenient ? XmlFaults::Mended : XmlFaults::Refused;
  const XmlDocument::LoadStatus status = document.Load(path, stop, limits_, faults);
  error_ = document.Excess();
  if (stop.stop_requested()) return kParseStopped;
  if (status == XmlDocument::LoadStatus::OutOfMemory) return kDocumentNotCreated;
  if (status != XmlDocument::LoadStatus::Loaded) {
    fault_ = UnreadableFault(path, error_, document.Fault());
    return kDocumentUnreadable;
  }
  const XmlElement root = document.Root();
  if (!root) return kNoDocumentElement;
  ParseCode code = DetectFormat(root, format_, header_.variants);
  fault_ = RootFault(root, code, format_);
  if (code < 0) return code;
  if (format_ == FeedFormat::Opml) return kParsed;
  period_ = WishedPeriod(root);
  code = ReadFeedHeader(root, reading_, header_);
  if (code < 0) return code;
  return ReadFeedItems(root, header_.variants, reading_, std::move(stop), items_);
}

}  // namespace feedloom
