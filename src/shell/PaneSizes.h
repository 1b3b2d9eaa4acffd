#pragma once

namespace feedloom {

class VxSplitter;

// Sets how small the panes may become, and their sizes at first, when all stand: `columns` holds
// the tree and `rows`, which holds the list and the browser. What the window has more goes to the
// browser. Interface thread only.
void SetPaneSizes(VxSplitter& columns, VxSplitter& rows);

}  // namespace feedloom
