#include "cli/completion_offer.h"

#include "cli/help.h"

#include <algorithm>
#include <set>

namespace hourwright::cli {

namespace {

constexpr std::string_view dateWords = "today|yesterday|tomorrow";

} // namespace

Offer offerOf(const OptionSpec& option) {
    return {option.kind, option.kind == ValueKind::date ? dateWords : option.choices};
}

Offer offerOf(const ArgumentSpec& argument) {
    return {argument.kind, argument.kind == ValueKind::date ? dateWords : argument.choices};
}

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

void fill(std::string& text, std::string_view place, std::string_view by) {
    if (const auto at = text.find(place); at != std::string::npos)
        text.replace(at, place.size(), by);
}

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

} // namespace hourwright::cli
