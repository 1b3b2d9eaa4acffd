// What the browser asks of the program around it, and nobody else does.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "ui/Login.h"

class QPrinter;
class QUrl;
class QWidget;

namespace feedloom {

class Desk;
class Registry;

// All are set, and are called on the interface thread. A function that shows a dialog returns when
// the dialog is closed. The frame may be destroyed meanwhile, and the caller with it: the result is
// then the same as when the user cancels.
struct BrowserServices {
  // True when the preview of a post loads images from the web.
  std::function<bool()> showsRemoteImages;
  // Returns the id of the cabinet to save posts to; std::nullopt when the user cancels.
  std::function<std::optional<int>()> chooseCabinet;
  // Returns the path to save a download to, empty when the user cancels; `name` is the suggested
  // file name, `host` where the file comes from.
  std::function<QString(const QString& name, const QString& host)> askSavePath;
  // Returns the name and password for a web page; std::nullopt when the user gives up.
  std::function<std::optional<Login>(const LoginQuestion& question)> askLogin;
  // Sets `printer` up as the user chooses; false when the user cancels.
  std::function<bool(QPrinter& printer)> choosePrinter;
  // Opens the address with the desktop's default program; false when there is none.
  std::function<bool(const QUrl& address)> openExternally;
};

// Services that show the module's dialogs over `parent`. The arguments outlive the result.
BrowserServices MakeBrowserServices(Desk& desk, const Registry& registry, QWidget* parent);

}  // namespace feedloom
