// Turns one downloaded document into a channel's header and its items.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "ingest/FeedDocument.h"
#include "ingest/OpmlOutlines.h"

namespace feedloom {

struct ParseOptions {
  XmlLimits limits = {};
  bool readsOutlines = true;  // false: an OPML document is recognised, and no more
};

// One object a parse; not shared between threads.
class FeedParser {
 public:
  explicit FeedParser(CodePage codePage, ParseOptions options = {})
      : codePage_(codePage), options_(std::move(options)) {}

  // Reads the file at `path`: RSS, RDF or Atom into the header and the items, OPML into the
  // outlines. 0 on success, else a negative ParseCode, after which the items mean nothing.
  [[nodiscard]] int Parse(const std::string& path, std::stop_token stop = {});

  // True when the document, which was unreadable then, had exceeded the limits.
  bool IsTooLarge() const { return isTooLarge_; }

  // Unknown until the root element was recognised. Only Rss and Atom documents are feeds.
  FeedFormat GetFormat() const { return format_; }
  bool IsFeed() const { return format_ == FeedFormat::Rss || format_ == FeedFormat::Atom; }
  const FeedVariants& Variants() const { return header_.variants; }
  const std::string& GetChannelTitle() const { return header_.title; }
  const std::string& GetChannelLink() const { return header_.link; }
  const std::vector<FeedItem>& Items() const { return items_; }
  std::vector<FeedItem> TakeItems() { return std::move(items_); }
  const std::vector<OpmlOutline>& Outlines() const { return outlines_; }

 private:
  const CodePage codePage_;
  const ParseOptions options_;
  bool isTooLarge_ = false;
  FeedFormat format_ = FeedFormat::Unknown;
  FeedHeader header_;
  std::vector<FeedItem> items_;
  std::vector<OpmlOutline> outlines_;
};

}  // namespace feedloom
