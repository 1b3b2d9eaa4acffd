#pragma once

#include <string>

#include "ui/browser/BrowserReport.h"
#include "ui/browser/Downloads.h"

namespace feedloom {

class Skin;

// What the browser's reports say in the host's status text; in the module's code page.
std::string StatusText(const Skin& skin, BrowserReport report, const QString& detail);
std::string StatusText(const Skin& skin, DownloadEvent event, const QString& name,
                       const QString& progress);

}  // namespace feedloom
