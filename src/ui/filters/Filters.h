#pragma once

#include <memory>

#include "threads/BackgroundJobs.h"

class QWidget;

namespace feedloom {

class Desk;
class Store;

// Shows the dialog of filters over `parent` and returns when it is closed. The rules that the user
// has confirmed are stored. Posts of `store`, the desk's, may have changed. `toHere` passes work to
// the interface thread. When the rules cannot be read, says so instead. Interface thread only.
void ShowFilters(Desk& desk, std::shared_ptr<Store> store, BackgroundJobs::Post toHere,
                 QWidget* parent);

}  // namespace feedloom
