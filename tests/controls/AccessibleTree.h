// What a screen reader finds below a widget.
#pragma once

#include <QtWidgets>
#include <set>

namespace feedloom {

// As it is spoken: a label beside a control goes before the control's own words.
inline QString SpokenName(const QAccessibleInterface& node) {
  const auto labels = node.relations(QAccessible::Label);
  return (labels.isEmpty() ? &node : labels.front().first)->text(QAccessible::Name);
}

// All that is on the screen, but not what a drop-down list drops, nor what is in a web page.
inline void CollectNodes(QAccessibleInterface& node, std::vector<QAccessibleInterface*>& nodes) {
  if (node.state().invisible) return;
  nodes.push_back(&node);
  const bool isWhole = node.role() == QAccessible::ComboBox ||
                       (node.object() && node.object()->inherits("QWebEngineView"));
  for (int i = 0; !isWhole && i < node.childCount(); ++i)
    if (auto* const child = node.child(i)) CollectNodes(*child, nodes);
}

inline std::vector<QAccessibleInterface*> NodesBelow(QWidget& widget) {
  std::vector<QAccessibleInterface*> nodes;
  CollectNodes(*QAccessible::queryAccessibleInterface(&widget), nodes);
  return nodes;
}

inline bool IsForTheUser(const QAccessibleInterface& node) {
  using enum QAccessible::Role;
  static const std::set<QAccessible::Role> kRoles = {Button,       CheckBox, RadioButton, ComboBox,
                                                     EditableText, Slider,   Separator,   ToolBar,
                                                     Tree,         TreeItem, ColumnHeader};
  return kRoles.contains(node.role()) || node.state().focusable;
}

}  // namespace feedloom
