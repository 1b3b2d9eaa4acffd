// The real program, off screen, on a profile of its own.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QString>
#include <memory>
#include <string>

#include "kit/TempFolder.h"
#include "profile/Profile.h"

namespace feedloom {

struct HalvixResult {
  int status = -1;  // -1 when a signal ended it, or when it did not end
  QString out;
  QString err;
};

// A halvix that runs; ended when the object goes.
class RunningHalvix {
 public:
  explicit RunningHalvix(const QStringList& arguments);
  ~RunningHalvix();

  // Waits until so many lines of its stdout are `line`.
  [[nodiscard]] bool WaitForLine(const QString& line, int times = 1);
  // Waits until it ends.
  HalvixResult Finish();
  void Signal(int number);
  void Kill();

 private:
  QProcess process_;
  QString out_;
};

class HalvixFixture : public testing::Test {
 protected:
  // Puts a module of the test's into the profile, in the place of the link.
  void UseModule(const std::string& library) const;
  void UseFakeModule() const { UseModule(FAKE_MODULE); }

  // halvix with --profile and these arguments.
  std::unique_ptr<RunningHalvix> Start(QStringList arguments = {}) const;
  HalvixResult Run(const QStringList& arguments = {}) const { return Start(arguments)->Finish(); }
  // Starts the window with the fake module in it and ends it again; what the module told.
  QString RunOnce(const QStringList& arguments = {}) const;

  // Expects that halvix refuses the profile with these words, and leaves its files as they are.
  void ExpectRefused(const QString& words, const QStringList& arguments = {}) const;

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("내 프로필")};
};

}  // namespace feedloom
