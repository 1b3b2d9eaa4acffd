#include "ui/dialogs/FolderList.h"

#include "controls/CVxComboBox.h"
#include "look/QtText.h"
#include "store/Folders.h"
#include "ui/Desk.h"

namespace feedloom {

bool ListFolders(Desk& desk, CVxComboBox& box) {
  const int chosen = ChosenFolder(box);
  std::vector<FolderRow> folders;
  if (!LoadFolderList(desk.GetStore(), folders)) return false;
  box.clear();
  for (const FolderRow& folder : folders) {
    box.addItem(ToLine(desk.GetStore().TextCodePage(), folder.name), folder.id);
  }
  ChooseFolder(box, chosen);
  return true;
}

int ChosenFolder(const CVxComboBox& box) { return box.currentData().toInt(); }

void ChooseFolder(CVxComboBox& box, int folderId) { box.setCurrentIndex(box.findData(folderId)); }

}  // namespace feedloom
