// Fills a drop-down list with the folders.
#pragma once

namespace feedloom {

class CVxComboBox;
class Desk;

// Reads all folders from the store into `box`. The selected folder stays selected when it still
// exists; otherwise none is selected. Returns false after a failure, which the store reports, and
// leaves the list as it is.
bool ListFolders(Desk& desk, CVxComboBox& box);

// The id of the selected folder; 0 when none is selected.
int ChosenFolder(const CVxComboBox& box);
// Selects the folder; none when it is not in the list.
void ChooseFolder(CVxComboBox& box, int folderId);

}  // namespace feedloom
