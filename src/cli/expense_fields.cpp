#include "cli/expense_fields.h"

#include "cli/entry_fields.h"
#include "cli/field_option.h"
#include "platform/utf.h"

#include <array>

namespace hourwright::cli {

namespace {

using billing::ExpenseDraft;
using billing::ExpenseField;

struct TextOption {
    const OptionSpec* option;
    std::optional<std::u16string> ExpenseDraft::*field;
};

constexpr std::array textOptions{
    TextOption{&option::client, &ExpenseDraft::client},
    TextOption{&option::project, &ExpenseDraft::project},
    TextOption{&option::description, &ExpenseDraft::description},
    TextOption{&option::category, &ExpenseDraft::category},
    TextOption{&option::startOdometer, &ExpenseDraft::startOdometer},
    TextOption{&option::distance, &ExpenseDraft::distance},
    TextOption{&option::amount, &ExpenseDraft::amount},
    TextOption{&option::currency, &ExpenseDraft::currency},
    TextOption{&option::billTo, &ExpenseDraft::billTo},
    TextOption{&option::custom1, &ExpenseDraft::custom1},
    TextOption{&option::custom2, &ExpenseDraft::custom2},
    TextOption{&option::note, &ExpenseDraft::note},
};

using ExpenseOption = FieldOption<ExpenseField>;

constexpr std::array fieldOptions{
    ExpenseOption{ExpenseField::date, &option::date},
    ExpenseOption{ExpenseField::client, &option::client},
    ExpenseOption{ExpenseField::project, &option::project},
    ExpenseOption{ExpenseField::description, &option::description},
    ExpenseOption{ExpenseField::category, &option::category},
    ExpenseOption{ExpenseField::startOdometer, &option::startOdometer},
    ExpenseOption{ExpenseField::distance, &option::distance},
    ExpenseOption{ExpenseField::amount, &option::amount},
    ExpenseOption{ExpenseField::currency, &option::currency},
    ExpenseOption{ExpenseField::billTo, &option::billTo},
    ExpenseOption{ExpenseField::custom1, &option::custom1},
    ExpenseOption{ExpenseField::custom2, &option::custom2},
    ExpenseOption{ExpenseField::note, &option::note},
};

} // namespace

std::optional<ExitCode> readExpenseFields(Session& session, const Arguments& arguments, ExpenseDraft& draft) {
    for (const TextOption& text : textOptions)
        if (const auto value = arguments.value(*text.option))
            draft.*text.field = platform::toUtf16(*value);
    if (const auto status = arguments.value(option::status))
        draft.status = store::EntryStatus{choiceOf(*status, option::statusChoices)};
    if (const auto receipt = arguments.value(option::receipt))
        draft.receipt = *receipt == "yes";
    if (const auto date = arguments.value(option::date)) {
        draft.date = session.day(*date);
        if (!draft.date)
            return ExitCode::refused;
    }
    if (const auto date = arguments.value(option::paidDate)) {
        draft.paidDate = paidDateOf(session, *date);
        if (!draft.paidDate)
            return ExitCode::refused;
    }
    return {};
}

ExitCode showRefusal(Session& session, const billing::ExpenseRefusal& refusal) {
    return showRefusal<ExpenseField>(session, refusal, fieldOptions, "expense");
}

} // namespace hourwright::cli
