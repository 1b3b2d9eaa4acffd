#include "search/Pieces.h"

#include "search/Fold.h"

namespace feedloom {

std::vector<Piece> PiecesOf(std::string_view text) {
  constexpr std::size_t kCommonSize = 5;  // of a piece, in bytes
  std::vector<Piece> pieces;
  pieces.reserve(text.size() / kCommonSize);
  bool isBehindPiece = false;
  for (std::size_t at = 0; at < text.size();) {
    Character character = FirstCharacter(text.substr(at));
    const std::size_t end = at + character.size;
    const bool isPart = character.kind == CharacterKind::kPart;
    if (character.kind == CharacterKind::kGap) {
      isBehindPiece = false;
    } else if (isPart || character.kind == CharacterKind::kLetter) {
      if (isBehindPiece && !isPart && !pieces.back().isPart) {
        pieces.back().folded += character.folded;
        pieces.back().end = end;
      } else {
        pieces.push_back({std::move(character.folded), at, end, isPart, isBehindPiece});
      }
      isBehindPiece = true;
    }
    at = end;
  }
  return pieces;
}

}  // namespace feedloom
