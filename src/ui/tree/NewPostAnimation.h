// The animated image that marks rows with new posts.
#pragma once

#include <QObject>
#include <QPixmap>
#include <array>
#include <memory>

class QMovie;

namespace feedloom {

class Skin;

// There are two images: kByMessage for rows that a message of the refresh marked as new,
// kByPainting for all others. All rows with the same image show the same frame. Interface thread
// only.
class NewPostAnimation : public QObject {
  Q_OBJECT

 public:
  enum Source { kByMessage, kByPainting };

  NewPostAnimation(const Skin& skin, QObject* parent);
  ~NewPostAnimation() override;

  // The frame to paint now; a null pixmap when the image directory lacks the file. The animation
  // runs as long as this is called for each of its frames.
  QPixmap Frame(Source source);

 signals:
  // The rows that show an image must be repainted.
  void FrameChanged();

 private:
  struct Image {
    std::unique_ptr<QMovie> movie;
    bool wasPainted = false;  // Frame() was called since the latest frameChanged
  };

  void Advance(Image& image);

  std::array<Image, 2> images_;
};

}  // namespace feedloom
