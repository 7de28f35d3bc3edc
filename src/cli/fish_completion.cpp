#include "cli/completion.h"

#include "cli/command_table.h"
#include "cli/completion_offer.h"
#include "cli/joined.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

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
