// The real program on a profile of its own, with a server for its feeds.
#pragma once

#include <fmt/core.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "kit/FeedDocuments.h"
#include "kit/FeedServer.h"
#include "kit/TempFolder.h"

namespace feedloom {

using nlohmann::json;

struct CtlResult {
  int status = 0;
  std::string out;
  std::string err;
};

class CtlFixture : public testing::Test {
 protected:
  // Runs feedloomctl on the fixture's profile; `arguments` is a piece of a shell's command line.
  // Several runs may be under way at once.
  CtlResult Run(const std::string& arguments) const {
    const TempFolder output;
    const std::string command = std::string(FEEDLOOMCTL) + " --profile '" + profile_ + "' " +
                                arguments + " >" + output.File("out") + " 2>" + output.File("err");
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), output.Read("out"), output.Read("err")};
  }
  int Status(const std::string& arguments) const { return Run(arguments).status; }
  std::string Out(const std::string& arguments) const { return Run(arguments).out; }
  // With --json; expects success.
  json RunJson(const std::string& arguments) const {
    const CtlResult result = Run("--json " + arguments);
    EXPECT_EQ(result.status, 0) << arguments << "\n" << result.err;
    return json::parse(result.out, nullptr, false);
  }
  // Each command fails with status 1 and words that hold these.
  void ExpectRefused(const std::vector<std::pair<std::string, std::string>>& cases) const {
    for (const auto& [arguments, reason] : cases) {
      const CtlResult result = Run(arguments);
      EXPECT_EQ(result.status, 1) << arguments;
      EXPECT_EQ(result.out, "") << arguments;
      EXPECT_NE(result.err.find(reason), std::string::npos) << arguments << result.err;
    }
  }
  // Subscribes to `path` of the server; the channel's id, as text.
  std::string Add(const std::string& path, const std::string& options = "") const {
    return RunJson("add " + server_.Url(path) + " " + options)["id"].dump();
  }

  TempFolder folder_;
  std::string profile_ = folder_.File("profile");
  FeedServer server_;
};

}  // namespace feedloom
