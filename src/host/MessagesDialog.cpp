#include "host/MessagesDialog.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QShortcut>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/HostTables.h"
#include "host/MessageLog.h"
#include "skin/Keys.h"

namespace feedloom {

MessagesDialog::MessagesDialog(const MessageLog& log, QWidget* parent)
    : QDialog(parent), log_(log), list_(*new QTreeWidget(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(HostText(kHostTextMessages));
  list_.setHeaderLabels({HostText(kHostTextMessageTime), HostText(kHostTextMessageText)});
  list_.setAccessibleName(windowTitle());
  list_.setRootIsDecorated(false);
  list_.setAlternatingRowColors(true);
  list_.setSelectionMode(QAbstractItemView::ExtendedSelection);
  auto& buttons = *new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(&buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(&list_);
  layout->addWidget(&buttons);
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this,
          &MessagesDialog::Copy);
  connect(&log, &MessageLog::Changed, this, &MessagesDialog::Fill);
  Fill();
  resize(640, 360);
}

void MessagesDialog::Fill() {
  list_.clear();
  const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning);
  for (const LoggedMessage& message : log_.Messages()) {
    const QString times = message.times > 1 ? QString(" (%1×)").arg(message.times) : "";
    const QString failure = message.isFailure ? HostText(kHostTextMessageFailure) + " " : "";
    auto* const row = new QTreeWidgetItem(
        &list_, {message.time.toString("HH:mm:ss"), failure + message.text + times});
    row->setToolTip(1, "<p>" + message.text.toHtmlEscaped() + "</p>");
    if (message.isFailure) row->setIcon(1, warning);
  }
  list_.resizeColumnToContents(0);
}

void MessagesDialog::Copy() const {
  QStringList lines;
  for (int i = 0; i < list_.topLevelItemCount(); ++i) {
    const QTreeWidgetItem& row = *list_.topLevelItem(i);
    if (row.isSelected()) lines << row.text(0) + " " + row.text(1);
  }
  QGuiApplication::clipboard()->setText(lines.join('\n'));
}

}  // namespace feedloom
