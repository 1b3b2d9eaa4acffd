#pragma once

#include "skin/HostConfig.h"

namespace feedloom {

class VxSplitter;

// Sets how small the panes may become, and their sizes at first, when all stand: `columns` holds
// the tree and `rows`, which holds the list and the browser. What the window has more goes to the
// browser. Interface thread only.
void SetPaneSizes(VxSplitter& columns, VxSplitter& rows);

// Where the list stands in a frame that is `width` pixels wide: beside the page only where both
// have room.
ListPlace PlaceInWidth(ListPlace wanted, int width);

// Puts the list above or beside the page, with the share that belongs to it there at first.
void PlaceList(VxSplitter& rows, ListPlace place);

}  // namespace feedloom
