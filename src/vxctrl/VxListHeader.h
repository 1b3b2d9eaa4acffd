#pragma once

#include <QHeaderView>
#include <array>

namespace feedloom {

// The header of a list whose columns can be sorted by and resized without a pointer, too: Left,
// Right, Home and End choose a column, Enter and Space do what a click on it does, Ctrl+Left and
// Ctrl+Right change its width; Down and Escape lead back. Its name for a screen reader is that of
// the chosen column, Qt::AccessibleTextRole of the model's header data if there is any.
class VxListHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit VxListHeader(QWidget* parent);

  void setModel(QAbstractItemModel* model) override;

 signals:
  // The keyboard is to go back to the rows.
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
  std::array<QMetaObject::Connection, 2> news_;  // of the model
};

}  // namespace feedloom
