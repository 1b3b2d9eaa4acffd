// The real program on a profile of its own, with a server for its feeds.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"

namespace feedloom {

struct CtlResult {
  int status = 0;
  std::string out;
  std::string err;
};

class CtlFixture : public testing::Test {
 protected:
  // Runs feedloomctl on the fixture's profile; `arguments` is a piece of a shell's command line.
  CtlResult Run(const std::string& arguments) const;
  // Runs it with --json, expects success and gives its result.
  nlohmann::json RunJson(const std::string& arguments) const;
  // Subscribes to `path` of the server; the channel's id.
  int Add(const std::string& path, const std::string& options = "") const;

  std::string ProfileDir() const { return folder_.File("profile"); }

  TempFolder folder_;
  FeedServer server_;
};

}  // namespace feedloom
