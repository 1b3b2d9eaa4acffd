#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "exchange/ImportValues.h"
#include "exchange/OpmlCheck.h"
#include "exchange/OpmlImporter.h"
#include "exchange/Subscriptions.h"
#include "shell/HandsetLists.h"

namespace feedloom {

class Desk;
class Refreshing;
class Subscribing;
struct SyncEnd;

// Reports that lists could not be exchanged: the text of `textKey`, followed by the reason, which
// is in the module's code page.
void ReportExchangeFailure(Desk& desk, const char* textKey, const std::string& reason);

// Writes the subscriptions as OPML, and brings those of lists into the store and the tree. Ends the
// import under way when it is destroyed. Interface thread only.
class SubscriptionExchange {
 public:
  // Asks the user what to do with what is there already: of a list with so many channels so many.
  // None: nothing is imported. The exchange may be destroyed meanwhile.
  using Ask = std::function<std::optional<NameClash>(int channels, int present)>;
  // Asks the user whether the list of this name (UTF-8), with so many channels, is to be imported.
  // The exchange may be destroyed meanwhile; the answer is then no.
  using AskFirst = std::function<bool(const std::string& name, int channels)>;

  // `toHere` passes work to the interface thread. The others outlive the object.
  SubscriptionExchange(Desk& desk, Refreshing& refreshing, Subscribing& subscribing,
                       SharedServices services, BackgroundJobs::Post toHere, Ask ask,
                       AskFirst askFirst)
      : desk_(desk),
        refreshing_(refreshing),
        subscribing_(subscribing),
        ask_(std::move(ask)),
        askFirst_(std::move(askFirst)),
        importer_(std::move(services), std::move(toHere)) {}

  // As Subscribing::ExportOpml.
  std::optional<int> Export(const std::string& path, const SubscriptionList& list);
  // As Subscribing::ImportOpml, except that `onEnd` is told what was imported, or none when the
  // list could not be read, for the caller to start the refresh or to show a message. It is not
  // called when the user wants no import, and when the dialog that adds a channel has come instead.
  void Import(const ListSource& source,
              std::function<void(const std::optional<ImportSums>&)> onEnd);
  // As Subscribing::Synchronise. `shown` returns what the tree holds at the end.
  void Synchronise(std::function<SubscriptionList()> shown,
                   std::function<void(const SyncEnd&)> onEnd);

 private:
  struct Synchronisation;

  bool IsLenient() const;
  void AddFeed(const std::string& address);
  std::optional<NameClash> HowToAdd(const ListSource& source, const ImportPlan& plan);
  void Add(const ImportPlan& plan, NameClash clash, std::function<void(const ImportEnd&)> onEnd);
  void ReportEnd(const ImportEnd& end);
  void ReportUnreadable(const OpmlCheck& check);
  void TakeReceived(const Synchronisation& run, const ReadList& received);
  void EndSynchronisation(const Synchronisation& run, const SubscriptionList& received,
                          const std::optional<ImportSums>& sums);

  Desk& desk_;
  Refreshing& refreshing_;
  Subscribing& subscribing_;
  const Ask ask_;
  const AskFirst askFirst_;
  const std::shared_ptr<const bool> life_ = std::make_shared<bool>(true);
  OpmlImporter importer_;
};

}  // namespace feedloom
