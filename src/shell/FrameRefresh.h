#pragma once

#include <memory>

#include "ingest/RefreshEngine.h"
#include "ui/InterfaceThread.h"

namespace feedloom {

// The refresh, with its messages handled on the interface thread. Made and ended there.
class FrameRefresh {
 public:
  // `toFrame` and `toHost` get the messages until `thread` is closed, which must come before the
  // object ends.
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
