// The moving image that marks rows with new posts.
#pragma once

#include <QObject>
#include <QPixmap>
#include <array>
#include <memory>

class QMovie;

namespace feedloom {

class Skin;

// Two images: one for rows that a message marked as new, and one for those that are found to be new
// while they are painted. All rows with the same image show the same frame of it.
class NewPostAnimation : public QObject {
  Q_OBJECT

 public:
  enum Source { kByMessage, kByPainting };

  NewPostAnimation(const Skin& skin, QObject* parent);
  ~NewPostAnimation() override;

  // The frame to paint now; a null pixmap when the image directory lacks the file. The image moves
  // as long as its frames are asked for.
  QPixmap Frame(Source source);

 signals:
  // The rows that show an image are to be painted again.
  void FrameChanged();

 private:
  struct Image {
    std::unique_ptr<QMovie> movie;
    bool wasPainted = false;  // since its last frame
  };

  void Advance(Image& image);

  std::array<Image, 2> images_;
};

}  // namespace feedloom
