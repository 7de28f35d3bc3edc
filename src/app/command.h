#pragma once

#include "app/view_state.h"
#include "resources/text.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace hourwright::app {

/// Everything that the main window can be told to do.
enum class Command : std::uint8_t {
    newEntry,
    newGeneralExpense,
    newMileageExpense,
    edit,
    createCopy,
    copyTo,
    createNewTimer,
    markBilled,
    markPaid,
    deleteSelected,
    selectionSummary,
    quit,

    undo,
    redo,
    history,
    copyText,
    selectAll,
    find,

    viewDay,
    viewWeek,
    viewMonth,
    viewCustom,
    calendarStyle,
    defaultListStyle,
    simpleListStyle,
    treeListStyle,
    customize,
    customizeDefaultView,
    switchRecords,
    previousPeriod,
    nextPeriod,
    gotoToday,
    gotoDate,

    filterAll,
    filterUnpaid,
    filterCustom,

    arrange0,
    arrange1,
    arrange2,
    arrange3,
    arrange4,
    arrange5,
    arrange6,
    arrange7,
    arrange8,

    timers,
    quickSummary,
    breakdown,
    clientSummary,
    exportCsv,
    exportXml,
    exportMore,
    markBilledEntries,
    markPaidEntries,
    markViewPaid,
    deleteByCriteria,
    editDropLists,
    replaceFieldText,
    copies,
    removeAllData,
    setupClients,
    setupRates,
    options,

    help,
    about,
};

/// The menus, in the order of the menu bar; those with a parent are submenus.
enum class Menu : std::uint8_t { entry, edit, view, filter, arrangeBy, tools, exportTo, data, help };

struct MenuRow {
    Menu menu;
    resources::Text title;
    Menu parent; ///< itself: in the bar
};

/// One command: where it stands, its text and its shortcut ("Ctrl+N"; "" none; several with blanks between, the first
/// of which is shown). Rows stand in the order of their menus' items.
struct CommandRow {
    Command command;
    Menu menu;
    resources::Text text;
    std::string_view shortcut;
    bool separatorBefore = false;
};

[[nodiscard]] std::span<const MenuRow> menuTable();
[[nodiscard]] std::span<const CommandRow> commandTable();

/// How a command looks in its menu now.
struct CommandState {
    bool visible = true;
    bool enabled = true;
    bool checkable = false;
    bool checked = false;
    std::u16string text; ///< with "&" and places filled in

    friend bool operator==(const CommandState&, const CommandState&) = default;
};

[[nodiscard]] CommandState commandState(Command command, const ViewState& state);

/// The text of an "Arrange By" item of the records shown; empty when there is no such choice.
[[nodiscard]] std::u16string arrangeText(std::size_t choice, const ViewState& state);

} // namespace hourwright::app
