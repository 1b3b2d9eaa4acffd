#include "store/Order.h"

#include <fmt/core.h>

#include <string>

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

// A table "placed" with the ids and their orders.
std::string Placed(std::span<const int> ids) {
  std::string rows;
  int order = 0;
  for (const int id : ids) {
    rows += fmt::format("{}({}, {})", order == 0 ? "" : ", ", id, order + 1);
    ++order;
  }
  return "With placed(id, place) As (Values " + rows + ") ";
}

}  // namespace

bool OrderFolders(Store& store, std::span<const int> ids) {
  return ids.empty() ||
         ExecuteOnce(store, Placed(ids) +
                                "Update TB_FOLDER Set folder_order = place From placed "
                                "Where folder_id = id And folder_order Is Not place");
}

// Another program may delete the folder at any time: the statement looks, too.
bool OrderChannels(Store& store, int folderId, std::span<const int> ids) {
  const auto folder = FormatSql("Select 1 From TB_FOLDER Where folder_id = %d", folderId);
  return HasRows(store, folder) &&
         (ids.empty() ||
          ExecuteOnce(store, Placed(ids) + fmt::format("Update TB_CHANNEL Set channel_folderID = "
                                                       "{0}, channel_order = place From placed "
                                                       "Where channel_id = id And (channel_order "
                                                       "Is Not place Or channel_folderID Is Not "
                                                       "{0}) And Exists ({1})",
                                                       folderId, folder)));
}

}  // namespace feedloom
