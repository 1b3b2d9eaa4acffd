#include "ui/dialogs/FolderList.h"

#include "store/Folders.h"
#include "ui/Frame.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/QtText.h"

namespace feedloom {

void ListFolders(Frame& frame, CVxComboBox& box) {
  const int chosen = ChosenFolder(box);
  std::vector<FolderRow> folders;
  LoadFolderList(frame.TheStore(), folders);
  box.clear();
  for (const FolderRow& folder : folders) {
    box.addItem(ToLine(frame.TheStore().TextCodePage(), folder.name), folder.id);
  }
  ChooseFolder(box, chosen);
}

int ChosenFolder(const CVxComboBox& box) { return box.currentData().toInt(); }

void ChooseFolder(CVxComboBox& box, int folderId) { box.setCurrentIndex(box.findData(folderId)); }

}  // namespace feedloom
