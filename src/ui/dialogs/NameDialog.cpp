#include "ui/dialogs/NameDialog.h"

#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "ui/Desk.h"

namespace feedloom {

NameDialog::NameDialog(Desk& desk, QWidget* parent, const NameDialogLook& look,
                       const NameRule& rule, const std::string& name)
    : CVxFormDialog(desk.GetSkin(), look.titleKey, parent),
      desk_(desk),
      rule_(rule),
      oldName_(name),
      box_(*AddEdit(look.labelKey)) {
  box_.setText(ToQString(desk.GetStore().TextCodePage(), name));
  box_.selectAll();
  AddButtons(look.section, look.confirmKey, look.cancelKey);
}

std::string NameDialog::Name() const {
  return FromQString(desk_.GetStore().TextCodePage(), box_.TrimmedText());
}

void NameDialog::accept() {
  const std::string name = Name();
  const bool isSame = !name.empty() && name == oldName_;
  if (isSame && desk_.GetSkin().Config().HasHelpfulDialogs()) return reject();  // nothing to do
  const std::string cabinetRoot = desk_.GetSkin().GetText(kSectionTexts, kTextCabinetTitle);
  // The old name is in use. It is not looked up, because the store would decode its entities again.
  const char* fault = CheckName(rule_, name, cabinetRoot, [this](const std::string& wanted) {
    return wanted == oldName_ || IsTaken(wanted);
  });
  if (fault == nullptr) fault = Keep(name);
  if (fault == nullptr) return CVxFormDialog::accept();
  box_.setFocus();
  box_.selectAll();
  desk_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
}

}  // namespace feedloom
