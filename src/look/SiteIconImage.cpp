#include "look/SiteIconImage.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <optional>

namespace feedloom {
namespace {

using namespace std::string_view_literals;

constexpr int kIconSide = 32;
constexpr int kMaxSide = 512;
constexpr std::size_t kMaxPictures = 32;  // of an ICO file

struct Format {
  std::string_view magic;
  const char* name;
};
constexpr std::string_view kPng = "\x89PNG\r\n\x1A\n"sv;
constexpr std::string_view kIco = "\0\0\1\0"sv;
constexpr Format kFormats[] = {
    {kPng, "png"}, {"\xFF\xD8\xFF"sv, "jpeg"}, {"GIF8"sv, "gif"}, {kIco, "ico"}, {"BM"sv, "bmp"}};

// The number in `count` bytes from `at` on, the lowest byte first; 0 beyond the end.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint32_t number = 0;
  if (at > bytes.size() || bytes.size() - at < count) return number;
  for (std::size_t i = count; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

bool IsSide(std::uint32_t side) { return side >= 1 && side <= kMaxSide; }

// What stands in the directory of an ICO file need not be true: the pictures are looked at, PNG
// files (the highest byte of a number first) and bitmaps, whose height is that of two.
bool IsPictureSmall(std::string_view bytes, std::size_t at) {
  const std::string_view picture = bytes.substr(std::min(at, bytes.size()));
  if (!picture.starts_with(kPng)) {
    return IsSide(NumberAt(picture, 4, 4)) && IsSide(NumberAt(picture, 8, 4) / 2);
  }
  constexpr std::size_t kLowHalf = 2;
  const auto isSmall = [picture](std::size_t side) {
    const std::uint32_t low = NumberAt(picture, side + kLowHalf, 2);
    return NumberAt(picture, side, kLowHalf) == 0 && IsSide(low >> 8 | (low & 0xFF) << 8);
  };
  return isSmall(16) && isSmall(20);
}

bool ArePicturesSmall(std::string_view ico) {
  constexpr std::size_t kHeader = 6, kEntry = 16, kOffset = 12;
  const std::size_t count = NumberAt(ico, 4, 2);
  if (count > kMaxPictures) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (!IsPictureSmall(ico, NumberAt(ico, kHeader + i * kEntry + kOffset, 4))) return false;
  }
  return true;
}

// Turns to the smallest picture that need not be enlarged or, without one, the largest.
void TurnToBest(QImageReader& reader) {
  const auto rank = [&reader](int picture) {
    reader.jumpToImage(picture);
    const int side = reader.size().width();
    return side >= kIconSide ? -side : side - 2 * kMaxSide;
  };
  int best = 0;
  for (int picture = 1; picture < reader.imageCount(); ++picture) {
    if (rank(picture) > rank(best)) best = picture;
  }
  reader.jumpToImage(best);
}

QImage Decode(std::string_view bytes, const Format& format) {
  if (format.magic == kIco && !ArePicturesSmall(bytes)) return {};
  QByteArray data(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  QImageReader reader(&buffer, format.name);
  reader.setAutoDetectImageFormat(false);
  reader.setDecideFormatFromContent(false);
  if (format.magic == kIco) TurnToBest(reader);
  const QSize size = reader.size();
  const bool isSmall = size.width() >= 1 && size.height() >= 1 && size.width() <= kMaxSide &&
                       size.height() <= kMaxSide;
  return isSmall ? reader.read() : QImage();
}

// Of its own making: a file's texts and colours' profile stay behind.
QImage InSquare(const QImage& picture) {
  const int side = std::min(std::max(picture.width(), picture.height()), kIconSide);
  QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
  square.fill(Qt::transparent);
  const bool isLarge = picture.width() > side || picture.height() > side;
  const QImage fitting =
      isLarge ? picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
  QRect place(QPoint(), fitting.size() / fitting.devicePixelRatio());
  place.moveCenter(square.rect().center());
  QPainter(&square).drawImage(place, fitting);
  return square;
}

// How light the picture is where it can be seen, from 0 to 255; nothing when it cannot.
std::optional<int> Lightness(const QImage& square) {
  int visible = 0, light = 0;
  for (int y = 0; y < square.height(); ++y) {
    for (int x = 0; x < square.width(); ++x) {
      const QRgb pixel = square.pixel(x, y);
      visible += qAlpha(pixel);
      light += qAlpha(pixel) * qGray(pixel) / 255;
    }
  }
  return visible == 0 ? std::nullopt : std::optional(static_cast<int>(light * 255LL / visible));
}

}  // namespace

QImage SiteIconImage(std::string_view bytes) {
  const auto* const format = std::ranges::find_if(
      kFormats, [bytes](const Format& known) { return bytes.starts_with(known.magic); });
  if (format == std::end(kFormats)) return {};
  const QImage picture = Decode(bytes, *format);
  if (picture.isNull()) return {};
  const QImage square = InSquare(picture);
  return Lightness(square) ? square : QImage();
}

QImage OnGround(const QImage& icon, const QColor& ground) {
  constexpr int kEnough = 50;  // of lightness
  constexpr int kMiddle = 128;
  constexpr QColor kDarkPlate(0x40, 0x40, 0x40);
  const int under = qGray(ground.rgb());
  if (std::abs(Lightness(icon).value_or(kMiddle) - under) >= kEnough) return icon;
  QImage plated(icon.size(), QImage::Format_ARGB32_Premultiplied);
  plated.fill(Qt::transparent);
  QPainter painter(&plated);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(under < kMiddle ? QColor(Qt::white) : kDarkPlate);
  painter.drawRoundedRect(plated.rect(), icon.width() / 6.0, icon.height() / 6.0);
  painter.drawImage(0, 0, icon);
  return plated;
}

std::string SiteIconFile(std::string_view bytes) {
  const QImage image = SiteIconImage(bytes);
  QByteArray file;
  QBuffer buffer(&file);
  if (image.isNull() || !image.save(&buffer, "PNG")) return {};
  return file.toStdString();
}

}  // namespace feedloom
