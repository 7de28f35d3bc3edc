#include "cli/help.h"
#include "cli/joined.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

constexpr std::string_view generalUsage = "hwctl [GLOBAL OPTIONS] COMMAND [SUBCOMMAND] [ARGUMENTS] [OPTIONS]";
constexpr std::size_t helpColumn = 28;

std::string argumentUsage(const ArgumentSpec& argument) {
    std::string text(argument.name);
    if (argument.repeated)
        text += "...";
    return argument.required ? text : joined({"[", text, "]"});
}

std::string groupUsage(const OptionGroup& group) {
    if (!group.name.empty())
        return joined({" [", group.name, "]"});
    std::string text;
    for (const OptionSpec* option : group.options)
        text += joined({" [", optionUsage(*option), "]"});
    return text;
}

std::string topicUsage(std::string_view topic) {
    return joined({"hwctl ", topic, " SUBCOMMAND [ARGUMENTS] [OPTIONS]"});
}

// A name and what it means, the meaning on the next line when the name is long.
void appendRow(std::string& out, std::string_view name, std::string_view meaning) {
    out += "  ";
    out += name;
    if (name.size() + 2 < helpColumn)
        out.append(helpColumn - 2 - name.size(), ' ');
    else
        out += '\n' + std::string(helpColumn, ' ');
    out += meaning;
    out += '\n';
}

void appendGroup(std::string& out, const OptionGroup& group) {
    out += '\n';
    out += group.title.empty() ? "Options" : group.title;
    out += ":\n";
    for (const OptionSpec* option : group.options)
        appendRow(out, optionUsage(*option), optionHelp(option->help, option->choices));
}

void appendArguments(std::string& out, const CommandSpec& command) {
    if (command.arguments.empty())
        return;
    out += "\nArguments:\n";
    for (const ArgumentSpec& argument : command.arguments)
        appendRow(out, argument.name, optionHelp(argument.help, argument.choices));
}

std::string generalHelp() {
    std::string out = joined({"Usage: ", generalUsage, "\n\nCommands:\n"});
    for (const TopicSpec& topic : topics())
        appendRow(out, topic.name, topic.summary);
    appendGroup(out, globalOptions());
    out += "\n'hwctl COMMAND --help' explains a command, 'man hwctl' everything.\n";
    return out;
}

std::string topicHelp(std::string_view name) {
    const auto topic = std::ranges::find(topics(), name, &TopicSpec::name);
    std::string out = joined({"Usage: ", topicUsage(name), "\n\n", topic->summary, "\n\nSubcommands:\n"});
    for (const CommandSpec& command : commandsOf(name))
        appendRow(out, command.subcommand, command.summary);
    out += joined({"\n'hwctl ", name, " SUBCOMMAND --help' explains a subcommand.\n"});
    return out;
}

std::string commandHelp(const CommandSpec& command) {
    std::string out = joined({"Usage: ", usageOf(command), "\n\n", command.summary, "\n"});
    appendArguments(out, command);
    for (const OptionGroup* group : groupsOf(command))
        appendGroup(out, *group);
    appendGroup(out, globalOptions());
    return out;
}

} // namespace

std::string optionUsage(const OptionSpec& option) {
    std::string text(option.name);
    if (option.arity == Arity::optional)
        text += joined({" [", option.value, "]"});
    else if (!option.value.empty())
        text += joined({" ", option.value});
    return text;
}

std::string optionHelp(std::string_view help, std::string_view choices) {
    std::string text(help);
    if (choices.empty())
        return text;
    std::string_view separator = ": ";
    forEachChoice(choices, [&](std::string_view choice) {
        text += separator;
        text += choice;
        separator = ", ";
    });
    return text;
}

std::string usageOf(const CommandSpec& command) {
    std::string text = joined({"hwctl ", command.name});
    if (!command.subcommand.empty())
        text += joined({" ", command.subcommand});
    for (const ArgumentSpec& argument : command.arguments)
        text += joined({" ", argumentUsage(argument)});
    for (const OptionGroup* group : groupsOf(command))
        text += groupUsage(*group);
    return text;
}

std::string helpText(const CommandLine& line) {
    if (line.command)
        return commandHelp(*line.command);
    return line.topic.empty() ? generalHelp() : topicHelp(line.topic);
}

std::string usageError(const CommandLine& line) {
    std::string usage(generalUsage);
    if (line.command)
        usage = usageOf(*line.command);
    else if (!line.topic.empty())
        usage = topicUsage(line.topic);
    return joined({"hwctl: ", line.error, "\nUsage: ", usage, "\n"});
}

} // namespace hourwright::cli
