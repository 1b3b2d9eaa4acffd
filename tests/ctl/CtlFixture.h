// The real program on a profile of its own, with a server for its feeds.
#pragma once

#include <fmt/core.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "kit/FeedDocuments.h"
#include "kit/FeedServer.h"
#include "kit/TempFolder.h"

namespace feedloom {

using nlohmann::json;

struct CtlResult {
  int status = 0;
  std::string out, err;
};

using Rows = std::vector<std::pair<std::string, std::string>>;

struct CtlFixture : testing::Test {
  // `arguments` is a piece of a shell's command line. Several runs may be under way at once.
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
  // Each command, up to a `;`, fails with this status, prints nothing and says why.
  void ExpectRefused(const std::string& commands, const std::string& why, int status = 1) const {
    std::istringstream each(commands);
    for (std::string arguments; std::getline(each, arguments, ';');) {
      const CtlResult result = Run(arguments);
      EXPECT_EQ(result.status, status) << arguments;
      EXPECT_EQ(result.out, "") << arguments;
      EXPECT_NE(result.err.find(why), std::string::npos) << arguments << "\n" << result.err;
    }
  }

  TempFolder folder_;
  std::string profile_ = folder_.File("profile");
  FeedServer server_;
};

}  // namespace feedloom
