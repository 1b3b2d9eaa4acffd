#include "search/PostMatch.h"

#include <algorithm>

#include "xml/HtmlText.h"

namespace feedloom {
namespace {

enum class Place { kNowhere, kText, kTitle };

bool IsPieceAt(const QueryPart& part, std::size_t index, const Piece& piece) {
  const QueryPiece& wanted = part.pieces[index];
  if (wanted.joinsPrevious && index > 0 && !piece.joinsPrevious) return false;
  return GoesOn(part, index) ? piece.folded.starts_with(wanted.folded)
                             : piece.folded == wanted.folded;
}

bool StandsAt(const QueryPart& part, const std::vector<Piece>& text, std::size_t first) {
  for (std::size_t index = 0; index < part.pieces.size(); ++index) {
    if (!IsPieceAt(part, index, text[first + index])) return false;
  }
  return true;
}

// The texts of a post, taken to pieces when a part first asks for them.
class PostPieces {
 public:
  explicit PostPieces(const SearchedPost& post) : post_(post) {}

  Place PlaceOf(const QueryPart& part) {
    const auto inText = [](bool isThere) { return isThere ? Place::kText : Place::kNowhere; };
    switch (part.field) {
      case QueryField::kChannel:
        return inText(Holds(PiecesOf(post_.channel), part));
      case QueryField::kAuthor:
        return inText(Holds(PiecesOf(post_.authors), part));
      case QueryField::kTitle:
      case QueryField::kAny:
        break;
    }
    if (Holds(Title(), part)) return Place::kTitle;
    return inText(part.field == QueryField::kAny && Holds(Text(), part));
  }

 private:
  static bool Holds(const std::vector<Piece>& text, const QueryPart& part) {
    return !PlacesOf(part, text, 1).empty();
  }

  const std::vector<Piece>& Title() {
    if (!hasTitle_) title_ = PiecesOf(post_.title);
    hasTitle_ = true;
    return title_;
  }

  const std::vector<Piece>& Text() {
    if (!hasText_) text_ = PiecesOf(HtmlText(post_.html, post_.html.size()));
    hasText_ = true;
    return text_;
  }

  const SearchedPost& post_;
  bool hasTitle_ = false;
  bool hasText_ = false;
  std::vector<Piece> title_;
  std::vector<Piece> text_;
};

bool IsOfTime(const TextQuery& query, const std::string& published) {
  if (!query.since.empty() && published < query.since) return false;
  return query.until.empty() || (!published.empty() && published < query.until);
}

}  // namespace

std::vector<std::size_t> PlacesOf(const QueryPart& part, const std::vector<Piece>& text,
                                  std::size_t most) {
  std::vector<std::size_t> places;
  for (std::size_t first = 0; first + part.pieces.size() <= text.size(); ++first) {
    if (places.size() >= most) break;
    if (StandsAt(part, text, first)) places.push_back(first);
  }
  return places;
}

int Relevance(const TextQuery& query, const SearchedPost& post) {
  if (!IsOfTime(query, post.published)) return 0;
  PostPieces pieces(post);
  int relevance = 1;
  for (const QueryPart& part : query.parts) {
    const Place place = pieces.PlaceOf(part);
    if ((place == Place::kNowhere) != part.isExcluded) return 0;
    if (place == Place::kTitle) ++relevance;
  }
  return relevance;
}

}  // namespace feedloom
