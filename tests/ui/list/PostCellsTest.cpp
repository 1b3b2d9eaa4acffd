#include <gtest/gtest.h>

#include "store/StoreKit.h"
#include "ui/list/PostCells.h"

namespace feedloom {
namespace {

TEST(PostCellsTest, ADateShowsItsDayAndHeadingsEndWithTheLastWholeCharacterOf511Bytes) {
  EXPECT_EQ(DateCell("2008-05-31 23:59:59"), "2008-05-31");
  EXPECT_EQ(DateCell("1970-12-1 9:3:0"), "1970-12-01");
  for (const char* unreadable : {"", "yesterday", "2008-05", "2008-13-01", "2008-00-01",
                                 "2008-05-00", "2008-05-32", "1969-12-31", "-008-05-01"}) {
    EXPECT_EQ(DateCell(unreadable), "") << unreadable;
  }
  const auto headings = [](const std::string& utf8) {
    return SplitHeadings(CodePage::Korean(), Korean(utf8));
  };
  EXPECT_EQ(headings("읽음|제목"), (QStringList{"읽음", "제목"}));
  EXPECT_EQ(headings(std::string(508, 'x') + "|y|z")[1], "y");
  EXPECT_EQ(headings(std::string(508, 'x') + "|가|z"), (QStringList{QString(508, 'x'), "가"}));
  EXPECT_EQ(headings(std::string(509, 'x') + "|가"), (QStringList{QString(509, 'x'), ""}));
}

}  // namespace
}  // namespace feedloom
