#include "xml/XmlDom.h"

#include <fcntl.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text/Text.h"
#include "xml/XmlEncoding.h"
#include "xml/XmlMending.h"
#include "xml/XmlParse.h"

namespace feedloom {
namespace {

// A faulty document may take five times its bytes once it is mended, beside its tree.
constexpr std::size_t kMostMended = 4u << 20;

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

bool NameIs(const xmlChar* localName, const xmlNs* ns, std::string_view qualifiedName) {
  const std::string_view local = View(localName);
  if (ns == nullptr || ns->prefix == nullptr) return local == qualifiedName;
  const std::string_view prefix = View(ns->prefix);
  return qualifiedName.size() == prefix.size() + 1 + local.size() &&
         qualifiedName.starts_with(prefix) && qualifiedName[prefix.size()] == ':' &&
         qualifiedName.ends_with(local);
}

// The node below `root` that follows `node` in document order; null at the end.
const xmlNode* Next(const xmlNode* node, const xmlNode* root) {
  // The children of an entity reference belong to the entity's declaration.
  if (node->type != XML_ENTITY_REF_NODE && node->children != nullptr) return node->children;
  while (node != root && node->next == nullptr) node = node->parent;
  return node == root ? nullptr : node->next;
}

bool IsText(const xmlNode* node) {
  return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

// Calls visit(element) for each element below `root` until it returns false.
template <typename Visit>
void WalkElements(const xmlNode* root, Visit visit) {
  for (const xmlNode* node = Next(root, root); node != nullptr; node = Next(node, root)) {
    if (node->type == XML_ELEMENT_NODE && !visit(node)) return;
  }
}

std::string AttributeText(const xmlAttr* attribute) {
  std::string value;
  for (const xmlNode* node = attribute->children; node != nullptr; node = node->next) {
    if (IsText(node)) value += View(node->content);
  }
  return value;
}

// The file of one document. A read fails once `stop` has been requested.
class StoppableFile {
 public:
  StoppableFile(const std::string& path, std::stop_token stop)
      : fd_(open(path.c_str(), O_RDONLY | O_CLOEXEC)), stop_(std::move(stop)) {}
  ~StoppableFile() {
    if (IsOpen()) close(fd_);
  }
  StoppableFile(const StoppableFile&) = delete;
  StoppableFile& operator=(const StoppableFile&) = delete;

  bool IsOpen() const { return fd_ >= 0; }

  // 0 for what is no regular file.
  std::size_t Size() const {
    struct stat status {};
    const bool isKnown = fstat(fd_, &status) == 0 && S_ISREG(status.st_mode);
    return isKnown ? static_cast<std::size_t>(status.st_size) : 0;
  }

  void GoTo(std::size_t place) { lseek(fd_, static_cast<off_t>(place), SEEK_SET); }

  // Up to `size` bytes of what is left; -1 for a failure.
  int Read(char* buffer, int size) {
    if (stop_.stop_requested()) return -1;
    return static_cast<int>(read(fd_, buffer, static_cast<std::size_t>(size)));
  }

  // Up to `size` bytes from the beginning.
  std::string Start(std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t filled = 0;
    GoTo(0);
    while (filled < size) {
      const int count = Read(bytes.data() + filled, static_cast<int>(size - filled));
      if (count <= 0) break;
      filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
  }

 private:
  const int fd_;
  const std::stop_token stop_;
};

ParsedXml ParseFile(StoppableFile& file, const XmlLimits& limits) {
  const ForeignEncoding foreign = DetectForeignEncoding(file.Start(4));
  file.GoTo(foreign.mark);
  return ParseXml({.read = [&file](char* buffer, int size) { return file.Read(buffer, size); },
                   .count = file.Size(),
                   .encoding = foreign.name},
                  limits, UnknownEntities::Refused);
}

ParsedXml ParseText(std::string_view text, const XmlLimits& limits) {
  std::string_view rest = text;
  const auto read = [&rest](char* buffer, int size) {
    const std::size_t count = rest.copy(buffer, static_cast<std::size_t>(size));
    rest.remove_prefix(count);
    return static_cast<int>(count);
  };
  return ParseXml({.read = read, .count = text.size()}, limits, UnknownEntities::Kept);
}

}  // namespace

std::string XmlElement::Name() const {
  std::string name(View(node_->name));
  if (node_->ns == nullptr || node_->ns->prefix == nullptr) return name;
  return std::string(View(node_->ns->prefix)) + ':' + name;
}

bool XmlElement::HasName(std::string_view qualifiedName) const {
  return NameIs(node_->name, node_->ns, qualifiedName);
}

std::optional<std::string> XmlElement::Attribute(std::string_view qualifiedName) const {
  for (const xmlAttr* attribute = node_->properties; attribute != nullptr;
       attribute = attribute->next) {
    if (NameIs(attribute->name, attribute->ns, qualifiedName)) return AttributeText(attribute);
  }
  return std::nullopt;
}

std::vector<std::string> XmlElement::InheritedAttribute(std::string_view qualifiedName) const {
  std::vector<std::string> values;
  for (const xmlNode* node = node_; node->type == XML_ELEMENT_NODE; node = node->parent) {
    const auto value = XmlElement(node).Attribute(qualifiedName);
    if (value) values.insert(values.begin(), *value);
  }
  return values;
}

std::optional<std::string> XmlElement::AttributeInAnyCase(std::string_view name) const {
  for (const xmlAttr* attribute = node_->properties; attribute != nullptr;
       attribute = attribute->next) {
    const bool isIt =
        attribute->ns == nullptr && EqualsIgnoringAsciiCase(View(attribute->name), name);
    if (isIt) return AttributeText(attribute);
  }
  return std::nullopt;
}

std::string XmlElement::Text() const {
  const xmlNode* only = node_->children;
  if (only != nullptr && only->next == nullptr && IsText(only)) {
    return std::string(Trim(View(only->content)));
  }
  std::string text;
  for (const xmlNode* node = Next(node_, node_); node != nullptr; node = Next(node, node_)) {
    if (IsText(node)) text += View(node->content);
  }
  return std::string(Trim(text));
}

std::string XmlElement::Markup() const {
  const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                    xmlBufferFree);
  if (!buffer) return "";
  xmlSaveCtxt* const output = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_AS_HTML);
  if (output == nullptr) return "";
  for (xmlNode* node = node_->children; node != nullptr; node = node->next) {
    xmlSaveTree(output, node);
  }
  xmlSaveClose(output);
  return std::string(View(xmlBufferContent(buffer.get())));
}

XmlElement XmlElement::FirstDescendant(std::string_view qualifiedName) const {
  XmlElement found;
  FirstDescendants({&qualifiedName, 1}, {&found, 1});
  return found;
}

std::vector<XmlElement> XmlElement::Descendants(std::string_view qualifiedName) const {
  std::vector<XmlElement> found;
  WalkElements(node_, [&](const xmlNode* node) {
    if (NameIs(node->name, node->ns, qualifiedName)) found.emplace_back(node);
    return true;
  });
  return found;
}

void XmlElement::FirstDescendants(std::span<const std::string_view> names,
                                  std::span<XmlElement> found) const {
  std::size_t missing = names.size();
  WalkElements(node_, [&](const xmlNode* node) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (found[i] || !NameIs(node->name, node->ns, names[i])) continue;
      found[i] = XmlElement(node);
      --missing;
    }
    return missing > 0;
  });
}

std::vector<XmlElement> XmlElement::Children(std::string_view qualifiedName) const {
  std::vector<XmlElement> found;
  for (const xmlNode* node = node_->children; node != nullptr; node = node->next) {
    if (node->type == XML_ELEMENT_NODE && NameIs(node->name, node->ns, qualifiedName)) {
      found.emplace_back(node);
    }
  }
  return found;
}

XmlDocument::XmlDocument() = default;
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

void XmlDocument::Free::operator()(_xmlDoc* document) const { xmlFreeDoc(document); }

XmlDocument::LoadStatus XmlDocument::Load(const std::string& path, std::stop_token stop,
                                          const XmlLimits& limits, XmlFaults faults) {
  document_.reset();
  excess_.clear();
  fault_ = {};
  StoppableFile file(path, stop);
  if (!file.IsOpen()) return LoadStatus::Unreadable;
  ParsedXml parsed = ParseFile(file, limits);
  fault_ = std::move(parsed.fault);
  const bool isFaulty = parsed.status == LoadStatus::Unreadable && !stop.stop_requested();
  if (isFaulty && faults == XmlFaults::Mended && file.Size() <= kMostMended) {
    const bool isLarge = file.Size() > limits.atOnce;
    if (isLarge && !limits.askForMore()) return LoadStatus::Unreadable;
    const std::string mended = MendedXml(file.Start(file.Size()));
    parsed = ParseText(mended, limits);
  }
  document_.reset(parsed.tree);
  excess_ = std::move(parsed.excess);
  return parsed.status;
}

XmlElement XmlDocument::Root() const {
  return XmlElement(document_ ? xmlDocGetRootElement(document_.get()) : nullptr);
}

}  // namespace feedloom
