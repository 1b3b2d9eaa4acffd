// Whether a post is what a query looks for. Pure; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "search/Pieces.h"
#include "search/TextQuery.h"

namespace feedloom {

// The texts of a post that a query looks at: UTF-8, and plain but for `html`.
struct SearchedPost {
  std::string title = {};
  std::string html = {};     // the description
  std::string channel = {};  // the title of the channel or cabinet
  std::string authors = {};
  std::string published = {};  // as the store has it
};

// How well `post` meets `query`: 0 when it does not meet it, else 1, and one more for each wanted
// word or phrase in the title.
int Relevance(const TextQuery& query, const SearchedPost& post);

// The places in `text` at which `part` stands whole: for each the first of its pieces. `most` of
// them are enough.
std::vector<std::size_t> PlacesOf(const QueryPart& part, const std::vector<Piece>& text,
                                  std::size_t most);

}  // namespace feedloom
