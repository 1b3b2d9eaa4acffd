#include "ui/tree/NewPostAnimation.h"

#include <QFile>
#include <QMovie>
#include <initializer_list>
#include <string>

#include "files/Path.h"
#include "look/SkinPieces.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

// An image directory has one image for the Korean language and one for all languages.
QString PathIn(const Skin& skin, std::initializer_list<const char*> names) {
  std::string path = skin.Config().GetImageDir();
  for (const char* name : names) path = JoinPath(path, name);
  return SharpestFile(QFile::decodeName(path.c_str()));
}

}  // namespace

NewPostAnimation::NewPostAnimation(const Skin& skin, QObject* parent) : QObject(parent) {
  const QString paths[] = {
      PathIn(skin, {"Image", "Image_KOR", "Skyfold_image", "new_ani01.gif"}),
      PathIn(skin, {"Image", "Skyfold_image", "new_ani01.gif"}),
  };
  for (std::size_t source = 0; source < images_.size(); ++source) {
    Image& image = images_[source];
    image.movie = std::make_unique<QMovie>(paths[source]);
    image.movie->setCacheMode(QMovie::CacheAll);
    connect(image.movie.get(), &QMovie::frameChanged, this, [this, &image] { Advance(image); });
  }
}

NewPostAnimation::~NewPostAnimation() = default;

QPixmap NewPostAnimation::Frame(Source source) {
  Image& image = images_[source];
  image.wasPainted = true;
  if (image.movie->state() == QMovie::NotRunning) image.movie->start();
  if (image.movie->state() == QMovie::Paused) image.movie->setPaused(false);
  return image.movie->currentPixmap();
}

// When nobody has painted the last frame, the rows are hidden or no longer new: the animation
// pauses.
void NewPostAnimation::Advance(Image& image) {
  if (!image.wasPainted) {
    image.movie->setPaused(true);
    return;
  }
  image.wasPainted = false;
  emit FrameChanged();
}

}  // namespace feedloom
