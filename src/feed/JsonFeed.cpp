#include "feed/JsonFeed.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <nlohmann/json.hpp>
#include <utility>

#include "feed/FeedAddress.h"
#include "feed/FeedCredits.h"
#include "feed/FeedExtensions.h"
#include "feed/FeedMarkup.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kDeepest = 64;
constexpr std::size_t kCopies = 2;       // of the document
constexpr std::size_t kItemBytes = 512;  // what an item takes beside its texts
constexpr std::string_view kVersion = "https://jsonfeed.org/version/1";
constexpr std::string_view kMark = "\xEF\xBB\xBF";

struct JsonAttachment {
  std::string url, type;
};

// An item as the document has it, in UTF-8.
struct JsonItem {
  std::string id, url, externalUrl, title, html, text, summary, image, banner, published, modified;
  std::string authors, tags;  // one a line
  JsonAttachment media;
};

template <typename Owner>
struct Field {
  std::string_view path;
  std::string Owner::*text;
};

constexpr Field<JsonItem> kItemFields[] = {{"/items/*/id", &JsonItem::id},
                                           {"/items/*/url", &JsonItem::url},
                                           {"/items/*/external_url", &JsonItem::externalUrl},
                                           {"/items/*/title", &JsonItem::title},
                                           {"/items/*/content_html", &JsonItem::html},
                                           {"/items/*/content_text", &JsonItem::text},
                                           {"/items/*/summary", &JsonItem::summary},
                                           {"/items/*/image", &JsonItem::image},
                                           {"/items/*/banner_image", &JsonItem::banner},
                                           {"/items/*/date_published", &JsonItem::published},
                                           {"/items/*/date_modified", &JsonItem::modified}};
constexpr Field<JsonAttachment> kAttachmentFields[] = {
    {"/items/*/attachments/*/url", &JsonAttachment::url},
    {"/items/*/attachments/*/mime_type", &JsonAttachment::type}};
constexpr Field<JsonItem> kItemLists[] = {{"/items/*/author/name", &JsonItem::authors},
                                          {"/items/*/authors/*/name", &JsonItem::authors},
                                          {"/items/*/tags/*", &JsonItem::tags}};

template <typename Fields, typename Owner>
void Fill(const Fields& fields, std::string_view path, Owner& owner, std::string& value) {
  for (const auto& field : fields) {
    if (field.path == path) owner.*field.text = std::move(value);
  }
}

const std::string& FirstOf(std::initializer_list<const std::string*> texts) {
  const auto* const found = std::ranges::find_if(texts, [](auto* text) { return !text->empty(); });
  return **(found == texts.end() ? texts.begin() : found);
}

std::string Link(const JsonItem& json, const FeedReading& reading) {
  const std::string& link = FirstOf({&json.media.url, &json.url, &json.externalUrl});
  if (link.empty()) return HasScheme(json.id) ? json.id : "";
  return AbsoluteAddress(reading.address, link);
}

FeedItem ToItem(const JsonItem& json, const FeedReading& reading) {
  const auto text = [&](const std::string& utf8) { return reading.codePage.FromUtf8(Trim(utf8)); };
  FeedItem item;
  item.title = text(json.title);
  item.link = text(Link(json, reading));
  item.date = text(FirstOf({&json.published, &json.modified}));
  item.isPodcast = json.media.url.empty() ? 0 : 1;
  item.enclosureType = text(json.media.type);
  item.description = text(json.html.empty() ? MarkupOfText(FirstOf({&json.text, &json.summary}))
                                            : StorableMarkup(json.html));
  AddPicture(AbsoluteAddress(reading.address, FirstOf({&json.image, &json.banner})), item);
  item.authors = text(json.authors);
  item.categories = text(json.tags);
  return item;
}

// Takes the library's events. Each returns whether to go on.
class JsonFeedEvents : public nlohmann::json_sax<Json> {
 public:
  JsonFeedEvents(const FeedReading& reading, const XmlLimits& limits, std::size_t documentBytes,
                 const std::stop_token& stop, JsonFeed& feed)
      : reading_(reading),
        limits_(limits),
        stop_(stop),
        feed_(feed),
        mayBegin_(Take(kCopies * documentBytes)) {}

  bool MayBegin() const { return mayBegin_; }
  bool IsFeed() const { return version_.starts_with(kVersion); }

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(Json::number_integer_t number) override { return Number(number); }
  bool number_unsigned(Json::number_unsigned_t number) override { return Number(number); }
  bool number_float(Json::number_float_t, const std::string& text) override {
    return Value(std::string(text));
  }
  bool binary(Json::binary_t&) override { return true; }
  bool string(std::string& value) override { return Value(std::move(value)); }

  bool start_object(std::size_t) override { return Enter(); }
  bool start_array(std::size_t) override { return Enter() && (path_ += "/*", true); }
  bool key(std::string& name) override {
    path_.resize(ends_.back());
    path_ += '/';
    path_ += name;
    return true;
  }
  bool end_object() override {
    Leave();
    if (path_ == "/items/*/attachments/*") TakeAttachment();
    return path_ != "/items/*" || TakeItem();
  }
  bool end_array() override {
    Leave();
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }

 private:
  bool Enter() {
    ends_.push_back(path_.size());
    return ends_.size() <= kDeepest;
  }
  void Leave() {
    path_.resize(ends_.back());
    ends_.pop_back();
  }

  template <typename Integer>
  bool Number(Integer number) {
    return Value(std::to_string(number));
  }

  bool Value(std::string value) {
    std::erase(value, '\0');
    Fill(kItemFields, path_, item_, value);
    Fill(kAttachmentFields, path_, attachment_, value);
    for (const auto& [path, names] : kItemLists) {
      if (path == path_) AddName(item_.*names, value);
    }
    if (path_ == "/version") version_ = value;
    if (path_ == "/title") feed_.header.title = reading_.codePage.FromUtf8(Trim(value));
    if (path_ == "/home_page_url") {
      feed_.header.link = reading_.codePage.FromUtf8(AbsoluteAddress(reading_.address, value));
    }
    return true;
  }

  void TakeAttachment() {
    JsonAttachment media = std::exchange(attachment_, {});
    const bool isMedia = media.type.starts_with("audio/") || media.type.starts_with("video/");
    if (isMedia && item_.media.url.empty()) item_.media = std::move(media);
  }

  bool TakeItem() {
    FeedItem item = ToItem(std::exchange(item_, {}), reading_);
    if (stop_.stop_requested() || !Take(kItemBytes + item.description.size())) return false;
    if (CompleteItem(item, reading_)) feed_.items.push_back(std::move(item));
    return true;
  }

  // Counts `bytes` more; false when that is too much.
  bool Take(std::size_t bytes) {
    if (bytes > limits_.most - taken_) {
      feed_.error = fmt::format("too large: with its items more than {} MiB", limits_.most >> 20);
      return false;
    }
    const bool wasWithin = taken_ <= limits_.atOnce;
    taken_ += bytes;
    return !wasWithin || taken_ <= limits_.atOnce || limits_.askForMore();
  }

  const FeedReading& reading_;
  const XmlLimits& limits_;
  const std::stop_token& stop_;
  JsonFeed& feed_;
  std::size_t taken_ = 0;
  const bool mayBegin_;
  std::string path_;               // of the value that comes next: "/items/*/title"
  std::vector<std::size_t> ends_;  // of the paths of the objects and arrays around it
  std::string version_;
  JsonItem item_;
  JsonAttachment attachment_;
};

std::string WholeText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

ParseCode Read(const std::string& path, const std::stop_token& stop, JsonFeedEvents& events) {
  if (!events.MayBegin()) return kDocumentUnreadable;
  const bool isRead = Json::sax_parse(CodePage::Utf8().FromUtf8(WholeText(path)), &events);
  if (stop.stop_requested()) return kParseStopped;
  if (!isRead) return kDocumentUnreadable;
  return events.IsFeed() ? kParsed : kUnknownRoot;
}

}  // namespace

bool LooksLikeJson(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string begin(4096, '\0');
  file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<std::size_t>(file.gcount()));
  std::string_view text = begin;
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return Trim(text).starts_with('{');
}

JsonFeed ReadJsonFeed(const std::string& path, const FeedReading& reading, const XmlLimits& limits,
                      const std::stop_token& stop) {
  JsonFeed feed;
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) return {kDocumentUnreadable};
  try {
    JsonFeedEvents events(reading, limits, size, stop, feed);
    feed.code = Read(path, stop, events);
  } catch (const std::bad_alloc&) {
    feed.code = kDocumentNotCreated;
  }
  return feed;
}

}  // namespace feedloom
