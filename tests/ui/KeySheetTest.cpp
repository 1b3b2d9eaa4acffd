// The table of keys, as the README tells it.
#include <gtest/gtest.h>

#include <QFile>

#include "kit/ShippedSkin.h"
#include "look/SkinText.h"
#include "ui/CommandKeys.h"

namespace feedloom {

static QString KeysText(const Skin& skin, const KeyRow& row) {
  if (row.gesture != nullptr) return SkinText(skin, *row.gesture);
  return QKeySequence::listToString(row.keys, QKeySequence::PortableText).replace("; ", ", ");
}

TEST(KeyTable, IsTheReadmes) {
  const ShippedSkin english("ENG");
  QString table = "| | key or gesture | does |\n|---|---|---|\n";
  for (const KeyGroup& group : KeyTable()) {
    QString title = SkinText(english.Get(), *group.title);
    for (const KeyRow& row : group.rows) {
      table += "| " + std::exchange(title, "") + " | " + KeysText(english.Get(), row) + " | " +
               SkinText(english.Get(), *row.deed) + " |\n";
    }
  }
  QFile readme(FEEDLOOM_README);
  ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
  EXPECT_TRUE(QString::fromUtf8(readme.readAll()).contains(table)) << table.toStdString();
}

}  // namespace feedloom
