#include "ui/CommandKeys.h"

namespace feedloom {
namespace {

using Std = QKeySequence::StandardKey;

QList<QKeySequence> Usual(Std key) { return QKeySequence::keyBindings(key); }

std::vector<KeyGroup> MakeTable() {
  return {{&kLabelKeysPosts,
           {{kCommandNextUnread, {Qt::Key_N, Qt::Key_J}, nullptr, &kLabelKeyNextUnread},
            {kCommandPreviousUnread, {Qt::Key_P, Qt::Key_K}, nullptr, &kLabelKeyPreviousUnread},
            {kCommandScreenOn, {Qt::Key_Space}, nullptr, &kLabelKeyScreenOn},
            {kCommandScreenBack, {Qt::SHIFT | Qt::Key_Space}, nullptr, &kLabelKeyScreenBack, true},
            {kCommandToggleRead, {Qt::Key_M}, nullptr, &kLabelKeyToggleRead},
            {kCommandScrap, {Qt::Key_S}, nullptr, &kLabelScrap},
            {kCommandOpenPost, {Qt::Key_O}, nullptr, &kLabelKeyOpenPost},
            {kCommandDeleteSelection, {Qt::Key_Delete}, nullptr, &kLabelKeyDelete},
            {kCommandUndo, {Qt::CTRL | Qt::Key_Z}, nullptr, &kLabelUndo},
            {kCommandShowPost, {Qt::Key_Return, Qt::Key_Enter}, nullptr, &kLabelKeyShowPost},
            {kCommandSelectAll, Usual(Std::SelectAll), nullptr, &kLabelKeySelectAll},
            {0, {Qt::SHIFT | Qt::Key_Up, Qt::SHIFT | Qt::Key_Down}, nullptr, &kLabelKeySelectMore},
            {0, {Qt::CTRL | Qt::Key_Up, Qt::CTRL | Qt::Key_Down}, nullptr, &kLabelKeyPassBy},
            {0, {Qt::CTRL | Qt::Key_Space}, nullptr, &kLabelKeyAddPost},
            {0, {Qt::ALT | Qt::Key_Up}, nullptr, &kLabelKeyHeadings}}},
          {&kLabelKeysTree,
           {{0, {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}, nullptr, &kLabelKeyRows},
            {0, {Qt::Key_Left, Qt::Key_Right}, nullptr, &kLabelKeyFolder},
            {kCommandMoveUp, {Qt::ALT | Qt::Key_Up}, nullptr, &kLabelMoveUp, true},
            {kCommandMoveDown, {Qt::ALT | Qt::Key_Down}, nullptr, &kLabelMoveDown, true},
            {kCommandRefreshSelection, {Qt::Key_F5}, nullptr, &kLabelKeyRefreshSelection},
            {kCommandRefreshAll, {Qt::SHIFT | Qt::Key_F5}, nullptr, &kLabelKeyRefreshAll},
            {kCommandUnreadOnly, {Qt::Key_U}, nullptr, &kLabelUnreadOnly},
            {kCommandFocusSearch, Usual(Std::Find), nullptr, &kLabelKeySearch},
            {0, {Qt::Key_End}, nullptr, &kLabelKeyMoreResults}}},
          {&kLabelKeysPage,
           {{kCommandFindInPage, Usual(Std::Find), nullptr, &kLabelFindInPage},
            {kCommandPrint, Usual(Std::Print), nullptr, &kLabelPrint},
            {kCommandZoomIn, Usual(Std::ZoomIn), nullptr, &kLabelZoomIn, true},
            {kCommandZoomOut, Usual(Std::ZoomOut), nullptr, &kLabelZoomOut, true},
            {kCommandZoomNormal, {Qt::CTRL | Qt::Key_0}, nullptr, &kLabelZoomNormal},
            {kCommandGoBack, {Qt::ALT | Qt::Key_Left}, nullptr, &kLabelKeyGoBack},
            {kCommandGoForward, {Qt::ALT | Qt::Key_Right}, nullptr, &kLabelKeyGoForward},
            {kCommandFocusAddress, {Qt::CTRL | Qt::Key_L}, nullptr, &kLabelKeyAddress},
            {kCommandStopLoad, {Qt::Key_Escape}, nullptr, &kLabelKeyGiveUp}}},
          {&kLabelKeysWindow,
           {{kCommandNextPane, {Qt::Key_F6}, nullptr, &kLabelKeyNextPane, true},
            {kCommandPreviousPane, {Qt::SHIFT | Qt::Key_F6}, nullptr, &kLabelKeyPreviousPane, true},
            {kCommandNextDivider, {Qt::Key_F8}, nullptr, &kLabelKeyDivider, true},
            {kCommandOpenMenu, {Qt::SHIFT | Qt::Key_F10}, nullptr, &kLabelKeyMenu},
            {0, {Qt::SHIFT | Qt::Key_F1}, nullptr, &kLabelKeyWhatsThis},
            {0, {Qt::Key_Tab, Qt::SHIFT | Qt::Key_Tab}, nullptr, &kLabelKeyControls},
            {kCommandKeySheet, {Qt::Key_F1, Qt::Key_Question}, nullptr, &kLabelKeySheet}}},
          {&kLabelKeysMouse,
           {{0, {}, &kLabelGestureClick, &kLabelDeedClick},
            {0, {}, &kLabelGestureCtrlClick, &kLabelDeedCtrlClick},
            {0, {}, &kLabelGestureShiftClick, &kLabelDeedShiftClick},
            {0, {}, &kLabelGestureDoubleClick, &kLabelDeedDoubleClick},
            {0, {}, &kLabelGestureRightClick, &kLabelDeedRightClick},
            {0, {}, &kLabelGestureDragRow, &kLabelDeedDragRow},
            {0, {}, &kLabelGestureDragPosts, &kLabelScrap},
            {0, {}, &kLabelGestureDropList, &kLabelImportOpml},
            {0, {}, &kLabelGestureDropAddress, &kLabelAddChannel}}}};
}

}  // namespace

std::span<const KeyGroup> KeyTable() {
  static const std::vector<KeyGroup> kTable = MakeTable();
  return kTable;
}

}  // namespace feedloom
