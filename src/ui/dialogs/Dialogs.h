// The dialogs as questions and deeds. Each shows its dialog over `parent` and returns when it is
// closed: the answer, or none when the user cancelled or `parent` went meanwhile. In the latter
// case nothing of the frame may be touched any more. Texts are in the module's code page.
#pragma once

#include <QString>
#include <optional>
#include <string>

class QPrinter;
class QWidget;

namespace feedloom {

class Frame;
struct ChannelFacts;

// The word to search for; never empty.
std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent);

// The id of the cabinet that is to receive posts.
std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent);

// A new name, to begin with the old one; it is not taken. The caller writes it.
std::optional<std::string> AskGroupName(Frame& frame, QWidget* parent, const std::string& name);
std::optional<std::string> AskChannelName(Frame& frame, QWidget* parent,
                                          const ChannelFacts& channel);
std::optional<std::string> AskCabinetName(Frame& frame, QWidget* parent, const std::string& title);

// These write what the user wants into the store, and tell the frame. The folder and the address to
// begin with may be empty.
void ShowChannelAdd(Frame& frame, QWidget* parent, const std::string& folderName,
                    const std::string& address);
void ShowGroupAdd(Frame& frame, QWidget* parent);
void ShowCabinetAdd(Frame& frame, QWidget* parent);
void ShowChannelMove(Frame& frame, QWidget* parent, const ChannelFacts& channel);

void ShowChannelInfo(Frame& frame, QWidget* parent, const ChannelFacts& channel);

// The path for a file that is to be saved, by its suggested name (without a directory); empty
// without an answer. The user was asked whether a file that exists may be replaced.
QString AskDownloadPlace(Frame& frame, QWidget* parent, const QString& name);

// The path of an OPML file to import; empty without an answer. It exists.
std::string AskImportFile(Frame& frame, QWidget* parent);
// The path for the OPML file that is to be saved, by its suggested name; empty without an answer.
std::string AskExportPlace(Frame& frame, QWidget* parent, const std::string& name);
// The address of a list, complete and in ASCII.
std::optional<std::string> AskListAddress(Frame& frame, QWidget* parent);

// The exchange with the handset, and the search of the web directory.
void ShowSync(Frame& frame, QWidget* parent);
void ShowDirectory(Frame& frame, QWidget* parent);

// Sets `printer` up as the user wants it; false without an answer.
bool ChoosePrinter(QPrinter& printer, QWidget* parent);

}  // namespace feedloom
