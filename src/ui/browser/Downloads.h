// The downloads of the browser. A download is written to a hidden file beside its target and
// replaces the target when it is complete.
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>
#include <vector>

class QWebEngineDownloadRequest;
class QWebEngineProfile;

namespace feedloom {

// Asks the user where to save the file that comes from `address`. `suggestedName` has no directory.
// Returns the chosen path, or an empty text when the user has cancelled or must not be asked;
// blocks while the dialog is open.
using SavePathQuestion = std::function<QString(const QString& suggestedName, const QUrl& address)>;

enum class DownloadEvent { Progress, Done, Stopped, Failed };

// Interface thread. The destructor stops all downloads and removes their incomplete files.
class Downloads : public QObject {
  Q_OBJECT

 public:
  // Handles all downloads of `profile`, which outlives the object. A download that is requested
  // while the dialog for another one is open is refused.
  Downloads(QWebEngineProfile& profile, SavePathQuestion askSavePath, QObject* parent);
  ~Downloads() override;

  bool AreUnderWay() const;
  // Stops all downloads and removes their incomplete files.
  void Stop();

 signals:
  void Begun();
  // `name` is the target's file name. `progress` is empty except for Progress: a percentage such as
  // "42%", or a size such as "3.1 MB" when the server has not announced the length. Progress comes
  // at most once for each percent, or about once a second for sizes.
  void Changed(feedloom::DownloadEvent event, const QString& name, const QString& progress);

 private:
  struct Download;

  void Answer(QWebEngineDownloadRequest* request);
  bool EndInterrupted(const QWebEngineDownloadRequest& again);
  void Begin(QWebEngineDownloadRequest& request, const QString& target);
  void Follow(QWebEngineDownloadRequest& request);
  void Report(QWebEngineDownloadRequest& request);
  std::vector<Download>::iterator Find(const QWebEngineDownloadRequest& request);
  void End(const QWebEngineDownloadRequest& request, bool isWhole);
  void Close(const Download& download, DownloadEvent event);
  Download Take(std::vector<Download>::iterator download);
  // Stops all downloads without a signal and returns them.
  std::vector<Download> CancelAll();

  const SavePathQuestion askSavePath_;
  bool isAsking_ = false;
  std::vector<Download> downloads_;
};

}  // namespace feedloom
