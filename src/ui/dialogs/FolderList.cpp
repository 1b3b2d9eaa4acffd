#include "ui/dialogs/FolderList.h"

#include "store/Folders.h"
#include "ui/Frame.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/QtText.h"

namespace feedloom {

bool ListFolders(Frame& frame, CVxComboBox& box) {
  const int chosen = ChosenFolder(box);
  std::vector<FolderRow> folders;
  if (!LoadFolderList(frame.GetStore(), folders)) return false;
  box.clear();
  for (const FolderRow& folder : folders) {
    box.addItem(ToLine(frame.GetStore().TextCodePage(), folder.name), folder.id);
  }
  ChooseFolder(box, chosen);
  return true;
}

int ChosenFolder(const CVxComboBox& box) { return box.currentData().toInt(); }

void ChooseFolder(CVxComboBox& box, int folderId) { box.setCurrentIndex(box.findData(folderId)); }

}  // namespace feedloom
