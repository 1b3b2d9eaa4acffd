#include "ui/browser/MediaBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "controls/AccessibleRole.h"
#include "look/SkinFont.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/browser/BarMargins.h"
#include "ui/browser/DisplayedAddress.h"

namespace feedloom {
MediaBar::MediaBar(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      background_(LoadThreePieces(skin, kSectionRightBottom, kImageRightBottomLeft,
                                  kImageRightBottomMiddle, kImageRightBottomRight)),
      title_(new QLabel(this)) {
  SetAccessibleRole(*this, QAccessible::ToolBar);
  hide();
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  title_->setTextFormat(Qt::PlainText);
  title_->setMinimumWidth(1);  // a narrow pane cuts off the title, not the button
  auto* const player = new QToolButton(this);
  player->setText(SkinText(skin, kTextSystemPlayer));
  connect(player, &QAbstractButton::clicked, this, [this] { emit PlayerWanted(media_); });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kBarEdge, kBarVerticalMargin, kBarEdge, kBarVerticalMargin);
  row->addWidget(title_, 1);
  row->addWidget(player);
}

void MediaBar::Show(const std::optional<PlayedMedia>& media) {
  setVisible(media.has_value());
  if (!media) return;
  media_ = media->address;
  const QString name =
      media->title.trimmed().isEmpty() ? DisplayAddress(media_).text : media->title;
  title_->setText(SkinText(skin_, kTextPlaying).replace("%s", name));
  setAccessibleName(title_->text());
  title_->setToolTip(title_->text().toHtmlEscaped());
}

void MediaBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
}

}  // namespace feedloom
