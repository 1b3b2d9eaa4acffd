#pragma once

#include <QCursor>
#include <QPixmap>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

class Skin;

inline constexpr int kRowIconSize = 13;

// The images of the tree's rows. An icon that the skin lacks is replaced by one of the module's.
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

TreeSkin LoadTreeSkin(const Skin& skin);

}  // namespace feedloom
