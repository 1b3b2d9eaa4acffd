#include "search/Terms.h"

#include <algorithm>
#include <cstdint>

#include "search/Pieces.h"
#include "xml/HtmlText.h"

namespace feedloom {
namespace {

// Characters for private use, which no word has.
constexpr std::string_view kOfTitle = "\uE000";
constexpr std::string_view kNeighbours = "\uE001";

// So many different numbers that one stands in few texts by chance, and so few that the index
// stores one of a text of 2 KB in a byte.
constexpr std::uint32_t kNumbers = 1u << 15;
constexpr std::size_t kLongestTerm = 64;

bool IsTermByte(char c) {
  return static_cast<unsigned char>(c) >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z');
}

// The beginning of a word, no longer than a term may be; what the tokenizer would part is left out.
std::string Term(std::string_view folded) {
  std::string term(folded.substr(0, kLongestTerm));
  while (term.size() < folded.size() &&
         (static_cast<unsigned char>(folded[term.size()]) & 0xC0) == 0x80)
    term.pop_back();
  std::erase_if(term, [](char c) { return !IsTermByte(c); });
  return term;
}

std::uint32_t Mixed(std::uint32_t hash, std::string_view text) {  // FNV-1a, and an end mark
  constexpr std::uint32_t kPrime = 16777619u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  return (hash ^ 0xFFu) * kPrime;
}

// The term of pieces that follow one another.
std::string NumberOf(std::initializer_list<std::string_view> pieces) {
  std::uint32_t hash = 2166136261u;
  for (const std::string_view piece : pieces) hash = Mixed(hash, piece);
  return std::string(kNeighbours) + std::to_string((hash ^ (hash >> 16)) % kNumbers);
}

template <typename Pieces>
bool IsPair(const Pieces& pieces, std::size_t second) {
  return second > 0 && second < pieces.size() && pieces[second].joinsPrevious &&
         pieces[second].isPart && pieces[second - 1].isPart;
}

void Append(std::string_view mark, std::string_view term, std::string& terms) {
  if (!term.empty()) terms.append(mark).append(term) += ' ';
}

void AppendWords(std::string_view mark, const std::vector<Piece>& pieces, std::string& terms) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const bool isPair = IsPair(pieces, i + 1);
    Append(mark, Term(isPair ? pieces[i].folded + pieces[i + 1].folded : pieces[i].folded), terms);
  }
}

void AppendNeighbours(const std::vector<Piece>& pieces, std::string& terms) {
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (!IsPair(pieces, i)) {
      Append("", NumberOf({pieces[i - 1].folded, pieces[i].folded}), terms);
    } else if (IsPair(pieces, i + 1)) {
      Append("", NumberOf({pieces[i - 1].folded, pieces[i].folded, pieces[i + 1].folded}), terms);
    }
  }
}

// Expressions that are joined by one operator, in brackets; empty ones are left out.
class Joined {
 public:
  explicit Joined(std::string_view op) : operator_(op) {}

  // What is beyond the last one that the library takes well is left out: no text is lost by that.
  void Add(const std::string& expression) {
    if (expression.empty() || ++count_ > kMost) return;
    if (!text_.empty()) text_.append(operator_);
    text_ += expression;
  }
  std::string Text() const { return text_.empty() ? "" : "(" + text_ + ")"; }

 private:
  static constexpr int kMost = 32;

  const std::string_view operator_;
  std::string text_;
  int count_ = 0;
};

std::string Quoted(std::string_view mark, const std::string& term) {
  return term.empty() ? "" : '"' + std::string(mark) + term + '"';
}

// What a text has in which `part` stands; the words with `mark` in front.
std::string PartExpression(const QueryPart& part, std::string_view mark) {
  const auto& pieces = part.pieces;
  Joined all(" AND ");
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const bool isBeginning = GoesOn(part, i);
    if (!pieces[i].isPart) {
      const std::string term = Quoted(mark, Term(pieces[i].folded));
      all.Add(isBeginning && !term.empty() ? term + "*" : term);
    } else if (pieces.size() == 1) {
      all.Add(Quoted(mark, Term(pieces[i].folded)) + "*");
    }
    if (i == 0 || isBeginning) continue;
    const std::string number = Quoted("", NumberOf({pieces[i - 1].folded, pieces[i].folded}));
    const std::string pair = Quoted(mark, Term(pieces[i - 1].folded + pieces[i].folded));
    if (IsPair(pieces, i)) {
      all.Add(pair);
      if (i > 1 && IsPair(pieces, i - 1))
        all.Add(
            Quoted("", NumberOf({pieces[i - 2].folded, pieces[i - 1].folded, pieces[i].folded})));
    } else if (pieces[i].isPart && pieces[i - 1].isPart) {
      all.Add("(" + number + " OR " + pair + ")");  // one word in the text, or two
    } else {
      all.Add(number);
    }
  }
  return all.Text();
}

std::vector<QueryPart> Wanted(const TextQuery& query) {
  std::vector<QueryPart> parts;
  for (const QueryPart& part : query.parts) {
    const bool isOfPost = part.field == QueryField::kAny || part.field == QueryField::kTitle;
    if (isOfPost && !part.isExcluded) parts.push_back(part);
  }
  return parts;
}

}  // namespace

std::string IndexTerms(std::string_view title, std::string_view html) {
  const std::vector<Piece> inTitle = PiecesOf(title);
  const std::vector<Piece> inText = PiecesOf(HtmlText(html, html.size()));
  std::string terms;
  AppendWords(kOfTitle, inTitle, terms);
  for (const auto* const pieces : {&inTitle, &inText}) {
    AppendWords("", *pieces, terms);
    AppendNeighbours(*pieces, terms);
  }
  return terms;
}

std::vector<std::string> TermExpressions(const TextQuery& query) {
  Joined all(" AND ");
  Joined allInTitle(" AND ");
  Joined oneInTitle(" OR ");
  for (const QueryPart& part : Wanted(query)) {
    const std::string inTitle = PartExpression(part, kOfTitle);
    all.Add(part.field == QueryField::kTitle ? inTitle : PartExpression(part, ""));
    allInTitle.Add(inTitle);
    oneInTitle.Add(inTitle);
  }
  if (all.Text().empty()) return {};
  return {allInTitle.Text(), "(" + all.Text() + " AND " + oneInTitle.Text() + ")", all.Text()};
}

}  // namespace feedloom
