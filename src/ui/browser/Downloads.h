// What the browser saves to files. Each download is written beside its target and takes its place
// when it is whole.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QWebEngineDownloadRequest;
class QWebEngineProfile;

namespace feedloom {

// The place for a file, by its suggested name (without a directory): a path, or an empty text when
// the user wants none. It shows a dialog and returns when that is closed.
using AskPlace = std::function<QString(const QString& suggestedName)>;

enum class DownloadEvent { Progress, Done, Stopped, Failed };

// Belongs to the interface thread. When it ends, downloads under way are stopped and what they have
// written is removed.
class Downloads : public QObject {
  Q_OBJECT

 public:
  // Takes all downloads of `profile`, which outlives the object. One that comes while the user is
  // being asked for another's place is refused.
  Downloads(QWebEngineProfile& profile, AskPlace askPlace, QObject* parent);
  ~Downloads() override;

  bool AreUnderWay() const;
  // All of them; what they have written is removed.
  void Stop();

 signals:
  void Begun();
  // `name` is the target's file name. `progress` is a percentage such as "42%", or a size such as
  // "3.1 MB" when the server has not told how long the file is; only for Progress, which comes at
  // most about once for each percent or second.
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
  // Ends all of them without a signal; what they were comes back.
  std::vector<Download> Abandon();

  const AskPlace askPlace_;
  bool isAsking_ = false;
  std::vector<Download> downloads_;
};

}  // namespace feedloom
