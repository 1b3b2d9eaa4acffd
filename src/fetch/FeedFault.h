// Why a feed could not be fetched, read or stored: a plain value, which the windows put into words
// of their language and the command line into English.
#pragma once

#include <string>

namespace feedloom {

// The numbers stand in FeedMemory's file: a new kind is added at the end.
enum class FeedFaultKind {
  None,
  BadAddress,     // no address of the web
  NoSuchHost,     // the name of the server, or of the proxy, is not known
  NotConnected,   // refused, or no way to the server
  Tls,            // no safe connection; detail: the library's reason
  TimedOut,       // no answer, or not all of it, in time
  TooLarge,       // detail: what, and by how much
  HttpStatus,     // number: the status of the answer (RFC 9110), 400 or more
  LoginWanted,    // the server wants a name and a password, or refuses those it got
  WebPage,        // an HTML page in place of a feed
  OpmlList,       // a list of subscriptions in place of a feed
  OtherDocument,  // something else; detail: the document element's name, where there is one
  BrokenXml,      // number and column: the place of the first fault, from 1; detail: the reason
  Empty,          // a document without content
  NotStored,      // fetched and read, but not all posts could be stored
  Other,          // detail: the reason
};

struct FeedFault {
  FeedFaultKind kind = FeedFaultKind::None;
  int number = 0;
  int column = 0;
  std::string detail = {};  // English, UTF-8, one line; may be empty

  bool operator==(const FeedFault&) const = default;
};

}  // namespace feedloom
