#include "cli/completion.h"

#include "cli/command_table.h"
#include "cli/completion_offer.h"
#include "cli/joined.h"

namespace hourwright::cli {

namespace {

// Text within a single-quoted _arguments argument.
std::string zshText(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\'')
            out += "'\\''";
        else if (c == '[' || c == ']' || c == ':')
            (out += '\\') += c;
        else
            out += c;
    }
    return out;
}

std::string zshAction(const Offer& offer) {
    if (offer.kind == ValueKind::file)
        return "_files";
    if (offer.kind == ValueKind::directory)
        return "_files -/";
    if (const auto names = namesOf(offer.kind); !names.empty())
        return joined({"_hwctl_names ", names});
    return offer.choices.empty() ? " " : joined({"(", spaced(offer.choices), ")"});
}

std::string zshOption(const OptionSpec& option) {
    std::string out = joined({"'", option.name, "[", zshText(option.help), "]"});
    const std::string value = joined({zshText(option.value), ":", zshAction(offerOf(option))});
    switch (option.arity) {
    case Arity::none: break;
    case Arity::optional: out += joined({"::", value}); break;
    case Arity::one: out += joined({":", value}); break;
    case Arity::two: out += joined({":", value, ":", value}); break;
    }
    return joined({out, "'"});
}

std::string zshArgument(const ArgumentSpec& argument) {
    const std::string_view colons = argument.required ? ":" : "::";
    const std::string place = argument.repeated ? "*:" : std::string(colons);
    return joined({"'", place, zshText(argument.name), ":", zshAction(offerOf(argument)), "'"});
}

std::string zshCommandCase(const CommandSpec& command) {
    std::string out = joined({"  ", command.name, "/", command.subcommand, ")\n    _arguments $globals"});
    for (const OptionSpec* option : optionsOf(command))
        out += joined({" \\\n      ", zshOption(*option)});
    for (const ArgumentSpec& argument : command.arguments)
        out += joined({" \\\n      ", zshArgument(argument)});
    return joined({out, "\n    ;;\n"});
}

constexpr std::string_view zshHead = R"(#compdef hwctl
# Completion of hwctl for zsh; made from its command table.
_hwctl_names() {
  local -a names
  names=("${(@f)$(hwctl $home __names ${@[-1]} 2>/dev/null)}")
  compadd "${@[1,-2]}" -a names
}

_hwctl() {
  local curcontext="$curcontext" state line command subcommand
  local -a globals topics subcommands home
  local -A opt_args
)";

constexpr std::string_view zshBody = R"(  _arguments -C $globals '1:command:->topic' '*::argument:->rest' && return
  [[ -n ${opt_args[--home]} ]] && home=(--home ${(Q)opt_args[--home]})
  if [[ $state == topic ]]; then
    _describe command topics
    return
  fi
  command=$words[1]
  case $command in
)";

constexpr std::string_view zshSubcommand = R"(  esac
  if (( $#subcommands )); then
    if (( CURRENT == 2 )); then
      _describe subcommand subcommands
      return
    fi
    subcommand=$words[2]
    shift words
    (( CURRENT-- ))
  fi
  case $command/$subcommand in
)";

std::string zshPair(std::string_view name, std::string_view meaning) {
    return joined({"'", name, ":", zshText(meaning), "'"});
}

std::string zshTopicCase(const TopicSpec& topic) {
    std::string out = joined({"  ", topic.name, ") subcommands=("});
    for (const CommandSpec& command : commandsOf(topic.name))
        if (!command.subcommand.empty())
            out += joined({"\n    ", zshPair(command.subcommand, command.summary)});
    return joined({out, ") ;;\n"});
}

} // namespace

std::string zshCompletion() {
    std::string out(zshHead);
    out += "  globals=(";
    for (const OptionSpec* option : globalOptions().options)
        out += joined({"\n    ", zshOption(*option)});
    out += ")\n  topics=(";
    for (const TopicSpec& topic : topics())
        out += joined({"\n    ", zshPair(topic.name, topic.summary)});
    out += joined({")\n", zshBody});
    for (const TopicSpec& topic : topics())
        out += zshTopicCase(topic);
    out += zshSubcommand;
    for (const CommandSpec& command : commands())
        out += zshCommandCase(command);
    return joined({out, "  esac\n}\n_hwctl \"$@\"\n"});
}

} // namespace hourwright::cli
