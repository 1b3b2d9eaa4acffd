#include "ui/browser/LinkStrip.h"

#include <QEvent>

#include "ui/browser/DisplayedAddress.h"

namespace feedloom {
namespace {

QString Markup(const DisplayedAddress& address) {
  const QString& text = address.text;
  const qsizetype hostEnd = address.hostBegin + address.hostLength;
  return text.left(address.hostBegin).toHtmlEscaped() + "<b>" +
         text.mid(address.hostBegin, address.hostLength).toHtmlEscaped() + "</b>" +
         text.mid(hostEnd).toHtmlEscaped();
}

}  // namespace

LinkStrip::LinkStrip(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::RichText);
  setAutoFillBackground(true);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setMargin(2);
  // A click goes to the link below.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
  parent->installEventFilter(this);
}

void LinkStrip::Show(const QUrl& link) {
  if (link.isEmpty()) return hide();
  constexpr qsizetype kStep = 4;
  const DisplayedAddress address = DisplayAddress(link);
  const int room = parentWidget()->width();
  qsizetype length = std::min<qsizetype>(address.text.size(), room);
  do {
    setText(Markup(Shortened(address, length)));
    length -= kStep;
  } while (sizeHint().width() > room && length > kStep);
  resize(sizeHint());
  move(0, parentWidget()->height() - height());
  raise();
  show();
}

bool LinkStrip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) hide();  // the pointer is elsewhere then
  return QLabel::eventFilter(watched, event);
}

}  // namespace feedloom
