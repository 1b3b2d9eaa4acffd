#include "shell/UndoHooks.h"

#include "shell/StatusLine.h"
#include "ui/Reading.h"

namespace feedloom {

UndoableSteps::Hooks UndoHooks(StatusLine& status, Reading& reading) {
  return {
      .begin =
          [&status](const std::string& name, bool isDone) {
            if (isDone) status.ReportStep(name);
            status.OfferUndo(name);
          },
      .end = [&status] { status.OfferUndo(""); },
      .count = [&reading] { reading.RecountUnread(false); },
      .show = [&reading](const auto& row, const auto& posts) { reading.ShowUndone(row, posts); }};
}

}  // namespace feedloom
