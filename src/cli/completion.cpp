#include "cli/completion.h"

#include "cli/command_table.h"
#include "cli/help.h"
#include "cli/joined.h"

#include <algorithm>
#include <set>
#include <vector>

namespace hourwright::cli {

namespace {

constexpr std::string_view dateWords = "today|yesterday|tomorrow";

// What completion offers for a value.
struct Offer {
    ValueKind kind;
    std::string_view choices;
};

Offer offerOf(const OptionSpec& option) {
    return {option.kind, option.kind == ValueKind::date ? dateWords : option.choices};
}

Offer offerOf(const ArgumentSpec& argument) {
    return {argument.kind, argument.kind == ValueKind::date ? dateWords : argument.choices};
}

// The kind of names to ask the program for; empty for other values.
std::string_view namesOf(ValueKind kind) {
    switch (kind) {
    case ValueKind::clientName: return "clients";
    case ValueKind::projectName: return "projects";
    case ValueKind::taskName: return "tasks";
    case ValueKind::contactName: return "contacts";
    default: return "";
    }
}

std::string spaced(std::string_view choices) {
    std::string words(choices);
    std::ranges::replace(words, '|', ' ');
    return words;
}

std::vector<const OptionSpec*> optionsOf(const CommandSpec& command) {
    std::vector<const OptionSpec*> options;
    for (const OptionGroup* group : groupsOf(command))
        options.insert(options.end(), group->options.begin(), group->options.end());
    return options;
}

std::string subcommandWords(std::string_view topic) {
    std::string words;
    for (const CommandSpec& command : commandsOf(topic))
        (words += words.empty() ? "" : " ") += command.subcommand;
    return words;
}

std::string optionWords(std::span<const OptionSpec* const> options) {
    std::string words;
    for (const OptionSpec* option : options)
        (words += words.empty() ? "" : " ") += option->name;
    return words;
}

// ---- bash ----

std::string bashOffer(const Offer& offer) {
    if (offer.kind == ValueKind::file)
        return "offer=files";
    if (offer.kind == ValueKind::directory)
        return "offer=directories";
    if (const auto names = namesOf(offer.kind); !names.empty())
        return joined({"offer=names words=", names});
    return joined({"offer= words='", spaced(offer.choices), "'"});
}

std::string bashValueCases(std::span<const OptionSpec* const> options, std::string_view indent) {
    std::string out;
    for (const OptionSpec* option : options)
        if (option->arity != Arity::none)
            out += joined({indent, option->name, option->arity == Arity::optional ? ") " : ") value=1 ",
                           bashOffer(offerOf(*option)), " ;;\n"});
    return out;
}

// What is offered at each place; the last place stands for those behind it too.
std::string bashArgumentCases(std::span<const ArgumentSpec> arguments) {
    if (arguments.empty())
        return {};
    if (arguments.size() == 1)
        return joined({"            ", bashOffer(offerOf(arguments.front())), "\n"});
    std::string out = "            case $place in\n";
    for (std::size_t i = 0; i < arguments.size(); ++i)
        out += joined({"                ", i + 1 < arguments.size() ? std::to_string(i) : "*", ") ",
                       bashOffer(offerOf(arguments[i])), " ;;\n"});
    return joined({out, "            esac\n"});
}

std::string bashCommandCase(const CommandSpec& command) {
    const auto options = optionsOf(command);
    std::string out = joined({"        ", command.name, "/", command.subcommand, ")\n"});
    out += joined({"            options='", optionWords(options), "'\n"});
    out += bashArgumentCases(command.arguments);
    if (const std::string cases = bashValueCases(options, "                "); !cases.empty())
        out += joined({"            case $previous in\n", cases, "            esac\n"});
    return joined({out, "            ;;\n"});
}

std::string bashTopicCase(const TopicSpec& topic) {
    return joined({"        ", topic.name, "/) words='", subcommandWords(topic.name), "' ;;\n"});
}

constexpr std::string_view bashHead = R"(# Completion of hwctl for bash; made from its command table.
_hwctl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command= subcommand= options= words= offer= value= word i name plain place=0
    local -a home=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
        --home) home=(--home "${COMP_WORDS[++i]}") ;;
        @SKIPPED@) ((i++)) ;;
        -*) ;;
        *) if [[ -z $command ]]; then command=$word
           elif [[ -z $subcommand ]]; then subcommand=$word
           else ((place++)); fi ;;
        esac
    done
    [[ $command == demo ]] && subcommand=
    case $command/$subcommand in
)";

constexpr std::string_view bashTail = R"sh(    esac
    if [[ $current == -* && -z $value ]]; then
        words="$options @GLOBALS@" offer=
    fi
    case $offer in
    files) COMPREPLY=($(compgen -f -- "$current")); compopt -o filenames 2>/dev/null ;;
    directories) COMPREPLY=($(compgen -d -- "$current")); compopt -o filenames 2>/dev/null ;;
    names)
        plain=${current#[\"\']}
        plain=${plain//\\/}
        while IFS= read -r name; do
            [[ $name == "$plain"* ]] || continue
            [[ $current == [\"\']* ]] && COMPREPLY+=("$name") || COMPREPLY+=("$(printf %q "$name")")
        done < <("${COMP_WORDS[0]}" "${home[@]}" __names "$words" 2>/dev/null)
        ;;
    *) COMPREPLY=($(compgen -W "$words" -- "$current")) ;;
    esac
}
complete -F _hwctl hwctl
)sh";

void fill(std::string& text, std::string_view place, std::string_view by) {
    if (const auto at = text.find(place); at != std::string::npos)
        text.replace(at, place.size(), by);
}

// The options that the word behind them belongs to, for a case of the shell.
std::string optionsWithValue() {
    std::set<std::string_view> options;
    const auto insert = [&options](const OptionGroup& group) {
        for (const OptionSpec* option : group.options)
            if (option->arity == Arity::one)
                options.insert(option->name);
    };
    insert(globalOptions());
    for (const CommandSpec& command : commands())
        for (const OptionGroup* group : groupsOf(command))
            insert(*group);
    std::string words;
    for (const std::string_view option : options)
        (words += words.empty() ? "" : "|") += option;
    return words;
}

// ---- zsh ----

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

// ---- fish ----

std::string fishText(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\'' || c == '\\')
            out += '\\';
        out += c;
    }
    return joined({"'", out, "'"});
}

std::string fishValue(const Offer& offer) {
    if (offer.kind == ValueKind::file)
        return " -F";
    if (offer.kind == ValueKind::directory)
        return " -a '(__fish_complete_directories)'";
    if (const auto names = namesOf(offer.kind); !names.empty())
        return joined({" -a '(__hwctl_names ", names, ")'"});
    return offer.choices.empty() ? "" : joined({" -a ", fishText(spaced(offer.choices))});
}

std::string fishOption(const OptionSpec& option, std::string_view condition) {
    std::string out = "complete -c hwctl";
    if (!condition.empty())
        out += joined({" -n ", fishText(condition)});
    out += joined({" -l ", option.name.substr(2)});
    if (option.arity == Arity::one || option.arity == Arity::two) // -x: and no files
        out += option.kind == ValueKind::file ? " -r" : " -x";
    if (option.arity != Arity::none)
        out += fishValue(offerOf(option));
    return joined({out, " -d ", fishText(option.help), "\n"});
}

// What is offered at each place; the last place stands for those behind it too.
std::string fishArguments(const CommandSpec& command, std::string_view words) {
    std::string out;
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        const std::string_view places = i + 1 < command.arguments.size() ? "__hwctl_at " : "__hwctl_from ";
        if (const std::string value = fishValue(offerOf(command.arguments[i])); !value.empty())
            out += joined({"complete -c hwctl -n ", fishText(joined({places, std::to_string(i), words})), value, "\n"});
    }
    return out;
}

std::string fishCommand(const CommandSpec& command) {
    const std::string topic = joined({" ", command.name});
    const std::string words = command.subcommand.empty() ? topic : joined({topic, " ", command.subcommand});
    std::string out;
    if (!command.subcommand.empty())
        out = joined({"complete -c hwctl -n ", fishText(joined({"__hwctl_at 0", topic})), " -a ", command.subcommand,
                      " -d ", fishText(command.summary), "\n"});
    for (const OptionSpec* option : optionsOf(command))
        out += fishOption(*option, joined({"__hwctl_from 0", words}));
    return out + fishArguments(command, words);
}

std::string fishTopic(const TopicSpec& topic) {
    return joined({"complete -c hwctl -n '__hwctl_at 0' -a ", topic.name, " -d ", fishText(topic.summary), "\n"});
}

constexpr std::string_view fishHead = R"(# Completion of hwctl for fish; made from its command table.

# The words so far that are neither options nor their values, one a line.
function __hwctl_words
    set -l value 0
    for word in (commandline -opc)[2..-1]
        if test $value = 1
            set value 0
            continue
        end
        switch $word
            case @SKIPPED@
                set value 1
            case '-*'
            case '*'
                printf '%s\n' $word
        end
    end
end

# Whether the words are these and so many more; with __hwctl_from, at least so many.
function __hwctl_at
    set -l words (__hwctl_words)
    test (count $words) -eq (math $argv[1] + (count $argv) - 1); and __hwctl_from $argv
end

function __hwctl_from
    set -l words (__hwctl_words)
    set -l first (count $argv[2..-1])
    test (count $words) -ge (math $argv[1] + $first); or return 1
    test $first -eq 0; or test "$words[1..$first]" = "$argv[2..-1]"
end

# The names that the program knows, in the home that was named.
function __hwctl_names
    set -l words (commandline -opc)
    set -l home
    if set -l place (contains -i -- --home $words); and test $place -lt (count $words)
        set home --home $words[(math $place + 1)]
    end
    hwctl $home __names $argv 2>/dev/null
end

complete -c hwctl -f
)";

} // namespace

std::string bashCompletion() {
    std::string out(bashHead);
    for (const TopicSpec& topic : topics())
        if (!commandsOf(topic.name).front().subcommand.empty())
            out += bashTopicCase(topic);
    std::string names;
    for (const TopicSpec& topic : topics())
        (names += names.empty() ? "" : " ") += topic.name;
    out += joined({"        /) words='", names, "' ;;\n"});
    for (const CommandSpec& command : commands())
        out += bashCommandCase(command);
    out += joined({"    esac\n    case $previous in\n", bashValueCases(globalOptions().options, "        "), bashTail});
    fill(out, "@SKIPPED@", optionsWithValue());
    fill(out, "@GLOBALS@", optionWords(globalOptions().options));
    return out;
}

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

std::string fishCompletion() {
    std::string out(fishHead);
    std::string skipped = optionsWithValue();
    std::ranges::replace(skipped, '|', ' ');
    fill(out, "@SKIPPED@", skipped);
    for (const OptionSpec* option : globalOptions().options)
        out += fishOption(*option, "");
    for (const TopicSpec& topic : topics())
        out += fishTopic(topic);
    for (const CommandSpec& command : commands())
        out += fishCommand(command);
    return out;
}

} // namespace hourwright::cli
