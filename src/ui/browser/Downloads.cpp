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
  QString progress;  // what was told last
  QElapsedTimer told;
};

namespace {

using Request = QWebEngineDownloadRequest;

constexpr qint64 kSizePause = 1000;  // milliseconds

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

// A request that nobody has accepted goes by itself after it was offered.
void Refuse(Request& request) {
  if (request.state() != Request::DownloadRequested) request.cancel();
}

// The engine removes a file that it is writing in its own time. It leaves one that the network has
// interrupted, and finishes one that it is already renaming.
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

// On any thread; the object may be gone when it is through.
bool MoveOrRemove(const QString& part, const QString& target) {
  const bool isInPlace = MovePartIntoPlace(part, target);
  if (!isInPlace) RemovePart(part);
  return isInPlace;
}

}  // namespace

Downloads::Downloads(QWebEngineProfile& profile, AskPlace askPlace, QObject* parent)
    : QObject(parent), askPlace_(std::move(askPlace)) {
  connect(&profile, &QWebEngineProfile::downloadRequested, this, &Downloads::Answer);
}

Downloads::~Downloads() { Abandon(); }

bool Downloads::AreUnderWay() const { return !downloads_.empty(); }

void Downloads::Stop() {
  const QPointer<Downloads> self = this;
  for (const Download& download : Abandon()) {
    if (self) emit Changed(DownloadEvent::Stopped, download.Name(), QString());
  }
}

std::vector<Downloads::Download> Downloads::Abandon() {
  std::vector<Download> abandoned = std::exchange(downloads_, {});
  for (const Download& download : abandoned) {
    if (download.request) download.request->disconnect(this);
    Discard(download.request, download.part);
  }
  return abandoned;
}

// The object, the request or its profile may be gone when the dialog is closed.
void Downloads::Answer(Request* request) {
  if (EndInterrupted(*request)) return;

  if (isAsking_ || request->state() != Request::DownloadRequested) return Refuse(*request);
  const QPointer<Downloads> self = this;
  const QPointer<Request> asked = request;
  const AskPlace askPlace = askPlace_;
  isAsking_ = true;
  const QString target = askPlace(SafeFileName(request->suggestedFileName()));
  if (!self) return;
  isAsking_ = false;
  if (asked && !target.isEmpty()) Begin(*asked, target);
}

// The engine requests a download that the network has interrupted once more, with a new request
// for the same number, and forgets the old one. It must not be cancelled before that is answered.
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
  // The engine would make a directory that is missing.
  if (!IsPlaceForFile(target)) {
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
  const bool isTooEarly = download->told.isValid() && !download->told.hasExpired(kSizePause);
  if (isTooEarly && !KnowsLength(request)) return;
  download->told.start();
  download->progress = progress;
  emit Changed(DownloadEvent::Progress, download->Name(), progress);
}

void Downloads::End(const Request& request, bool isWhole) {
  const auto found = Find(request);
  if (found == downloads_.end()) return;
  const Download download = Take(found);
  if (!isWhole) return Close(download, DownloadEvent::Failed);
  // On another thread: the disk may take its time with a large file.
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
