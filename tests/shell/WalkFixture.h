// What a window shows of any database, and what plain SQL says that it has to show.
#pragma once

#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "ui/Commands.h"
#include "ui/list/PostCells.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

// Three folders with three channels each, which have three posts each and feeds that grow, and two
// cabinets with a post each. Every name and title is there once; a feed's name begins its titles.
struct WalkFixture : ModuleFixture {
  explicit WalkFixture(bool isHelpful) {
    EXPECT_TRUE(!isHelpful || profile_.TheRegistry().Write(HostWishes()));
    for (const char* const table : {"FOLDER", "CHANNEL", "POST", "SCRAP_CHANNEL"})
      Sql(fmt::format("delete from TB_{}", table));
    for (int id = 1; id <= 9; ++id) {
      AddFeed();
      Sql(
          fmt::format("insert into TB_CHANNEL(channel_folderID, channel_title, channel_xmllink, "
                      "channel_order) values(({} + 2) / 3, 'f{}', '{}', {})",
                      id, id, server_.Url(PathOf(id)), id));
      for (int item = 1; item <= 3; ++item)
        Sql(
            fmt::format("insert into TB_POST(post_channelID, post_title, post_link, post_pubDate) "
                        "values({0}, 'f{0}.{1}', 'http://f{0}/{1}', '2008-05-01 10:00:00')",
                        id, item));
      if (id <= 3) Sql(fmt::format("insert into TB_FOLDER values({0}, 'F{0}', {0} - 2)", id));
    }
    for (int id = 1; id <= 2; ++id)
      Sql(
          fmt::format("insert into TB_SCRAP_CHANNEL(scrap_channel_id, scrap_channel_title, "
                      "scrap_channel_order) values({0}, 'C{0}', {0});insert into TB_SCRAP_POST("
                      "scrap_post_scrapChannelID, scrap_post_title) values({0}, 'saved {0}')",
                      id));
  }

  // Feeds, numbered from 1. A feed has the newest ten of its items.
  static std::string PathOf(int feed) { return fmt::format("/f{}", feed); }
  int AddFeed() {
    published_.push_back(3);
    ServeFeed(static_cast<int>(published_.size()));
    return static_cast<int>(published_.size());
  }
  void ServeFeed(int feed) {
    std::vector<SampleItem> items;
    const int count = published_[static_cast<std::size_t>(feed) - 1];
    for (int item = count; item > std::max(count - 10, 0); --item)
      items.push_back({fmt::format("f{}.{}", feed, item), fmt::format("http://f{}/{}", feed, item),
                       FormatLocalTime(SystemClock().Now(), "%a, %d %b %Y 00:00:00 %z"), "Text"});
    server_.Serve(PathOf(feed), RssDocument(fmt::format("f{}", feed), items));
  }

  // What the window shows: channels whose refresh has failed with "!", rows that are hidden though
  // they are not all read with "?", posts with their read status.
  bool IsUnreadOnly() { return The<Desk>().State().isUnreadOnly; }
  QModelIndex SelectedRow() { return Tree().selectionModel()->selectedIndexes().value(0); }
  QStringList ShownRows(const QModelIndex& parent = {}) {
    QStringList rows;
    for (int i = 0; i < Tree().model()->rowCount(parent); ++i) {
      const QModelIndex row = Tree().model()->index(i, 0, parent);
      const bool isFailing = row.data(GroupTreeModel::StateRole).toInt() < 0;
      const bool mayHide = IsUnreadOnly() && row.data(GroupTreeModel::UnreadRole).toInt() == 0;
      const bool isLost = Tree().isRowHidden(i, parent) && !mayHide;
      rows << (parent.isValid() ? "-" : "") + row.data().toString() + (isFailing ? "!" : "") +
                  (isLost ? "?" : "");
      rows += ShownRows(row);
    }
    return rows;
  }
  QStringList ListedPosts() {
    QStringList posts;
    for (auto row = List().model()->index(0, 0); row.isValid(); row = List().indexBelow(row))
      posts << row.siblingAtColumn(kTitleColumn).data().toString() + " " +
                   row.siblingAtColumn(kReadColumn).data().toString();
    posts.sort();
    return posts;
  }

  // What the database holds.
  QStringList Lines(const std::string& sql) {
    const std::string all = Sql("select ifnull(group_concat(line, '|'), '') from (" + sql + ")");
    return QString::fromStdString(all).split('|', Qt::SkipEmptyParts);
  }
  QStringList StoredRows() {
    return Lines(R"(
      with unread as (select * from TB_POST join TB_CHANNEL on post_channelID = channel_id
          where post_readStatus = 0),
        saved as (select * from TB_SCRAP_POST join TB_SCRAP_CHANNEL on
          scrap_post_scrapChannelID = scrap_channel_id where scrap_post_readStatus = 0),
        tree(a, b, c, d, name, count, end) as (
          select folder_order, folder_id, -1, 0, folder_name,
            (select count(*) from unread where channel_folderID = folder_id), '' from TB_FOLDER
          union all select folder_order, folder_id, channel_order, channel_id, '-' || channel_title,
            (select count(*) from unread where post_channelID = c.channel_id),
            iif(channel_state < 0, '!', '')
            from TB_CHANNEL c join TB_FOLDER on channel_folderID = folder_id
          union all select 1e9, 0, -1, 0, '@', (select count(*) from saved), ''
          union all select 1e9, 0, scrap_channel_order, scrap_channel_id, '-' ||
            scrap_channel_title, (select count(*) from saved where scrap_channel_id =
            c.scrap_channel_id), '' from TB_SCRAP_CHANNEL c)
      select name || iif(count, '(' || count || ')', '') || end line from tree order by a, b, c, d)")
        .replaceInStrings("@", "보관함");
  }
  QStringList StoredPosts() {
    return Lines(
        "select post_title || ' ' || post_readStatus line from TB_POST join TB_CHANNEL on "
        "post_channelID = channel_id join TB_FOLDER on channel_folderID = folder_id" +
        OfSelectedRow("folder_name", "channel_title"));
  }
  QStringList SavedPosts() {
    return Lines(
        "select scrap_post_title || ' ' || scrap_post_readStatus line from TB_SCRAP_POST join "
        "TB_SCRAP_CHANNEL on scrap_post_scrapChannelID = scrap_channel_id" +
        OfSelectedRow("'보관함'", "scrap_channel_title"));
  }
  // Without a restriction when the list shows other posts.
  std::string OfSelectedRow(const char* group, const char* child) {
    if (!The<Desk>().State().listShowsSelection) return "";
    return fmt::format(" where {} = '{}'", SelectedRow().parent().isValid() ? child : group,
                       SelectedRow().data(GroupTreeModel::NameRole).toString().toStdString());
  }

  // In what the window differs from the database; "" when in nothing. Of found posts, those that
  // are listed are stored; of the selected row's, those that are stored are listed, too.
  std::string Difference() {
    QStringList stored = StoredPosts() + SavedPosts();
    QStringList gone;
    for (const QString& post : ListedPosts())
      if (!stored.removeOne(post)) gone << post;
    if (!The<Desk>().State().listShowsSelection) stored.clear();
    if (IsUnreadOnly()) stored = stored.filter(QRegularExpression(" 0$"));
    QString told;
    if (ShownRows() != StoredRows())
      told += "shown:  " + ShownRows().join(' ') + "\nstored: " + StoredRows().join(' ');
    if (!gone.isEmpty()) told += "\nlisted, not stored: " + gone.join(", ");
    if (!stored.isEmpty()) told += "\nstored, not listed: " + stored.join(", ");
    return told.toStdString();
  }
  // Whether the main menu offers to undo a step, and whether one is stored.
  std::pair<bool, bool> Undoable() {
    Columns().widget(0)->findChild<QAbstractButton*>()->click();
    auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
    const bool isOffered = std::ranges::any_of(
        menu.actions(), [](const auto* action) { return action->data() == kCommandUndo; });
    menu.close();
    return {isOffered, Sql("select count(*) from TB_UNDO_STEP where step_rows > 0") == "1"};
  }

  std::vector<int> published_;  // items of each feed
};

}  // namespace feedloom
