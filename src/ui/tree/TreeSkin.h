#pragma once

#include <QCursor>
#include <QPixmap>

#include "look/SkinPieces.h"

namespace feedloom {

class Skin;

inline constexpr int kRowIconSize = 13;

// The images of the tree's rows.
struct TreeSkin {
  ThreePieces folderHeader;
  ThreePieces cabinetHeader;
  QPixmap channelIcon;
  QPixmap failingChannelIcon;
  QPixmap cabinetIcon;
  QPixmap unreadCabinetIcon;
  QCursor rowCursor;
  QColor newMark;
};

// Loads the images from the skin. An icon or cursor that the skin lacks is replaced by a built-in
// one. Interface thread only.
TreeSkin LoadTreeSkin(const Skin& skin);

}  // namespace feedloom
