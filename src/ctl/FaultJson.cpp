#include "ctl/FaultJson.h"

#include <fmt/chrono.h>

#include "fetch/FaultWords.h"

namespace feedloom {
namespace {

using Kind = FeedFaultKind;

Json TimeJson(std::chrono::sys_seconds time) {
  if (time == std::chrono::sys_seconds()) return nullptr;
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}",
                     fmt::gmtime(std::chrono::system_clock::to_time_t(time)));
}

}  // namespace

Json FaultJson(const FeedFault& fault) {
  if (fault.kind == Kind::None) return nullptr;
  Json json = {{"kind", FaultKindName(fault.kind)}, {"text", FaultWords(fault)}};
  if (fault.kind == Kind::HttpStatus) json["status"] = fault.number;
  if (fault.kind == Kind::NotStored) json["missing"] = fault.number;
  if (fault.kind == Kind::BrokenXml) {
    json["line"] = fault.number;
    json["column"] = fault.column;
  }
  if (!fault.detail.empty()) json["detail"] = fault.detail;
  return json;
}

void AddVisit(Json& channel, const FeedVisit& visit, std::chrono::sys_seconds now) {
  channel["fault"] = FaultJson(visit.fault);
  channel["lastTry"] = TimeJson(visit.tried);
  channel["lastSuccess"] = TimeJson(visit.succeeded);
  channel["dead"] = IsDead(visit, now);
  channel["movedTo"] = visit.movedTo.empty() ? Json(nullptr) : Json(visit.movedTo);
}

std::string VisitWords(int state, const FeedVisit& visit, std::chrono::sys_seconds now) {
  const std::string fault = FaultWords(visit.fault);
  if (fault.empty()) return std::string(ResultWords(state));
  return IsDead(visit, now) ? fmt::format("dead: {}", fault) : fault;
}

}  // namespace feedloom
