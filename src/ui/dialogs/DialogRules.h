// Rules of the dialogs, without a widget. Validation of the fields: each function is pure and
// returns the text key of an error message, null when the values are valid. Texts are in the
// module's code page, without leading or trailing blanks.
#pragma once

#include <functional>
#include <string>

namespace feedloom {

class Skin;

// How one kind of name is validated.
struct NameRule {
  const char* emptyKey;        // message for an empty name
  const char* takenKey;        // message for a name that is in use
  bool isCabinetRootReserved;  // the name of the cabinet root counts as in use
};

extern const NameRule kGroupNameRule;
extern const NameRule kCabinetNameRule;
extern const NameRule kChannelRenameRule;
extern const NameRule kCabinetRenameRule;

// `cabinetRoot` is the name of the cabinet root. `isTaken` looks a name up and is called only when
// the other checks have passed.
const char* CheckName(const NameRule& rule, const std::string& name, const std::string& cabinetRoot,
                      const std::function<bool(const std::string& name)>& isTaken);

const char* CheckAddress(const std::string& address);

// Validate the folder of a channel; a `folderId` of 0 means no selection. `isTaken` returns true
// when the folder already has a channel with the same feed address.
const char* CheckFolder(int folderId, const std::function<bool(int folderId)>& isTaken);
const char* CheckNewChannel(const std::string& title, int folderId,
                            const std::function<bool(int folderId)>& isTaken);

// The key of a dialog's title: `helpfulKey` when the host asks for helpful dialogs and has that
// text.
const char* TitleKey(const Skin& skin, const char* key, const char* helpfulKey);

}  // namespace feedloom
