#pragma once

#include <functional>
#include <optional>
#include <string>

#include "exchange/ImportValues.h"
#include "exchange/OpmlImporter.h"
#include "exchange/Subscriptions.h"

namespace feedloom {

class Desk;
class Refreshing;
class Subscribing;

// Reports that lists could not be exchanged: the text of `textKey`, followed by the reason, which
// is in the module's code page.
void ReportExchangeFailure(Desk& desk, const char* textKey, const std::string& reason);

// Writes the subscriptions as OPML, and brings those of lists into the store and the tree. Ends the
// import under way when it is destroyed. Interface thread only.
class SubscriptionExchange {
 public:
  // `toHere` passes work to the interface thread. The others outlive the object.
  SubscriptionExchange(Desk& desk, Refreshing& refreshing, Subscribing& subscribing,
                       SharedServices services, BackgroundJobs::Post toHere)
      : desk_(desk),
        refreshing_(refreshing),
        subscribing_(subscribing),
        importer_(std::move(services), std::move(toHere)) {}

  // As Subscribing::ExportOpml.
  std::optional<int> Export(const std::string& path, const SubscriptionList& list);
  // As Subscribing::ImportOpml, except that `onEnd` is told whether the list was read, for the
  // caller to start the refresh or to show a message.
  void Import(const ListSource& source, std::function<void(bool isRead)> onEnd);
  // As Subscribing::MergeOpml.
  void Merge(const std::string& path, std::function<void(const std::optional<ImportSums>&)> onEnd);

 private:
  void Start(const ListSource& source, NameClash clash,
             std::function<void(const ImportEnd&)> onEnd);
  void ReportEnd(const ImportEnd& end);

  Desk& desk_;
  Refreshing& refreshing_;
  Subscribing& subscribing_;
  OpmlImporter importer_;
};

}  // namespace feedloom
