#pragma once

class QString;
class QWidget;

namespace feedloom {

// Warns the user that there is no image file `path`, which `button` needs. All files that are told
// in one turn of the event loop get one warning, over the first button that is still there: it
// names the first file and tells how many more there are. Interface thread.
void WarnOfMissingImage(const QString& path, QWidget* button);

}  // namespace feedloom
