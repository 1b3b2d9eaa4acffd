#include "host/InstanceSocket.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QLocalSocket>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <system_error>

#include "files/Path.h"

namespace feedloom {
namespace {

constexpr char kAnswer = '1';
constexpr std::chrono::seconds kReplyTimeout(5);  // with a program that connects and is silent

// A socket's path has 107 bytes at most (unix(7)). The toolkit makes it in a directory beside,
// whose name takes some more.
constexpr std::size_t kMaxSocketPath = 90;

std::string HashedName(const std::string& profileDir) {
  std::error_code error;
  const auto resolved = std::filesystem::canonical(profileDir, error);
  const std::string path = error ? profileDir : resolved.string();
  const QByteArray hash =
      QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha256);
  return "halvix-" + hash.left(8).toHex().toStdString() + ".socket";
}

bool Listen(QLocalServer& server, const std::string& path) {
  const QString name = QFile::decodeName(path.c_str());
  QLocalServer::removeServer(name);
  return server.listen(name);
}

// The answer is one byte; the end of the connection without it says that the owner has gone.
HandOverEnd AwaitAnswer(QLocalSocket& socket, std::chrono::milliseconds patience) {
  const bool isReadable = socket.waitForReadyRead(int(patience.count()));
  if (isReadable || socket.bytesAvailable() > 0) return HandOverEnd::Taken;
  const bool isOpen = socket.state() == QLocalSocket::ConnectedState;
  return isOpen ? HandOverEnd::NoAnswer : HandOverEnd::NobodyIn;
}

HandOverEnd SendTo(const std::string& path, const std::string& frame,
                   std::chrono::milliseconds patience) {
  QLocalSocket socket;
  socket.connectToServer(QFile::decodeName(path.c_str()));
  if (!socket.waitForConnected(int(patience.count()))) return HandOverEnd::NobodyIn;
  socket.write(frame.data(), qint64(frame.size()));
  return AwaitAnswer(socket, patience);
}

}  // namespace

std::vector<std::string> SocketPaths(const std::string& profileDir, const std::string& runtimeDir) {
  std::vector<std::string> paths{JoinPath(profileDir, "halvix.socket")};
  if (!runtimeDir.empty()) paths.push_back(JoinPath(runtimeDir, HashedName(profileDir)));
  std::erase_if(paths, [](const std::string& path) { return path.size() > kMaxSocketPath; });
  return paths;
}

InstanceSocket::InstanceSocket(const std::vector<std::string>& paths) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &InstanceSocket::Welcome);
  for (const std::string& path : paths)
    if (Listen(server_, path)) return;
}

void InstanceSocket::Welcome() {
  while (QLocalSocket* const sender = server_.nextPendingConnection()) {
    connect(sender, &QLocalSocket::disconnected, sender, &QObject::deleteLater);
    connect(sender, &QLocalSocket::readyRead, this, [this, sender] { Read(*sender); });
    QTimer::singleShot(kReplyTimeout, sender, [sender] { sender->abort(); });
    Read(*sender);
  }
}

// Until the frame is whole, what has come stays with the socket, which takes no more than that.
void InstanceSocket::Read(QLocalSocket& sender) {
  sender.setReadBufferSize(qint64(kMaxFrame) + 1);
  const QByteArray received = sender.peek(qint64(kMaxFrame) + 1);
  const ReceivedFrame frame = ReadFrame({received.data(), std::size_t(received.size())});
  if (frame.state == ReceivedFrame::State::Incomplete) return;
  if (frame.state == ReceivedFrame::State::Nonsense) return sender.abort();
  sender.readAll();
  emit Received(frame.handOver);
  sender.write(&kAnswer, 1);
  sender.disconnectFromServer();
}

HandOverEnd SendHandOver(const std::vector<std::string>& paths, const HandOver& handOver,
                         std::chrono::milliseconds patience) {
  int argc = 1;
  char name[] = "halvix";
  char* argv[] = {name, nullptr};
  // Without one the toolkit's sockets complain.
  const auto application =
      qApp == nullptr ? std::make_unique<QCoreApplication>(argc, argv) : nullptr;
  const std::string frame = FrameOf(handOver);
  for (const std::string& path : paths) {
    const HandOverEnd end = SendTo(path, frame, patience);
    if (end != HandOverEnd::NobodyIn) return end;
  }
  return HandOverEnd::NobodyIn;
}

}  // namespace feedloom
