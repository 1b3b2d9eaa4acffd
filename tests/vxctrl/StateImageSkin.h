// A skin of plain images, for tests of skinned controls.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <string>

#include "kit/TempFolder.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "vxctrl/ButtonImages.h"
#include "vxctrl/PrintColor.h"

namespace feedloom {

inline const QColor kStateColors[] = {Qt::white, Qt::yellow, Qt::green, Qt::gray};

// Each image lies under the name of its key.
class StateImageSkin {
 public:
  StateImageSkin() { EXPECT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, folder_.Path())); }

  void AddImage(const std::string& key, const QSize& size, const QColor& color) const {
    Save(folder_.File(key + ".png"), size, color);
  }
  // An image for each state, in its colour.
  void AddStates(const std::string& key, const QSize& size) const {
    const auto paths = ButtonImagePaths(folder_.File(key + ".png"));
    for (std::size_t state = 0; state < paths.size(); ++state) {
      Save(paths[state], size, kStateColors[state]);
    }
  }

  const Skin& Get() const { return skin_; }

 private:
  static void Save(const std::string& path, const QSize& size, const QColor& color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(QString::fromStdString(path)));
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const Skin skin_{
      {.HostGetText = {},
       .HostGetSkinValue = [](const char*, const char* key) { return std::string(key) + ".png"; }},
      HostConfig(registry_)};
};

}  // namespace feedloom
