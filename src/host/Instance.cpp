#include "host/Instance.h"

#include <utility>

#include "host/ContentQueue.h"
#include "host/HostWindow.h"
#include "host/RaiseWindow.h"

namespace feedloom {

void Instance::Serve(HostWindow& window) {
  auto* const queue = new ContentQueue(window);
  QObject::connect(&socket_, &InstanceSocket::Received, queue,
                   [&window, queue](const HandOver& handOver) {
                     const bool isSilent = handOver.isHidden && handOver.contents.empty();
                     if (!isSilent) RaiseWindow(window, handOver.activationToken);
                     queue->Add(handOver);
                   });
  queue->Add(std::exchange(first_, HandOver()));
}

}  // namespace feedloom
