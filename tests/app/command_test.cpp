#include "app/command.h"

#include <gtest/gtest.h>
#include <set>

namespace hourwright::app {

namespace {

// Every command stands in a menu once, and no shortcut is given twice.
TEST(Commands, StandInTheTableOnce) {
    std::set<Command> commands;
    std::set<std::string_view> shortcuts;
    for (const CommandRow& row : commandTable()) {
        EXPECT_TRUE(commands.insert(row.command).second) << static_cast<int>(row.command);
        EXPECT_TRUE(row.shortcut.empty() || shortcuts.insert(row.shortcut).second) << row.shortcut;
    }
    EXPECT_EQ(commands.size(), static_cast<std::size_t>(Command::about) + 1);
}

TEST(Commands, FollowTheView) {
    struct Row {
        const char* name;
        Command command;
        ViewState state;
        CommandState expected;
    };
    const ViewState week{.shown = 3};
    ViewState one = week;
    one.selected = 1;
    ViewState two = week;
    two.selected = 2;
    ViewState expenses = two;
    expenses.records = RecordKind::expenses;
    ViewState custom = week;
    custom.period = PeriodKind::custom;
    ViewState undo = week;
    undo.undoName = u"Add Entry";
    ViewState timers = week;
    timers.timersInUse = 3;
    ViewState allTimers = one;
    allTimers.timersInUse = 4;
    ViewState labels = week;
    labels.customLabels = {u"Order", u"R&D", u""};
    labels.arrangedBy = 6;
    ViewState unpaid = week;
    unpaid.filterActive = true;
    unpaid.filterUnpaidOnly = true;
    const Row rows[] = {
        {"edit needs one", Command::edit, two, {.enabled = false, .text = u"&Edit..."}},
        {"edit", Command::edit, one, {.text = u"&Edit..."}},
        {"delete takes several", Command::deleteSelected, two, {.text = u"&Delete"}},
        {"delete needs some", Command::deleteSelected, week, {.enabled = false, .text = u"&Delete"}},
        {"no timer from an expense",
         Command::createNewTimer,
         expenses,
         {.visible = false, .enabled = false, .text = u"Create Ne&w Timer..."}},
        {"a timer", Command::createNewTimer, one, {.text = u"Create Ne&w Timer..."}},
        {"no fifth timer", Command::createNewTimer, allTimers, {.enabled = false, .text = u"Create Ne&w Timer..."}},
        {"week", Command::viewWeek, week, {.checkable = true, .checked = true, .text = u"&Week"}},
        {"next", Command::nextPeriod, week, {.text = u"&Next Period"}},
        {"a custom period stays", Command::nextPeriod, custom, {.enabled = false, .text = u"&Next Period"}},
        {"no calendar of a custom period",
         Command::calendarStyle,
         custom,
         {.enabled = false, .checkable = true, .text = u"&Calendar"}},
        {"nothing to undo", Command::undo, week, {.enabled = false, .text = u"&Undo"}},
        {"undo", Command::undo, undo, {.text = u"&Undo Add Entry"}},
        {"timers", Command::timers, timers, {.text = u"Timers... (3)"}},
        {"by a custom field", Command::arrange6, labels, {.checkable = true, .checked = true, .text = u"Order"}},
        {"a caption with an ampersand", Command::arrange7, labels, {.checkable = true, .text = u"R&&D"}},
        {"no ninth choice of expenses", Command::arrange8, expenses, {.visible = false, .checkable = true}},
        {"expenses by category", Command::arrange3, expenses, {.checkable = true, .text = u"C&ategory"}},
        {"everything is shown", Command::filterAll, week, {.checkable = true, .checked = true, .text = u"Show &All"}},
        {"unpaid only",
         Command::filterUnpaid,
         unpaid,
         {.checkable = true, .checked = true, .text = u"Show &Unpaid Only"}},
        {"not custom then", Command::filterCustom, unpaid, {.checkable = true, .text = u"&Custom..."}},
        {"back to entries", Command::switchRecords, expenses, {.text = u"Show Time &Entries"}},
    };
    for (const Row& row : rows) {
        const CommandState state = commandState(row.command, row.state);
        EXPECT_EQ(state.visible, row.expected.visible) << row.name;
        EXPECT_EQ(state.enabled, row.expected.enabled) << row.name;
        EXPECT_EQ(state.checkable, row.expected.checkable) << row.name;
        EXPECT_EQ(state.checked, row.expected.checked) << row.name;
        EXPECT_EQ(state.text, row.expected.text) << row.name;
    }
}

} // namespace

} // namespace hourwright::app
