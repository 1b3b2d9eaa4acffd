#include "xml/XmlDom.h"

#include <fcntl.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <unistd.h>

#include <algorithm>

#include "text/Text.h"
#include "xml/XmlLibrary.h"
#include "xml/XmlMemoryLimit.h"

namespace feedloom {
namespace {

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

// Declares an entity of the document. An external entity is declared as an empty one: the document
// remains readable, and no other file is read.
void DeclareEntity(void* context, const xmlChar* name, int type, const xmlChar* publicId,
                   const xmlChar* systemId, xmlChar* content) {
  xmlChar empty[] = {0};
  switch (type) {
    case XML_INTERNAL_GENERAL_ENTITY:
    case XML_INTERNAL_PARAMETER_ENTITY:
      xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
      break;
    case XML_EXTERNAL_PARAMETER_ENTITY:
      xmlSAX2EntityDecl(context, name, XML_INTERNAL_PARAMETER_ENTITY, nullptr, nullptr, empty);
      break;
    default:
      xmlSAX2EntityDecl(context, name, XML_INTERNAL_GENERAL_ENTITY, nullptr, nullptr, empty);
  }
}

struct FreeContext {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

// The file that the parser reads. A read fails once `stop` has been requested or the document has
// exceeded its limits.
class StoppableFile {
 public:
  StoppableFile(const std::string& path, std::stop_token stop, XmlMemoryLimit& limit)
      : fd_(open(path.c_str(), O_RDONLY | O_CLOEXEC)), stop_(std::move(stop)), limit_(limit) {}
  ~StoppableFile() {
    if (fd_ >= 0) close(fd_);
  }
  StoppableFile(const StoppableFile&) = delete;
  StoppableFile& operator=(const StoppableFile&) = delete;

  bool IsOpen() const { return fd_ >= 0; }

  // The library's read callback; `self` is the StoppableFile.
  static int Read(void* self, char* buffer, int size) {
    auto* const file = static_cast<StoppableFile*>(self);
    if (file->stop_.stop_requested()) return -1;
    const ssize_t count = read(file->fd_, buffer, static_cast<std::size_t>(size));
    if (count > 0 && !file->limit_.AcceptsBytes(static_cast<std::size_t>(count))) return -1;
    return static_cast<int>(count);
  }

 private:
  const int fd_;
  const std::stop_token stop_;
  XmlMemoryLimit& limit_;
};

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
                                          const XmlLimits& limits) {
  InitializeXmlOnce();
  document_.reset();
  const SilentXmlErrors silence;
  const std::unique_ptr<xmlParserCtxt, FreeContext> context(xmlNewParserCtxt());
  if (!context) return LoadStatus::OutOfMemory;
  XmlMemoryLimit limit(limits, *context);
  StoppableFile file(path, std::move(stop), limit);
  if (!file.IsOpen()) return LoadStatus::Unreadable;
  context->sax->entityDecl = DeclareEntity;
  document_.reset(xmlCtxtReadIO(context.get(), StoppableFile::Read, nullptr, &file, nullptr,
                                nullptr,
                                XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_COMPACT |
                                    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
  if (limit.IsExceeded()) {
    document_.reset();
    return LoadStatus::TooLarge;
  }
  return document_ ? LoadStatus::Loaded : LoadStatus::Unreadable;
}

XmlElement XmlDocument::Root() const {
  return XmlElement(document_ ? xmlDocGetRootElement(document_.get()) : nullptr);
}

}  // namespace feedloom
