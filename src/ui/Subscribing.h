// The user's subscriptions: what becomes one, their order in folders, their exchange as lists.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "exchange/ImportValues.h"
#include "store/Rows.h"

namespace feedloom {

class DirectorySearch;

// Interface thread only. Texts are in the module's code page.
class Subscribing {
 public:
  virtual ~Subscribing() = default;

  // The dialogs call these after storing a change; the tree updates its rows at once.
  virtual void FolderWasAdded(const FolderRow& folder) = 0;
  virtual void CabinetWasAdded(const CabinetRow& cabinet) = 0;
  virtual void ChannelWasAdded(const ChannelRow& channel) = 0;
  virtual void ChannelWasMoved(int channelId, int folderId) = 0;

  // Opens the dialog that adds a channel, with this feed address and the folder of the tree's
  // selection. The frame may be destroyed meanwhile, and the caller with it.
  virtual void AddChannel(const std::string& address) = 0;
  // Returns a new search of the web directory, at the address that the host configures; never null.
  // It delivers no results once the frame is closing.
  virtual std::unique_ptr<DirectorySearch> MakeDirectorySearch() = 0;

  // False while the tree cannot be read: lists are not exchanged then, and the next three fail.
  virtual bool CanExchange() const = 0;
  // Writes the tree's folders and channels as OPML to the file `path`, in the file system's
  // encoding. The file is replaced as a whole or not at all. Returns the number of channels;
  // std::nullopt after a failure, which has been reported to the host.
  virtual std::optional<int> ExportOpml(const std::string& path) = 0;
  // Reads an OPML list on another thread, adds its folders and channels to the store and the tree,
  // and refreshes the new channels. Reports their number to the host, or shows a message when the
  // list cannot be read. Imports run one after another.
  virtual void ImportOpml(const ListSource& source) = 0;
  // Imports the OPML file `path` like ImportOpml, with two differences: channels go into existing
  // folders of the same name, and nothing is reported or shown. `onEnd` is called at the end on
  // the interface thread, with std::nullopt when the list could not be read or not be added whole.
  virtual void MergeOpml(const std::string& path,
                         std::function<void(const std::optional<ImportSums>&)> onEnd) = 0;
};

}  // namespace feedloom
