// Markup for descriptions. The store decodes some character references of every text
// (store/SqlText.h); what is made here means the same before and after that. All functions are
// pure; any thread. Texts are UTF-8 or in the module's code page, as the caller wants.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// `html` with the references that the store would decode written in another way.
std::string StorableMarkup(std::string_view html);

// Plain `text` as HTML, with its line breaks.
std::string MarkupOfText(std::string_view text);

// An element that shows the picture at `address`.
std::string MarkupOfPicture(std::string_view address);

// Whether `html` shows a picture of its own.
bool HasPicture(std::string_view html);

}  // namespace feedloom
