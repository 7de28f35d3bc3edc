#include "app/drafts/kept_draft.h"

#include "resources/texts/drafts.h"

#include <array>
#include <span>

namespace hourwright::app {

namespace {

namespace texts = resources::drafts;

using OptionalText = std::optional<std::u16string>;

std::u16string joined(std::span<const OptionalText* const> names) {
    std::u16string line;
    for (const OptionalText* const name : names)
        if (*name && !(*name)->empty())
            line += (line.empty() ? u"" : u" · ") + **name;
    return line;
}

std::u16string lines(const resources::Text& kind, const std::optional<platform::SystemTime>& day,
                     std::span<const OptionalText* const> names, const platform::Locale& locale) {
    std::u16string text(kind.text);
    if (day)
        text += u", " + locale.shortDate(*day);
    const std::u16string line = joined(names);
    return line.empty() ? text : text + u'\n' + line;
}

std::u16string describe(const KeptEntry& entry, const platform::Locale& locale) {
    const auto& kind = entry.stored.id == store::RecordId::none ? texts::newEntry : texts::entry;
    const billing::EntryDraft& draft = entry.draft;
    return lines(kind, draft.date, std::array{&draft.client, &draft.project, &draft.task}, locale);
}

std::u16string describe(const KeptExpense& expense, const platform::Locale& locale) {
    const bool mileage = expense.stored.type == store::ExpenseType::mileage;
    const auto& kind = expense.stored.id == store::RecordId::none ? mileage ? texts::newMileage : texts::newExpense
                       : mileage                                  ? texts::mileage
                                                                  : texts::expense;
    const billing::ExpenseDraft& draft = expense.draft;
    return lines(kind, draft.date, std::array{&draft.client, &draft.project, &draft.description}, locale);
}

} // namespace

std::u16string describe(const KeptRecord& record, const platform::Locale& locale) {
    return std::visit([&](const auto& kept) { return describe(kept, locale); }, record);
}

} // namespace hourwright::app
