// Texts are indexed behind the user's back, and found as they come.
#include "shell/ModuleFixture.h"

namespace feedloom {

struct TextIndexing : ModuleFixture {
  bool IsIndexed(int texts) {
    return WaitUntil([&] {
      return Sql("select count(*) from TB_TEXT_TODO") == "0" &&
             Sql("select count(*) from TB_TEXT_DOC") == std::to_string(texts);
    });
  }
};

TEST_F(TextIndexing, BeginsSomeTimeAfterTheStartAndAfterARefresh) {
  EXPECT_TRUE(profile_.TheRegistry().Write({{kHostKey, kValueSearch, kSearchText}}));
  AddPosts(1, 250);
  CreateFrame();
  EXPECT_TRUE(IsIndexed(std::stoi(Sql("select count(*) from TB_POST"))));
  AddPosts(2, 3);
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitForRun());
  EXPECT_TRUE(IsIndexed(std::stoi(Sql("select count(*) from TB_POST"))));
}

}  // namespace feedloom
