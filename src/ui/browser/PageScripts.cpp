#include "ui/browser/PageScripts.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace feedloom {
namespace {

constexpr char kGetElementValues[] = R"((ids => {
  const found = new Map(ids.map(id => [id, null]));
  for (const div of Document.prototype.querySelectorAll.call(document, 'div[id]')) {
    const id = div.id.toLowerCase();
    if (found.has(id)) found.set(id, div);
  }
  return ids.map(id => {
    const div = found.get(id);
    return div === null ? '' : div.getAttribute('title') || div.innerText || '';
  });
}))";

constexpr char kFindFeeds[] = R"((() => {
  const has = (link, name, value) => (link.getAttribute(name) || '').toLowerCase() === value;
  const domain = Object.getOwnPropertyDescriptor(Document.prototype, 'domain').get;
  const types = ['application/rss+xml', 'application/atom+xml', 'application/feed+json'];
  const links = [...Document.prototype.querySelectorAll.call(document, 'link')]
    .filter(link => has(link, 'rel', 'alternate') && types.some(type => has(link, 'type', type)))
    .slice(0, 200);
  return [location.href, domain.call(document)].concat(
    links.map(link => [link.getAttribute('title') || '', link.getAttribute('href') || '',
                       link.href, types.findIndex(type => has(link, 'type', type))]));
})())";

constexpr char kWatchPage[] = R"((() => {
  let clicked = -Infinity;
  globalThis.isUserActive = () => performance.now() - clicked < 2000;
  const isGenerated = location.protocol === 'feedloom:';
  addEventListener('click', event => {
    if (event.isTrusted) clicked = performance.now();
    const target = event.target;
    const link = target instanceof Element ? Element.prototype.closest.call(target, 'a') : null;
    const href = link === null ? '' : link.href.baseVal ?? link.href;
    const isRefused = /^[a-z][^:]*:/i.test(href) && !/^(https?|mailto|feedloom):/i.test(href);
    if (!isGenerated || !isRefused) return;
    event.preventDefault();
    console.log('%3' + href);
  }, true);
  const find = Document.prototype.querySelector;
  const leads = find.call(document, 'meta[http-equiv=refresh i]') !== null;
  if (isGenerated) console.log('%1' + location.href);
  if (isGenerated && !leads) console.log('%2' + location.href);
})())";

// The server of a post's picture is not that of the page; but what is found here, such as an image
// of the skin, is not asked for there.
constexpr char kScrollScreen[] = R"((() => {
  const active = Object.getOwnPropertyDescriptor(Document.prototype, 'activeElement');
  const focused = active.get.call(document);
  if (focused && Element.prototype.matches.call(
      focused, 'button,input,select,summary,audio,video,[role=button]')) {
    HTMLElement.prototype.click.call(focused);
    return true;
  }
  const before = window.scrollY;
  window.scrollBy({top: %1 * 0.9 * window.innerHeight, behavior: 'instant'});
  return window.scrollY !== before;
})())";

constexpr char kFindPictures[] = R"((() => {
  const origin = new URLSearchParams(location.search).get('feedloom');
  if (location.protocol !== 'feedloom:' || !origin) return;
  const base = origin + location.pathname.replace(/^\/page:\d+/, '');
  const lookThere = image => {
    if (!(image instanceof HTMLImageElement) || !/^feedloom:/.test(image.currentSrc)) return;
    const address = image.getAttribute('src') || image.srcset.trim().split(/\s/)[0];
    for (const source of image.closest('picture')?.querySelectorAll('source') ?? []) source.remove();
    image.removeAttribute('srcset');
    try {
      image.src = new URL(address, base).href;
    } catch {
      image.removeAttribute('src');
    }
  };
  addEventListener('error', event => lookThere(event.target), true);
  for (const image of Document.prototype.querySelectorAll.call(document, 'img'))
    if (image.complete && image.naturalWidth === 0) lookThere(image);
})())";

constexpr char kFindFrames[] = R"((() => {
  if (location.protocol !== 'feedloom:') return;
  const frames = [...Document.prototype.querySelectorAll.call(document, 'iframe,embed,object')];
  // Those of a few pixels only tell somebody that the post is read.
  const addresses = frames.filter(frame => Math.min(frame.offsetWidth, frame.offsetHeight) > 9)
    .slice(0, 100).map(frame => frame.src || frame.data)
    .filter(address => /^(https?|feedloom):/.test(address));
  if (addresses.length > 0) console.log('%1' + JSON.stringify(addresses));
})())";

constexpr char kReplaceFrames[] = R"((lines => {
  const make = name => Document.prototype.createElement.call(document, name);
  const found = new Map(lines.map(([frame, page, text]) => [frame, {page, text}]));
  for (const frame of
       Document.prototype.querySelectorAll.call(document, 'iframe,embed,object')) {
    const line = found.get(frame.src || frame.data);
    if (line === undefined) continue;
    const link = make('a');
    link.href = line.page;
    link.textContent = line.text;
    const block = make('p');
    block.append(link);
    frame.replaceWith(block);
  }
}))";

// When the second animation frame begins, the first one has been submitted for display.
constexpr char kTellWhenDrawn[] =
    "requestAnimationFrame(() => requestAnimationFrame(() => console.log('%1')))";

}  // namespace

QString GetElementValuesScript(const QStringList& ids) {
  const QByteArray list = QJsonDocument(QJsonArray::fromStringList(ids)).toJson();
  return kGetElementValues + QStringLiteral("(%1)").arg(QString::fromUtf8(list));
}

QString FindFeedsScript() { return kFindFeeds; }

AnnouncedFeeds ReadFeeds(const QVariant& result) {
  const QVariantList values = result.toList();
  AnnouncedFeeds feeds;
  if (values.size() < 2) return feeds;
  feeds.documentUrl = values[0].toString();
  feeds.domain = values[1].toString();
  for (const QVariant& link : values.mid(2)) {
    const QStringList parts = link.toStringList();
    const auto kind = static_cast<FeedLink::Kind>(parts.value(3).toInt());
    feeds.links.append({parts.value(0), parts.value(1), parts.value(2), kind});
  }
  return feeds;
}

QString IsUserActiveScript() { return QStringLiteral("isUserActive()"); }

QString IsImageLinkScript() {
  return QStringLiteral(
      "(active => active instanceof HTMLAnchorElement &&"
      " active.firstElementChild instanceof HTMLImageElement)("
      "Object.getOwnPropertyDescriptor(Document.prototype, 'activeElement').get.call(document))");
}

QString WatchPageScript(const QString& readyMark, const QString& noRefreshMark,
                        const QString& refusedMark) {
  return QString(kWatchPage).arg(readyMark, noRefreshMark, refusedMark);
}

QString FindFramesScript(const QString& mark) { return QString(kFindFrames).arg(mark); }

QString ReplaceFramesScript(const QList<FrameLine>& lines) {
  QJsonArray list;
  for (const FrameLine& line : lines)
    list.append(QJsonArray{line.frame, line.page.toString(QUrl::FullyEncoded), line.text});
  return kReplaceFrames +
         QStringLiteral("(%1)").arg(QString::fromUtf8(QJsonDocument(list).toJson()));
}

QString FindPicturesScript() { return kFindPictures; }

QString ScrollScript(const QPointF& place) {
  return QStringLiteral("window.scrollTo({left: %1, top: %2, behavior: 'instant'})")
      .arg(place.x())
      .arg(place.y());
}

QString ScrollScreenScript(bool isOn) { return QString(kScrollScreen).arg(isOn ? 1 : -1); }

QString RemoveFramesScript() {
  return QStringLiteral(
      "Document.prototype.querySelectorAll.call(document, 'embed,object,iframe,frame,audio,video')"
      ".forEach(element => Element.prototype.remove.call(element))");
}

QString TellWhenDrawnScript(const QString& mark) { return QString(kTellWhenDrawn).arg(mark); }

}  // namespace feedloom
