#include "ui/dialogs/KeySheet.h"

#include <QApplication>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "controls/CButtonEx.h"
#include "controls/CVxDialog.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "ui/CommandKeys.h"

namespace feedloom {
namespace {

constexpr QSize kSheetSize(620, 560);
constexpr int kSheetGap = 12;
constexpr int kRowGap = 10;  // beside the letters' height

QString KeysText(const Skin& skin, const KeyRow& row) {
  return row.gesture != nullptr
             ? SkinText(skin, *row.gesture)
             : QKeySequence::listToString(row.keys, QKeySequence::NativeText).replace("; ", ", ");
}

class KeySheet : public CVxDialog {
 public:
  KeySheet(const Skin& skin, QWidget* parent)
      : CVxDialog(skin, kTextKeySheetTitle, parent), list_(*new QTreeWidget(this)) {
    list_.setAccessibleName(windowTitle());
    list_.setColumnCount(2);
    list_.setHeaderHidden(true);
    list_.setRootIsDecorated(false);
    list_.setUniformRowHeights(true);
    list_.header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (const KeyGroup& group : KeyTable()) Add(group);
    list_.expandAll();
    LayOut();
    resize(kSheetSize);
  }

 private:
  void Add(const KeyGroup& group) {
    auto* const title = new QTreeWidgetItem(&list_, {SkinText(GetSkin(), *group.title)});
    title->setFirstColumnSpanned(true);
    QFont bold = font();
    bold.setBold(true);
    title->setFont(0, bold);
    title->setSizeHint(0, {0, fontMetrics().height() + kRowGap});
    for (const KeyRow& row : group.rows) {
      new QTreeWidgetItem(title, {KeysText(GetSkin(), row), SkinText(GetSkin(), *row.deed)});
    }
  }

  void LayOut() {
    auto* const close = MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextDirectoryClose);
    connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
    column->setSpacing(kSheetGap);
    column->addWidget(&list_, 1);
    column->addWidget(close, 0, Qt::AlignRight);
  }

  QTreeWidget& list_;
};

}  // namespace

void ShowKeySheet(const Skin& skin, QWidget* parent) {
  if (QApplication::activeModalWidget() == nullptr) RunDialog(new KeySheet(skin, parent), [] {});
}

}  // namespace feedloom
