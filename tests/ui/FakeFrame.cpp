#include "ui/FakeFrame.h"

#include "ingest/FeedCheckAnswer.h"

namespace feedloom {

FakeFrame::~FakeFrame() = default;

}  // namespace feedloom
