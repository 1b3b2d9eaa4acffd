// Parses one downloaded document into a channel's header and items.
#pragma once

#include <chrono>
#include <stop_token>
#include <string>
#include <vector>

#include "feed/DocumentFault.h"
#include "feed/FeedDocument.h"

namespace feedloom {

// Parses one document. Each object is used once, by one thread. Texts are in the code page of the
// reading that the constructor was given.
class FeedParser {
 public:
  explicit FeedParser(const FeedReading& reading, XmlLimits limits = {})
      : reading_(reading), limits_(std::move(limits)) {}

  // Parses the file at `path`: RSS, RDF or Atom into the header and the items; of OPML only
  // the format is read. A lenient reading takes JSON Feed as well; it makes addresses absolute, for
  // which `address`, the document's own in UTF-8, is the last base. Returns kParsed or a negative
  // ParseCode. After a failure the items are incomplete.
  [[nodiscard]] int Parse(const std::string& path, std::stop_token stop = {},
                          const std::string& address = {});

  // Why the document was refused, in English, where there is more to say than the code does; else
  // empty.
  const std::string& Error() const { return error_; }

  // What the document is in place of a feed. None when it is one, and when Parse was stopped.
  const DocumentFault& Fault() const { return fault_; }

  // WishedPeriod; 0 for JSON Feed, which has no word for it.
  std::chrono::seconds Period() const { return period_; }

  // The document's format; Unknown when Parse has not recognised the root element.
  FeedFormat GetFormat() const { return format_; }
  bool IsFeed() const { return format_ != FeedFormat::Unknown && format_ != FeedFormat::Opml; }
  const FeedVariants& Variants() const { return header_.variants; }
  const std::string& GetChannelTitle() const { return header_.title; }
  const std::string& GetChannelLink() const { return header_.link; }
  const std::vector<FeedItem>& Items() const { return items_; }
  std::vector<FeedItem> TakeItems() { return std::move(items_); }

 private:
  ParseCode ParseAny(const std::string& path, std::stop_token stop);
  ParseCode ParseXml(const std::string& path, std::stop_token stop);
  ParseCode ParseJson(const std::string& path, const std::stop_token& stop);

  FeedReading reading_;
  const XmlLimits limits_;
  std::string error_;
  DocumentFault fault_;
  FeedFormat format_ = FeedFormat::Unknown;
  FeedHeader header_;
  std::chrono::seconds period_{0};
  std::vector<FeedItem> items_;
};

}  // namespace feedloom
