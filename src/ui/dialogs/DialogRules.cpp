#include "ui/dialogs/DialogRules.h"

#include "skin/Keys.h"
#include "skin/Skin.h"
#include "store/SqlText.h"

namespace feedloom {

const NameRule kGroupNameRule{kTextGroupEmpty, kTextGroupDuplicate, true};
const NameRule kCabinetNameRule{kTextCabinetEmpty, kTextCabinetDuplicate, true};
const NameRule kChannelRenameRule{kTextGroupEmpty, kTextRenameDuplicate, false};
const NameRule kCabinetRenameRule{kTextGroupEmpty, kTextRenameDuplicate, true};

const char* CheckName(const NameRule& rule, const std::string& name, const std::string& cabinetRoot,
                      const std::function<bool(const std::string& name)>& isTaken) {
  if (name.empty()) return rule.emptyKey;
  // Compared as the store would decode it.
  if (rule.isCabinetRootReserved && UnescapeEntities(name) == cabinetRoot) return rule.takenKey;
  return isTaken(name) ? rule.takenKey : nullptr;
}

const char* CheckAddress(const std::string& address) {
  return address.empty() ? kTextAddChannelEmpty : nullptr;
}

const char* CheckFolder(int folderId, const std::function<bool(int folderId)>& isTaken) {
  if (folderId == 0) return kTextMoveEmpty;
  return isTaken(folderId) ? kTextAddChannelDuplicate : nullptr;
}

const char* CheckNewChannel(const std::string& title, int folderId,
                            const std::function<bool(int folderId)>& isTaken) {
  return title.empty() ? kTextAddChannelEmpty : CheckFolder(folderId, isTaken);
}

const char* TitleKey(const Skin& skin, const char* key, const char* helpfulKey) {
  const bool isHelpful = skin.Config().HasHelpfulDialogs();
  return isHelpful && !skin.GetText(kSectionTexts, helpfulKey).empty() ? helpfulKey : key;
}

}  // namespace feedloom
