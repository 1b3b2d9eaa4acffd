#include "ui/browser/PageScheme.h"

#include <QBuffer>
#include <QFile>
#include <QMimeDatabase>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace feedloom {
namespace {

// Web pages must see neither generated pages nor the files of the skin.
bool MayAsk(const QUrl& initiator) { return initiator.isEmpty() || IsGenerated(initiator); }

void Reply(QWebEngineUrlRequestJob& job, const QByteArray& type, const QByteArray& bytes) {
  auto* const content = new QBuffer(&job);
  content->setData(bytes);
  job.reply(type, content);
}

void ReplyWithFile(QWebEngineUrlRequestJob& job, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return job.fail(QWebEngineUrlRequestJob::UrlNotFound);
  Reply(job, QMimeDatabase().mimeTypeForFile(path).name().toUtf8(), file.readAll());
}

}  // namespace

void RegisterPageScheme() {
  if (!QWebEngineUrlScheme::schemeByName(kPageScheme).name().isEmpty()) return;
  QWebEngineUrlScheme scheme(kPageScheme);
  // A relative link may name another server with its port. The default port must be one that no
  // server has, because the engine drops it from addresses.
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::HostAndPort);
  scheme.setDefaultPort(65535);
  QWebEngineUrlScheme::registerScheme(scheme);
}

PageSchemeHandler::PageSchemeHandler(SkinDirectory skinDir, QObject* parent)
    : QWebEngineUrlSchemeHandler(parent), skinDir_(std::move(skinDir)) {}

void PageSchemeHandler::requestStarted(QWebEngineUrlRequestJob* job) {
  if (!MayAsk(job->initiator())) return job->fail(QWebEngineUrlRequestJob::RequestDenied);
  const QUrl url = job->requestUrl();
  if (const auto number = PageNumber(url)) {
    if (const auto page = pages_.Find(*number))
      return Reply(*job, "text/html; charset=utf-8", page->html);
  }
  const QString file = SkinFile(url, skinDir_());
  if (file.isEmpty()) return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
  ReplyWithFile(*job, file);
}

}  // namespace feedloom
