#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

// The addresses at which the HTML page in the file `path` says it has alternates of itself: its
// link elements with the word "alternate" in rel and one of the media types `types`, in the order
// of the document. They are made absolute by the page's base element or else by `pageAddress`,
// where the page came from; what makes no address is left out. They may have any scheme that a
// transfer knows: the caller decides which of them it follows. UTF-8.
//
// Never fails and never takes long: reads the first 1 MiB of the file, up to a tag of more than
// 16 KiB or 256 open elements, and takes the first 100 links. Any thread may call it.
std::vector<std::string> AlternateLinks(const std::string& path, const std::string& pageAddress,
                                        std::span<const std::string_view> types);

}  // namespace feedloom
