// What a dialog shows, and what every user needs of it.
#pragma once

#include <gtest/gtest.h>

#include "vxctrl/AccessibleTree.h"

namespace feedloom {

// What can be used or read now, as a screen reader has it: "name=value", "*" before what is chosen,
// ">" before what has the keyboard. What is disabled is left out.
inline std::string Look(QWidget& widget) {
  QStringList lines;
  if (widget.isWindow()) lines << widget.windowTitle();
  for (const QAccessibleInterface* node : NodesBelow(widget)) {
    const auto role = node->role();
    const bool isText =
        role == QAccessible::StaticText && node->relations(QAccessible::Labelled).isEmpty();
    if (node->state().disabled || !(isText || IsForTheUser(*node))) continue;
    lines << QString(node->state().focused ? ">" : "") + (node->state().checked ? "*" : "") +
                 SpokenName(*node);
    if (role == QAccessible::EditableText || role == QAccessible::ComboBox ||
        role == QAccessible::Slider)
      lines.back() += (node->state().readOnly ? ": " : "=") + node->text(QAccessible::Value);
    if (role == QAccessible::EditableText) {
      const QString more = node->text(QAccessible::Description);
      lines.back() += more.isEmpty() ? "" : " (" + more + ")";
      EXPECT_EQ(node->text(QAccessible::Name), SpokenName(*node));
    }
    const auto* const list = qobject_cast<const QComboBox*>(node->object());
    for (int i = 0; list && i < list->count(); ++i) lines.back() += '|' + list->itemText(i);
  }
  return lines.join("; ").toStdString();
}

// Each control has the room that it needs, inside of its parent, and to itself.
inline void ExpectRoomIn(const QWidget& in) {
  QRegion taken;
  for (const auto* child : in.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!child->isVisible() || child->isWindow()) continue;
    const bool isText = child->inherits("QLabel") || child->inherits("QAbstractButton");
    const QSize need = isText ? child->sizeHint() : child->minimumSizeHint();
    EXPECT_EQ(need.boundedTo(child->size()), need.boundedTo(child->maximumSize()));
    EXPECT_TRUE(in.rect().contains(child->geometry()) && !taken.intersects(child->geometry()));
    taken += child->geometry();
    if (!child->inherits("QAbstractScrollArea")) ExpectRoomIn(*child);
  }
}

}  // namespace feedloom
