// What the dialogs' fields must hold. Pure: fields and a look-up in, the key of the message that
// says what is wrong out; null when nothing is. Texts are in the module's code page, without blanks
// at their ends.
#pragma once

#include <functional>
#include <string>

namespace feedloom {

// How one kind of name is checked.
struct NameRule {
  const char* emptyKey;
  const char* takenKey;
  bool isCabinetRootReserved;  // the cabinet root's own name is taken, too
};

extern const NameRule kGroupNameRule;
extern const NameRule kCabinetNameRule;
extern const NameRule kChannelRenameRule;
extern const NameRule kCabinetRenameRule;

// `isTaken` is asked only for a name that is not faulty otherwise.
const char* CheckName(const NameRule& rule, const std::string& name, const std::string& cabinetRoot,
                      const std::function<bool(const std::string& name)>& isTaken);

const char* CheckAddress(const std::string& address);

// A channel's new place; a folder id of 0 stands for none. `isTaken` tells whether a folder has the
// feed's address already.
const char* CheckFolder(int folderId, const std::function<bool(int folderId)>& isTaken);
const char* CheckNewChannel(const std::string& title, int folderId,
                            const std::function<bool(int folderId)>& isTaken);

}  // namespace feedloom
