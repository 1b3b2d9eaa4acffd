#include "controls/CVxDialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <memory>

#include "controls/CButtonEx.h"
#include "controls/CutShape.h"
#include "look/QtText.h"
#include "look/SkinFont.h"
#include "look/SkinPalette.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

CVxDialog::CVxDialog(const Skin& skin, const char* titleKey, QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), skin_(skin) {
  setWindowTitle(titleKey ? SkinText(skin, titleKey)
                          : ToQString(skin.Config().GetCodePage(), skin.Config().GetAppTitle()));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  setPalette(LoadSkinPalette(skin));
}

void CVxDialog::SetAlphaValue(int level) { setWindowOpacity(1.0 - level / double{kInvisible}); }

void CVxDialog::SetBackground(const QPixmap& image) {
  background_ = image;
  CutOut();
}

void CVxDialog::SetColorKey(const QColor& color) {
  colorKey_ = color;
  CutOut();
}

// A mask works on every desktop. A translucent background would be black without a compositor.
void CVxDialog::CutOut() {
  if (background_.isNull() || !colorKey_.isValid()) return;
  const QImage image = background_.toImage().convertToFormat(QImage::Format_RGB32);
  setMask(ShapeWithout(image, colorKey_, devicePixelRatio()));
  background_ = QPixmap::fromImage(FilledWithout(image, colorKey_));
}

CButtonEx* CVxDialog::MakeButton(const char* section, const char* imageKey, const char* textKey) {
  auto* button = new CButtonEx(skin_.GetImagePath(section, imageKey), this);
  button->setText(SkinText(skin_, textKey));
  button->setAccessibleName(button->text());
  return button;
}

QHBoxLayout* CVxDialog::MakeButtonRow(const char* section, const char* confirmKey,
                                      const char* cancelKey) {
  constexpr int kGap = 8;
  auto* const row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addStretch();
  CButtonEx* const confirm = MakeButton(section, confirmKey, kTextOk);
  connect(confirm, &QAbstractButton::clicked, this, &QDialog::accept);
  SetConfirmButton(confirm);
  row->addWidget(confirm);
  if (cancelKey) {
    CButtonEx* const cancel = MakeButton(section, cancelKey, kTextCancel);
    connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
    row->addWidget(cancel);
  }
  row->addStretch();
  return row;
}

void CVxDialog::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool isEscape = event->key() == Qt::Key_Escape;
  // A repeated key was pressed for a message box that has just been closed.
  if (event->isAutoRepeat() && (isEnter || isEscape)) return;
  if (!isEnter || !confirm_) return QDialog::keyPressEvent(event);
  confirm_->click();
}

void CVxDialog::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!background_.isNull()) painter.drawPixmap(0, 0, background_);
}

bool RunDialog(CVxDialog* dialog, const std::function<void()>& read) {
  const QPointer<CVxDialog> guard(dialog);
  const int result = dialog->exec();
  const std::unique_ptr<CVxDialog> owner(guard.data());
  if (!owner || result != QDialog::Accepted) return false;
  read();
  return true;
}

}  // namespace feedloom
