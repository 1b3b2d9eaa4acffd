#include "ctl/CtlFixture.h"

#include <sys/wait.h>

#include <cstdlib>

namespace feedloom {

CtlResult CtlFixture::Run(const std::string& arguments) const {
  // Several runs may be under way at once, each with files of its own.
  const TempFolder output;
  const std::string command = std::string(FEEDLOOMCTL) + " --profile '" + ProfileDir() + "' " +
                              arguments + " >" + output.File("out") + " 2>" + output.File("err");
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), output.Read("out"), output.Read("err")};
}

nlohmann::json CtlFixture::RunJson(const std::string& arguments) const {
  const CtlResult result = Run("--json " + arguments);
  EXPECT_EQ(result.status, 0) << arguments << "\n" << result.err;
  return nlohmann::json::parse(result.out, nullptr, false);
}

int CtlFixture::Add(const std::string& path, const std::string& options) const {
  return RunJson("add " + server_.Url(path) + " " + options).value("id", 0);
}

}  // namespace feedloom
