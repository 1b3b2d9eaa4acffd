// What is seen of the program outside its window.
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include "host/Autostart.h"
#include "host/DesktopNotice.h"
#include "host/HostTables.h"
#include "host/TrayIcon.h"
#include "kit/ShippedSkin.h"

namespace feedloom {
namespace {

// A notification service, which answers as it is told and keeps what it was asked to show.
struct Service : QDBusVirtualObject {
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    asked += call.member() == "Get" ? 1 : 0;
    if (call.member() == "Get" && hasInhibited) {
      return bus.send(call.createReply(QVariant::fromValue(QDBusVariant(isInhibited))));
    }
    if (call.member() == "GetCapabilities") return bus.send(call.createReply(capabilities));
    if (call.member() != "Notify") return false;
    const QVariantList told = call.arguments();
    shown << told[1].toString() + '|' + told[3].toString() + '|' + told[4].toString() + '|' +
                 told[5].toStringList().join(',');
    return isSilent || bus.send(call.createReply(answer));
  }
  QStringList capabilities{"actions", "body", "body-markup"}, shown;
  QVariant answer = 7U;
  int asked = 0;
  bool hasInhibited = true, isInhibited = false, isSilent = false;
};

struct DesktopNoticeTest : testing::Test {
  DesktopNoticeTest() {
    SetHostTables(ReadHostTexts(skin_.Get().Config()), CodePage::Korean());
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    EXPECT_TRUE(daemon_.waitForReadyRead());
    const QString address = daemon_.readLine().trimmed();
    server_ = QDBusConnection::connectToBus(address, "server");
    EXPECT_TRUE(server_.registerVirtualObject("/org/freedesktop/Notifications", &service_));
    EXPECT_TRUE(server_.registerService("org.freedesktop.Notifications"));
    bus_ = QDBusConnection::connectToBus(address, "client");
  }
  ~DesktopNoticeTest() override {
    for (const char* const name : {"server", "client"}) QDBusConnection::disconnectFromBus(name);
    daemon_.terminate();
    daemon_.waitForFinished();
  }
  void Signal(const char* name, const QVariantList& arguments) {
    auto told = QDBusMessage::createSignal("/org/freedesktop/Notifications",
                                           "org.freedesktop.Notifications", name);
    told.setArguments(arguments);
    server_.send(told);
  }

  const ShippedSkin skin_;
  QProcess daemon_;
  QDBusConnection server_{""}, bus_{""};
  Service service_;
};

TEST_F(DesktopNoticeTest, TakesThePlaceOfTheOneBeforeAndTellsOfAClick) {
  DesktopNotice notice(bus_);
  QSignalSpy clicks(&notice, &DesktopNotice::Clicked);
  notice.Announce(4, "A <b>\t3\tx & y\nB\t1\tz");
  notice.Announce(9, "left out, as a newer one waits");
  notice.Announce(1, "C\t1\t" + QString(500, 'x'));
  ASSERT_TRUE(QTest::qWaitFor([&] { return service_.shown.size() == 2; }));
  EXPECT_EQ(service_.shown[0].toStdString(),
            "0|새 글 4개|A &lt;b&gt; (3): x &amp; y\nB: z|default,Feedloom 열기");
  EXPECT_TRUE(service_.shown[1].startsWith("7|새 글 1개|C: xxx"));
  EXPECT_LT(service_.shown[1].size(), 170);
  service_.capabilities = QStringList{"body"};
  service_.hasInhibited = false;
  notice.Announce(1, "A <b>\t1\tx");
  ASSERT_TRUE(QTest::qWaitFor([&] { return service_.shown.size() == 3; }));
  EXPECT_EQ(service_.shown[2], "7|새 글 1개|A <b>: x|");
  Signal("ActionInvoked", {8U, "default"});
  Signal("ActivationToken", {7U, "leave"});
  Signal("ActionInvoked", {7U, "default"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !clicks.empty(); }));
  EXPECT_EQ(clicks, QList<QVariantList>{{"leave"}});
}

TEST_F(DesktopNoticeTest, TellsOnceOfAServiceThatFailsAndLeavesOneAloneThatIsInhibited) {
  auto notice = std::make_unique<DesktopNotice>(bus_, std::chrono::milliseconds(300));
  QSignalSpy failures(notice.get(), &DesktopNotice::Failed);
  const auto announce = [&](qsizetype shown) {
    notice->Announce(1, "A\t1\tx");
    return QTest::qWaitFor([&] { return service_.shown.size() == shown; });
  };
  service_.answer = "nonsense";
  EXPECT_TRUE(announce(1) && announce(2));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !failures.empty(); }));
  service_.answer = 7U;
  EXPECT_TRUE(announce(3));
  service_.isInhibited = true;
  notice->Announce(1, "never shown");
  ASSERT_TRUE(QTest::qWaitFor([&] { return service_.asked == 4; }));
  service_.isInhibited = false;
  service_.isSilent = true;
  EXPECT_TRUE(announce(4));
  ASSERT_TRUE(QTest::qWaitFor([&] { return failures.size() == 2; }));
  EXPECT_EQ(failures[0][0].toString(), "");
  EXPECT_NE(failures[1][0].toString(), "");
}

TEST_F(DesktopNoticeTest, TellsThatThereIsNoBus) {
  DesktopNotice notice(QDBusConnection("none"));
  QSignalSpy failures(&notice, &DesktopNotice::Failed);
  notice.Announce(1, "A\t1\tx");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !failures.empty(); }));
  EXPECT_EQ(failures[0][0], "No session bus");
}

TEST(TrayIcon, HasTheNumberOnItUpTo99) {
  const auto picture = [](int unread, int size) {
    return WithCount(QIcon(), unread).pixmap(size).toImage();
  };
  for (const int size : {16, 22, 64}) {
    EXPECT_TRUE(picture(0, size) != picture(1, size) && picture(98, size) != picture(99, size));
    EXPECT_TRUE(picture(99, size) != picture(100, size) &&
                picture(100, size) == picture(9000, size));
  }
}

TEST(Autostart, NamesProgramAndProfileAsDesktopEntriesQuoteThem) {
  EXPECT_NE(AutostartEntry("/usr/bin/halvix", "").find("Exec=\"/usr/bin/halvix\" --hidden\n"),
            std::string::npos);
  EXPECT_NE(AutostartEntry("/b/halvix", "/my $1 100%").find(" --profile \"/my \\\\$1 100%%\"\n"),
            std::string::npos);
}

}  // namespace
}  // namespace feedloom
