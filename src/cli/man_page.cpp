#include "cli/man_page.h"

#include "cli/command_table.h"
#include "cli/help.h"
#include "cli/joined.h"

namespace hourwright::cli {

namespace {

// Text as troff shows it: hyphens that are minus signs, backslashes, and no control character at the line's begin.
std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '-')
            out += "\\-";
        else if (c == '\\')
            out += "\\e";
        else if (c == '"')
            out += "\\(dq";
        else
            out += c;
    }
    return out.starts_with('.') || out.starts_with('\'') ? joined({"\\&", out}) : out;
}

void appendItem(std::string& out, std::string_view name, std::string_view meaning) {
    out += joined({".TP\n.B ", escaped(name), "\n", escaped(meaning), "\n"});
}

void appendOptions(std::string& out, const OptionGroup& group) {
    for (const OptionSpec* option : group.options)
        appendItem(out, optionUsage(*option), optionHelp(option->help, option->choices));
}

void appendCommand(std::string& out, const CommandSpec& command) {
    out += joined({".PP\n.B ", escaped(usageOf(command)), "\n.RS\n", escaped(command.summary), "\n"});
    for (const ArgumentSpec& argument : command.arguments)
        appendItem(out, argument.name, optionHelp(argument.help, argument.choices));
    for (const OptionGroup* group : groupsOf(command))
        appendOptions(out, *group);
    out += ".RE\n";
}

std::string commandSections() {
    std::string out;
    for (const TopicSpec& topic : topics()) {
        out += joined({".SS ", escaped(topic.name), ": ", escaped(topic.summary), "\n"});
        for (const CommandSpec& command : commandsOf(topic.name))
            appendCommand(out, command);
    }
    return out;
}

void replace(std::string& text, std::string_view place, std::string_view by) {
    for (auto at = text.find(place); at != std::string::npos; at = text.find(place, at + by.size()))
        text.replace(at, place.size(), by);
}

} // namespace

std::string manPage(std::string_view pageTemplate, std::string_view version) {
    std::string page(pageTemplate);
    std::string globals;
    appendOptions(globals, globalOptions());
    replace(page, "@GLOBAL_OPTIONS@\n", globals);
    replace(page, "@COMMANDS@\n", commandSections());
    replace(page, "@VERSION@", version);
    return page;
}

} // namespace hourwright::cli
