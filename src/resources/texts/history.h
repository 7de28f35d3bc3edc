#pragma once

#include "resources/text.h"

/// Names of changes, as the history and the "Undo" menu show them, and the window of the history.
namespace hourwright::resources::history {

inline constexpr Text addEntry{11600, u"Add Entry"};
inline constexpr Text editEntry{11601, u"Edit Entry"};
inline constexpr Text deleteEntries{11602, u"Delete Entries"};
inline constexpr Text copyEntry{11603, u"Copy Entry"};
inline constexpr Text toggleBilled{11604, u"Mark Billed or Unbilled"};
inline constexpr Text markPaid{11605, u"Mark Paid"};
inline constexpr Text markUnpaid{11606, u"Mark Unpaid"};
inline constexpr Text markBilled{11607, u"Mark Billed"};
inline constexpr Text deleteByCriteria{11608, u"Delete by Criteria"};
inline constexpr Text replaceText{11609, u"Replace Text"};
inline constexpr Text addExpense{11610, u"Add Expense"};
inline constexpr Text editExpense{11611, u"Edit Expense"};
inline constexpr Text deleteExpenses{11612, u"Delete Expenses"};
inline constexpr Text addClient{11613, u"Add Client"};
inline constexpr Text addProject{11614, u"Add Project"};
inline constexpr Text addTask{11615, u"Add Task"};
inline constexpr Text addContact{11616, u"Add Contact"};
inline constexpr Text addRate{11617, u"Add Rate"};
inline constexpr Text editRate{11618, u"Edit Rate"};
inline constexpr Text deleteRate{11619, u"Delete Rate"};
inline constexpr Text deleteClient{11620, u"Delete Client"};
inline constexpr Text deleteProject{11621, u"Delete Project"};
inline constexpr Text deleteTask{11622, u"Delete Task"};
inline constexpr Text deleteContact{11623, u"Delete Contact"};
inline constexpr Text writeRecord{11624, u"Write Record"};
inline constexpr Text deleteRecord{11625, u"Delete Record"};

inline constexpr Text title{11640, u"History"};
inline constexpr Text steps{11641, u"&Changes, the newest first:"};
inline constexpr Text when{11642, u"When"};
inline constexpr Text change{11643, u"Change"};
inline constexpr Text records{11644, u"Records"};
inline constexpr Text state{11645, u"State"};
inline constexpr Text isUndone{11646, u"undone"};
inline constexpr Text undoToHere{11647, u"&Undo Up to Here"};
inline constexpr Text redoToHere{11648, u"&Redo Up to Here"};
inline constexpr Text empty{11649, u"Nothing was changed yet that could be undone."};

} // namespace hourwright::resources::history
