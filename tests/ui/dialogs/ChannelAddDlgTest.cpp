// Subscribing to a feed: the check's answers come from the test, everything else is real.
#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>

#include "ingest/FeedCheckAnswer.h"
#include "skin/Keys.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

constexpr const char* kCheck = "주소 확인";
constexpr const char* kOk = "확인";

class ChannelAddDlg : public DialogFixture {
 protected:
  void Show(const std::string& folderName = "", const std::string& address = "") {
    ShowChannelAdd(frame, parent.get(), folderName, address);
  }

  static QLineEdit& Address(QDialog& dialog) { return *dialog.findChildren<QLineEdit*>()[0]; }
  static QLineEdit& Title(QDialog& dialog) { return *dialog.findChildren<QLineEdit*>()[1]; }
  static QComboBox& Folders(QDialog& dialog) { return *dialog.findChild<QComboBox*>(); }

  // What the user can do just now.
  static QStringList Enabled(QDialog& dialog) {
    QStringList names;
    if (Address(dialog).isEnabled()) names << "address";
    if (Title(dialog).isEnabled()) names << "title";
    if (Folders(dialog).isEnabled()) names << "folders";
    for (auto* const button : dialog.findChildren<CButtonEx*>()) {
      if (button->isEnabled()) names << button->text();
    }
    return names;
  }

  void Check(QDialog& dialog, const QString& address) {
    Address(dialog).setText(address);
    Click(dialog, kCheck);
  }
  void Answer(const FeedCheckAnswer& answer) {
    ASSERT_TRUE(frame.answerCheck);
    const auto onAnswer = frame.answerCheck;
    onAnswer(answer);
  }
  // The dialog with a feed found at this address.
  void Find(QDialog& dialog, const QString& address) {
    Check(dialog, address);
    Answer({.isFeed = true, .title = "Daily", .homePage = "http://daily.example/"});
  }

  std::string Channels() {
    return frame.db.Value(
        "select group_concat(channel_title || '|' || channel_type || '|' || channel_xmllink || '|' "
        "|| channel_htmllink || '|' || channel_folderID || '|' || channel_order) from TB_CHANNEL");
  }

  int news_ = AddFolder(frame.GetStore(), "News", 1);
  int sports_ = AddFolder(frame.GetStore(), Korean("운동"), 2);
};

TEST_F(ChannelAddDlg, OnlyAnAddressThatWasCheckedCanBeAdded) {
  const QStringList before{"address", kCheck, "취소"};
  const QStringList after{"address", "title", "folders", kCheck, "그룹 추가", kOk, "취소"};
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "채널 추가");
    EXPECT_TRUE(Address(dialog).hasFocus());
    EXPECT_EQ(Enabled(dialog), before);
    Check(dialog, "daily.example/feed");
    EXPECT_EQ(Enabled(dialog), QStringList{"취소"});
    EXPECT_TRUE(dialog.findChild<QProgressBar*>()->isVisible());
    Press(dialog, Qt::Key_Return);  // once too often
    EXPECT_TRUE(dialog.isVisible());
    Answer({.isFeed = true, .title = Korean("한글")});
    EXPECT_EQ(Enabled(dialog), after);
    EXPECT_FALSE(dialog.findChild<QProgressBar*>()->isVisible());
    EXPECT_EQ(Title(dialog).text(), "한글");
    EXPECT_TRUE(Title(dialog).hasFocus());
    Address(dialog).setText("http://other.example/");
    EXPECT_EQ(Enabled(dialog), before);
  });
  Show();
  EXPECT_EQ(Channels(), "(null)");
}

TEST_F(ChannelAddDlg, TabGoesThroughTheDialogInReadingOrder) {
  WhenShown([&](QDialog& dialog) {
    Find(dialog, "http://daily.example/");
    Address(dialog).setFocus();
    std::vector<QWidget*> stops;
    for (int i = 0; i < 7; ++i) {
      stops.push_back(dialog.focusWidget());
      Press(dialog, Qt::Key_Tab);
    }
    const auto places = [&](QWidget* stop) {
      const QPoint corner = stop->mapTo(&dialog, QPoint());
      return std::pair(corner.y() + stop->height() / 2, corner.x());
    };
    EXPECT_TRUE(std::ranges::is_sorted(stops, {}, places));
    EXPECT_EQ(dialog.focusWidget(), stops.front());
  });
  Show();
}

TEST_F(ChannelAddDlg, TheChannelIsStoredShownAndRefreshed) {
  frame.db.AddChannelWithPosts(sports_, "Goals", 0);  // its order is 1
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(Folders(dialog).currentText(), "운동");
    QTest::keyClicks(dialog.focusWidget(), " daily.example/a b ");
    Press(dialog, Qt::Key_Return);  // checks
    EXPECT_EQ(Address(dialog).text(), "http://daily.example/a%20b");
    Answer({.isFeed = true, .title = "Daily &amp; \nmore", .homePage = "http://daily.example/"});
    EXPECT_EQ(Title(dialog).text(), "Daily & more");
    Press(dialog, Qt::Key_Return);  // adds
  });
  Show(Korean("운동"));
  EXPECT_EQ(frame.checkedAddresses, std::vector<std::string>{"http://daily.example/a%20b"});
  EXPECT_EQ(frame.db.Value("select channel_title || channel_order || channel_htmllink from "
                           "TB_CHANNEL where channel_xmllink = 'http://daily.example/a%20b'"),
            "Daily & more2http://daily.example/");
  ASSERT_EQ(frame.addedChannels.size(), 1U);
  const ChannelRow& row = frame.addedChannels.front();
  EXPECT_EQ(row.title, "Daily & more");
  EXPECT_EQ(row.folderId, sports_);
  EXPECT_EQ(row.order, 2);
  EXPECT_TRUE(frame.queue.Contains(row.id));
  EXPECT_EQ(frame.refreshes, 1);
}

TEST_F(ChannelAddDlg, WhatIsNoFeedIsReportedAndCanBeCorrected) {
  WhenShown([&](QDialog& dialog) {
    Check(dialog, "  ");
    EXPECT_TRUE(frame.checkedAddresses.empty());
    Check(dialog, "not a feed");
    Answer({});
    EXPECT_TRUE(Address(dialog).hasFocus());
    EXPECT_FALSE(Title(dialog).isEnabled());
    Find(dialog, "file:///home/me/feed.xml");
    Title(dialog).setText(" ");
    Click(dialog, kOk);
    Title(dialog).setText("Mine");
    Click(dialog, kOk);
  });
  Show();
  EXPECT_EQ(Messages(),
            (Keys{kTextAddChannelEmpty, kTextAddChannelCheckError, kTextAddChannelEmpty}));
  EXPECT_EQ(Channels(), "Mine|rss|file:///home/me/feed.xml|http://daily.example/|" +
                            std::to_string(news_) + "|1");
}

TEST_F(ChannelAddDlg, AnAddressMayBeInTwoFoldersButNotTwiceInOne) {
  frame.db.AddChannelWithPosts(news_, "Daily", 0);
  WhenShown([&](QDialog& dialog) {
    Find(dialog, "http://example.com/Daily");
    {
      const ForeignLock lock(frame.db.DbPath());
      Click(dialog, kOk);
      EXPECT_EQ(std::exchange(frame.questions, {}), Keys{kTextAddChannelError});
    }
    Click(dialog, kOk);
    EXPECT_EQ(Messages(), Keys{kTextAddChannelDuplicate});
    EXPECT_EQ(frame.db.Count("TB_CHANNEL"), 1);
    Folders(dialog).setCurrentIndex(1);
    Click(dialog, kOk);
    EXPECT_FALSE(dialog.isVisible());
  });
  Show("News");
  EXPECT_EQ(frame.db.Count("TB_CHANNEL"), 2);
}

TEST_F(ChannelAddDlg, AWebPageOffersTheFeedThatItAnnounces) {
  WhenShown([&](QDialog& dialog) {
    Check(dialog, "http://daily.example/");
    Answer({.announcedFeed = "http://daily.example/rss"});  // declined
    EXPECT_EQ(Address(dialog).text(), "http://daily.example/");
    frame.nextAnswer = MsgBoxAnswer::Consented;
    Click(dialog, kCheck);
    Answer({.announcedFeed = "http://daily.example/rss"});
    EXPECT_EQ(Address(dialog).text(), "http://daily.example/rss");
    EXPECT_EQ(Enabled(dialog), QStringList{"취소"});  // it is being checked
    Answer({.isFeed = true});
    EXPECT_EQ(Title(dialog).text(), "http://daily.example/rss");  // it has no title
  });
  Show();
  EXPECT_EQ(Messages(), (Keys{kTextAddChannelAnnounced, kTextAddChannelAnnounced}));
  EXPECT_EQ(frame.checkedAddresses.back(), "http://daily.example/rss");
}

TEST_F(ChannelAddDlg, AFolderCanBeAddedOnTheWayAndIsChosen) {
  WhenShown([&](QDialog& dialog) {
    Find(dialog, "http://daily.example/");
    WhenShown([](QDialog& inner) {
      inner.findChild<QLineEdit*>()->setText("Fresh");
      Press(inner, Qt::Key_Return);
    });
    Click(dialog, "그룹 추가");
    EXPECT_EQ(Folders(dialog).currentText(), "Fresh");
    WhenShown([](QDialog& inner) { Press(inner, Qt::Key_Escape); });
    Click(dialog, "그룹 추가");
    EXPECT_EQ(Folders(dialog).currentText(), "Fresh");
    DeleteFolder(frame.GetStore(), frame.addedFolders.front().id);
    Click(dialog, kOk);
    EXPECT_EQ(Messages(), Keys{kTextMoveEmpty});
    Folders(dialog).setCurrentIndex(0);
    Click(dialog, kOk);
  });
  Show();
  EXPECT_EQ(frame.addedFolders.size(), 1U);
  EXPECT_EQ(frame.addedChannels.front().folderId, news_);
}

TEST_F(ChannelAddDlg, CancelEndsTheCheckAndALateAnswerIsHarmless) {
  std::function<void(const FeedCheckAnswer&)> late;
  WhenShown([&](QDialog& dialog) {
    Check(dialog, "http://slow.example/");
    late = frame.answerCheck;
    Press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  Show("", "http://preset.example/");
  EXPECT_FALSE(frame.answerCheck);
  late({.isFeed = true, .title = "Late"});
  EXPECT_EQ(Channels(), "(null)");
}

TEST_F(ChannelAddDlg, BeginsWithTheCallersAddressAndWithoutFoldersAsksForOne) {
  frame.db.Sql("delete from TB_FOLDER");
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(Address(dialog).text(), "http://preset.example/");
    Click(dialog, kCheck);
    Answer({.isFeed = true, .title = "Preset"});
    Click(dialog, kOk);
  });
  Show("Gone", "http://preset.example/");
  EXPECT_EQ(Messages(), Keys{kTextMoveEmpty});
  WhenShown([](QDialog& dialog) { EXPECT_EQ(Address(dialog).text(), ""); });
  Show("", "file:///etc/hostname");
}

TEST_F(ChannelAddDlg, AFrameThatGoesWhileAMessageIsReadIsLeftAlone) {
  frame.whileAsking = [this] { parent.reset(); };
  WhenShown([&](QDialog& dialog) {
    Check(dialog, "http://daily.example/");
    Answer({.announcedFeed = "http://daily.example/rss"});
  });
  Show();
  EXPECT_EQ(frame.checkedAddresses.size(), 1U);
}

}  // namespace
}  // namespace feedloom
