// Parses one downloaded document into a channel's header and items.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "ingest/FeedDocument.h"
#include "ingest/OpmlOutlines.h"

namespace feedloom {

struct ParseOptions {
  XmlLimits limits = {};
  bool readsOutlines = true;  // false: of an OPML document only the format is read
};

// Parses one document. Each object is used once, by one thread. Texts are in the code page that the
// constructor was given.
class FeedParser {
 public:
  explicit FeedParser(CodePage codePage, ParseOptions options = {})
      : codePage_(codePage), options_(std::move(options)) {}

  // Parses the file at `path`: RSS, RDF or Atom into the header and the items, OPML into the
  // outlines. Returns kParsed or a negative ParseCode. After a failure the items are incomplete.
  [[nodiscard]] int Parse(const std::string& path, std::stop_token stop = {});

  // True when Parse has failed because the document exceeds ParseOptions::limits.
  bool IsTooLarge() const { return isTooLarge_; }

  // The document's format; Unknown when Parse has not recognised the root element.
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
