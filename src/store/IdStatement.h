#pragma once

#include <span>
#include <string_view>

#include "store/Store.h"

namespace feedloom {

// Runs the statement `base` + " Where" clause(id1) + " Or" clause(id2) ... + `closing`, in which
// `clause` has one "%d" for the id. Without ids the " Where" is left out, so the statement applies
// to the whole table. A long list is split into several statements on one connection, because
// SQLite accepts at most a thousand terms in one. All of them run, even after a failure. Returns
// true when all succeeded. Any thread.
bool ExecuteForIds(Store& store, std::string_view base, std::string_view clause,
                   std::string_view closing, std::span<const int> ids);

}  // namespace feedloom
