#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ctl/Commands.h"
#include "ctl/StoreErrors.h"
#include "ctl/WorkFolder.h"
#include "feed/FeedItem.h"
#include "fetch/FeedMemory.h"
#include "fetch/FetchServices.h"
#include "profile/KeptDatabase.h"
#include "profile/Profile.h"
#include "skin/Skin.h"
#include "store/Store.h"

namespace feedloom {

// The paths of the profile that `global` names, which is created when there is none. FindProfile
// looks no further, OpenProfile also checks and repairs it. After a failure they print an error and
// return nothing.
std::optional<ProfilePaths> FindProfile(const GlobalOptions& global);
std::optional<ProfilePaths> OpenProfile(const GlobalOptions& global);

// A profile that is open for one command. Belongs to the main thread; any thread may call its const
// functions.
class Session {
 public:
  // Opens the profile that `global` names for a command that uses the database so, and creates it
  // first when there is none. After a failure, also when another program locks the database for
  // too long, prints an error and returns null.
  static std::unique_ptr<Session> Open(const GlobalOptions& global, DatabaseUse use);

  Store& GetStore() { return *store_; }
  const Skin& GetSkin() const { return skin_; }
  CodePage TextCodePage() const { return store_->TextCodePage(); }
  FeedReading Reading() const { return {TextCodePage(), config_.ReadsLeniently()}; }
  bool WantsJson() const { return json_; }

  // Returns the services for downloads, with a work folder of this process alone. When the folder
  // cannot be created, prints an error and returns null.
  SharedServices Services();

  // The path of FeedMemory's file.
  std::string FeedMemoryFile() const { return FeedMemoryPath(config_.GetWorkDir()); }

  // Convert from the module's code page to UTF-8, and back.
  std::string Utf8(std::string_view text) const { return TextCodePage().ToUtf8(text); }
  std::string Text(std::string_view utf8) const { return TextCodePage().FromUtf8(utf8); }

  // Returns `status`, or kFailure when the store has reported a failure.
  int Finish(int status) const { return errors_->AnyReported() ? kFailure : status; }

 private:
  Session(const GlobalOptions& global, const ProfilePaths& paths, DatabaseUse use);

  const KeptDatabase database_;  // goes last
  const bool json_;
  const Registry registry_;
  const HostConfig config_;
  const Skin skin_;
  const std::shared_ptr<StoreErrors> errors_;
  const std::shared_ptr<Store> store_;
  std::unique_ptr<WorkFolder> workFolder_;
};

}  // namespace feedloom
