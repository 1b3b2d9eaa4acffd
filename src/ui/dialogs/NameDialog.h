#pragma once

#include <string>

#include "ui/dialogs/DialogRules.h"
#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// What the dialogs that ask for one name differ in; the keys are those of Keys.h.
struct NameDialogLook {
  const char* titleKey;
  const char* labelKey;
  const char* section;
  const char* confirmKey;
  const char* cancelKey;
};

// Asks for one name. OK with a name that breaks the rule says so and leaves the dialog open.
class NameDialog : public CVxFormDialog {
  Q_OBJECT

 public:
  // Without the blanks around it, in the module's code page.
  std::string Name() const;

  void accept() override;

 protected:
  // `rule` outlives the dialog. The box begins with `name`, the old one if there is one, all of it
  // selected.
  NameDialog(Frame& frame, QWidget* parent, const NameDialogLook& look, const NameRule& rule,
             const std::string& name);

  Frame& GetFrame() const { return frame_; }

  virtual bool IsTaken(const std::string& name) const = 0;
  // What a dialog does itself with a sound name: the key of the message when it fails.
  virtual const char* Keep(const std::string& /*name*/) { return nullptr; }

 private:
  Frame& frame_;
  const NameRule& rule_;
  const std::string oldName_;
  CVxEdit& box_;
};

}  // namespace feedloom
