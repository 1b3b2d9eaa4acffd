#include "ui/browser/Downloads.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QtConcurrent>
#include <algorithm>
#include <utility>

#include "ui/browser/DownloadFiles.h"

namespace feedloom {

struct Downloads::Download {
  QString Name() const { return QFileInfo(target).fileName(); }

  QPointer<QWebEngineDownloadRequest> request;
  QString target;
  QString part;
  QString progress;  // in the latest signal
  QElapsedTimer lastReport;
};

namespace {

using Request = QWebEngineDownloadRequest;

constexpr qint64 kSizeReportInterval = 1000;  // milliseconds

bool KnowsLength(const Request& request) { return request.totalBytes() > 0; }

QString ProgressOf(const Request& request) {
  const qint64 received = std::max<qint64>(request.receivedBytes(), 0);
  if (KnowsLength(request)) {
    const qint64 total = request.totalBytes();
    return QStringLiteral("%1%").arg(static_cast<int>(
        static_cast<double>(std::min(received, total)) * 100 / static_cast<double>(total)));
  }
  return QLocale::system().formattedDataSize(received, 1, QLocale::DataSizeTraditionalFormat);
}

// The engine itself cancels a request that was not accepted when its signal returns.
void Refuse(Request& request) {
  if (request.state() != Request::DownloadRequested) request.cancel();
}

// Cancels the request and removes its file. The engine removes the file of a running download
// later, keeps that of an interrupted one, and completes one that it is already renaming.
void Discard(Request* request, const QString& part) {
  if (request != nullptr) {
    request->cancel();
    if (request->isFinished()) {
      request->deleteLater();
    } else {
      QObject::connect(request, &Request::isFinishedChanged, request, [request, part] {
        RemovePart(part);
        request->deleteLater();
      });
    }
  }
  RemovePart(part);
}

// Runs on any thread, also after the Downloads object has gone.
bool MoveOrRemove(const QString& part, const QString& target) {
  const bool isInPlace = MovePartIntoPlace(part, target);
  if (!isInPlace) RemovePart(part);
  return isInPlace;
}

}  // namespace

Downloads::Downloads(QWebEngineProfile& profile, SavePathQuestion askSavePath, QObject* parent)
    : QObject(parent), askSavePath_(std::move(askSavePath)) {
  connect(&profile, &QWebEngineProfile::downloadRequested, this, &Downloads::Answer);
}

Downloads::~Downloads() { CancelAll(); }

bool Downloads::AreUnderWay() const { return !downloads_.empty(); }

void Downloads::Stop() {
  const QPointer<Downloads> self = this;
  for (const Download& download : CancelAll()) {
    if (self) emit Changed(DownloadEvent::Stopped, download.Name(), QString());
  }
}

std::vector<Downloads::Download> Downloads::CancelAll() {
  std::vector<Download> abandoned = std::exchange(downloads_, {});
  for (const Download& download : abandoned) {
    if (download.request) download.request->disconnect(this);
    Discard(download.request, download.part);
  }
  return abandoned;
}

// The Downloads object, the request or its profile may be deleted while the dialog is open.
void Downloads::Answer(Request* request) {
  if (EndInterrupted(*request)) return;

  if (isAsking_ || request->state() != Request::DownloadRequested) return Refuse(*request);
  const QPointer<Downloads> self = this;
  const QPointer<Request> asked = request;
  const SavePathQuestion askSavePath = askSavePath_;
  isAsking_ = true;
  const QString target = askSavePath(SafeFileName(request->suggestedFileName()), request->url());
  if (!self) return;
  isAsking_ = false;
  if (asked && !target.isEmpty()) Begin(*asked, target);
}

// When the network has interrupted a download, the engine forgets its request and makes a new one
// with the same id. The old one must not be cancelled before the new one is answered.
bool Downloads::EndInterrupted(const Request& again) {
  const auto found = std::ranges::find_if(downloads_, [&again](const Download& download) {
    return download.request && download.request != &again && download.request->id() == again.id() &&
           download.request->url() == again.url();
  });
  if (found == downloads_.end()) return false;
  const Download download = Take(found);
  RemovePart(download.part);
  download.request->deleteLater();
  emit Changed(DownloadEvent::Failed, download.Name(), QString());
  return true;
}

void Downloads::Begin(Request& request, const QString& target) {
  const QFileInfo place(target);
  // The engine would create a missing directory.
  if (!CanWriteFile(target)) {
    emit Changed(DownloadEvent::Failed, place.fileName(), QString());
    return;
  }
  const QString part = PartPath(target);
  request.setDownloadDirectory(place.absolutePath());
  request.setDownloadFileName(QFileInfo(part).fileName());
  request.accept();
  downloads_.push_back({&request, place.absoluteFilePath(), part, QString(), QElapsedTimer()});
  connect(&request, &Request::stateChanged, this, [this, &request] { Follow(request); });
  connect(&request, &Request::receivedBytesChanged, this, [this, &request] { Report(request); });
  emit Begun();
}

void Downloads::Follow(Request& request) {
  switch (request.state()) {
    case Request::DownloadCompleted:
      return End(request, true);
    case Request::DownloadCancelled:
    case Request::DownloadInterrupted:
      return End(request, false);
    default:
      return;
  }
}

std::vector<Downloads::Download>::iterator Downloads::Find(const Request& request) {
  return std::ranges::find_if(
      downloads_, [&request](const Download& download) { return download.request == &request; });
}

void Downloads::Report(Request& request) {
  const auto download = Find(request);
  if (download == downloads_.end()) return;
  const QString progress = ProgressOf(request);
  if (progress == download->progress) return;
  const bool isTooEarly =
      download->lastReport.isValid() && !download->lastReport.hasExpired(kSizeReportInterval);
  if (isTooEarly && !KnowsLength(request)) return;
  download->lastReport.start();
  download->progress = progress;
  emit Changed(DownloadEvent::Progress, download->Name(), progress);
}

void Downloads::End(const Request& request, bool isWhole) {
  const auto found = Find(request);
  if (found == downloads_.end()) return;
  const Download download = Take(found);
  if (!isWhole) return Close(download, DownloadEvent::Failed);
  // On another thread: flushing a large file to the disk may take seconds.
  QtConcurrent::run(MoveOrRemove, download.part, download.target)
      .then(this, [this, download](bool isInPlace) {
        Close(download, isInPlace ? DownloadEvent::Done : DownloadEvent::Failed);
      });
}

void Downloads::Close(const Download& download, DownloadEvent event) {
  Discard(download.request, download.part);
  emit Changed(event, download.Name(), QString());
}

Downloads::Download Downloads::Take(std::vector<Download>::iterator download) {
  const Download taken = *download;
  downloads_.erase(download);
  taken.request->disconnect(this);
  return taken;
}

}  // namespace feedloom
