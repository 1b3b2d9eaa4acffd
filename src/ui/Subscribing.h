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

// How a synchronisation with the handset has ended.
struct SyncEnd {
  std::optional<int> sent;  // channels; none when the list could not be written: as ExportOpml
  // All zero when the handset has left no list; none when its list could not be read, or not be
  // added whole.
  std::optional<ImportSums> received;
};

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
  // std::nullopt after a failure, and when the file cannot be read again; both have been reported
  // to the host.
  virtual std::optional<int> ExportOpml(const std::string& path) = 0;
  // Reads an OPML list on another thread, adds its folders and channels to the store and the tree,
  // and refreshes the new channels. Where the host wishes for lenient reading, the user is asked
  // first what to do with what is there already. Reports their number to the host, and shows what
  // was left out, or that the list cannot be read. Imports run one after another.
  virtual void ImportOpml(const ListSource& source) = 0;
  // Takes in the channels that are new on the list of the handset, and then writes the tree's
  // folders and channels for it. `onEnd` is called at the end on the interface thread.
  virtual void Synchronise(std::function<void(const SyncEnd&)> onEnd) = 0;
};

}  // namespace feedloom
