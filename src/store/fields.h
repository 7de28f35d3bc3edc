#pragma once

#include "platform/property.h"

#include <cstdint>

/// Field numbers of stored properties. The same number means the same field in every record type.
namespace hourwright::store::field {

inline constexpr std::uint16_t date = 1001;        ///< entry date and start time, expense date
inline constexpr std::uint16_t client = 1002;      ///< client name
inline constexpr std::uint16_t project = 1003;     ///< project name of an entry
inline constexpr std::uint16_t phase = 1004;       ///< phase name
inline constexpr std::uint16_t task = 1005;        ///< task name
inline constexpr std::uint16_t duration = 1006;    ///< hundredths of an hour
inline constexpr std::uint16_t currency = 1007;    ///< currency text
inline constexpr std::uint16_t rate = 1008;        ///< rate, or amount of an expense, in hundredths
inline constexpr std::uint16_t oldBillable = 1009; ///< read only: entry is billable
inline constexpr std::uint16_t oldBilled = 1010;   ///< read only: entry is billed
inline constexpr std::uint16_t note = 1012;        ///< note document
inline constexpr std::uint16_t oldStart = 1013;    ///< read only: start time of day
inline constexpr std::uint16_t billTo = 1014;      ///< contact name
inline constexpr std::uint16_t custom1 = 1015;
inline constexpr std::uint16_t custom2 = 1016;
inline constexpr std::uint16_t custom3 = 1017;
inline constexpr std::uint16_t rateType = 1018;
inline constexpr std::uint16_t status = 1019;
inline constexpr std::uint16_t paidDate = 1020;
inline constexpr std::uint16_t stamp = 1021; ///< time of the last change
inline constexpr std::uint16_t flags = 1022;
inline constexpr std::uint16_t breakTime = 1023; ///< hundredths of an hour

inline constexpr std::uint16_t text = 1101; ///< text of a list item; project, task or contact name
inline constexpr std::uint16_t kind = 1102; ///< list kind; rate type of a rate record; type of an expense

inline constexpr std::uint16_t clientId = 1201;
inline constexpr std::uint16_t description = 1202;
inline constexpr std::uint16_t rateFlag = 1203;
inline constexpr std::uint16_t nextClientId = 1404;

inline constexpr std::uint16_t startOdometer = 1601;
inline constexpr std::uint16_t distance = 1602;
inline constexpr std::uint16_t receipt = 1603;
inline constexpr std::uint16_t expenseNote = 1604;
inline constexpr std::uint16_t category = 1605;

} // namespace hourwright::store::field
