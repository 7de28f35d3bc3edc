#pragma once

#include "cli/command_table.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::cli {

/// The options and positional arguments of one command line. Texts are borrowed from it; every value fits its kind.
class Arguments {
public:
    [[nodiscard]] bool has(const OptionSpec& option) const { return find(option) != nullptr; }

    /// The option's value; nothing when the option was not given or was given without one. Of an option that
    /// was given again the last one counts.
    [[nodiscard]] std::optional<std::string_view> value(const OptionSpec& option, std::size_t index = 0) const;

    /// The values of a repeatable option, in the order given.
    [[nodiscard]] std::vector<std::string_view> values(const OptionSpec& option) const;

    [[nodiscard]] std::span<const std::string_view> positionals() const { return positionals_; }

    void addOption(const OptionSpec& option, std::vector<std::string_view> values);
    void addPositional(std::string_view text) { positionals_.push_back(text); }

    /// The option given earlier that excludes this one, or null.
    [[nodiscard]] const OptionSpec* rivalOf(const OptionSpec& option) const;

private:
    struct Given {
        const OptionSpec* option;
        std::vector<std::string_view> values;
    };
    [[nodiscard]] const Given* find(const OptionSpec& option) const;

    std::vector<Given> options_;
    std::vector<std::string_view> positionals_;
};

/// A command line taken apart. With `error` set it is wrong usage, and the rest says how far it was understood.
struct CommandLine {
    std::string_view topic;               ///< the command word; empty when there is none
    const CommandSpec* command = nullptr; ///< null: no command, or only a topic
    Arguments arguments;
    std::string error; ///< what is wrong, for a person; empty: nothing
};

/// Takes a command line apart by the command table. Parsing ends at --help, so that help is given for what stands
/// before it.
[[nodiscard]] CommandLine parseCommandLine(std::span<const std::string_view> words);

/// The number in a text that was accepted as a number or an id.
[[nodiscard]] std::uint32_t numberOf(std::string_view text);

/// The number of a choice in a text that was accepted as `ValueKind::numbered`.
[[nodiscard]] std::uint16_t choiceOf(std::string_view text, std::string_view choices);

} // namespace hourwright::cli
