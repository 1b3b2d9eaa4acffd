// What a dialog shows, and what every user needs of it.
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QRegion>

#include "vxctrl/AccessibleTree.h"

namespace feedloom {

// Line by line what can be used or read now, as a screen reader has it: "name=value", "*" before
// what is chosen, ">" before what has the keyboard. What is disabled is left out.
inline std::string Look(QWidget& widget) {
  QStringList lines;
  if (widget.isWindow()) lines << widget.windowTitle();
  for (const QAccessibleInterface* node : NodesBelow(widget)) {
    const auto role = node->role();
    const bool isText =
        role == QAccessible::StaticText && node->relations(QAccessible::Labelled).isEmpty();
    const bool isItem = role == QAccessible::TreeItem || role == QAccessible::ColumnHeader;
    if (node->state().disabled || isItem || !(isText || IsForTheUser(*node))) continue;
    const bool hasValue = role == QAccessible::EditableText || role == QAccessible::ComboBox ||
                          role == QAccessible::Slider;
    QString value = hasValue ? node->text(QAccessible::Value) : "";
    if (const auto* list = qobject_cast<const QComboBox*>(node->object())) {
      for (int i = 0; i < list->count(); ++i) value += '|' + list->itemText(i);
    }
    lines << QString(node->state().focused ? ">" : "") + (node->state().checked ? "*" : "") +
                 SpokenName(*node) +
                 (hasValue ? (node->state().readOnly ? ": " : "=") + value : "");
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
    EXPECT_TRUE(in.rect().contains(child->geometry()) && !taken.intersects(child->geometry()))
        << child->metaObject()->className() << " " << child->accessibleName().toStdString();
    taken += child->geometry();
    if (!child->inherits("QAbstractScrollArea")) ExpectRoomIn(*child);
  }
}

// Each control has a name, and room; the Tab key goes to the right and down, and once back up.
inline void ExpectFitForUse(QDialog& dialog) {
  const QStringList nameless = Unlabelled(dialog);  // without texts all are
  EXPECT_TRUE(nameless.isEmpty() || dialog.windowTitle().isEmpty())
      << nameless.join(", ").toStdString();
  ExpectRoomIn(dialog);
  std::vector<QRect> stops;
  for (auto* stop = dialog.nextInFocusChain(); stop != &dialog; stop = stop->nextInFocusChain()) {
    const bool isStop = stop->isVisible() && (stop->focusPolicy() & Qt::TabFocus);
    if (isStop) stops.emplace_back(stop->mapTo(&dialog, QPoint()), stop->size());
  }
  int returns = 0;
  for (std::size_t i = 0; i < stops.size(); ++i) {
    const QRect& next = stops[(i + 1) % stops.size()];
    returns += next.center().y() <= stops[i].bottom() && next.left() <= stops[i].left();
  }
  EXPECT_LE(returns, 1);
}

}  // namespace feedloom
