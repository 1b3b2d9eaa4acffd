// Serves generated pages and the skin's files to the browser engine, from memory and from the
// skin's directory.
#pragma once

#include <QWebEngineUrlSchemeHandler>

#include "ui/browser/GeneratedPages.h"
#include "ui/browser/PageRules.h"

namespace feedloom {

// Registers the URL scheme of generated pages with the engine. Call it before the engine starts; a
// second call does nothing.
void RegisterPageScheme();

// Interface thread.
class PageSchemeHandler : public QWebEngineUrlSchemeHandler {
 public:
  PageSchemeHandler(SkinDirectory skinDir, QObject* parent);

  GeneratedPages& Pages() { return pages_; }

  void requestStarted(QWebEngineUrlRequestJob* job) override;

 private:
  const SkinDirectory skinDir_;
  GeneratedPages pages_;
};

}  // namespace feedloom
