#pragma once

#include <cstdint>
#include <string_view>

namespace hourwright::resources {

/// Numbers of the texts that users see. Numbers from 9000 on are this program's own; the others are fixed, because
/// stored data and other programs of the family know them.
enum class StringId : std::uint16_t {
    appTitle = 1,
    entryTimers = 4,
    taskMissing = 9,
    durationMissing = 10,
    numericOnly = 11,
    deleteByCriteria = 13,
    databaseClients = 20,
    editNotePrompt = 23,
    typeMissing = 37,
    rateInvalid = 38,
    rateExists = 39,
    updatingRecords = 41,
    databaseData1 = 43,
    databaseProjects = 44,
    databaseTasks = 45,
    databaseContacts = 46,
    databaseRates = 47,
    databaseData2 = 48,
    editNote = 50,
    addTimer = 51,
    editTimer = 53,
    cancelTimer = 56,
    interval10 = 60,
    interval15 = 61,
    interval20 = 62,
    interval30 = 63,
    interval6 = 64,
    closeWithTimers = 79,
    databaseNotOpened = 90,
    noteTooLarge = 91,
    timerNoteTooLarge = 92,
    paidDateHint = 93,
    databaseExpenses = 94,
    rateTypeNormal = 120,
    rateTypeOvertime = 121,
    rateTypeWeekend = 122,
    rateTypeFixed = 123,
    rateTypeDiscount = 124,
    timersCount = 128,
    softMenuChanged = 129,
    markAllPaid = 145,
    replaceConfirm = 180,
    replaceFindMissing = 181,
    replaceWithMissing = 182,
    descriptionMissing = 183,
    summaryPeriodType = 215,
    summaryPeriod = 216,
    summaryItems = 217,
    summaryHours = 218,
    summaryAmount = 219,
    createNewTimer = 315,
    columnEntryDate = 5001,
    columnClient = 5002,
    columnProject = 5003,
    columnPhase = 5004,
    columnTask = 5005,
    columnDuration = 5006,
    columnCurrency = 5007,
    columnStatus = 5008,
    columnRate = 5009,
    columnStartTime = 5010,
    columnBillTo = 5011,
    columnCustom1 = 5012,
    columnCustom2 = 5013,
    columnCustom3 = 5014,
    columnRateType = 5015,
    columnAmount = 5016,
    columnNote = 5017,
    columnEndTime = 5018,
    breakManually = 5600,
    breakUseTimer = 5601,

    error = 9001,
    clientMissing = 9002,
    deleteClient = 9003,
    deleteProject = 9004,
    exportFailed = 9005,
    exportNoteFailed = 9006,
    deleteAllData = 9007,
    deleteStructure = 9008,
    databaseNotLoaded = 9009,
    customRate = 9010,
    defaultRates = 9011,
    statusNonBillable = 9020,
    statusBillable = 9021,
    statusBilled = 9022,
    statusPaid = 9023,
    csvTimeHeader = 9030,
    csvTimeHeaderEnd = 9031,
    csvMileageHeader = 9032,
    csvGeneralHeader = 9033,
    csvExpenseHeaderEnd = 9034,
};

/// The text with this number; empty for a number that is not in the table.
[[nodiscard]] std::u16string_view string(StringId id);

/// The number as such, for messages that are looked up by it.
[[nodiscard]] constexpr std::uint16_t number(StringId id) {
    return static_cast<std::uint16_t>(id);
}

} // namespace hourwright::resources
