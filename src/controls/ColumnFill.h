#pragma once

class QTreeView;

namespace feedloom {

// Gives `column` of the view the room that the other columns leave, from now on and whenever the
// view or a column becomes wider or narrower. A column that the user makes wider takes its room
// from the next one. The view owns what this needs. Interface thread only.
void FillRoom(QTreeView& view, int column);

}  // namespace feedloom
