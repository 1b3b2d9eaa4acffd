#pragma once

#include <string>

#include "controls/CVxFormDialog.h"
#include "ui/dialogs/DialogRules.h"

namespace feedloom {

class Desk;

// The texts and images of one dialog that asks for a name, as keys of Keys.h.
struct NameDialogLook {
  const char* titleKey;
  const char* labelKey;
  const char* section;
  const char* confirmKey;
  const char* cancelKey;
};

// Asks for one name. OK with an invalid name shows a message and keeps the dialog open. The old
// name is invalid, or cancels the dialog, as the host wishes.
class NameDialog : public CVxFormDialog {
  Q_OBJECT

 public:
  // The typed name without leading and trailing blanks, in the module's code page.
  std::string Name() const;

  void accept() override;

 protected:
  // The field starts with `name`, the old name or empty, and selects it. `rule` must outlive the
  // dialog.
  NameDialog(Desk& desk, QWidget* parent, const NameDialogLook& look, const NameRule& rule,
             const std::string& name);

  Desk& GetDesk() const { return desk_; }

  // True when the store already has this name.
  virtual bool IsTaken(const std::string& name) const = 0;
  // Stores a valid name, in the dialogs that do so themselves. Returns the text key of an error
  // message, null on success.
  virtual const char* Keep(const std::string& /*name*/) { return nullptr; }

 private:
  Desk& desk_;
  const NameRule& rule_;
  const std::string oldName_;
  CVxEdit& box_;
};

}  // namespace feedloom
