#include "ui/browser/StatusTexts.h"

#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "ui/browser/DisplayedAddress.h"

namespace feedloom {
namespace {

std::string Fill(const Skin& skin, const char* key, const QString& text, const QString& number) {
  return FromQString(skin.Config().GetCodePage(),
                     SkinText(skin, key).replace("%d", number).replace("%s", text));
}

// An address as the address box shows it; what the user has typed as it is.
QString Shown(const QString& text) {
  const QUrl url(text);
  return url.isValid() && !url.scheme().isEmpty() ? DisplayAddress(url).text : text;
}

}  // namespace

std::string StatusText(const Skin& skin, BrowserReport report, const QString& detail) {
  switch (report) {
    case BrowserReport::Hovered:
      return FromQString(skin.Config().GetCodePage(), Shown(detail));
    case BrowserReport::Loading:
      return Fill(skin, kTextPageLoading, {}, detail);
    case BrowserReport::Loaded:
      return skin.GetText(kSectionTexts, kTextPageLoaded);
    case BrowserReport::NotLoaded:
      return skin.GetText(kSectionTexts, kTextPageNotLoaded);
    case BrowserReport::Stopped:
      return {};
    case BrowserReport::LinkRefused:
      return Fill(skin, kTextLinkRefused, Shown(detail), {});
    case BrowserReport::NoOutsideProgram:
      return Fill(skin, kTextNoOutsideProgram, Shown(detail), {});
    case BrowserReport::DownloadRefused:
      return Fill(skin, kTextDownloadRefused, detail, {});
    case BrowserReport::PrintFailed:
      return skin.GetText(kSectionTexts, kTextPrintFailed);
  }
  return {};
}

std::string StatusText(const Skin& skin, DownloadEvent event, const QString& name,
                       const QString& progress) {
  switch (event) {
    case DownloadEvent::Progress:
      return Fill(skin, kTextDownloading, name, progress);
    case DownloadEvent::Done:
      return Fill(skin, kTextDownloaded, name, {});
    case DownloadEvent::Stopped:
      return Fill(skin, kTextDownloadStopped, name, {});
    case DownloadEvent::Failed:
      return Fill(skin, kTextDownloadFailed, name, {});
  }
  return {};
}

}  // namespace feedloom
