#include "app/settings_rules.h"
#include "billing/summary.h"
#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "platform/utf.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

using billing::SummaryRow;

void writeJson(Output& out, const std::vector<SummaryRow>& rows) {
    JsonWriter json(out);
    json.beginArray();
    for (const SummaryRow& row : rows)
        json.beginArray().value(std::u16string_view(row.label)).value(std::u16string_view(row.value)).endArray();
    json.endArray().finish();
}

std::string indentedLabel(const SummaryRow& row) {
    constexpr std::size_t indentation = 2;
    return std::string(indentation * static_cast<std::size_t>(row.level), ' ') + cellText(row.label);
}

void writeLines(Output& out, const std::vector<SummaryRow>& rows) {
    std::size_t width = 0;
    for (const SummaryRow& row : rows)
        width = std::max(width, displayWidth(indentedLabel(row)));
    for (const SummaryRow& row : rows) {
        std::string line = indentedLabel(row);
        if (!row.value.empty())
            line += std::string(width - displayWidth(line) + 2, ' ') + cellText(row.value);
        out.writeLine(line);
    }
}

std::u16string textOf(const Arguments& arguments, const OptionSpec& option) {
    return platform::toUtf16(arguments.value(option).value_or(""));
}

} // namespace

ExitCode summary(Session& session, const Arguments& arguments) {
    const billing::SummaryScope scope{.client = platform::toUtf16(arguments.positionals().front()),
                                      .project = textOf(arguments, option::project),
                                      .task = textOf(arguments, option::task)};
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto summed = billing::summarize(stores->entries(), scope, app::timeRules(session.settings()));
    if (!summed)
        return session.failWrite();
    const auto rows = billing::summaryRows(*summed, scope, *session.locales().user);
    if (session.json())
        writeJson(session.out(), rows);
    else
        writeLines(session.out(), rows);
    return ExitCode::done;
}

} // namespace hourwright::cli
