// Who wants to know the user's name and password, and what the user answers.
#pragma once

#include <QString>

namespace feedloom {

// The texts fit on a line and can be shown.
struct LoginQuestion {
  QString host;        // as the wire has it, with a port unless it is the usual one
  QString realm = {};  // what the login is for, as the host calls it; may be empty
  bool isProxy = false;
  QString name = {};  // that the user gave last, and may correct
};

struct Login {
  QString name;
  QString password;
};

}  // namespace feedloom
