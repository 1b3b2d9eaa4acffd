// What the panes' commands do outside the panes: open dialogs, exchange subscriptions. The frame
// sets these functions. A command whose function is not set is disabled in the menus.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

class QPrinter;
class QUrl;

namespace feedloom {

// The channel that a dialog is about. Texts are in the module's code page; names do not include
// unread counts.
struct ChannelFacts {
  int id = 0;
  std::string title;
  std::string xmlLink;  // the address of the feed
  int folderId = 0;
  std::string folderName;
};

// Who wants to know the user's name and password. The texts fit on a line and can be shown.
struct LoginQuestion {
  QString host;   // as the wire has it, with a port unless it is the usual one
  QString realm;  // what the login is for, as the host calls it
  bool isProxy = false;
};

struct Login {
  QString name;
  QString password;
};

// All are called on the interface thread. A function that shows a dialog returns when the dialog is
// closed. The frame may be destroyed meanwhile, and the caller with it: a function with a result
// then returns the same as when the user cancels, and after any other the caller must return at
// once.
struct Actions {
  // Returns the word to search for, never an empty one; std::nullopt when the user cancels.
  std::function<std::optional<std::string>()> askSearchWord;
  // Returns the id of the cabinet to save posts to; std::nullopt when the user cancels.
  std::function<std::optional<int>()> chooseCabinet;

  // These return a valid new name for the folder, channel or cabinet, which the caller stores;
  // std::nullopt when the user cancels. The parameter has the old name.
  std::function<std::optional<std::string>(const std::string& name)> askGroupName;
  std::function<std::optional<std::string>(const ChannelFacts& channel)> askChannelName;
  std::function<std::optional<std::string>(const std::string& title)> askCabinetName;

  // These store what the user adds or moves, and show it in the tree. The dialog of addChannel
  // starts with this folder and this feed address; both may be empty.
  std::function<void(const std::string& folderName, const std::string& address)> addChannel;
  std::function<void()> addGroup;
  std::function<void()> addCabinet;
  std::function<void(const ChannelFacts& channel)> moveChannel;
  std::function<void(const ChannelFacts& channel)> showChannelInfo;

  std::function<void()> importFile;
  std::function<void()> importAddress;
  std::function<void(const std::string& fileName)> exportOpml;  // suggested name
  std::function<void()> synchronise;
  std::function<void()> openSettings;
  std::function<void()> openDirectory;
  std::function<void()> notifyOfNewPosts;

  // Returns the path to save a download to, empty when the user cancels; `name` is the suggested
  // file name, `host` where the file comes from.
  std::function<QString(const QString& name, const QString& host)> askDownloadPlace;
  // Returns the name and password for a web page; std::nullopt when the user gives up.
  std::function<std::optional<Login>(const LoginQuestion& question)> askLogin;
  // Sets `printer` up as the user chooses; false when the user cancels.
  std::function<bool(QPrinter& printer)> choosePrinter;
  // Opens the address with the desktop's default program; false when there is none.
  std::function<bool(const QUrl& address)> openOutside;
};

}  // namespace feedloom
