#include "cli/completion.h"

#include "cli/command_table.h"
#include "cli/completion_offer.h"
#include "cli/joined.h"

namespace hourwright::cli {

namespace {

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

} // namespace hourwright::cli
