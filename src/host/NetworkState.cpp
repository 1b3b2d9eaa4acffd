#include "host/NetworkState.h"

#include <QNetworkInformation>

namespace feedloom {

// The toolkit's other source takes a machine without a default route for one without a network.
bool IsOnline() {
  static const bool isTold = QNetworkInformation::loadBackendByName(u"networkmanager");
  if (!isTold) return true;
  using Reach = QNetworkInformation::Reachability;
  const Reach reach = QNetworkInformation::instance()->reachability();
  return reach != Reach::Disconnected && reach != Reach::Local;
}

}  // namespace feedloom
