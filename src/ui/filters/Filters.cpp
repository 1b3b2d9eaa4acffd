#include "ui/filters/Filters.h"

#include <utility>

#include "store/Filters.h"
#include "ui/Desk.h"
#include "ui/filters/CRSS_FilterDlg.h"
#include "ui/filters/FilterNames.h"

namespace feedloom {

void ShowFilters(Desk& desk, std::shared_ptr<Store> store, BackgroundJobs::Post toHere,
                 QWidget* parent) {
  const auto names = ReadFilterNames(*store);
  auto rules = LoadFilters(*store);
  if (!names || !rules) {
    desk.ShowTextMessage(kSectionTexts, kTextFilterNotRead, MsgBoxKind::Notice);
    return;
  }
  RunDialog(new CRSS_FilterDlg(desk, std::move(store), std::move(toHere), *names, *std::move(rules),
                               parent),
            [] {});
}

}  // namespace feedloom
