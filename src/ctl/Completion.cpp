#include "ctl/Completion.h"

#include <fmt/core.h>
#include <fmt/format.h>

namespace feedloom {
namespace {

using Commands = std::vector<CompletedCommand>;
using Options = std::vector<CompletedOption>;

// `text` as one word of a shell in single quotes; `quote` stands for a quote in it.
std::string Quoted(std::string_view text, std::string_view quote) {
  std::string quoted = "'";
  for (const char c : text) c == '\'' ? quoted += quote : quoted += c;
  return quoted + "'";
}

std::string NamesOf(const Options& options) {
  std::string names;
  for (const CompletedOption& option : options) names += option.name + " ";
  return names;
}

// A line for each option whose values are known, for the word behind it.
std::string BashValues(const Options& options) {
  std::string lines;
  for (const CompletedOption& option : options) {
    if (!option.takesValue) continue;
    lines += fmt::format("    *:{}) words='{}' ;;\n", option.name, fmt::join(option.values, " "));
  }
  return lines;
}

std::string Bash(const std::string& program, const Commands& commands, const Options& everywhere) {
  std::string names, cases, values = BashValues(everywhere);
  for (const CompletedCommand& command : commands) {
    names += command.name + " ";
    cases += fmt::format("    {}) words='{}{}{}' ;;\n", command.name, NamesOf(command.options),
                         NamesOf(everywhere), fmt::join(command.words, " "));
    for (const CompletedOption& option : command.options) {
      if (!option.takesValue) continue;
      values += fmt::format("    {}:{}) words='{}' ;;\n", command.name, option.name,
                            fmt::join(option.values, " "));
    }
  }
  return fmt::format(
      "_{0}() {{\n"
      "  local command= words= word\n"
      "  for word in \"${{COMP_WORDS[@]:1:COMP_CWORD-1}}\"; do\n"
      "    case \" {1}\" in *\" $word \"*) command=$word; break ;; esac\n"
      "  done\n"
      "  case $command in\n"
      "    '') words='{1}{2}' ;;\n{3}"
      "  esac\n"
      "  case \"$command:${{COMP_WORDS[COMP_CWORD-1]}}\" in\n{4}"
      "  esac\n"
      "  COMPREPLY=($(compgen -W \"$words\" -- \"${{COMP_WORDS[COMP_CWORD]}}\"))\n"
      "}}\n"
      "complete -o default -F _{0} {0}\n",
      program, names, NamesOf(everywhere), cases, values);
}

// The colons and brackets of a help text have a meaning of their own.
std::string ZshText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == ':' || c == '[' || c == ']') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string ZshArguments(const Options& options) {
  std::string arguments;
  for (const CompletedOption& option : options) {
    std::string value;
    if (!option.values.empty()) {
      value = fmt::format(":value:({})", fmt::join(option.values, " "));
    } else if (option.takesValue) {
      value = ":value:_files";
    }
    arguments += " " + Quoted(option.name + "[" + ZshText(option.help) + "]" + value, "'\\''");
  }
  return arguments;
}

std::string Zsh(const std::string& program, const Commands& commands, const Options& everywhere) {
  std::string names, cases;
  for (const CompletedCommand& command : commands) {
    names += "  " + Quoted(command.name + ":" + ZshText(command.help), "'\\''") + "\n";
    const std::string words = command.words.empty()
                                  ? "'*:file:_files'"
                                  : fmt::format("'1:word:({})'", fmt::join(command.words, " "));
    cases += fmt::format("  {}) _arguments{}{} {} ;;\n", command.name,
                         ZshArguments(command.options), ZshArguments(everywhere), words);
  }
  return fmt::format(
      "#compdef {0}\n"
      "local state line\n"
      "local -a commands=(\n{1})\n"
      "_arguments -C{2} '1:command:->command' '*::argument:->argument'\n"
      "case $state in\n"
      "command) _describe command commands ;;\n"
      "argument)\n"
      "  case $words[1] in\n{3}"
      "  esac ;;\n"
      "esac\n",
      program, names, ZshArguments(everywhere), cases);
}

// The line for an option or a word of fish, where `condition` holds.
std::string FishLine(const std::string& program, const std::string& condition,
                     const std::string& what, const std::string& help) {
  return fmt::format("complete -c {}{} {}{}\n", program,
                     condition.empty() ? "" : " -n '" + condition + "'", what,
                     help.empty() ? "" : " -d " + Quoted(help, "\\'"));
}

std::string FishOptions(const std::string& program, const std::string& condition,
                        const Options& options) {
  std::string lines;
  for (const CompletedOption& option : options) {
    std::string what = "-l " + option.name.substr(2);
    if (option.takesValue) what += " -r";
    if (!option.values.empty()) what += fmt::format(" -f -a '{}'", fmt::join(option.values, " "));
    lines += FishLine(program, condition, what, option.help);
  }
  return lines;
}

std::string Fish(const std::string& program, const Commands& commands, const Options& everywhere) {
  std::string lines = FishOptions(program, "", everywhere);
  for (const CompletedCommand& command : commands) {
    const std::string condition = "__fish_seen_subcommand_from " + command.name;
    lines += FishLine(program, "__fish_use_subcommand", "-f -a " + command.name, command.help) +
             FishOptions(program, condition, command.options);
    if (command.words.empty()) continue;
    lines +=
        FishLine(program, condition, fmt::format("-f -a '{}'", fmt::join(command.words, " ")), "");
  }
  return lines;
}

}  // namespace

std::string CompletionScript(std::string_view shell, const std::string& program,
                             const std::vector<CompletedCommand>& commands,
                             const std::vector<CompletedOption>& everywhere) {
  if (shell == "bash") return Bash(program, commands, everywhere);
  return shell == "zsh" ? Zsh(program, commands, everywhere) : Fish(program, commands, everywhere);
}

}  // namespace feedloom
