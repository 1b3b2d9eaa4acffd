#pragma once

#include <QUrl>
#include <QWidget>
#include <optional>

#include "look/SkinPieces.h"

class QLabel;

namespace feedloom {

class Skin;

// A media file that the page on display plays.
struct PlayedMedia {
  QString title;
  QUrl address;
};

// The bar below the player's page: it names what plays, and offers the system's player, which may
// play what the browser engine cannot. Hidden at first. Interface thread.
class MediaBar : public QWidget {
  Q_OBJECT

 public:
  MediaBar(const Skin& skin, QWidget* parent);

  // Shows the bar for `media`, or hides it for none.
  void Show(const std::optional<PlayedMedia>& media);

 signals:
  void PlayerWanted(const QUrl& media);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Skin& skin_;
  const ThreePieces background_;
  QLabel* const title_;
  QUrl media_;
};

}  // namespace feedloom
