// A read-only XML document tree. Names compare as they are written in the document, prefix included
// ("dc:date"); all texts come out as UTF-8, whatever encoding the document declares.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc;   // NOLINT(bugprone-reserved-identifier): the XML library's names
struct _xmlNode;  // NOLINT(bugprone-reserved-identifier)

namespace feedloom {

// One element, or none (null). A plain reference: valid while its document lives.
class XmlElement {
 public:
  XmlElement() = default;
  explicit XmlElement(const _xmlNode* node) : node_(node) {}

  explicit operator bool() const { return node_ != nullptr; }

  // The operations below need an element that is not null.

  // The qualified name as written.
  std::string Name() const;
  bool HasName(std::string_view qualifiedName) const;

  // The value with references resolved; none when the attribute is absent.
  std::optional<std::string> Attribute(std::string_view qualifiedName) const;

  // All text and CDATA below the element joined, without comments and processing instructions,
  // white space trimmed at both ends.
  std::string Text() const;

  // Elements below this one, at any depth, in document order.
  XmlElement FirstDescendant(std::string_view qualifiedName) const;
  std::vector<XmlElement> Descendants(std::string_view qualifiedName) const;
  // The first descendant of each of `names`, in one walk: found[i] for names[i]. The spans are of
  // one length, and `found` comes in null.
  void FirstDescendants(std::span<const std::string_view> names, std::span<XmlElement> found) const;

  // Elements directly below this one, in document order.
  std::vector<XmlElement> Children(std::string_view qualifiedName) const;

 private:
  const _xmlNode* node_ = nullptr;
};

// How much memory a document may take, in bytes: its tree and a copy of all its texts, about.
struct XmlLimits {
  std::size_t most = 32u << 20;
  std::size_t atOnce = most;              // what a document may take without asking
  std::function<bool()> askForMore = {};  // asked once, on the reading thread; may block
};

class XmlDocument {
 public:
  XmlDocument();
  ~XmlDocument();
  XmlDocument(XmlDocument&&) noexcept;
  XmlDocument& operator=(XmlDocument&&) noexcept;

  enum class LoadStatus { Loaded, OutOfMemory, Unreadable, TooLarge };

  // Reads the whole file. One that exceeds `limits`, or has 256 KiB in which there is neither an
  // element nor a text, is TooLarge. A file that cannot be opened, is not well-formed, or exceeds
  // the XML library's own limits on depth and entity growth is Unreadable. Entities and document
  // types that lie outside the file are never loaded (such an entity reads as nothing); a prefix
  // without a declaration is no fault; a declared EUC-KR is read as CP949. A `stop` that comes
  // before the end of the file makes it Unreadable. Any thread may call it.
  [[nodiscard]] LoadStatus Load(const std::string& path, std::stop_token stop = {},
                                const XmlLimits& limits = {});

  // The document element; null before a successful load.
  XmlElement Root() const;

 private:
  struct Free {
    void operator()(_xmlDoc* document) const;
  };
  std::unique_ptr<_xmlDoc, Free> document_;
};

}  // namespace feedloom
