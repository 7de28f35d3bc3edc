#include "cli/entry_fields.h"

#include "cli/date_text.h"
#include "cli/field_option.h"
#include "cli/note_argument.h"
#include "platform/utf.h"

#include <array>

namespace hourwright::cli {

namespace {

using billing::DraftField;
using billing::EntryDraft;

using Failure = std::optional<ExitCode>;

struct TextOption {
    const OptionSpec* option;
    std::optional<std::u16string> EntryDraft::*field;
};

constexpr std::array textOptions{
    TextOption{&option::client, &EntryDraft::client},     TextOption{&option::project, &EntryDraft::project},
    TextOption{&option::phase, &EntryDraft::phase},       TextOption{&option::task, &EntryDraft::task},
    TextOption{&option::duration, &EntryDraft::duration}, TextOption{&option::breakTime, &EntryDraft::breakTime},
    TextOption{&option::billTo, &EntryDraft::billTo},     TextOption{&option::rate, &EntryDraft::rate},
    TextOption{&option::currency, &EntryDraft::currency}, TextOption{&option::custom1, &EntryDraft::custom1},
    TextOption{&option::custom2, &EntryDraft::custom2},   TextOption{&option::custom3, &EntryDraft::custom3},
};

using DraftOption = FieldOption<DraftField>;

constexpr std::array fieldOptions{
    DraftOption{DraftField::date, &option::date},         DraftOption{DraftField::start, &option::start},
    DraftOption{DraftField::client, &option::client},     DraftOption{DraftField::project, &option::project},
    DraftOption{DraftField::phase, &option::phase},       DraftOption{DraftField::task, &option::task},
    DraftOption{DraftField::duration, &option::duration}, DraftOption{DraftField::breakTime, &option::breakTime},
    DraftOption{DraftField::end, &option::end},           DraftOption{DraftField::status, &option::status},
    DraftOption{DraftField::billTo, &option::billTo},     DraftOption{DraftField::rate, &option::rate},
    DraftOption{DraftField::rateType, &option::rateType}, DraftOption{DraftField::currency, &option::currency},
    DraftOption{DraftField::custom1, &option::custom1},   DraftOption{DraftField::custom2, &option::custom2},
    DraftOption{DraftField::custom3, &option::custom3},   DraftOption{DraftField::paidDate, &option::paidDate},
    DraftOption{DraftField::note, &option::note},
};

void readTexts(const Arguments& arguments, EntryDraft& draft) {
    for (const TextOption& text : textOptions)
        if (const auto value = arguments.value(*text.option))
            draft.*text.field = platform::toUtf16(*value);
}

void readChoices(const Arguments& arguments, EntryDraft& draft) {
    if (const auto status = arguments.value(option::status))
        draft.status = store::EntryStatus{choiceOf(*status, option::statusChoices)};
    if (const auto type = arguments.value(option::rateType))
        draft.rateType = store::RateType{choiceOf(*type, option::rateTypeChoices)};
}

void readTimes(const Arguments& arguments, EntryDraft& draft) {
    draft.start = parseTime(arguments.value(option::start).value_or(""));
    draft.withoutStart = arguments.has(option::noStart) || (arguments.has(option::start) && !draft.start);
    draft.end = parseTime(arguments.value(option::end).value_or(""));
}

Failure readDates(Session& session, const Arguments& arguments, EntryDraft& draft) {
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

Failure readNote(Session& session, const Arguments& arguments, EntryDraft& draft) {
    if (const auto text = arguments.value(option::note))
        draft.note = noteOfText(platform::toUtf16(*text));
    if (const auto file = arguments.value(option::noteFile)) {
        draft.note = noteOfFile(std::string(*file));
        if (!draft.note)
            return session.fail(platform::PlatformError::fileNotFound,
                                joined({"The note file '", *file, "' cannot be read."}));
    }
    return {};
}

} // namespace

std::optional<platform::FileTime> paidDateOf(Session& session, std::string_view date) {
    if (date.empty())
        return platform::FileTime{};
    const auto day = session.day(date);
    return day ? platform::toFileTime(*day) : std::nullopt;
}

std::optional<ExitCode> readEntryFields(Session& session, const Arguments& arguments, EntryDraft& draft) {
    readTexts(arguments, draft);
    readChoices(arguments, draft);
    readTimes(arguments, draft);
    if (const Failure failure = readDates(session, arguments, draft))
        return failure;
    return readNote(session, arguments, draft);
}

ExitCode showRefusal(Session& session, const billing::DraftRefusal& refusal) {
    return showRefusal<DraftField>(session, refusal, fieldOptions, "entry");
}

} // namespace hourwright::cli
