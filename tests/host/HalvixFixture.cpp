#include "host/HalvixFixture.h"

#include <signal.h>

#include <filesystem>
#include <map>

namespace feedloom {
namespace {

namespace fs = std::filesystem;

constexpr int kPatienceMs = 30'000;

// All files below `dir` with their content.
std::map<std::string, std::string> Files(const std::string& dir) {
  std::map<std::string, std::string> files;
  std::error_code ignored;
  for (const auto& entry : fs::recursive_directory_iterator(dir, ignored)) {
    if (entry.is_regular_file()) files[entry.path()] = ReadFile(entry.path()).value_or("");
  }
  return files;
}

}  // namespace

RunningHalvix::RunningHalvix(const QStringList& arguments) {
  // Signals that this program was started to ignore would be ignored there, too.
  process_.setChildProcessModifier([] {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) signal(number, SIG_DFL);
  });
  process_.start(HALVIX, arguments);
}

RunningHalvix::~RunningHalvix() {
  if (process_.state() != QProcess::NotRunning) Kill();
}

bool RunningHalvix::WaitForLine(const QString& line, int times) {
  while (out_.split('\n').count(line) < times) {
    if (!process_.waitForReadyRead(kPatienceMs)) return false;
    out_ += QString::fromUtf8(process_.readAllStandardOutput());
  }
  return true;
}

HalvixResult RunningHalvix::Finish() {
  const bool ended = process_.waitForFinished(kPatienceMs);
  out_ += QString::fromUtf8(process_.readAllStandardOutput());
  const bool ok = ended && process_.exitStatus() == QProcess::NormalExit;
  return {ok ? process_.exitCode() : -1, out_, QString::fromUtf8(process_.readAllStandardError())};
}

void RunningHalvix::Signal(int number) { kill(static_cast<pid_t>(process_.processId()), number); }

void RunningHalvix::Kill() {
  process_.kill();
  process_.waitForFinished(kPatienceMs);
}

void HalvixFixture::UseModule(const std::string& library) const {
  fs::create_directories(paths_.moduleDir);
  fs::copy_file(library, paths_.module, fs::copy_options::overwrite_existing);
}

std::unique_ptr<RunningHalvix> HalvixFixture::Start(QStringList arguments) const {
  return std::make_unique<RunningHalvix>(
      QStringList{"--profile", QString::fromStdString(paths_.dir)} << arguments);
}

QString HalvixFixture::RunOnce(const QStringList& arguments) const {
  const auto halvix = Start(arguments);
  EXPECT_TRUE(halvix->WaitForLine("idle"));
  halvix->Signal(SIGTERM);
  const HalvixResult result = halvix->Finish();
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  return result.out;
}

void HalvixFixture::ExpectRefused(const QString& words, const QStringList& arguments) const {
  const auto before = Files(paths_.dir);
  const HalvixResult result = Run(arguments);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.err.contains("halvix: ") && result.err.contains(words))
      << result.err.toStdString();
  EXPECT_EQ(Files(paths_.dir), before);
}

}  // namespace feedloom
