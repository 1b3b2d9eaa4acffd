#include "ui/browser/DisplayedAddress.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>
#include <algorithm>

namespace feedloom {
namespace {

// A script of host names, and the scripts of the locales that use it. A name in a script whose
// letters look like Latin ones must not have Latin parts.
struct HostScript {
  QChar::Script script;
  QLocale::Script locales[3];
  bool looksLatin;
};
constexpr HostScript kHostScripts[] = {
    {QChar::Script_Latin, {QLocale::LatinScript}, false},
    {QChar::Script_Hangul, {QLocale::KoreanScript}, false},
    {QChar::Script_Han,
     {QLocale::JapaneseScript, QLocale::SimplifiedHanScript, QLocale::TraditionalHanScript},
     false},
    {QChar::Script_Hiragana, {QLocale::JapaneseScript}, false},
    {QChar::Script_Katakana, {QLocale::JapaneseScript}, false},
    {QChar::Script_Devanagari, {QLocale::DevanagariScript}, false},
    {QChar::Script_Thai, {QLocale::ThaiScript}, false},
    {QChar::Script_Cyrillic, {QLocale::CyrillicScript}, true},
    {QChar::Script_Greek, {QLocale::GreekScript}, true},
};

bool IsLetterOrDigit(char32_t c) {
  return QChar::isLetter(c) || QChar::isMark(c) || QChar::isDigit(c);
}

// Letters by their category which show nothing, or change the letter before them.
bool IsInvisible(char32_t c) {
  constexpr std::pair<char32_t, char32_t> kRanges[] = {
      {0x034F, 0x034F}, {0x115F, 0x1160}, {0x17B4, 0x17B5}, {0x180B, 0x180F},
      {0x3164, 0x3164}, {0xFE00, 0xFE0F}, {0xFFA0, 0xFFA0}, {0xE0100, 0xE01EF}};
  return std::ranges::any_of(kRanges, [c](auto r) { return r.first <= c && c <= r.second; });
}

bool IsRightToLeft(char32_t c) {
  const auto direction = QChar::direction(c);
  return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
}

bool IsPlain(char32_t c) { return IsLetterOrDigit(c) && !IsInvisible(c) && !IsRightToLeft(c); }

// Latin letters that are no variants of an ASCII letter, or are confused with one.
bool IsStrangeLatin(char32_t c) {
  constexpr char32_t kEndOfExtendedA = 0x180;
  constexpr char32_t kConfused[] = {0x131, 0x138, 0x149, 0x17F};  // ı, ĸ, ŉ, ſ
  return c >= kEndOfExtendedA || std::ranges::find(kConfused, c) != std::end(kConfused);
}

bool IsAscii(const QString& text) {
  return std::ranges::all_of(text, [](QChar c) { return c < QChar(0x80); });
}

bool IsOf(const QString& label, QChar::Script script) {
  return std::ranges::all_of(label.toUcs4(), [script](uint c) {
    if (c == '-' || (c >= '0' && c <= '9')) return true;
    return QChar::script(c) == script && IsPlain(c) &&
           !(script == QChar::Script_Latin && IsStrangeLatin(c));
  });
}

bool IsOf(const QString& host, const HostScript& script) {
  return std::ranges::all_of(host.split('.'), [&script](const QString& label) {
    return IsOf(label, script.script) || (!script.looksLatin && IsAscii(label));
  });
}

QString ShownHost(const QString& ascii, const QLocale& locale) {
  if (!ascii.contains(QLatin1String("xn--"), Qt::CaseInsensitive)) return ascii;
  const QString host = QUrl::fromAce(ascii.toLatin1(), QUrl::IgnoreIDNWhitelist);
  const bool leadsThere = QUrl::toAce(host, QUrl::IgnoreIDNWhitelist) == ascii.toLatin1();
  const bool isReadable = std::ranges::any_of(kHostScripts, [&](const HostScript& script) {
    return std::ranges::find(script.locales, locale.script()) != std::end(script.locales) &&
           IsOf(host, script);
  });
  return leadsThere && isReadable ? host : ascii;
}

QString DecodedIfPlain(const QString& escapes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = decoder(QByteArray::fromPercentEncoding(escapes.toLatin1()));
  const auto codes = text.toUcs4();
  return !decoder.hasError() && std::ranges::all_of(codes, IsPlain) ? text : escapes;
}

QString ShownRest(const QString& encoded) {
  static const QRegularExpression escapes("(?:%[89A-Fa-f][0-9A-Fa-f])+");
  QString shown;
  qsizetype end = 0;
  for (const auto& match : escapes.globalMatch(encoded)) {
    shown += encoded.mid(end, match.capturedStart() - end) + DecodedIfPlain(match.captured());
    end = match.capturedEnd();
  }
  return shown + encoded.mid(end);
}

}  // namespace

DisplayedAddress DisplayAddress(const QUrl& url, const QLocale& locale) {
  const QString all = url.toString(QUrl::FullyEncoded | QUrl::RemoveUserInfo);
  const QString name = url.host(QUrl::FullyEncoded);
  const QString host = name.contains(':') ? '[' + name + ']' : name;
  const QString begin = url.scheme() + QStringLiteral("://");
  if (host.isEmpty() || !all.startsWith(begin + host)) return {ShownRest(all)};
  const QString shown = ShownHost(host, locale);
  return {begin + shown + ShownRest(all.mid(begin.size() + host.size())), begin.size(),
          shown.size()};
}

DisplayedAddress Shortened(const DisplayedAddress& address, qsizetype length) {
  const QChar cut(0x2026);
  const qsizetype hostEnd = address.hostBegin + address.hostLength;
  if (address.text.size() <= length) return address;
  if (hostEnd < length) {
    return {address.text.left(length - 1) + cut, address.hostBegin, address.hostLength};
  }
  const qsizetype shown = std::min(address.hostLength, length - 1);
  return {cut + address.text.left(hostEnd).right(length - 1), length - shown, shown};
}

}  // namespace feedloom
