#include "ui/dialogs/NameDialog.h"

#include "skin/Keys.h"
#include "ui/Frame.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/QtText.h"

namespace feedloom {

NameDialog::NameDialog(Frame& frame, QWidget* parent, const NameDialogLook& look,
                       const NameRule& rule, const std::string& name)
    : CVxFormDialog(frame.GetSkin(), look.titleKey, parent),
      frame_(frame),
      rule_(rule),
      oldName_(name),
      box_(*AddEdit(look.labelKey)) {
  box_.setText(ToQString(frame.GetStore().TextCodePage(), name));
  box_.selectAll();
  AddButtons(look.section, look.confirmKey, look.cancelKey);
}

std::string NameDialog::Name() const {
  return FromQString(frame_.GetStore().TextCodePage(), box_.TrimmedText());
}

void NameDialog::accept() {
  const std::string name = Name();
  const std::string cabinetRoot = frame_.GetSkin().GetText(kSectionTexts, kTextCabinetTitle);
  // The old name is in use. It is not looked up, because the store would decode its entities again.
  const char* fault = CheckName(rule_, name, cabinetRoot, [this](const std::string& wanted) {
    return wanted == oldName_ || IsTaken(wanted);
  });
  if (fault == nullptr) fault = Keep(name);
  if (fault == nullptr) return CVxFormDialog::accept();
  box_.setFocus();
  box_.selectAll();
  frame_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
}

}  // namespace feedloom
