#pragma once

#include "cli/command_table.h"

#include <string>
#include <string_view>
#include <vector>

/// What the completion scripts of all shells are made from.
namespace hourwright::cli {

/// What completion offers for a value.
struct Offer {
    ValueKind kind;
    std::string_view choices;
};

[[nodiscard]] Offer offerOf(const OptionSpec& option);
[[nodiscard]] Offer offerOf(const ArgumentSpec& argument);

/// The kind of names to ask the program for; empty for other values.
[[nodiscard]] std::string_view namesOf(ValueKind kind);

/// Choices with a blank in place of each '|'.
[[nodiscard]] std::string spaced(std::string_view choices);

/// The options of all groups of a command.
[[nodiscard]] std::vector<const OptionSpec*> optionsOf(const CommandSpec& command);

/// The options that the word behind them belongs to, separated by '|'.
[[nodiscard]] std::string optionsWithValue();

/// Puts a text in the first place of this name.
void fill(std::string& text, std::string_view place, std::string_view by);

} // namespace hourwright::cli
