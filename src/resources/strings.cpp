#include "resources/strings.h"

#include <algorithm>
#include <array>

namespace hourwright::resources {

namespace {

struct Row {
    StringId id;
    std::u16string_view text;
};

// Sorted by number. Spelling and spacing are the program's established wording and stay as they are.
constexpr std::array table = {
    Row{StringId::appTitle, u"Hourwright"},
    Row{StringId::entryTimers, u"Entry Timers"},
    Row{StringId::taskMissing, u"Please enter a task name.  You cannot have a blank Task field."},
    Row{StringId::durationMissing, u"You must enter a duration in hours. (e.g. 1.5, or 0.5)"},
    Row{StringId::numericOnly, u"This field accepts numeric values only."},
    Row{StringId::deleteByCriteria, u"All data within the selected criteria will be permanently deleted.  Tap OK to "
                                    u"delete or Cancel to cancel the operation."},
    Row{StringId::databaseClients, u"Hourwright Clients"},
    Row{StringId::editNotePrompt,
        u"When finished editing and saving the note in Pocket Word, tap OK to update Hourwright."},
    Row{StringId::typeMissing, u"Please select a type."},
    Row{StringId::rateInvalid, u"This is not a valid rate. Rate can have up to 2 decimal places."},
    Row{StringId::rateExists, u"This type of rate with this description already exists for this client. Please either "
                              u"choose a different type or alter the description."},
    Row{StringId::updatingRecords, u"Updating Records. Please Wait..."},
    Row{StringId::databaseData1, u"Hourwright Data 1"},
    Row{StringId::databaseProjects, u"Hourwright Projects"},
    Row{StringId::databaseTasks, u"Hourwright Tasks"},
    Row{StringId::databaseContacts, u"Hourwright Contacts"},
    Row{StringId::databaseRates, u"Hourwright Rates"},
    Row{StringId::databaseData2, u"Hourwright Data 2"},
    Row{StringId::editNote, u"Edit Note"},
    Row{StringId::addTimer, u"Add Timer"},
    Row{StringId::editTimer, u"Edit Timer"},
    Row{StringId::cancelTimer, u"Are you sure to cancel the timer?"},
    Row{StringId::interval10, u"10 minutes"},
    Row{StringId::interval15, u"15 minutes"},
    Row{StringId::interval20, u"20 minutes"},
    Row{StringId::interval30, u"30 minutes"},
    Row{StringId::interval6, u"6 minutes"},
    Row{StringId::closeWithTimers, u"There are timers running. Do you want to cancel the timers and close Hourwright?"},
    Row{StringId::databaseNotOpened, u"Hourwright is unable to open the database!"},
    Row{StringId::noteTooLarge, u"The note is too large. Please remove large voice recordings or drawings."},
    Row{StringId::timerNoteTooLarge,
        u"The note is too large. Please tap on the Note tab to remove large voice recordings or drawings."},
    Row{StringId::paidDateHint, u"Select a custom paid date if desired. The default is today."},
    Row{StringId::databaseExpenses, u"Hourwright Expenses"},
    Row{StringId::rateTypeNormal, u"Normal Rate"},
    Row{StringId::rateTypeOvertime, u"Overtime Rate"},
    Row{StringId::rateTypeWeekend, u"Weekend Rate"},
    Row{StringId::rateTypeFixed, u"Fixed Rate"},
    Row{StringId::rateTypeDiscount, u"Discount Rate"},
    Row{StringId::timersCount, u"Timers... (%d)"},
    Row{StringId::softMenuChanged,
        u"Soft Menu option has changed. Hourwright will close. Please run Hourwright to use the menu."},
    Row{StringId::markAllPaid, u"Do you want to mark all entries paid using the filter from the current view?"},
    Row{StringId::replaceConfirm,
        u"Are you sure to replace the text? Depending of the number of time entries, this may take several minutes."},
    Row{StringId::replaceFindMissing, u"Please select a string to search for."},
    Row{StringId::replaceWithMissing, u"Please enter a string to replace with."},
    Row{StringId::descriptionMissing, u"Please enter a description."},
    Row{StringId::summaryPeriodType, u"Period Type:"},
    Row{StringId::summaryPeriod, u"Period:"},
    Row{StringId::summaryItems, u"Number of Items:"},
    Row{StringId::summaryHours, u"Hours:"},
    Row{StringId::summaryAmount, u"Amount:"},
    Row{StringId::createNewTimer, u"Create New Timer..."},
    Row{StringId::columnEntryDate, u"Entry Date"},
    Row{StringId::columnClient, u"Client"},
    Row{StringId::columnProject, u"Project"},
    Row{StringId::columnPhase, u"Phase"},
    Row{StringId::columnTask, u"Task"},
    Row{StringId::columnDuration, u"Duration"},
    Row{StringId::columnCurrency, u"Currency"},
    Row{StringId::columnStatus, u"Status"},
    Row{StringId::columnRate, u"Rate"},
    Row{StringId::columnStartTime, u"Start Time"},
    Row{StringId::columnBillTo, u"Bill To"},
    Row{StringId::columnCustom1, u"Custom 1"},
    Row{StringId::columnCustom2, u"Custom 2"},
    Row{StringId::columnCustom3, u"Custom 3"},
    Row{StringId::columnRateType, u"Rate Type"},
    Row{StringId::columnAmount, u"Amount"},
    Row{StringId::columnNote, u"Note"},
    Row{StringId::columnEndTime, u"End Time"},
    Row{StringId::breakManually, u"manually"},
    Row{StringId::breakUseTimer, u"Use timer"},
    Row{StringId::error, u"Error: %d"},
    Row{StringId::clientMissing, u"Please enter a client name.  You cannot leave Client field blank."},
    Row{StringId::deleteClient, u"This will also delete all associated projects, tasks, contacts, and rates. However, "
                                u"time entries are preserved. Are you sure?"},
    Row{StringId::deleteProject, u"Are you sure to delete this project and all its tasks?"},
    Row{StringId::exportFailed, u"Export failed. Please make sure there is enough storage space and try agin."},
    Row{StringId::exportNoteFailed,
        u"Export note failed. Please make sure there is enough storage space and try again."},
    Row{StringId::deleteAllData, u"Do you want to delete ALL data?"},
    Row{StringId::deleteStructure, u"Do you want to delete the client structure before importing from file? Time and "
                                   u"expense entries are preserved."},
    Row{StringId::databaseNotLoaded, u"Unable to load database."},
    Row{StringId::customRate, u"(Custom Rate)"},
    Row{StringId::defaultRates, u"(Default Rates)"},
    Row{StringId::statusNonBillable, u"Non Billable"},
    Row{StringId::statusBillable, u"Billable"},
    Row{StringId::statusBilled, u"Billed"},
    Row{StringId::statusPaid, u"Paid"},
    Row{StringId::csvTimeHeader, u"\"Date\",\"Client\",\"Project\",\"Phase\",\"Task\",\"Start\",\"Duration(h)\","
                                 u"\"Status\",\"Currency\",\"Rate\",\"Rate Type\",\"Amount\",\"Bill To\",\""},
    Row{StringId::csvTimeHeaderEnd, u"Note\",\"End Time\",\"Paid Date\",\"Break Time\""},
    Row{StringId::csvMileageHeader,
        u"\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Start "
        u"Odo\",\"Distance\",\"Receipt\",\"Currency\",\"Amount\",\"Status\",\"Paid Date\",\"Bill To\",\""},
    Row{StringId::csvGeneralHeader, u"\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Category\","
                                    u"\"Receipt\",\"Currency\",\"Amount\",\"Status\",\"Paid Date\",\"Bill To\",\""},
    Row{StringId::csvExpenseHeaderEnd, u"Note\""},
    Row{StringId::expenseGeneral, u"General"},
    Row{StringId::expenseMileage, u"Mileage"},
    Row{StringId::expenseHasReceipt, u"Yes"},
    Row{StringId::expenseDate, u"Date"},
    Row{StringId::expenseType, u"Type"},
    Row{StringId::expenseDescription, u"Description"},
    Row{StringId::expenseCategory, u"Category"},
    Row{StringId::expenseReceipt, u"Receipt"},
    Row{StringId::expenseStartOdometer, u"Start Odo"},
    Row{StringId::expenseEndOdometer, u"End Odo"},
    Row{StringId::expenseDistance, u"Distance"},
    Row{StringId::summaryFirstDate, u"First Entry Date:"},
    Row{StringId::summaryLastDate, u"Last Entry Date:"},
    Row{StringId::summaryUnpaid, u"Unpaid"},
    Row{StringId::manualNotOpened, u"The manual could not be opened."},
    Row{StringId::upgradeRecords, u"These records were made by an earlier version of Hourwright. Do you want to store "
                                  u"them in the present form now? Nothing of them changes."},
    Row{StringId::fileKindUnknown, u"Hourwright cannot open files of this kind."},
    Row{StringId::fileKindNotYet, u"Hourwright cannot open backup, archive and client structure files yet."},
    Row{StringId::fileNotFound, u"The file to be opened was not found."},
    Row{StringId::handOverUnreadable, u"Hourwright was started with options that it cannot understand."},
    Row{StringId::periodEndBeforeStart, u"The last day cannot be before the first day."},
    Row{StringId::noneMatched, u"No time entry matches. Nothing was changed."},
    Row{StringId::entriesMatched, u"Time entries that matched: %d"},
    Row{StringId::entriesDeleted, u"Time entries deleted: %d"},
    Row{StringId::recordsReplaced, u"Records in which the text was replaced: %d"},
    Row{StringId::discardChanges, u"Do you want to close without saving your changes?"},
    Row{StringId::deleteOneSelected, u"Are you sure to delete the selected item?"},
    Row{StringId::deleteSelected, u"Are you sure to delete the %d selected items?"},
    Row{StringId::recordChangedMeanwhile, u"This record was changed by another program or window while you were "
                                          u"editing it. Do you want to overwrite it with what you see here?"},
    Row{StringId::recordDeletedMeanwhile, u"This record was deleted by another program or window while you were "
                                          u"editing it. Do you want to save it as a new one?"},
    Row{StringId::copyEndTooFar, u"An end date may be at most %d days after the entry."},
    Row{StringId::noteFileTypes, u"Pocket Word (*.psw)|*.psw|Pocket Notes (*.pwi)|*.pwi|Rich Text Files (*.rtf)|*.rtf|"
                                 u"Text Files (*.txt)|*.txt|Unicode Text Files (*.txt)|*.txt|"},
    Row{StringId::noteNotOpened, u"The note could not be opened in a word processor."},
    Row{StringId::noteNotReadBack, u"The edited note could not be read. The note stays as it was."},
    Row{StringId::recordingFailed, u"The recording could not be made."},
    Row{StringId::playingFailed, u"The recording cannot be played."},
    Row{StringId::nameMissing, u"Please enter a name."},
    Row{StringId::nameTaken, u"This name is there already. Please choose another one."},
    Row{StringId::deleteRate, u"Are you sure to delete this rate?"},
    Row{StringId::deleteListItems,
        u"Are you sure to delete the selected items of this list? Entries and expenses keep their texts."},
    Row{StringId::nothingToMigrate, u"Please check the projects and tasks to migrate."},
    Row{StringId::migrateTarget, u"Please select the client that they migrate to."},
    Row{StringId::odometerEndBeforeStart, u"The end odometer cannot be less than the start odometer."},
    Row{StringId::nothingToUndo, u"There is nothing to undo."},
    Row{StringId::nothingToRedo, u"There is nothing to redo."},
    Row{StringId::undoChangedMeanwhile, u"This cannot be undone: its records have been changed by something else "
                                        u"since. Nothing was changed."},
    Row{StringId::redoChangedMeanwhile, u"This cannot be redone: its records have been changed by something else "
                                        u"since. Nothing was changed."},
    Row{StringId::windowNotRunning, u"Hourwright is not running."},
    Row{StringId::timersAllInUse, u"All four timers are in use."},
    Row{StringId::noSuchTimer, u"There is no such timer."},
    Row{StringId::restoreOffer,
        u"The file of your records is damaged and cannot be used.\n\nThe newest sound copy was made on %s and has %s "
        u"records. What was recorded after that is not in it.\n\nDo you want to put this copy in the file's place? The "
        u"damaged file is kept under another name."},
    Row{StringId::restoreQuestion, u"Do you want to go back to the copy made on %s with %s records? What was recorded "
                                   u"after that is not in it. The "
                                   u"present file is kept under another name."},
    Row{StringId::copyRestored, u"The copy was restored. The file that was there before is kept as\n%s"},
    Row{StringId::copyNotRestored, u"The copy could not be restored. Your files are as they were."},
    Row{StringId::copyNotMade, u"No copy of the records could be made."},
    Row{StringId::copyDamaged, u"This copy is damaged. It was not restored."},
    Row{StringId::noSuchCopy, u"There is no copy of this name."},
    Row{StringId::recordsInUse, u"The records are in use by another program. Close it and try again."},
    Row{StringId::automaticCopyFailed,
        u"The daily copy of your records could not be made in\n%s\n\nYour records are not affected. Hourwright tries "
        u"again at every start, but will not tell you again."},
    Row{StringId::recordsDamaged,
        u"Some of your records are damaged, so they were not copied today. Older copies are kept.\n\nThe newest copy "
        u"was "
        u"made on %s and has %s records. What was recorded after that is not in it.\n\nDo you want to go back to this "
        u"copy? The present file is kept under another name."},
    Row{StringId::restoreAtNextStart,
        u"The copy will be restored when Hourwright is started again. Hourwright ends now."},
    Row{StringId::recordsGone, u"The file of the records is not there any more, but copies of it are."},
    Row{StringId::recordsGoneOffer,
        u"The file of your records is not there any more.\n\nThe newest sound copy was made on %s and has %s records. "
        u"What was recorded after that is not in it.\n\nDo you want to put this copy in the file's place? \"No\" "
        u"begins "
        u"without any records, \"Cancel\" ends Hourwright."},
    Row{StringId::recordsGoneNoCopy,
        u"The file of your records is not there any more, and no sound copy of it was found.\n\nDo you want to begin "
        u"without any records? \"No\" ends Hourwright."},
    Row{StringId::draftOffer, u"Hourwright ended on %s while this was being edited:\n\n%s\n\nDo you want to go on with "
                              u"it? \"No\" forgets what "
                              u"was typed, \"Cancel\" asks again at the next start."},
};

static_assert(std::ranges::is_sorted(table, {}, &Row::id));

} // namespace

std::u16string_view string(StringId id) {
    const auto row = std::ranges::lower_bound(table, id, {}, &Row::id);
    return row != table.end() && row->id == id ? row->text : std::u16string_view{};
}

} // namespace hourwright::resources
