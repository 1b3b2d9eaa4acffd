// What the window sees in a drop.
#include <gtest/gtest.h>

#include <QMimeData>
#include <QUrl>

#include "kit/TempFolder.h"
#include "shell/DroppedContent.h"

namespace feedloom {

using Kind = DroppedContent::Kind;

TEST(DroppedContent, IsAFileThatCanBeReadOrOneAddressOfTheWeb) {
  const TempFolder files;
  const std::string list = files.Write("한 list.opml", "<opml/>");
  const QString folder = QString::fromStdString(files.Path());
  const std::tuple<QString, Kind, std::string> places[] = {
      {"file://" + QString::fromStdString(list), Kind::kFile, list},
      {"file://" + folder, Kind::kNoFile, folder.section('/', -1).toStdString()},
      {"file://" + folder + "/missing", Kind::kNoFile, "missing"},
      {"http://a.example/한", Kind::kAddress, "http://a.example/%ED%95%9C"},
      {" feed://a.example\n", Kind::kAddress, "feed://a.example"},
      {"javascript:alert(1)", Kind::kNoAddress, ""},
      {"ftp://a.example/", Kind::kNoAddress, ""}};
  for (const auto& [place, kind, text] : places) {
    QMimeData urls;
    urls.setUrls({QUrl(place.trimmed())});
    EXPECT_EQ(ReadDrop(urls), (DroppedContent{kind, text})) << place.toStdString();
    if (place.startsWith("file:")) continue;
    QMimeData typed;
    typed.setText(place);
    EXPECT_EQ(ReadDrop(typed), (DroppedContent{kind, text})) << place.toStdString();
  }
  QMimeData several;
  several.setUrls({QUrl("http://a.example/"), QUrl("http://b.example/")});
  EXPECT_EQ(ReadDrop(several).kind, Kind::kSeveral);
  for (const QString& words : {QString("http://a.example and more"), QString("words"), QString(),
                               "http://" + QString(10'000'000, 'x')}) {
    QMimeData text;
    text.setText(words);
    EXPECT_EQ(ReadDrop(text), DroppedContent());
  }
}

}  // namespace feedloom
