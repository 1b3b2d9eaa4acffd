#include "search/Fold.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace feedloom {
namespace {

// A reader sees a few marks on a letter; thousands are an attack.
constexpr std::size_t kLongestCharacter = 64;

bool IsBetween(UChar32 c, UChar32 first, UChar32 last) { return first <= c && c <= last; }

// The code point at the beginning of `text` and its size; negative where the bytes are not UTF-8.
UChar32 FirstCodePoint(std::string_view text, std::size_t& size) {
  const auto length = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), U8_MAX_LENGTH));
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  std::int32_t at = 0;
  UChar32 c = 0;
  U8_NEXT(bytes, at, length, c);
  size = static_cast<std::size_t>(at);
  return c;
}

bool IsHangulJamo(UChar32 c) { return IsBetween(c, 0x1160, 0x11FF); }

// Whether `c` belongs to the character before it.
bool Combines(UChar32 c) {
  if (c < 0x300) return false;
  return IsHangulJamo(c) || (U_GET_GC_MASK(c) & U_GC_M_MASK) != 0 || IsBetween(c, 0xFF9E, 0xFF9F);
}

std::size_t SizeOfFirst(std::string_view text, std::size_t first) {
  std::size_t size = first;
  while (size < text.size() && size < kLongestCharacter) {
    std::size_t more = 0;
    if (!Combines(FirstCodePoint(text.substr(size), more))) break;
    size += more;
  }
  return size;
}

// These scripts set no blanks between words, or, as Korean, add endings to them.
bool IsPart(UChar32 c) {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(c, &status)) {
    case USCRIPT_HANGUL:
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_BOPOMOFO:
    case USCRIPT_THAI:
    case USCRIPT_LAO:
    case USCRIPT_KHMER:
    case USCRIPT_MYANMAR:
      return true;
    default:
      return IsBetween(c, 0x30FC, 0x30FD);  // the marks of long and repeated syllables
  }
}

bool IsNothing(UChar32 c) { return u_hasBinaryProperty(c, UCHAR_DEFAULT_IGNORABLE_CODE_POINT); }

CharacterKind KindOf(UChar32 c) {
  if (c < 0) return CharacterKind::kGap;
  if (IsNothing(c)) return CharacterKind::kNothing;
  if (!u_isalnum(c) && (U_GET_GC_MASK(c) & (U_GC_M_MASK | U_GC_N_MASK)) == 0)
    return CharacterKind::kGap;
  return IsPart(c) ? CharacterKind::kPart : CharacterKind::kLetter;
}

bool IsAccent(UChar32 c) { return IsBetween(c, 0x300, 0x36F); }

icu::UnicodeString WithoutAccents(const icu::UnicodeString& text) {
  icu::UnicodeString plain;
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    if (!IsAccent(text.char32At(at))) plain.append(text.char32At(at));
  }
  return plain;
}

std::string Folded(std::string_view character) {
  UErrorCode status = U_ZERO_ERROR;
  const auto* const caseFold = icu::Normalizer2::getNFKCCasefoldInstance(status);
  const auto* const decomposition = icu::Normalizer2::getNFDInstance(status);
  const auto* const composition = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return std::string(character);
  const auto given = icu::UnicodeString::fromUTF8(
      icu::StringPiece(character.data(), static_cast<std::int32_t>(character.size())));
  const icu::UnicodeString plain =
      WithoutAccents(decomposition->normalize(caseFold->normalize(given, status), status));
  std::string folded;
  composition->normalize(plain, status).toUTF8String(folded);
  return folded;
}

// Syllables and ideographs, most of such a text, are what they are already.
bool IsFolded(UChar32 c) {
  return IsBetween(c, 0xAC00, 0xD7A3) || IsBetween(c, 0x4E00, 0x9FFF) ||
         IsBetween(c, 0x3041, 0x3096) || IsBetween(c, 0x30A1, 0x30FA);
}

bool IsAsciiDigit(UChar32 c) { return IsBetween(c, '0', '9'); }

Character AsciiCharacter(UChar32 c) {
  if (IsBetween(c, 'A', 'Z')) c += 'a' - 'A';
  if (!IsBetween(c, 'a', 'z') && !IsAsciiDigit(c)) return {1, CharacterKind::kGap};
  return {1, CharacterKind::kLetter, std::string(1, static_cast<char>(c))};
}

}  // namespace

Character FirstCharacter(std::string_view text) {
  std::size_t first = 0;
  const UChar32 c = FirstCodePoint(text, first);
  const std::size_t size = SizeOfFirst(text, first);
  if (c >= 0 && c < 0x80 && size == 1) return AsciiCharacter(c);
  Character character{size, KindOf(c)};
  if (character.kind == CharacterKind::kGap || character.kind == CharacterKind::kNothing)
    return character;
  const std::string_view bytes = text.substr(0, size);
  character.folded = size == first && IsFolded(c) ? std::string(bytes) : Folded(bytes);
  if (character.folded.empty()) character.kind = CharacterKind::kNothing;
  return character;
}

}  // namespace feedloom
