#include "ctl/CompletedCommands.h"

#include <CLI/CLI.hpp>
#include <iterator>

namespace feedloom {
namespace {

// The parser tells the values that it allows only as a part of their type's name: "TEXT:{a,b}".
std::vector<std::string> ValuesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t begin = type.find('{');
  const std::size_t end = type.find('}');
  if (begin == std::string::npos || end == std::string::npos) return {};
  return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

// A group of options is a nameless command of its own to the parser.
bool IsGroup(const CLI::App& app) { return app.get_name().empty(); }

const auto kAll = [](const auto*) { return true; };

}  // namespace

std::vector<CompletedOption> CompletedOptions(const CLI::App& app) {
  std::vector<CompletedOption> options;
  for (const CLI::Option* option : app.get_options()) {
    const bool isCommandsHelp = app.get_parent() != nullptr && option == app.get_help_ptr();
    if (option->get_lnames().empty() || isCommandsHelp) continue;
    options.push_back({"--" + option->get_lnames().front(), option->get_description(),
                       option->get_items_expected_max() > 0, ValuesOf(*option)});
  }
  for (const CLI::App* sub : app.get_subcommands(kAll)) {
    if (!IsGroup(*sub)) continue;
    const auto more = CompletedOptions(*sub);
    options.insert(options.end(), more.begin(), more.end());
  }
  return options;
}

std::vector<CompletedCommand> CompletedCommands(const CLI::App& app) {
  std::vector<CompletedCommand> commands;
  for (const CLI::App* sub : app.get_subcommands(kAll)) {
    if (IsGroup(*sub)) continue;
    CompletedCommand command{sub->get_name(), sub->get_description(), CompletedOptions(*sub)};
    for (const CLI::Option* option : sub->get_options())
      if (option->get_positional() && command.words.empty()) command.words = ValuesOf(*option);
    commands.push_back(std::move(command));
  }
  return commands;
}

}  // namespace feedloom
