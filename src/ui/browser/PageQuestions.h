// What a page may ask the user, as pure functions; any thread. A page asks only about an address
// that the user gave, or once after each time that the user has touched it: otherwise a page could
// open dialogs for ever.
#pragma once

#include <QString>
#include <QUrl>

#include "ui/Login.h"
#include "ui/browser/PageLoad.h"

class QEvent;

namespace feedloom {

// Whether an event of the view's window is a gesture: a press of a button, a finger or a key.
// Escape, which says no, is none; nor is a key that only changes others, nor the second press of a
// double click.
bool IsGesture(const QEvent& event);
// Whether it is the press of Tab, without or with Shift, with which the user leaves a page.
bool IsTab(const QEvent& event);

// Whether a question with this text is the engine's own, whether the page may be left. A page that
// asks the same gets the same answer, which leads nowhere.
bool IsLeaveQuestion(const QString& text);

enum class DownloadVerdict {
  Ask,
  Tell,    // refuse, and tell the user that it was
  Refuse,  // refuse; the user was told already
};

// On a download from `address`.
DownloadVerdict JudgeDownload(const PageLoad& load, const QUrl& address);
PageLoad Judged(PageLoad load, DownloadVerdict verdict);

// Whether the user may be asked: for the page that the user opens, once for each host and load. For
// a picture or a frame never: the user has not asked for it and cannot see whose it is. `address`
// is what the login is for.
bool MayAskLogin(const PageLoad& load, const QUrl& address, const LoginQuestion& question);
PageLoad LoginAsked(PageLoad load, const LoginQuestion& question);

// The host of an address as the wire has it, with a port unless it is the scheme's usual one. Of a
// blob the page's that made it; empty when the address has none. Only the end of a very long one
// is shown, since the end tells whose it is.
QString HostOf(const QUrl& address);

// A stranger's text on one line: without invisible characters, of 80 characters at most.
QString OneLine(const QString& text);

}  // namespace feedloom
