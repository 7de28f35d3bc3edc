#include "cli/date_text.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/utf.h"

#include <algorithm>
#include <string>
#include <vector>

namespace hourwright::cli {

namespace {

using platform::HistoryResult;
using platform::HistoryStep;
using resources::StringId;

enum class Way : std::uint8_t { back, forth };

// The name of the step that is next on the way.
std::string nextName(const std::vector<HistoryStep>& steps, Way way) {
    const auto firstUndone = std::ranges::find(steps, true, &HistoryStep::undone);
    if (firstUndone == (way == Way::back ? steps.begin() : steps.end()))
        return {};
    return platform::printableUtf8(way == Way::back ? (firstUndone - 1)->name : firstUndone->name);
}

ExitCode refuseStep(Session& session, HistoryResult result, Way way) {
    const bool back = way == Way::back;
    if (result == HistoryResult::nothing)
        return session.refuse(back ? StringId::nothingToUndo : StringId::nothingToRedo);
    if (result == HistoryResult::changedMeanwhile)
        return session.refuse(back ? StringId::undoChangedMeanwhile : StringId::redoChangedMeanwhile);
    return session.fail(session.objects()->lastError());
}

// Goes so many steps, each a change of its own; it is done when there was one at least and none was refused.
ExitCode go(Session& session, const Arguments& arguments, Way way) {
    if (!session.stores())
        return ExitCode::refused;
    platform::History& history = session.objects()->history();
    const auto wanted = arguments.value(option::steps);
    const std::uint32_t steps = wanted ? numberOf(*wanted) : 1;
    for (std::uint32_t step = 0; step < steps; ++step) {
        const std::string name = nextName(history.steps(), way);
        const HistoryResult result = way == Way::back ? history.undo() : history.redo();
        if (result == HistoryResult::nothing && step > 0)
            break;
        if (result != HistoryResult::done)
            return refuseStep(session, result, way);
        session.out().writeLine(name);
    }
    return ExitCode::done;
}

std::string timeOf(const HistoryStep& step) {
    return dateTimeText(platform::toSystemTime(step.time).value_or(platform::SystemTime{}));
}

void writeJson(Session& session, const std::vector<HistoryStep>& steps) {
    JsonWriter json(session.out());
    json.beginArray();
    for (const HistoryStep& step : steps) {
        json.beginObject();
        json.key("id").value(static_cast<std::uint64_t>(step.id));
        json.key("name").value(std::u16string_view(step.name));
        json.key("time").value(std::string_view(timeOf(step)));
        json.key("records").value(step.records);
        json.key("undone").value(step.undone);
        json.endObject();
    }
    json.endArray().finish();
}

} // namespace

ExitCode undo(Session& session, const Arguments& arguments) {
    return go(session, arguments, Way::back);
}

ExitCode redo(Session& session, const Arguments& arguments) {
    return go(session, arguments, Way::forth);
}

ExitCode history(Session& session, const Arguments&) {
    if (!session.objects())
        return ExitCode::refused;
    std::vector<HistoryStep> steps = session.objects()->history().steps();
    if (session.objects()->lastError() != platform::PlatformError::none)
        return session.fail(session.objects()->lastError());
    std::ranges::reverse(steps);
    if (session.json()) {
        writeJson(session, steps);
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Id", true}, {"Time"}, {"Change"}, {"Records", true}, {"State"}});
    for (const HistoryStep& step : steps)
        table.add({std::to_string(step.id), timeOf(step), platform::printableUtf8(step.name),
                   std::to_string(step.records), step.undone ? "undone" : ""});
    table.finish();
    return ExitCode::done;
}

} // namespace hourwright::cli
