#include "ui/panel/CtrlPanelPage.h"

#include <QButtonGroup>
#include <QFrame>
#include <QLabel>
#include <QLayoutItem>

#include "controls/CVxRadioButton.h"
#include "look/SkinPieces.h"
#include "look/SkinText.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr QSize kPageMargin(20, 16);  // to the right of and below the controls

}  // namespace

CtrlPanelPage::CtrlPanelPage(const Skin& skin, QWidget* parent) : QWidget(parent), skin_(skin) {}

void CtrlPanelPage::FocusFirst() {
  QAbstractButton* const chosen = firstGroup_->checkedButton();
  (chosen ? chosen : firstGroup_->button(0))->setFocus();
}

void CtrlPanelPage::AddAt(const QRect& place, QWidget* control) {
  controls_.push_back(control);
  places_.push_back(place);
}

void CtrlPanelPage::Add(QWidget* control, const char* placeKey) {
  AddAt(LoadSkinPlace(skin_, kSectionPanel, placeKey), control);
}

QLabel* CtrlPanelPage::AddText(const QString& text, const char* placeKey) {
  QLabel* const label = MakeLabel(text, this);
  Add(label, placeKey);
  return label;
}

QLabel* CtrlPanelPage::AddHeading(const char* textKey, const char* placeKey) {
  QLabel* const heading = AddText(SkinText(skin_, textKey), placeKey);
  QFont font = heading->font();
  font.setBold(true);
  heading->setFont(font);
  return heading;
}

void CtrlPanelPage::AddLine(const char* placeKey) {
  const QRect place = LoadSkinPlace(skin_, kSectionPanel, placeKey);
  if (place.isEmpty()) return;
  auto* const line = new QFrame(this);
  line->setFrameStyle(QFrame::Sunken |
                      (place.width() >= place.height() ? QFrame::HLine : QFrame::VLine));
  AddAt(place, line);
}

QButtonGroup* CtrlPanelPage::NewGroup() {
  auto* const group = new QButtonGroup(this);
  if (!firstGroup_) firstGroup_ = group;
  return group;
}

CVxRadioButton* CtrlPanelPage::AddRadio(QButtonGroup& group, const RadioChoice& choice) {
  auto* const radio = new CVxRadioButton(skin_, kSectionPanel, kImageRadio, this);
  radio->setText(SkinText(skin_, choice.textKey));
  group.addButton(radio, static_cast<int>(group.buttons().size()));
  Add(radio, choice.placeKey);
  return radio;
}

QButtonGroup* CtrlPanelPage::AddRadios(QLabel& heading, std::span<const RadioChoice> choices) {
  QButtonGroup* const group = NewGroup();
  for (const RadioChoice& choice : choices) {
    AddRadio(*group, choice)->setAccessibleDescription(heading.text());
  }
  return group;
}

void CtrlPanelPage::Arrange() {
  std::vector<PagePart> parts;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const QWidgetItem item(controls_[i]);
    parts.push_back({places_[i], item.minimumSize(), item.sizeHint()});
  }
  const std::vector<QRect> rects = ArrangeParts(parts);
  QRect all;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    controls_[i]->setGeometry(rects[i]);
    all |= rects[i];
  }
  setMinimumSize(QSize(all.x() + all.width(), all.y() + all.height()) + kPageMargin);
}

QLabel* MakeLabel(const QString& text, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

void Choose(QButtonGroup& group, int id) {
  if (QAbstractButton* const button = group.button(id)) button->setChecked(true);
}

void ReadChoice(const QButtonGroup& group, int& value) {
  if (group.checkedId() >= 0) value = group.checkedId();
}

}  // namespace feedloom
