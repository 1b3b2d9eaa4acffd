#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

// The addresses of the alternate versions that an HTML page links to: its link elements with the
// word "alternate" in rel and one of the media types `types`, in document order. `path` is the file
// with the page, `pageAddress` the address that the page came from. Relative addresses are resolved
// against the page's base element, or against `pageAddress` without one. An address that cannot be
// resolved is left out. The scheme may be any that a transfer supports: the caller decides which of
// them to follow. All texts are UTF-8.
//
// Never fails: a file that cannot be read has no links. Reading stops after 1 MiB, at a tag longer
// than 16 KiB, at 256 open elements and after 100 links. Any thread may call it.
std::vector<std::string> AlternateLinks(const std::string& path, const std::string& pageAddress,
                                        std::span<const std::string_view> types);

}  // namespace feedloom
