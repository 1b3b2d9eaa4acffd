// A read-only XML document tree. Names are compared as the document spells them, with their prefix
// ("dc:date"). All texts are UTF-8, whatever encoding the document declares.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "xml/XmlLimits.h"

struct _xmlDoc;   // NOLINT(bugprone-reserved-identifier): the XML library's names
struct _xmlNode;  // NOLINT(bugprone-reserved-identifier)

namespace feedloom {

// A reference to one element, or to none (null). Valid as long as its document exists and loads no
// other file.
class XmlElement {
 public:
  XmlElement() = default;
  explicit XmlElement(const _xmlNode* node) : node_(node) {}

  explicit operator bool() const { return node_ != nullptr; }

  // The functions below must not be called on a null element.

  // The name as the document spells it, with its prefix.
  std::string Name() const;
  bool HasName(std::string_view qualifiedName) const;

  // The attribute's value with references resolved; nullopt when the attribute is absent.
  std::optional<std::string> Attribute(std::string_view qualifiedName) const;

  // The values of that attribute on the elements around this one, from the document element on, and
  // on this one.
  std::vector<std::string> InheritedAttribute(std::string_view qualifiedName) const;

  // The value of the first attribute without a prefix whose name is `name` but for the case of
  // ASCII letters; nullopt without one.
  std::optional<std::string> AttributeInAnyCase(std::string_view name) const;

  // All text and CDATA below the element, joined and trimmed of white space at both ends. Comments
  // and processing instructions are left out.
  std::string Text() const;

  // All below the element as HTML in UTF-8.
  std::string Markup() const;

  // The elements of that name below this one, at any depth, in document order; the first one is
  // null when there is none.
  XmlElement FirstDescendant(std::string_view qualifiedName) const;
  std::vector<XmlElement> Descendants(std::string_view qualifiedName) const;
  // Finds the first descendant for each of `names` in one walk: found[i] becomes that of names[i].
  // Both spans have the same length, and all of `found` must be null at first.
  void FirstDescendants(std::span<const std::string_view> names, std::span<XmlElement> found) const;

  // The elements of that name directly below this one, in document order.
  std::vector<XmlElement> Children(std::string_view qualifiedName) const;

 private:
  const _xmlNode* node_ = nullptr;
};

// Where a document is not well-formed, counted from 1, and why: the library's words, in English,
// with a line feed at the end. A line of 0 means nowhere.
struct XmlFault {
  int line = 0;
  int column = 0;
  std::string reason = {};
};

enum class XmlFaults { Refused, Mended };

class XmlDocument {
 public:
  XmlDocument();
  ~XmlDocument();
  XmlDocument(XmlDocument&&) noexcept;
  XmlDocument& operator=(XmlDocument&&) noexcept;

  enum class LoadStatus { Loaded, OutOfMemory, Unreadable, TooLarge };

  // Loads the file `path` (the file system's bytes) in place of what was loaded before. TooLarge:
  // it exceeds `limits`, or has a tag of more than 10,000 attributes, a tag or text of more than
  // 9 MiB, more than 256 KiB of declarations, or more than 256 elements within each other.
  // Unreadable: it cannot be opened, is not well-formed, exceeds the XML library's limits on entity
  // growth, or `stop` was requested before its end was read. External entities and document types
  // are never loaded; an external entity counts as empty, but one that such a type may declare as
  // that of HTML of the same name. A prefix needs no declaration. EUC-KR is read as CP949.
  //
  // With `faults` Mended, a document of up to 4 MiB that is not well-formed is mended as
  // XmlMending.h says and parsed again, and an undeclared entity is that of HTML, or text.
  // Any thread may call it.
  [[nodiscard]] LoadStatus Load(const std::string& path, std::stop_token stop = {},
                                const XmlLimits& limits = {},
                                XmlFaults faults = XmlFaults::Refused);

  // What was too large for the last load, in English ("too large: …"); empty when nothing was.
  const std::string& Excess() const { return excess_; }

  // The first fault of the last document that was not well-formed, before it was mended.
  const XmlFault& Fault() const { return fault_; }

  // The document element; null unless the last load succeeded.
  XmlElement Root() const;

 private:
  struct Free {
    void operator()(_xmlDoc* document) const;
  };
  std::unique_ptr<_xmlDoc, Free> document_;
  std::string excess_;
  XmlFault fault_;
};

}  // namespace feedloom
