// The main program of tests that show widgets.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // The browser engine's sandbox cannot work for root.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  // Tests of the module load it, and the browser engine with it, when the application stands.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
