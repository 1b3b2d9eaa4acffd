#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <string_view>

#include "ctl/Commands.h"
#include "ctl/WorkFolder.h"
#include "ingest/IngestServices.h"
#include "profile/Profile.h"
#include "skin/Skin.h"
#include "store/Store.h"

namespace feedloom {

// A profile that is open for one command.
class Session {
 public:
  // Opens the profile that `global` names, and makes it first when there is none. Null, after a
  // message, when that fails.
  static std::unique_ptr<Session> Open(const GlobalOptions& global);

  Store& GetStore() { return *store_; }
  const Skin& GetSkin() const { return skin_; }
  CodePage TextCodePage() const { return store_->TextCodePage(); }
  bool WantsJson() const { return json_; }

  // What downloads need; its work folder belongs to this process alone. Null, after a message, when
  // that folder cannot be made.
  SharedServices Services();

  // From the module's texts to UTF-8, and back.
  std::string Utf8(std::string_view text) const { return TextCodePage().ToUtf8(text); }
  std::string Text(std::string_view utf8) const { return TextCodePage().FromUtf8(utf8); }

  // `status`, or a failure when the store has reported one meanwhile.
  int Finish(int status) const { return *storeFailed_ ? kFailure : status; }

 private:
  Session(const GlobalOptions& global, const ProfilePaths& paths);

  const bool json_;
  const Registry registry_;
  const HostConfig config_;
  const Skin skin_;
  const std::shared_ptr<std::atomic<bool>> storeFailed_;
  const std::shared_ptr<Store> store_;
  std::unique_ptr<WorkFolder> workFolder_;
};

}  // namespace feedloom
