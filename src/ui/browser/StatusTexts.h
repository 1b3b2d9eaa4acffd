#pragma once

#include <string>

#include "ui/browser/BrowserReport.h"
#include "ui/browser/Downloads.h"

namespace feedloom {

class Skin;

// The host's status texts for the browser's reports, in the module's code page.
std::string StatusText(const Skin& skin, BrowserReport report, const QString& detail);
std::string StatusText(const Skin& skin, DownloadEvent event, const QString& name,
                       const QString& progress);

}  // namespace feedloom
