// The dialogs as questions. Each shows its dialog over `parent` and returns when it is closed: the
// answer, or none when the user cancelled or `parent` went meanwhile. In the latter case nothing of
// the frame may be touched any more.
#pragma once

#include <QString>
#include <optional>
#include <string>

class QPrinter;
class QWidget;

namespace feedloom {

class Frame;

// The word to search for, in the module's code page; never empty.
std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent);

// The id of the cabinet that is to receive posts.
std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent);

// The path for a file that is to be saved, by its suggested name (without a directory); empty
// without an answer. The user was asked whether a file that exists may be replaced.
QString AskDownloadPlace(Frame& frame, QWidget* parent, const QString& name);

// Sets `printer` up as the user wants it; false without an answer.
bool ChoosePrinter(QPrinter& printer, QWidget* parent);

}  // namespace feedloom
