// Functions that show the dialogs. Each shows its dialog over `parent` and returns when the dialog
// is closed. The result is std::nullopt, empty or false when the user cancelled or `parent` was
// destroyed meanwhile; in the latter case the caller must not use the frame any more. Interface
// thread only. Texts are in the module's code page.
#pragma once

#include <QString>
#include <optional>
#include <string>

class QPrinter;
class QWidget;

namespace feedloom {

class Frame;
struct ChannelFacts;
struct Login;
struct LoginQuestion;

// Returns the word to search for, never an empty one.
std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent);

// Returns the id of the cabinet to save posts to.
std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent);

// Return a new, unique name, which the caller stores. The dialogs start with the old name.
std::optional<std::string> AskGroupName(Frame& frame, QWidget* parent, const std::string& name);
std::optional<std::string> AskChannelName(Frame& frame, QWidget* parent,
                                          const ChannelFacts& channel);
std::optional<std::string> AskCabinetName(Frame& frame, QWidget* parent, const std::string& title);

// These store what the user adds or moves, and tell the frame. The dialog of ShowChannelAdd starts
// with this folder and this feed address; both may be empty.
void ShowChannelAdd(Frame& frame, QWidget* parent, const std::string& folderName,
                    const std::string& address);
void ShowGroupAdd(Frame& frame, QWidget* parent);
void ShowCabinetAdd(Frame& frame, QWidget* parent);
void ShowChannelMove(Frame& frame, QWidget* parent, const ChannelFacts& channel);

void ShowChannelInfo(Frame& frame, QWidget* parent, const ChannelFacts& channel);

// Returns the path to save a download to. `name` is the suggested file name, without a directory.
// The dialog names `host`, where the file comes from, unless it is empty, and asks before it
// accepts an existing file.
QString AskDownloadPlace(Frame& frame, QWidget* parent, const QString& name, const QString& host);

// Returns the name and password that the user enters for the host and realm, which the dialog
// names.
std::optional<Login> ShowLogin(Frame& frame, QWidget* parent, const LoginQuestion& question);

// Returns the path of an existing OPML file, in the file system's encoding.
std::string AskImportFile(Frame& frame, QWidget* parent);
// Returns the path to save an OPML file to, in the file system's encoding. `name` is the suggested
// file name. The dialog asks before it accepts an existing file.
std::string AskExportPlace(Frame& frame, QWidget* parent, const std::string& name);
// Returns the address of an OPML list, completed with its scheme and in ASCII.
std::optional<std::string> AskListAddress(Frame& frame, QWidget* parent);

// Show the dialog of the exchange with the handset, and that of the web directory.
void ShowSync(Frame& frame, QWidget* parent);
void ShowDirectory(Frame& frame, QWidget* parent);

// Sets `printer` up as the user chooses.
bool ChoosePrinter(QPrinter& printer, QWidget* parent);

}  // namespace feedloom
