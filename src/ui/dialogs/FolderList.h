// The folders in a drop-down list.
#pragma once

namespace feedloom {

class CVxComboBox;
class Frame;

// Reads all folders again; the chosen one stays so, unless it has gone: then none is chosen. After
// a failure, which the store reports, false, and the list stays as it is.
bool ListFolders(Frame& frame, CVxComboBox& box);

// 0 when none is chosen.
int ChosenFolder(const CVxComboBox& box);
// None is chosen when it is not in the list.
void ChooseFolder(CVxComboBox& box, int folderId);

}  // namespace feedloom
