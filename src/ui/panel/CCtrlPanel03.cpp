#include "ui/panel/CCtrlPanel03.h"

#include <QButtonGroup>
#include <QLabel>
#include <QMouseEvent>

#include "controls/CVxRadioButton.h"
#include "look/SkinPieces.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr int kSampleGap = 6;  // between a sample and its radio button

class Sample : public QLabel {
 public:
  Sample(const QPixmap& image, QWidget* parent) : QLabel(parent) { setPixmap(image); }

  void SetChoice(QAbstractButton* choice) {
    choice_ = choice;
    setAccessibleName(choice->text());
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return event->ignore();
    choice_->setFocus();
    choice_->click();
  }

 private:
  QAbstractButton* choice_ = nullptr;
};

// The place right above the radio button; empty when the skin gives the button no place.
QRect SamplePlace(const QRect& radio, const QSize& size) {
  if (radio.isEmpty()) return {};
  return {QPoint(radio.x(), radio.y() - kSampleGap - size.height()), size};
}

}  // namespace

CCtrlPanel03::CCtrlPanel03(const Skin& skin, QWidget* parent)
    : CtrlPanelPage(skin, parent), mode_(NewGroup()) {
  AddChoice({kTextPreview, kPlacePreview}, kImagePreviewSample);
  AddLine(kPlaceTab3Line);
  AddChoice({kTextOriginal, kPlaceOriginal}, kImageOriginalSample);
  Arrange();
}

void CCtrlPanel03::AddChoice(const RadioChoice& choice, const char* sampleKey) {
  const QPixmap image = LoadSkinImage(GetSkin(), kSectionPanel, sampleKey);
  if (image.isNull()) {
    AddRadio(*mode_, choice);
    return;
  }
  auto* const sample = new Sample(image, this);
  AddAt(SamplePlace(LoadSkinPlace(GetSkin(), kSectionPanel, choice.placeKey), SizeOf(image)),
        sample);
  sample->SetChoice(AddRadio(*mode_, choice));
}

void CCtrlPanel03::Show(const Settings& settings) {
  Choose(*mode_, settings.previewMode != 0 ? 1 : 0);
}

void CCtrlPanel03::Read(Settings& settings) const { ReadChoice(*mode_, settings.previewMode); }

}  // namespace feedloom
