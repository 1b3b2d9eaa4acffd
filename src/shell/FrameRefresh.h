#pragma once

#include <memory>

#include "ingest/RefreshEngine.h"
#include "ui/InterfaceThread.h"

namespace feedloom {

// The refresh engine, with its messages handed over to the interface thread. Constructed and
// destroyed on the interface thread.
class FrameRefresh {
 public:
  // `toFrame` and `toHost` are called with the messages on the interface thread until `thread` is
  // closed. `thread` must be closed before this object is destroyed.
  FrameRefresh(const std::shared_ptr<InterfaceThread>& thread, SharedServices services,
               InterfaceTarget::Handler toFrame, InterfaceTarget::Handler toHost)
      : frame_(thread, std::move(toFrame)),
        host_(thread, std::move(toHost)),
        engine_(std::move(services), frame_, host_) {}

  RefreshEngine& Engine() { return engine_; }

 private:
  InterfaceTarget frame_;
  InterfaceTarget host_;
  RefreshEngine engine_;
};

}  // namespace feedloom
