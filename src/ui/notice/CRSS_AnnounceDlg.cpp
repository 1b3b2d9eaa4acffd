#include "ui/notice/CRSS_AnnounceDlg.h"

#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <string>
#include <utility>

#include "controls/AccessibleRole.h"
#include "controls/CButtonEx.h"
#include "files/Path.h"
#include "look/QtText.h"
#include "look/SkinPieces.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr QColor kColorKey(0xFF, 0x00, 0xFF);

// The background image comes from the host's base directory, not from the skin. So the text colour
// is chosen by the image's brightness.
constexpr QColor kTextOnLightBackground(0x1F, 0x2D, 0x36);
constexpr QColor kTextOnDarkBackground(0xF0, 0xF5, 0xF7);

// As long as it takes clicks, the window can be seen: it is never fainter than at 80 per cent.
constexpr int kFaintest = kInvisible * 80 / 100;

constexpr int kCaptionPixels = 12;
constexpr int kCountPixels = 24;

constexpr Qt::WindowFlags kFlags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;

QFont MakeFont(int pixels) {
  QFont font(QStringLiteral("굴림"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(pixels);
  font.setWeight(QFont::Normal);
  return font;
}

QString BackgroundPath(const Skin& skin) {
  std::string path = skin.Config().GetCurrentPath();
  for (const char* name : {"Image", "Skyfold_image", "announce_bg.bmp"})
    path = JoinPath(path, name);
  return SharpestFile(QFile::decodeName(path.c_str()));
}

QColor TextColorFor(const QColor& ground) {
  return ground.lightnessF() < 0.5 ? kTextOnDarkBackground : kTextOnLightBackground;
}

}  // namespace

CRSS_AnnounceDlg::CRSS_AnnounceDlg(const Skin& skin, QWidget* owner)
    : CVxDialog(skin, nullptr, owner, kFlags),
      hasImage_(LoadBackground()),
      caption_(AddLabel(kPlaceAnnounceCaption, MakeFont(kCaptionPixels), Qt::AlignLeft)),
      count_(AddLabel(kPlaceAnnounceCount, MakeFont(kCountPixels), Qt::AlignCenter)) {
  SetAccessibleRole(*this, QAccessible::AlertMessage);
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_ShowWithoutActivating);
  caption_->setText(SkinText(skin, kLabelAnnounceCaption));
  AddCloseButton();
}

bool CRSS_AnnounceDlg::LoadBackground() {
  const QPixmap image(BackgroundPath(GetSkin()));
  SetBackground(image);
  SetColorKey(kColorKey);
  if (image.isNull()) return false;
  QPalette colors = palette();
  colors.setColor(QPalette::WindowText,
                  TextColorFor(image.toImage().pixelColor(image.rect().center())));
  setPalette(colors);
  return true;
}

QLabel* CRSS_AnnounceDlg::AddLabel(const char* placeKey, const QFont& font,
                                   Qt::Alignment alignment) {
  return AddLine(LoadSkinPlace(GetSkin(), kSectionAnnounce, placeKey), {}, font, alignment);
}

void CRSS_AnnounceDlg::AddCloseButton() {
  auto* button =
      MakeToolButton(GetSkin(), kSectionAnnounce, kButtonAnnounceClose, kTextAnnounceClose, this);
  button->setFocusPolicy(Qt::NoFocus);
  button->setGeometry(LoadSkinPlace(GetSkin(), kSectionAnnounce, kPlaceAnnounceClose));
  connect(button, &CButtonEx::clicked, this, &CRSS_AnnounceDlg::close);
}

void CRSS_AnnounceDlg::Announce(int count, int alphaValue) {
  count_->setText(SkinText(GetSkin(), kLabelAnnounceCount).replace("%d", QString::number(count)));
  Begin(count_->text(), alphaValue);
}

// The rows stand in the number's place, with as much above them as below.
void CRSS_AnnounceDlg::AnnounceChannels(const std::string& caption,
                                        std::span<const ChannelCount> channels, int alphaValue) {
  constexpr std::size_t kNamed = 3;
  const auto named = channels.first(std::min(channels.size(), kNamed));
  const auto more = static_cast<int>(channels.size() - named.size());
  const int rows = static_cast<int>(named.size()) + (more > 0 ? 1 : 0);
  const QRect place = count_->geometry();
  const int height = QFontMetrics(caption_->font()).height();
  QRect row(place.left(), place.center().y() + 1 - rows * height / 2, place.width(), height);
  count_->hide();
  caption_->setText(ToQString(GetSkin().Config().GetCodePage(), caption));
  QStringList told;
  for (const ChannelCount& channel : named) {
    told << AddChannel(row, channel);
    row.translate(0, height);
  }
  if (more > 0) {
    told << SkinText(GetSkin(), kLabelAnnounceMore).replace("%d", QString::number(more));
    AddLine(row, told.back(), caption_->font(), Qt::AlignLeft);
  }
  Begin(told.join(", "), alphaValue);
}

// Returns what the row says. A long title is cut, its number never.
QString CRSS_AnnounceDlg::AddChannel(const QRect& row, const ChannelCount& channel) {
  const QString title = ToQString(GetSkin().Config().GetCodePage(), channel.title);
  const QString posts = QString::number(channel.posts);
  const QFontMetrics metrics(caption_->font());
  const QRect left = row.adjusted(0, 0, -metrics.horizontalAdvance(posts + ' '), 0);
  AddLine(row, posts, caption_->font(), Qt::AlignRight);
  AddLine(left, metrics.elidedText(title.simplified(), Qt::ElideRight, left.width()),
          caption_->font(), Qt::AlignLeft);
  return title + ' ' + posts;
}

QLabel* CRSS_AnnounceDlg::AddLine(const QRect& place, const QString& text, const QFont& font,
                                  Qt::Alignment alignment) {
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setGeometry(place);
  return label;
}

void CRSS_AnnounceDlg::Begin(const QString& told, int alphaValue) {
  setAccessibleName(caption_->text());
  setAccessibleDescription(told);
  motion_.Begin(parentWidget()->window()->screen()->geometry(), alphaValue);
  ApplyMotion();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void CRSS_AnnounceDlg::ApplyMotion() {
  if (motion_.IsClosed()) {
    close();
    return;
  }
  setGeometry(motion_.Geometry());
  SetAlphaValue(std::min(motion_.FadeLevel(), kFaintest));
  setVisible(motion_.IsVisible());
}

void CRSS_AnnounceDlg::timerEvent(QTimerEvent* event) {
  const auto timer = std::ranges::find_if(
      timers_, [&](const auto& entry) { return entry.second.timerId() == event->timerId(); });
  if (timer == timers_.end()) return CVxDialog::timerEvent(event);
  const bool wasShown = motion_.IsShown();
  motion_.OnTimer(timer->first);
  ApplyMotion();
  if (motion_.IsShown() && !wasShown) raise();
}

void CRSS_AnnounceDlg::Start(int id, std::chrono::milliseconds period) {
  timers_[id].start(static_cast<int>(period.count()), Qt::PreciseTimer, this);
}

void CRSS_AnnounceDlg::Stop(int id) { timers_[id].stop(); }

// A slot of Clicked may run an event loop before the window is deleted. Without timers the window
// stays closed.
void CRSS_AnnounceDlg::done(int result) {
  timers_.clear();
  CVxDialog::done(result);
}

void CRSS_AnnounceDlg::mousePressEvent(QMouseEvent* event) {
  isPressed_ = event->button() == Qt::LeftButton;
}

// A press on the close button that is released beside it also ends here, and is not a click.
void CRSS_AnnounceDlg::mouseReleaseEvent(QMouseEvent* event) {
  const bool wasPressed = std::exchange(isPressed_, false);
  if (!wasPressed || !rect().contains(event->position().toPoint())) return;
  close();
  emit Clicked();
}

void CRSS_AnnounceDlg::paintEvent(QPaintEvent* event) {
  CVxDialog::paintEvent(event);
  if (hasImage_) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Link));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace feedloom
