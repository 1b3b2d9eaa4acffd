#pragma once

#include <QPoint>
#include <QUrl>
#include <QWidget>
#include <functional>
#include <memory>

#include "ui/browser/BrowserReport.h"
#include "ui/browser/Downloads.h"
#include "ui/browser/FeedLinks.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"

class QPrinter;

namespace feedloom {

// A page that the module has made.
struct PageToWrite {
  QByteArray html;  // UTF-8
  PageKind kind = PageKind::Post;
  QUrl source = {};  // the address of the post, or of its media file
  bool showsRemoteImages = true;
};

// What stands at the point for which the user wants the menu.
struct PageSpot {
  QPoint place;  // on the screen
  QUrl link;     // empty where there is none
  QString selectedText;
};

// The browser. The engine behind it is known to this folder alone.
class CRSS_HtmlView : public QWidget {
  Q_OBJECT

 public:
  struct Asking {
    // Generated pages may show images from this directory.
    SkinDirectory skinDir;
    // What to show when the engine's process for a page has come to an unexpected end: HTML in
    // UTF-8, with a link to that page's address.
    std::function<QByteArray(const QUrl& crashed)> crashPage;
    // The file in that directory from which generated pages take their colours; empty: none.
    std::function<QString()> styleSheet = [] { return QString(); };
    AskPlace downloadPlace;
  };
  // Each is asked whenever it is needed.
  CRSS_HtmlView(Asking asking, QWidget* parent);
  ~CRSS_HtmlView() override;

  void Navigate(const QUrl& url);

  // Shows a page of the module's own, as a new one in the history; an empty one does nothing.
  void WritePageToBrowser(const PageToWrite& page);

  // Does what a click on a page's button does.
  void Act(const PageAction& action);

  void GoBack();
  void GoForward();
  void Reload();
  // Ends the load, or else the downloads that are under way.
  void Stop();
  void StopDownloads();

  bool CanGoBack() const;
  bool CanGoForward() const;
  bool IsLoading() const;
  bool IsDownloading() const;
  // A page that the module has written is on display.
  bool IsWritten() const;
  // Of the page on display; empty for the module's own pages.
  QUrl Address() const;
  // The same, but of a post's page the address of the post.
  QUrl OutsideAddress() const;

  // By so many steps; 0 is the normal size. Holds for all pages from now on.
  void Zoom(int steps);
  // Marks the places where the text stands, shows the next one and tells of them in FoundInPage;
  // an empty text ends it.
  void Find(const QString& text, bool backward);
  // The view keeps the printer until it is through. Does nothing while it prints.
  void Print(std::unique_ptr<QPrinter> printer);

 signals:
  // The page that was asked for last is loaded, or has failed, and is drawn. The engine may put its
  // images on screen a few frames later.
  void PageShown();
  // What the questions above ask for may have changed.
  void Changed();
  // An address other than a generated page's is loaded, as far as it came; and what it announces.
  void Completed();
  void FeedsFound(const feedloom::AnnouncedFeeds& feeds);
  void Reported(feedloom::BrowserReport report, const QString& detail);
  void DownloadChanged(feedloom::DownloadEvent event, const QString& name, const QString& progress);
  // A button of a page was pressed; with the texts of its elements.
  void ActionClicked(const feedloom::PageAction& action, const QStringList& texts);
  // A link wants a program of the system.
  void OutsideWanted(const QUrl& url);
  void MenuRequested(const feedloom::PageSpot& spot);
  void FoundInPage(int active, int all);

 private:
  class Engine;

  void Connect();
  void ShowCrash();
  void ApplyZoom();

  const std::unique_ptr<Engine> engine_;
  int zoomSteps_ = 0;
};

}  // namespace feedloom
