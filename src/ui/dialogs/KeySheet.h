// The sheet of keys and gestures.
#pragma once

class QWidget;

namespace feedloom {

class Skin;

// Shows the rows of KeyTable in a dialog over `parent`, and returns when it is closed. Does nothing
// while another dialog is open. Interface thread.
void ShowKeySheet(const Skin& skin, QWidget* parent);

}  // namespace feedloom
