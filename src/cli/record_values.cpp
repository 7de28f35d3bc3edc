#include "cli/record_values.h"

#include "cli/display_width.h"
#include "resources/strings.h"

#include <algorithm>

namespace hourwright::cli {

using resources::StringId;

std::string statusText(store::EntryStatus status) {
    if (status > store::EntryStatus::paid)
        return std::to_string(static_cast<unsigned>(status));
    const auto id = resources::number(StringId::statusNonBillable) + static_cast<unsigned>(status);
    return cellText(resources::string(static_cast<StringId>(id)));
}

std::string shortDateText(const platform::Locale& locale, platform::FileTime time) {
    const auto date = unlessZero(time);
    return date ? cellText(locale.shortDate(*date)) : std::string{};
}

void writeField(Output& out, std::string_view title, std::string_view value) {
    constexpr std::size_t titleWidth = 12;
    std::string line(title);
    line.resize(std::max(titleWidth, line.size()), ' ');
    if (!value.empty())
        (line += "  ") += value;
    line.erase(line.find_last_not_of(' ') + 1);
    out.writeLine(line);
}

} // namespace hourwright::cli
