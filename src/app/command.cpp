#include "app/command.h"

#include "app/arrange.h"
#include "billing/timer_set.h"
#include "platform/message_box.h"
#include "resources/strings.h"
#include "resources/texts/menus.h"

#include <array>

namespace hourwright::app {

namespace {

namespace menus = resources::menus;

// The count of timers is filled in by `commandState`; the number is that of the string it is made from.
constexpr resources::Text timersText{number(resources::StringId::timersCount), u""};

constexpr std::array menuRows = {
    MenuRow{Menu::entry, menus::entry, Menu::entry},
    MenuRow{Menu::edit, menus::edit, Menu::edit},
    MenuRow{Menu::view, menus::view, Menu::view},
    MenuRow{Menu::filter, menus::filter, Menu::filter},
    MenuRow{Menu::arrangeBy, menus::arrangeBy, Menu::arrangeBy},
    MenuRow{Menu::tools, menus::tools, Menu::tools},
    MenuRow{Menu::exportTo, menus::exportTo, Menu::tools},
    MenuRow{Menu::data, menus::data, Menu::tools},
    MenuRow{Menu::help, menus::help, Menu::help},
};

constexpr std::array commandRows = {
    CommandRow{Command::newEntry, Menu::entry, menus::newEntry, "Ctrl+N"},
    CommandRow{Command::newGeneralExpense, Menu::entry, menus::newGeneralExpense, "Ctrl+Shift+N"},
    CommandRow{Command::newMileageExpense, Menu::entry, menus::newMileageExpense, "Ctrl+Shift+M"},
    CommandRow{Command::edit, Menu::entry, menus::editEntry, "Ctrl+O", true},
    CommandRow{Command::createCopy, Menu::entry, menus::createCopy, "Ctrl+D"},
    CommandRow{Command::copyTo, Menu::entry, menus::copyTo, "Ctrl+Shift+D"},
    CommandRow{Command::createNewTimer, Menu::entry, menus::createNewTimer, "Ctrl+Shift+T"},
    CommandRow{Command::markBilled, Menu::entry, menus::markBilled, "Ctrl+B", true},
    CommandRow{Command::markPaid, Menu::entry, menus::markPaid, "Ctrl+P"},
    CommandRow{Command::deleteSelected, Menu::entry, menus::deleteSelected, "Del"},
    CommandRow{Command::selectionSummary, Menu::entry, menus::selectionSummary, "Ctrl+I", true},
    CommandRow{Command::quit, Menu::entry, menus::quit, "Ctrl+Q", true},

    CommandRow{Command::undo, Menu::edit, menus::undo, "Ctrl+Z"},
    CommandRow{Command::redo, Menu::edit, menus::redo, "Ctrl+Shift+Z Ctrl+Y"},
    CommandRow{Command::history, Menu::edit, menus::history, ""},
    CommandRow{Command::copyText, Menu::edit, menus::copyText, "Ctrl+C", true},
    CommandRow{Command::selectAll, Menu::edit, menus::selectAll, "Ctrl+A"},
    CommandRow{Command::find, Menu::edit, menus::find, "Ctrl+F"},

    CommandRow{Command::viewDay, Menu::view, menus::viewDay, "Ctrl+1"},
    CommandRow{Command::viewWeek, Menu::view, menus::viewWeek, "Ctrl+2"},
    CommandRow{Command::viewMonth, Menu::view, menus::viewMonth, "Ctrl+3"},
    CommandRow{Command::viewCustom, Menu::view, menus::viewCustom, "Ctrl+4"},
    CommandRow{Command::calendarStyle, Menu::view, menus::calendarStyle, "Ctrl+5", true},
    CommandRow{Command::defaultListStyle, Menu::view, menus::defaultListStyle, "Ctrl+6"},
    CommandRow{Command::simpleListStyle, Menu::view, menus::simpleListStyle, "Ctrl+7"},
    CommandRow{Command::treeListStyle, Menu::view, menus::treeListStyle, "Ctrl+8"},
    CommandRow{Command::customize, Menu::view, menus::customize, ""},
    CommandRow{Command::customizeDefaultView, Menu::view, menus::customizeDefaultView, ""},
    CommandRow{Command::switchRecords, Menu::view, menus::showExpenses, "Ctrl+E", true},
    CommandRow{Command::previousPeriod, Menu::view, menus::previousPeriod, "Alt+Left", true},
    CommandRow{Command::nextPeriod, Menu::view, menus::nextPeriod, "Alt+Right"},
    CommandRow{Command::gotoToday, Menu::view, menus::gotoToday, "Alt+Home"},
    CommandRow{Command::gotoDate, Menu::view, menus::gotoDate, "Ctrl+G"},

    CommandRow{Command::filterAll, Menu::filter, menus::filterAll, "Ctrl+Shift+A"},
    CommandRow{Command::filterUnpaid, Menu::filter, menus::filterUnpaid, "Ctrl+Shift+U"},
    CommandRow{Command::filterCustom, Menu::filter, menus::filterCustom, "Ctrl+Shift+F"},

    CommandRow{Command::arrange0, Menu::arrangeBy, menus::arrangeDefault, ""},
    CommandRow{Command::arrange1, Menu::arrangeBy, menus::arrangeClient, ""},
    CommandRow{Command::arrange2, Menu::arrangeBy, menus::arrangeProject, ""},
    CommandRow{Command::arrange3, Menu::arrangeBy, menus::arrangePhase, ""},
    CommandRow{Command::arrange4, Menu::arrangeBy, menus::arrangeTask, ""},
    CommandRow{Command::arrange5, Menu::arrangeBy, menus::arrangeBillTo, ""},
    CommandRow{Command::arrange6, Menu::arrangeBy, menus::arrangeDefault, ""},
    CommandRow{Command::arrange7, Menu::arrangeBy, menus::arrangeDefault, ""},
    CommandRow{Command::arrange8, Menu::arrangeBy, menus::arrangeDefault, ""},

    CommandRow{Command::timers, Menu::tools, timersText, "Ctrl+T"},
    CommandRow{Command::quickSummary, Menu::tools, menus::quickSummary, "Ctrl+U", true},
    CommandRow{Command::breakdown, Menu::tools, menus::breakdown, "Ctrl+Shift+I"},
    CommandRow{Command::clientSummary, Menu::tools, menus::clientSummary, ""},
    CommandRow{Command::exportCsv, Menu::exportTo, menus::exportCsv, "Ctrl+Shift+E"},
    CommandRow{Command::exportXml, Menu::exportTo, menus::exportXml, "Ctrl+Shift+X"},
    CommandRow{Command::exportMore, Menu::exportTo, menus::exportMore, "", true},
    CommandRow{Command::markBilledEntries, Menu::data, menus::markBilledEntries, ""},
    CommandRow{Command::markPaidEntries, Menu::data, menus::markPaidEntries, ""},
    CommandRow{Command::markViewPaid, Menu::data, menus::markViewPaid, ""},
    CommandRow{Command::deleteByCriteria, Menu::data, menus::deleteByCriteria, ""},
    CommandRow{Command::editDropLists, Menu::data, menus::editDropLists, "", true},
    CommandRow{Command::replaceFieldText, Menu::data, menus::replaceFieldText, ""},
    CommandRow{Command::copies, Menu::data, menus::copies, "", true},
    CommandRow{Command::removeAllData, Menu::data, menus::removeAllData, "", true},
    CommandRow{Command::setupClients, Menu::tools, menus::setupClients, "Ctrl+L", true},
    CommandRow{Command::setupRates, Menu::tools, menus::setupRates, "Ctrl+R"},
    CommandRow{Command::options, Menu::tools, menus::options, "Ctrl+,", true},

    CommandRow{Command::help, Menu::help, menus::helpContents, "F1"},
    CommandRow{Command::about, Menu::help, menus::about, ""},
};

CommandState plain(const resources::Text& text) {
    return {.text = std::u16string(text.text)};
}

CommandState choice(const resources::Text& text, bool checked) {
    return {.checkable = true, .checked = checked, .text = std::u16string(text.text)};
}

CommandState enabledWhen(const resources::Text& text, bool enabled) {
    return {.enabled = enabled, .text = std::u16string(text.text)};
}

CommandState forEntriesOnly(const resources::Text& text, const ViewState& state, bool enabled = true) {
    return {.visible = state.records == RecordKind::entries, .enabled = enabled, .text = std::u16string(text.text)};
}

// A text of the user's for a menu: "&" in it is no mnemonic.
std::u16string withoutMnemonic(std::u16string text) {
    for (std::size_t at = text.find(u'&'); at != text.npos; at = text.find(u'&', at + 2))
        text.insert(at, 1, u'&');
    return text;
}

CommandState withName(const resources::Text& text, const std::u16string& name) {
    CommandState state = enabledWhen(text, !name.empty());
    if (!name.empty())
        state.text += u' ' + name;
    return state;
}

CommandState arrangeState(std::size_t index, const ViewState& state) {
    CommandState result{.checkable = true, .checked = state.arrangedBy == index, .text = arrangeText(index, state)};
    result.visible = !result.text.empty();
    return result;
}

CommandState timersState(const ViewState& state) {
    return {.text =
                platform::withNumber(resources::StringId::timersCount, static_cast<std::int32_t>(state.timersInUse))};
}

const resources::Text& textOf(Command command) {
    for (const CommandRow& row : commandRows)
        if (row.command == command)
            return row.text;
    return commandRows.front().text;
}

CommandState selectionState(Command command, const ViewState& state) {
    const auto& text = textOf(command);
    switch (command) {
    case Command::edit:
    case Command::createCopy: return enabledWhen(text, state.selected == 1);
    case Command::createNewTimer:
        return forEntriesOnly(text, state, state.selected == 1 && state.timersInUse < billing::TimerSet::slotCount);
    case Command::copyTo:
    case Command::selectionSummary: return forEntriesOnly(text, state, state.selected == 1);
    default: return enabledWhen(text, state.selected > 0);
    }
}

CommandState viewCommandState(Command command, const ViewState& state) {
    const auto& text = textOf(command);
    const bool list = state.presentation == Presentation::list;
    switch (command) {
    case Command::viewDay: return choice(text, state.period == PeriodKind::day);
    case Command::viewWeek: return choice(text, state.period == PeriodKind::week);
    case Command::viewMonth: return choice(text, state.period == PeriodKind::month);
    case Command::viewCustom: return choice(text, state.period == PeriodKind::custom);
    case Command::calendarStyle: {
        CommandState result = choice(text, !list);
        result.enabled = state.records == RecordKind::entries && state.period != PeriodKind::custom;
        return result;
    }
    case Command::defaultListStyle: return choice(text, list && state.listStyle == ListStyle::standard);
    case Command::simpleListStyle: return choice(text, list && state.listStyle == ListStyle::simple);
    case Command::treeListStyle: return choice(text, list && state.listStyle == ListStyle::tree);
    case Command::switchRecords:
        return plain(state.records == RecordKind::entries ? menus::showExpenses : menus::showEntries);
    default: return enabledWhen(text, state.period != PeriodKind::custom); // moving through time
    }
}

} // namespace

std::span<const MenuRow> menuTable() {
    return menuRows;
}

std::span<const CommandRow> commandTable() {
    return commandRows;
}

std::u16string arrangeText(std::size_t index, const ViewState& state) {
    struct Choices {
        std::array<resources::Text, 6> fixed;
        std::size_t fixedCount;
        std::size_t count;
    };
    static constexpr Choices ofEntries{{menus::arrangeDefault, menus::arrangeClient, menus::arrangeProject,
                                        menus::arrangePhase, menus::arrangeTask, menus::arrangeBillTo},
                                       6,
                                       entryArrangements.size()};
    static constexpr Choices ofExpenses{{menus::arrangeDefault, menus::arrangeClient, menus::arrangeProject,
                                         menus::arrangeCategory, menus::arrangeDescription, menus::arrangeBillTo},
                                        6,
                                        expenseArrangements.size()};
    const Choices& choices = state.records == RecordKind::entries ? ofEntries : ofExpenses;
    if (index < choices.fixedCount)
        return std::u16string(choices.fixed[index].text);
    return index < choices.count ? withoutMnemonic(state.customLabels[index - choices.fixedCount]) : std::u16string();
}

CommandState commandState(Command command, const ViewState& state) {
    const auto& text = textOf(command);
    if (command >= Command::arrange0 && command <= Command::arrange8)
        return arrangeState(static_cast<std::size_t>(command) - static_cast<std::size_t>(Command::arrange0), state);
    if ((command >= Command::edit && command <= Command::selectionSummary) || command == Command::copyText)
        return selectionState(command, state);
    if ((command >= Command::viewDay && command <= Command::treeListStyle) || command == Command::switchRecords ||
        (command >= Command::previousPeriod && command <= Command::gotoDate))
        return viewCommandState(command, state);
    switch (command) {
    case Command::undo: return withName(text, state.undoName);
    case Command::redo: return withName(text, state.redoName);
    case Command::filterAll: return choice(text, !state.filterActive);
    case Command::filterUnpaid: return choice(text, state.filterUnpaidOnly);
    case Command::filterCustom: return choice(text, state.filterActive && !state.filterUnpaidOnly);
    case Command::selectAll: return enabledWhen(text, state.shown > 0);
    case Command::timers: return timersState(state);
    case Command::markBilledEntries:
    case Command::markPaidEntries:
    case Command::deleteByCriteria:
    case Command::quickSummary: return plain(text);
    case Command::markViewPaid: return forEntriesOnly(text, state, state.shown > 0);
    case Command::exportXml:
    case Command::breakdown: return forEntriesOnly(text, state);
    default: return plain(text);
    }
}

} // namespace hourwright::app
