#pragma once

#include <optional>
#include <string>

#include "controls/CVxFormDialog.h"
#include "net/HostLogin.h"

namespace feedloom {

class BusyBar;
class Desk;
class Refreshing;
class Subscribing;
struct ChannelRecord;
struct FeedCheckAnswer;
struct FeedFault;

// Subscribes to a feed: adds a channel to the store and the tree, and refreshes it. The address is
// checked first, on another thread. The other fields are enabled only after the check has found a
// feed, and disabled again when the address changes. When a server wants a name and a password for
// it, the user is asked for them; they are kept once they have proved right.
class CRSS_ChannelAddDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  // The dialog starts with the folder `folderId`, or the first one when there is none of that id,
  // and with the feed address `address`, which is in the module's code page and may be empty. An
  // address with another scheme than http or https is ignored.
  CRSS_ChannelAddDlg(Desk& desk, Refreshing& refreshing, Subscribing& subscribing, QWidget* parent,
                     int folderId, const std::string& address);

  void accept() override;
  void done(int result) override;

 private:
  enum class State { Unchecked, Checking, Checked };

  void Connect();
  void SetState(State state);
  void Check();
  void OnChecked(const FeedCheckAnswer& answer);
  void AskLogin(const std::string& server);
  void Tell(const char* key);
  bool TryOtherResolution();
  void OfferAnnounced(const std::string& address);
  void AddFolder();
  // Fault validates the fields, Add stores the channel. Both return the text key of an error
  // message, null on success.
  const char* Fault();
  const char* Add();
  void Subscribe(const ChannelRecord& record);
  QWidget* FieldOf(const std::string& fault) const;
  void Refuse(const char* key, QWidget* field);
  void RefuseAddress(const FeedFault& fault);
  std::string TextOf(const CVxEdit& box) const;

  Desk& desk_;
  Refreshing& refreshing_;
  Subscribing& subscribing_;
  CButtonEx& check_;
  CVxEdit& address_;
  BusyBar& progress_;
  CVxEdit& title_;
  CButtonEx& addFolder_;
  CVxComboBox& folders_;
  CButtonEx& ok_;
  State state_ = State::Unchecked;
  // What a page's link means by the browser engine's rules, when the dialog starts with another
  // reading of it that the user has not changed; else empty.
  QString otherResolution_;
  std::optional<GivenLogin> login_;  // the last that the user has given
  std::string homePage_;             // of the feed that the check has found
};

}  // namespace feedloom
