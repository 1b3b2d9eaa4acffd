#pragma once

#include <string>

#include "vxctrl/CVxFormDialog.h"

class QProgressBar;

namespace feedloom {

class Frame;
struct ChannelRecord;
struct FeedCheckAnswer;

// Subscribes to a feed, in the store and in the tree, and has it refreshed. The address is checked
// first, on another thread; what follows it can be filled in once a feed was found there, and no
// longer when the address was changed since.
class CRSS_ChannelAddDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  // Both texts are in the module's code page and may be empty. The address comes from a page: any
  // but an http or https one is left out.
  CRSS_ChannelAddDlg(Frame& frame, QWidget* parent, const std::string& folderName,
                     const std::string& address);

  void accept() override;
  void done(int result) override;

 private:
  enum class State { Unchecked, Checking, Checked };

  void Connect();
  void SetState(State state);
  void Check();
  void OnChecked(const FeedCheckAnswer& answer);
  void OfferAnnounced(const std::string& address);
  void AddFolder();
  // Both: the key of the message that says what is wrong, null when nothing is.
  const char* Fault();
  const char* Add();
  void Subscribe(const ChannelRecord& record);
  void Refuse(const char* key, QWidget* field);
  std::string TextOf(const CVxEdit& box) const;

  Frame& frame_;
  CButtonEx& check_;
  CVxEdit& address_;
  QProgressBar& progress_;
  CVxEdit& title_;
  CButtonEx& addFolder_;
  CVxComboBox& folders_;
  CButtonEx& ok_;
  State state_ = State::Unchecked;
  std::string homePage_;  // of the feed that was found
};

}  // namespace feedloom
