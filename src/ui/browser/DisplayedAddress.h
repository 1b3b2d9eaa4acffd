// Addresses as the user sees them, as pure functions; any thread. A hostile page chooses its
// address: what is shown must not be mistaken for another one.
#pragma once

#include <QLocale>
#include <QString>
#include <QUrl>

namespace feedloom {

// A text and the place of the host in it, which is shown stronger than the rest.
struct DisplayedAddress {
  QString text;
  qsizetype hostBegin = 0;
  qsizetype hostLength = 0;  // 0 when the address has no host

  bool operator==(const DisplayedAddress&) const = default;
};

// Without user name and password. The host's name is in its ASCII form, unless it is of one script
// that `locale` uses and that is written from left to right. In the rest only letters and digits of
// such scripts are decoded; controls, invisible characters and signs stay encoded. The text leads
// where `url` leads.
DisplayedAddress DisplayAddress(const QUrl& url, const QLocale& locale = QLocale());

// At most `length` characters of `address`: its beginning, or only the end of its host when the
// host does not fit.
DisplayedAddress Shortened(const DisplayedAddress& address, qsizetype length);

}  // namespace feedloom
