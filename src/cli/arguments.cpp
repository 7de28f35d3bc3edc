#include "cli/arguments.h"

#include "cli/date_text.h"
#include "cli/joined.h"

#include <algorithm>
#include <charconv>

namespace hourwright::cli {

namespace {

std::optional<std::uint32_t> parseNumber(std::string_view text) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::optional<std::uint16_t> findChoice(std::string_view text, std::string_view choices) {
    std::optional<std::uint16_t> found;
    std::uint16_t position = 0;
    forEachChoice(choices, [&](std::string_view choice) {
        if (choice == text)
            found = position;
        ++position;
    });
    return found;
}

// A choice by its word, or by its position as one digit.
std::optional<std::uint16_t> findNumbered(std::string_view text, std::string_view choices) {
    if (const auto found = findChoice(text, choices))
        return found;
    const auto count = std::ranges::count(choices, '|') + 1;
    if (text.size() != 1 || text.front() < '0' || text.front() - '0' >= count)
        return std::nullopt;
    return static_cast<std::uint16_t>(text.front() - '0');
}

bool fits(ValueKind kind, std::string_view choices, std::string_view text) {
    switch (kind) {
    case ValueKind::text:
    case ValueKind::clientName:
    case ValueKind::projectName:
    case ValueKind::taskName:
    case ValueKind::contactName: return true;
    case ValueKind::date: return parseDate(text).has_value();
    case ValueKind::time: return parseTime(text).has_value();
    case ValueKind::dateTime: return parseDateTime(text).has_value();
    case ValueKind::number: return parseNumber(text).has_value();
    case ValueKind::id: return parseNumber(text).value_or(0) != 0;
    case ValueKind::choice: return findChoice(text, choices).has_value();
    case ValueKind::numbered: return findNumbered(text, choices).has_value();
    case ValueKind::file:
    case ValueKind::directory: return !text.empty();
    }
    return false;
}

bool looksLikeOption(std::string_view word) {
    if (word.size() < 2 || word.front() != '-')
        return false;
    return word[1] < '0' || word[1] > '9';
}

// Goes through the words once, filling a CommandLine; stops at the first error.
class Parser {
public:
    explicit Parser(std::span<const std::string_view> words) : words_(words) {}

    CommandLine run() {
        while (next_ < words_.size() && line_.error.empty() && !helpWanted())
            takeWord(words_[next_++]);
        if (line_.error.empty() && !helpWanted() && !line_.arguments.has(option::version))
            checkComplete();
        return std::move(line_);
    }

private:
    [[nodiscard]] bool helpWanted() const { return line_.arguments.has(option::help); }

    void fail(std::string reason) { line_.error = std::move(reason); }

    void takeWord(std::string_view word) {
        if (!optionsEnded_ && word == "--")
            optionsEnded_ = true;
        else if (!optionsEnded_ && looksLikeOption(word))
            takeOption(word);
        else if (!line_.command)
            takeCommandWord(word);
        else
            takePositional(word);
    }

    void takeCommandWord(std::string_view word) {
        if (line_.topic.empty()) {
            const auto found = commandsOf(word);
            if (found.empty())
                return fail(joined({"unknown command '", word, "'"}));
            line_.topic = found.front().name;
            if (found.front().subcommand.empty())
                line_.command = &found.front();
            return;
        }
        const auto subcommands = commandsOf(line_.topic);
        const auto found = std::ranges::find(subcommands, word, &CommandSpec::subcommand);
        if (found == subcommands.end())
            return fail(joined({"unknown subcommand '", word, "'"}));
        line_.command = &*found;
    }

    void takePositional(std::string_view word) {
        const auto specs = line_.command->arguments;
        const std::size_t position = line_.arguments.positionals().size();
        const ArgumentSpec* spec = position < specs.size()                   ? &specs[position]
                                   : !specs.empty() && specs.back().repeated ? &specs.back()
                                                                             : nullptr;
        if (!spec)
            return fail(joined({"unexpected argument '", word, "'"}));
        if (!fits(spec->kind, spec->choices, word))
            return failValue(word, spec->name, spec->kind, spec->choices);
        line_.arguments.addPositional(word);
    }

    void takeOption(std::string_view word) {
        const auto equals = word.find('=');
        const OptionSpec* option = findOption(line_.command, word.substr(0, equals));
        if (!option)
            return fail(joined({"unknown option '", word, "'"}));
        if (const OptionSpec* rival = line_.arguments.rivalOf(*option))
            return fail(joined({rival->name, " and ", option->name, " exclude each other"}));
        std::vector<std::string_view> values;
        if (equals != std::string_view::npos)
            values.push_back(word.substr(equals + 1));
        takeValues(*option, values);
        if (line_.error.empty())
            line_.arguments.addOption(*option, std::move(values));
    }

    void takeValues(const OptionSpec& option, std::vector<std::string_view>& values) {
        const std::size_t wanted = option.arity == Arity::two ? 2 : option.arity == Arity::one ? 1 : 0;
        if (option.arity == Arity::none && !values.empty())
            return fail(joined({option.name, " takes no value"}));
        if (option.arity == Arity::optional && values.empty() && next_ < words_.size() &&
            fits(option.kind, option.choices, words_[next_]))
            values.push_back(words_[next_++]);
        while (values.size() < wanted && next_ < words_.size())
            values.push_back(words_[next_++]);
        if (values.size() < wanted)
            return fail(joined({option.name, " needs ", option.value}));
        for (const std::string_view value : values)
            if (!(option.clearable && value.empty()) && !fits(option.kind, option.choices, value))
                return failValue(value, option.name, option.kind, option.choices);
    }

    void failValue(std::string_view value, std::string_view place, ValueKind kind, std::string_view choices) {
        std::string reason = joined({"'", value, "' will not do for ", place, ": "});
        switch (kind) {
        case ValueKind::date: reason += "a date is YYYY-MM-DD, today, yesterday, tomorrow, +N or -N"; break;
        case ValueKind::time: reason += "a time is HH:MM"; break;
        case ValueKind::dateTime: reason += "it is YYYY-MM-DD HH:MM:SS"; break;
        case ValueKind::number: reason += "a number is expected"; break;
        case ValueKind::id: reason += "a record id is expected"; break;
        case ValueKind::choice:
        case ValueKind::numbered: appendChoices(reason, choices); break;
        case ValueKind::text:
        case ValueKind::clientName:
        case ValueKind::projectName:
        case ValueKind::taskName:
        case ValueKind::contactName:
        case ValueKind::file:
        case ValueKind::directory: reason += "it must not be empty"; break;
        }
        fail(std::move(reason));
    }

    static void appendChoices(std::string& out, std::string_view choices) {
        out += "it is one of";
        forEachChoice(choices, [&out](std::string_view choice) { (out += ' ') += choice; });
    }

    void checkComplete() {
        if (!line_.command)
            return fail(line_.topic.empty() ? "a command is missing" : "a subcommand is missing");
        const auto specs = line_.command->arguments;
        const std::size_t given = line_.arguments.positionals().size();
        if (given < specs.size() && specs[given].required)
            fail(joined({"missing ", specs[given].name}));
    }

    std::span<const std::string_view> words_;
    std::size_t next_ = 0;
    bool optionsEnded_ = false;
    CommandLine line_;
};

} // namespace

const Arguments::Given* Arguments::find(const OptionSpec& option) const {
    const auto found = std::ranges::find(options_, option.name, [](const Given& given) { return given.option->name; });
    return found != options_.end() ? &*found : nullptr;
}

std::optional<std::string_view> Arguments::value(const OptionSpec& option, std::size_t index) const {
    const Given* given = find(option);
    if (!given || index >= given->values.size())
        return std::nullopt;
    return given->values[index];
}

std::vector<std::string_view> Arguments::values(const OptionSpec& option) const {
    std::vector<std::string_view> values;
    for (const Given& given : options_)
        if (given.option->name == option.name)
            values.insert(values.end(), given.values.begin(), given.values.end());
    return values;
}

void Arguments::addOption(const OptionSpec& option, std::vector<std::string_view> values) {
    if (!option.repeatable)
        std::erase_if(options_, [&](const Given& given) { return given.option->name == option.name; });
    options_.push_back({&option, std::move(values)});
}

const OptionSpec* Arguments::rivalOf(const OptionSpec& option) const {
    if (option.family == Family::none)
        return nullptr;
    for (const Given& given : options_)
        if (given.option->family == option.family && given.option->name != option.name)
            return given.option;
    return nullptr;
}

CommandLine parseCommandLine(std::span<const std::string_view> words) {
    return Parser(words).run();
}

std::uint32_t numberOf(std::string_view text) {
    return parseNumber(text).value_or(0);
}

std::uint16_t choiceOf(std::string_view text, std::string_view choices) {
    return findNumbered(text, choices).value_or(0);
}

} // namespace hourwright::cli
