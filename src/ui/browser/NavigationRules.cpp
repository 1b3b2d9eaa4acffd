#include "ui/browser/NavigationRules.h"

#include <QUrlQuery>

#include "text/Text.h"
#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

constexpr char kSaveButton[] = "ID_BTN_RSSSCRAP";
constexpr char kAddButton[] = "ID_BTN_RSSADD";

// Addresses of content that a web page itself provides. The engine denies it that of other pages.
bool IsOfWebPages(const QUrl& url) {
  return url.scheme() == QLatin1String("about") || url.scheme() == QLatin1String("blob") ||
         url.scheme() == QLatin1String("data");
}

bool MayFollow(const Navigation& navigation) {
  if (IsWebAddress(navigation.to)) return true;
  if (IsGenerated(navigation.from)) return false;
  return IsOfWebPages(navigation.to) ||
         (navigation.from.isLocalFile() && navigation.to.isLocalFile());
}

// The only frame of generated pages is the player's, in which the media file plays.
NavigationVerdict JudgeFrame(const Navigation& navigation) {
  const bool mayHaveFrames = !IsGenerated(navigation.from) || navigation.isFromPlayer;
  return mayHaveFrames && MayFollow(navigation) ? NavigationVerdict::Follow
                                                : NavigationVerdict::Refuse;
}

NavigationVerdict JudgeLink(const Navigation& navigation) {
  if (navigation.to.scheme() == QLatin1String("mailto")) return NavigationVerdict::OpenOutside;
  return MayFollow(navigation) ? NavigationVerdict::Follow : NavigationVerdict::Report;
}

NavigationVerdict JudgePage(const Navigation& navigation) {
  const bool isAction = ParsePageAction(navigation.to.toString(QUrl::FullyEncoded)).has_value();
  switch (navigation.cause) {
    case NavigationCause::Command:
      return isAction ? NavigationVerdict::Report : NavigationVerdict::Follow;
    case NavigationCause::Link:
      return isAction ? NavigationVerdict::Act : JudgeLink(navigation);
    case NavigationCause::Server:
    case NavigationCause::Page:
      break;
  }
  const bool mayNavigate =
      navigation.cause == NavigationCause::Server || !IsGenerated(navigation.from);
  return mayNavigate && !isAction && MayFollow(navigation) ? NavigationVerdict::Follow
                                                           : NavigationVerdict::Refuse;
}

// Only a generated page, in which no script can feign a click, opens other programs by a link.
NavigationVerdict JudgeOutside(const Navigation& navigation) {
  const bool isUsers =
      navigation.cause == NavigationCause::Command || navigation.cause == NavigationCause::Link;
  if (!isUsers) return NavigationVerdict::Refuse;
  return navigation.from.isEmpty() || IsGenerated(navigation.from) ? NavigationVerdict::OpenOutside
                                                                   : NavigationVerdict::Report;
}

}  // namespace

std::optional<PageAction> ParsePageAction(const QString& target) {
  const qsizetype question = target.indexOf('?');
  if (question == 0) return std::nullopt;
  const QString name = target.left(question);
  const int number = question < 0 ? 0 : ParseInt(target.mid(question + 1).toLatin1().toStdString());
  if (name.contains(kSaveButton)) return PageAction{PageAction::SavePost, number};
  if (name.contains(kAddButton)) return PageAction{PageAction::AddFeed, number};
  return std::nullopt;
}

QStringList ElementIds(const PageAction& action) {
  const QStringList names = action.kind == PageAction::AddFeed
                                ? QStringList{"rsspath-"}
                                : QStringList{"title-", "scraplink-", "disc-", "pubdate-"};
  QStringList ids;
  for (const QString& name : names) ids << name + QString::number(action.number);
  return ids;
}

NavigationVerdict Judge(const Navigation& navigation) {
  if (!navigation.isMainFrame) return JudgeFrame(navigation);
  const NavigationVerdict verdict = JudgePage(navigation);
  const bool goesOutside = navigation.opensOutside && !IsGenerated(navigation.to);
  return goesOutside && verdict == NavigationVerdict::Follow ? JudgeOutside(navigation) : verdict;
}

bool IsWebAddress(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

QUrl CompleteAddress(const QString& typed) { return QUrl::fromUserInput(typed); }

QUrl ForOtherPrograms(const QUrl& url) {
  if (url.scheme() != QLatin1String("mailto")) return url;
  static const QStringList kFields = {"to", "cc", "bcc", "subject", "body"};
  QUrlQuery kept;
  for (const auto& [name, value] : QUrlQuery(url).queryItems(QUrl::FullyEncoded)) {
    const QString field = QUrl::fromPercentEncoding(name.toLatin1()).toLower();
    if (kFields.contains(field)) kept.addQueryItem(field, value);
  }
  QUrl mail = url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
  if (!kept.isEmpty()) mail.setQuery(kept);
  return mail;
}

bool IsForBrowser(const QUrl& url) { return IsWebAddress(url) || url.isLocalFile(); }

}  // namespace feedloom
