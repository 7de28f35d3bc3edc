#include "store/fields.h"
#include "store/record_store.h"

namespace hourwright::store {

namespace {

using platform::PropertyId;
using platform::PropertyName;
using platform::ValueType;
using resources::StringId;

constexpr std::array data1Names = {
    PropertyName{{field::date, ValueType::fileTime}, "date"},
    PropertyName{{field::client, ValueType::text}, "client"},
    PropertyName{{field::project, ValueType::text}, "project"},
    PropertyName{{field::phase, ValueType::text}, "phase"},
    PropertyName{{field::task, ValueType::text}, "task"},
    PropertyName{{field::duration, ValueType::ui2}, "duration_hundredths"},
    PropertyName{{field::status, ValueType::ui2}, "status"},
    PropertyName{{field::currency, ValueType::text}, "currency"},
    PropertyName{{field::rate, ValueType::ui4}, "rate_hundredths"},
    PropertyName{{field::paidDate, ValueType::fileTime}, "paid_date"},
    PropertyName{{field::billTo, ValueType::text}, "bill_to"},
    PropertyName{{field::custom1, ValueType::text}, "custom1"},
    PropertyName{{field::custom2, ValueType::text}, "custom2"},
    PropertyName{{field::custom3, ValueType::text}, "custom3"},
    PropertyName{{field::rateType, ValueType::ui2}, "rate_type"},
    PropertyName{{field::stamp, ValueType::fileTime}, "modified"},
    PropertyName{{field::breakTime, ValueType::ui2}, "break_hundredths"},
    PropertyName{{field::flags, ValueType::ui2}, "flags"},
    PropertyName{{field::note, ValueType::blob}, "note"},
};

constexpr std::array expenseNames = {
    PropertyName{{field::kind, ValueType::ui2}, "type"},
    PropertyName{{field::date, ValueType::fileTime}, "date"},
    PropertyName{{field::description, ValueType::text}, "description"},
    PropertyName{{field::client, ValueType::text}, "client"},
    PropertyName{{field::project, ValueType::text}, "project"},
    PropertyName{{field::category, ValueType::text}, "category"},
    PropertyName{{field::startOdometer, ValueType::ui4}, "start_odometer"},
    PropertyName{{field::distance, ValueType::ui4}, "distance"},
    PropertyName{{field::status, ValueType::ui2}, "status"},
    PropertyName{{field::currency, ValueType::text}, "currency"},
    PropertyName{{field::rate, ValueType::ui4}, "amount_hundredths"},
    PropertyName{{field::receipt, ValueType::boolean}, "receipt"},
    PropertyName{{field::paidDate, ValueType::fileTime}, "paid_date"},
    PropertyName{{field::billTo, ValueType::text}, "bill_to"},
    PropertyName{{field::custom1, ValueType::text}, "custom1"},
    PropertyName{{field::custom2, ValueType::text}, "custom2"},
    PropertyName{{field::expenseNote, ValueType::text}, "note"},
    PropertyName{{field::stamp, ValueType::fileTime}, "modified"},
    PropertyName{{field::flags, ValueType::ui2}, "flags"},
};

constexpr std::array clientNames = {
    PropertyName{{field::clientId, ValueType::ui4}, "client_id"},
    PropertyName{{field::client, ValueType::text}, "client"},
};

constexpr std::array projectNames = {
    PropertyName{{field::clientId, ValueType::ui4}, "client_id"},
    PropertyName{{field::text, ValueType::text}, "project"},
    PropertyName{{field::task, ValueType::text}, "task"},
};

constexpr std::array taskNames = {
    PropertyName{{field::clientId, ValueType::ui4}, "client_id"},
    PropertyName{{field::text, ValueType::text}, "task"},
};

constexpr std::array contactNames = {
    PropertyName{{field::clientId, ValueType::ui4}, "client_id"},
    PropertyName{{field::text, ValueType::text}, "contact"},
};

constexpr std::array rateNames = {
    PropertyName{{field::clientId, ValueType::ui4}, "client_id"},
    PropertyName{{field::kind, ValueType::ui2}, "rate_type"},
    PropertyName{{field::description, ValueType::text}, "description"},
    PropertyName{{field::rateFlag, ValueType::boolean}, "flag"},
    PropertyName{{field::rate, ValueType::ui4}, "rate_hundredths"},
    PropertyName{{field::stamp, ValueType::fileTime}, "modified"},
    PropertyName{{field::flags, ValueType::ui2}, "flags"},
};

constexpr std::array data2Names = {
    PropertyName{{field::kind, ValueType::ui2}, "list"},
    PropertyName{{field::text, ValueType::text}, "text"},
    PropertyName{{field::nextClientId, ValueType::ui4}, "next_client_id"},
};

constexpr PropertyId byDate{field::date, ValueType::fileTime};
constexpr PropertyId byClientId{field::clientId, ValueType::ui4};

// In the order of DatabaseKind.
constexpr std::array<DatabaseSpec, databaseCount> specs = {{
    {StringId::databaseData1, 79990001, byDate, {"time_entries", data1Names}},
    {StringId::databaseExpenses, 79990008, byDate, {"expenses", expenseNames}},
    {StringId::databaseClients, 79990004, {field::client, ValueType::text}, {"clients", clientNames}},
    {StringId::databaseProjects, 79990005, byClientId, {"projects", projectNames}},
    {StringId::databaseTasks, 79990006, byClientId, {"tasks", taskNames}},
    {StringId::databaseContacts, 79990007, byClientId, {"contacts", contactNames}},
    {StringId::databaseRates, 79990003, byClientId, {"rates", rateNames}},
    {StringId::databaseData2, 79990002, {field::kind, ValueType::ui2}, {"list_items", data2Names}},
}};

} // namespace

const DatabaseSpec& databaseSpec(DatabaseKind kind) {
    return specs[static_cast<std::size_t>(kind)];
}

} // namespace hourwright::store
