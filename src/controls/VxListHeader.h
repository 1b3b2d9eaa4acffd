#pragma once

#include <QHeaderView>
#include <array>

namespace feedloom {

// A list header with keyboard support. Left, Right, Home and End choose a column, Enter and Space
// sort by it as a click does, Ctrl+Left and Ctrl+Right change its width, Down and Escape leave the
// header. Its accessible name is that of the chosen column: the model's header data for
// Qt::AccessibleTextRole, or else for Qt::DisplayRole.
class VxListHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit VxListHeader(QWidget* parent);

  void setModel(QAbstractItemModel* model) override;

 signals:
  // The user wants the focus back in the rows.
  void KeyboardLeft();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  void Choose(int section);
  void SortByChosen();
  void Widen(int pixels);
  void UpdateName();

  int chosen_ = 0;
  std::array<QMetaObject::Connection, 2> modelConnections_;
};

}  // namespace feedloom
