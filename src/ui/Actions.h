// What the panes' commands do outside of the panes: dialogs, and the exchange of subscriptions. The
// frame fills them in. A command whose action is not there is grey.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

class QPrinter;
class QUrl;

namespace feedloom {

// Whose name or data a dialog is about. Texts are in the module's code page, without counts.
struct ChannelFacts {
  int id = 0;
  std::string title;
  std::string xmlLink;  // the feed's address
  int folderId = 0;
  std::string folderName;
};

// Called on the interface thread; those that show a dialog return when it is closed. The caller may
// be gone then: an action with an answer gives none, after one without the caller does nothing.
struct Actions {
  // The word of a search; never empty.
  std::function<std::optional<std::string>()> askSearchWord;
  // The id of the cabinet that is to receive posts.
  std::function<std::optional<int>()> chooseCabinet;

  // A checked new name; the caller writes it.
  std::function<std::optional<std::string>(const std::string& name)> askGroupName;
  std::function<std::optional<std::string>(const ChannelFacts& channel)> askChannelName;
  std::function<std::optional<std::string>(const std::string& title)> askCabinetName;

  // These write what they change themselves.
  // With the folder and the feed address to begin with; both may be empty.
  std::function<void(const std::string& folderName, const std::string& address)> addChannel;
  std::function<void()> addGroup;
  std::function<void()> addCabinet;
  std::function<void(const ChannelFacts& channel)> moveChannel;
  std::function<void(const ChannelFacts& channel)> showChannelInfo;

  std::function<void()> importFile;
  std::function<void()> importAddress;
  std::function<void(const std::string& fileName)> exportOpml;  // the name to begin with
  std::function<void()> synchronise;
  std::function<void()> openSettings;
  std::function<void()> openDirectory;
  std::function<void()> notifyOfNewPosts;

  // The browser's. The place for a file, by its suggested name: a path, empty when the user wants
  // none; whether the user has chosen a printer; whether a program of the system took the address.
  std::function<QString(const QString& name)> askDownloadPlace;
  std::function<bool(QPrinter& printer)> choosePrinter;
  std::function<bool(const QUrl& address)> openOutside;
};

}  // namespace feedloom
