#include "ui/browser/PageMarks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "ui/FoundWords.h"
#include "ui/browser/WebPage.h"

namespace feedloom {
namespace {

constexpr std::size_t kMostWords = 1'000;

// Evaluates to the texts of title and description as one text, in which blocks are lines. The parts
// that it was made of are kept for kMarkWords. The search takes the same tags for parting words. A
// form may have an element with the name of one of its members and hide that member; so a form is
// asked for nothing that matters.
constexpr char kReadText[] = R"((() => {
  const joining = new Set(('a abbr acronym applet b basefont bdo big button cite code del dfn em ' +
    'embed feedloom-found font i iframe img input ins kbd label map object q s samp select small ' +
    'span strike strong sub sup textarea tt u var').split(' '));
  const unread = new Set('math noscript script select style svg template textarea'.split(' '));
  const places = '[id^="title-"],[id^="disc-"]';
  const find = name => Document.prototype.querySelectorAll.call(document, name);
  const parts = [];
  let text = '';
  const read = root => {
    const walker = Document.prototype.createTreeWalker.call(document, root, 5, node =>
      unread.has(node.localName) ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_ACCEPT);
    let block = null;
    for (let node = walker.nextNode(); node !== null; node = walker.nextNode()) {
      if (!(node instanceof Text)) {
        if (!joining.has(node.localName)) block = null;
        continue;
      }
      let holder = node.parentElement;
      while (holder !== root && joining.has(holder.localName)) holder = holder.parentElement;
      if (holder !== block) text += '\n';
      block = holder;
      parts.push({node, begin: text.length});
      text += node.data;
    }
  };
  for (const root of find(places))
    if (!Element.prototype.matches.call(root, `:is(${places}) *`)) read(root);
  globalThis.readParts = parts;
  return text;
})())";

// Takes the places as [begin, end] in that text, ascending, and whether the page may be scrolled.
// While the user copies or drags a part of the page, the marks have no style that would go with it.
constexpr char kMarkWords[] = R"(((words, mayScroll) => {
  const parts = globalThis.readParts ?? [];
  delete globalThis.readParts;
  const marks = [];
  let last = words.length - 1;
  for (const {node, begin} of parts.reverse()) {
    const end = begin + node.data.length;
    while (last >= 0 && words[last][0] >= end) --last;
    for (let i = last; i >= 0 && words[i][1] > begin; --i) {
      const from = Math.max(words[i][0] - begin, 0);
      const to = Math.min(words[i][1], end) - begin;
      const word = from > 0 ? node.splitText(from) : node;
      if (to - from < word.data.length) word.splitText(to - from);
      const mark = Document.prototype.createElement.call(document, 'feedloom-found');
      word.replaceWith(mark);
      mark.append(word);
      marks.push(mark);
    }
  }
  const setPlain = isPlain => marks.forEach(mark => mark.toggleAttribute('plain', isPlain));
  for (const taken of ['copy', 'dragstart']) {
    addEventListener(taken, () => {
      setPlain(true);
      requestAnimationFrame(() => setPlain(false));
    }, true);
  }
  const first = marks.at(-1);
  if (!first || !mayScroll || scrollY > 0) return;
  if (first.getBoundingClientRect().bottom <= innerHeight) return;
  const isCalm = matchMedia('(prefers-reduced-motion: reduce)').matches;
  first.scrollIntoView({block: 'center', behavior: isCalm ? 'instant' : 'smooth'});
}))";

QString MarkScript(const std::vector<FoundWord>& words, bool mayScroll) {
  QJsonArray list;
  for (const FoundWord& word : words) list.append(QJsonArray{word.begin, word.end});
  const QJsonArray arguments{list, mayScroll};
  return kMarkWords +
         QStringLiteral("(...%1)").arg(QString::fromUtf8(QJsonDocument(arguments).toJson()));
}

}  // namespace

void MarkWords(WebPage& page, const TextQuery& query, bool keepsPlace) {
  if (query.parts.empty()) return;
  page.Ask(kReadText, [&page, query, keepsPlace, load = page.Load().number](const QVariant& text) {
    if (load != page.Load().number) return;
    std::vector<FoundWord> words = FindWords(text.toString(), query);
    words.resize(std::min(words.size(), kMostWords));
    if (!words.empty()) page.Ask(MarkScript(words, !keepsPlace), [](const auto&) {});
  });
}

}  // namespace feedloom
