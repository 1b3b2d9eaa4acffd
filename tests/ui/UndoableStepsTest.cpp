
#include <QtWidgets>

#include "ui/Fakes.h"

namespace feedloom {

TEST(UndoableSteps, AreOfferedForAWhileAndCanBeUndoneUntilThatSucceeds) {
  FakeDesk desk;
  desk.db.AddTables({"gone_links.sql", "undo.sql"});
  desk.db.AddChannelWithPosts(1, "A", 3);
  QEventLoop untilTheEnd;
  std::string told;
  UndoableSteps steps(
      desk,
      {.begin = [&](const std::string& name, bool) { told += name + ", "; },
       .end = [&] { told += "end, ", untilTheEnd.quit(); },
       .count = [] {},
       .show = [&](const auto&,
                   const auto& posts) { told += "show " + std::to_string(posts.posts.size()); }},
      std::chrono::milliseconds(0));
  EXPECT_TRUE(steps.DeletePosts({.posts = {1, 2}}));
  untilTheEnd.exec();
  desk.db.Sql("create trigger T before insert on TB_POST begin select raise(fail, 'full'); end");
  steps.Undo();
  desk.db.Sql("drop trigger T");
  EXPECT_EQ(steps.Name(), Korean("글 2개 삭제"));
  for (int i = 0; i < 2; ++i) steps.Undo();
  EXPECT_EQ(told, Korean("글 2개 삭제, end, end, show 2"));
  EXPECT_EQ(desk.db.Count("TB_POST"), 3);

  // A notice comes between the deletion of a row and its return, or none does.
  for (const int announced : {0, 5}) {
    desk.state.unreadTotal = 8;
    desk.state.announcedTotal = announced == 0 ? 6 : 0;
    EXPECT_TRUE(steps.DeleteRow({.key = {RowKind::Channel, 1}, .name = "A", .unread = 3}));
    desk.state.unreadTotal -= 3;
    if (announced > 0) desk.state.announcedTotal = announced;
    steps.Undo();
    EXPECT_EQ(desk.state.unreadTotal, 8);
    EXPECT_EQ(desk.state.announcedTotal, announced == 0 ? 6 : 8) << "what has come back is known";
  }
}

}  // namespace feedloom
