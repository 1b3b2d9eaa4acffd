#pragma once

class QAbstractButton;
class QWidget;

namespace feedloom {

class Skin;

// A button that is checked while only unread posts are shown, with the mark of an unread post. Its
// tip tells its key. A click does not move the focus to it. `parent` owns it. Interface thread
// only.
QAbstractButton* MakeUnreadButton(const Skin& skin, QWidget* parent);

}  // namespace feedloom
