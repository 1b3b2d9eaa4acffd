// The terms by which texts are found in an index that knows of each text only which terms it has,
// not where: words; of a word that is searched by parts, its pairs of parts, and its last part; and
// besides, what makes a phrase or a longer word rare among the texts that have its words or pairs:
// a number of each two pieces that follow each other, and of each three parts. Each term is of a
// title once more, so that titles can be asked for alone. Pure; any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/TextQuery.h"

namespace feedloom {

// The terms of a post with this title and description, plain text and HTML, both UTF-8, with blanks
// between them. A
// tokenizer that takes ASCII letters and digits and all other than ASCII characters for letters
// finds the same terms.
std::string IndexTerms(std::string_view title, std::string_view html);

// Expressions of SQLite's FTS5 that every post has which `query` finds. The first ones are of posts
// that come first by relevance: with all the words in their title, with one of them, and then all.
// Empty when the query asks for no word of a title or text.
std::vector<std::string> TermExpressions(const TextQuery& query);

}  // namespace feedloom
