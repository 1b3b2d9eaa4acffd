#pragma once

#include <QUrl>
#include <QWidget>
#include <memory>

#include "ui/browser/PageRules.h"

namespace feedloom {

// The browser. The engine behind it is known to this folder alone.
class CRSS_HtmlView : public QWidget {
  Q_OBJECT

 public:
  // Generated pages may show images from the directory that `skinDir` names each time.
  CRSS_HtmlView(SkinDirectory skinDir, QWidget* parent);
  ~CRSS_HtmlView() override;

  void Navigate(const QUrl& url);

  // Shows `html` (UTF-8), a page of the module's own; an empty one does nothing.
  void WritePage(const QByteArray& html, PageKind kind);

 signals:
  // The page that was asked for last is loaded, or has failed, and is drawn. The engine may put its
  // images on screen a few frames later.
  void PageShown();

 private:
  class Engine;

  const std::unique_ptr<Engine> engine_;
};

}  // namespace feedloom
