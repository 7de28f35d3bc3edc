#pragma once

#include "cli/command_table.h"

/// The commands' own code, one function a row of the command table and one source file a topic.
namespace hourwright::cli {

ExitCode entryAdd(Session& session, const Arguments& arguments);
ExitCode entryEdit(Session& session, const Arguments& arguments);
ExitCode entryShow(Session& session, const Arguments& arguments);
ExitCode entryList(Session& session, const Arguments& arguments);
ExitCode entryDelete(Session& session, const Arguments& arguments);
ExitCode entryCopy(Session& session, const Arguments& arguments);
ExitCode entryToggleBilled(Session& session, const Arguments& arguments);
ExitCode entryPay(Session& session, const Arguments& arguments);
ExitCode entryUnpay(Session& session, const Arguments& arguments);

ExitCode expenseAdd(Session& session, const Arguments& arguments);
ExitCode expenseEdit(Session& session, const Arguments& arguments);
ExitCode expenseShow(Session& session, const Arguments& arguments);
ExitCode expenseList(Session& session, const Arguments& arguments);
ExitCode expenseDelete(Session& session, const Arguments& arguments);

ExitCode periodDay(Session& session, const Arguments& arguments);
ExitCode periodWeek(Session& session, const Arguments& arguments);
ExitCode periodMonth(Session& session, const Arguments& arguments);
ExitCode periodCustom(Session& session, const Arguments& arguments);

ExitCode timerList(Session& session, const Arguments& arguments);
ExitCode timerAdd(Session& session, const Arguments& arguments);
ExitCode timerPause(Session& session, const Arguments& arguments);
ExitCode timerResume(Session& session, const Arguments& arguments);
ExitCode timerEdit(Session& session, const Arguments& arguments);
ExitCode timerComplete(Session& session, const Arguments& arguments);
ExitCode timerCancel(Session& session, const Arguments& arguments);

ExitCode clientAdd(Session& session, const Arguments& arguments);
ExitCode clientList(Session& session, const Arguments& arguments);
ExitCode clientTree(Session& session, const Arguments& arguments);
ExitCode clientDelete(Session& session, const Arguments& arguments);

ExitCode projectAdd(Session& session, const Arguments& arguments);
ExitCode projectDelete(Session& session, const Arguments& arguments);

ExitCode taskAdd(Session& session, const Arguments& arguments);
ExitCode taskDelete(Session& session, const Arguments& arguments);

ExitCode contactAdd(Session& session, const Arguments& arguments);
ExitCode contactDelete(Session& session, const Arguments& arguments);

ExitCode rateAdd(Session& session, const Arguments& arguments);
ExitCode rateList(Session& session, const Arguments& arguments);
ExitCode rateEdit(Session& session, const Arguments& arguments);
ExitCode rateDelete(Session& session, const Arguments& arguments);

/// Prints names of the client structure for completion, one a line.
ExitCode names(Session& session, const Arguments& arguments);

ExitCode picklistShow(Session& session, const Arguments& arguments);

ExitCode filterShow(Session& session, const Arguments& arguments);
ExitCode filterSet(Session& session, const Arguments& arguments);
ExitCode filterClear(Session& session, const Arguments& arguments);

ExitCode settingsList(Session& session, const Arguments& arguments);
ExitCode settingsGet(Session& session, const Arguments& arguments);
ExitCode settingsSet(Session& session, const Arguments& arguments);

ExitCode registryDump(Session& session, const Arguments& arguments);
ExitCode registryGet(Session& session, const Arguments& arguments);
ExitCode registrySet(Session& session, const Arguments& arguments);
ExitCode registryDelete(Session& session, const Arguments& arguments);
ExitCode registryDeleteKey(Session& session, const Arguments& arguments);

ExitCode exportCsv(Session& session, const Arguments& arguments);
ExitCode exportExpenses(Session& session, const Arguments& arguments);
ExitCode exportXml(Session& session, const Arguments& arguments);
ExitCode exportSpreadsheet(Session& session, const Arguments& arguments);
ExitCode exportExpenseSpreadsheet(Session& session, const Arguments& arguments);
ExitCode exportJson(Session& session, const Arguments& arguments);
ExitCode exportExpenseJson(Session& session, const Arguments& arguments);
ExitCode exportCalendar(Session& session, const Arguments& arguments);

ExitCode summary(Session& session, const Arguments& arguments);

ExitCode bulkMarkPaid(Session& session, const Arguments& arguments);
ExitCode bulkMarkBilled(Session& session, const Arguments& arguments);
ExitCode bulkDelete(Session& session, const Arguments& arguments);
ExitCode bulkReplace(Session& session, const Arguments& arguments);

ExitCode undo(Session& session, const Arguments& arguments);
ExitCode redo(Session& session, const Arguments& arguments);
ExitCode history(Session& session, const Arguments& arguments);

ExitCode storeDatabases(Session& session, const Arguments& arguments);
ExitCode storeDump(Session& session, const Arguments& arguments);
ExitCode storeWrite(Session& session, const Arguments& arguments);
ExitCode storeDelete(Session& session, const Arguments& arguments);
ExitCode storeCheck(Session& session, const Arguments& arguments);
ExitCode storeCopy(Session& session, const Arguments& arguments);
ExitCode storeCopies(Session& session, const Arguments& arguments);
ExitCode storeRestore(Session& session, const Arguments& arguments);

ExitCode wipeAll(Session& session, const Arguments& arguments);
ExitCode wipeStructure(Session& session, const Arguments& arguments);

ExitCode demo(Session& session, const Arguments& arguments);

} // namespace hourwright::cli
