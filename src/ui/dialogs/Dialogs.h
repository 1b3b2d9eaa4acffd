// Functions that show the dialogs. Each shows its dialog over `parent` and returns when the dialog
// is closed. The result is std::nullopt, empty or false when the user cancelled or `parent` was
// destroyed meanwhile; in the latter case the caller must not use the desk any more. Interface
// thread only. Texts are in the module's code page.
#pragma once

#include <QString>
#include <chrono>
#include <optional>
#include <string>

#include "exchange/ImportValues.h"

class QPrinter;
class QWidget;

namespace feedloom {

class Desk;
class Refreshing;
class Subscribing;
struct ChannelDetails;
struct Login;
struct LoginQuestion;

// Returns the word to search for, never an empty one.
std::optional<std::string> AskSearchWord(Desk& desk, QWidget* parent);

// Returns the id of the cabinet to save posts to.
std::optional<int> ChooseCabinet(Desk& desk, QWidget* parent);

// Return a new, unique name, which the caller stores. The dialogs start with the old name.
std::optional<std::string> AskGroupName(Desk& desk, QWidget* parent, const std::string& name);
std::optional<std::string> AskChannelName(Desk& desk, QWidget* parent,
                                          const ChannelDetails& channel);
std::optional<std::string> AskCabinetName(Desk& desk, QWidget* parent, const std::string& title);

// These store what the user adds or moves, and tell the desk. The dialog of ShowChannelAdd starts
// with this folder, or the first one when there is none with this id, and with this feed address,
// which may be empty.
void ShowChannelAdd(Desk& desk, Refreshing& refreshing, Subscribing& subscribing, QWidget* parent,
                    int folderId, const std::string& address);
void ShowGroupAdd(Desk& desk, Subscribing& subscribing, QWidget* parent);
void ShowCabinetAdd(Desk& desk, Subscribing& subscribing, QWidget* parent);
void ShowChannelMove(Desk& desk, Subscribing& subscribing, QWidget* parent,
                     const ChannelDetails& channel);

// Returns the period that the user has chosen in place of the channel's own one.
std::optional<std::chrono::minutes> ShowChannelInfo(Desk& desk, QWidget* parent,
                                                    const ChannelDetails& channel);

// Returns the path to save a download to. `name` is the suggested file name, without a directory.
// The dialog names `host`, where the file comes from, unless it is empty, and asks before it
// accepts an existing file.
QString AskSavePath(Desk& desk, QWidget* parent, const QString& name, const QString& host);

// Returns the name and password that the user enters for the host and realm, which the dialog
// names.
std::optional<Login> ShowLogin(Desk& desk, QWidget* parent, const LoginQuestion& question);

// Returns the path of an existing OPML file, in the file system's encoding.
std::string AskImportFile(Desk& desk, QWidget* parent);
// Returns the path to save an OPML file to, in the file system's encoding. `name` is the suggested
// file name. The dialog asks before it accepts an existing file.
std::string AskExportPlace(Desk& desk, QWidget* parent, const std::string& name);
// Returns the address of an OPML list, completed with its scheme and in ASCII.
std::optional<std::string> AskListAddress(Desk& desk, QWidget* parent);

// These ask where a list is read from, or written to under the suggested `name`, and exchange it.
// The number of exported channels is reported.
void ImportFile(Desk& desk, Subscribing& subscribing, QWidget* parent);
void ImportAddress(Desk& desk, Subscribing& subscribing, QWidget* parent);
void ExportFile(Desk& desk, Subscribing& subscribing, QWidget* parent, const std::string& name);

// Asks whether the list of this name (UTF-8), with so many channels, is to be imported.
bool AskToImport(Desk& desk, QWidget* parent, const std::string& name, int channels);
// Asks what to do with what is there already of a list: of so many channels so many. The answer is
// Merge, without a question, in a host that has no text for it.
std::optional<NameClash> AskHowToImport(Desk& desk, QWidget* parent, int channels, int present);
// Names what an import has left out, if anything, in a host that has a text for it.
void ShowLeftOut(Desk& desk, QWidget* parent, const ImportSums& sums);

// Show the dialog of the exchange with the handset, and that of the web directory.
void ShowSync(Desk& desk, Subscribing& subscribing, QWidget* parent);
void ShowDirectory(Desk& desk, Subscribing& subscribing, QWidget* parent);

// Sets `printer` up as the user chooses.
bool ChoosePrinter(QPrinter& printer, QWidget* parent);

}  // namespace feedloom
