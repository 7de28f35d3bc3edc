#pragma once

#include "exchange/csv_line.h"
#include "exchange/csv_options.h"
#include "exchange/date_cells.h"
#include "exchange/note_text_converter.h"
#include "store/time_entry.h"

#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Builds the lines of a CSV file of time entries, each with its CR LF.
class TimeEntryCsv {
public:
    /// Borrows the locale, which is to be the system's own.
    TimeEntryCsv(CsvOptions options, const platform::Locale& systemLocale);

    [[nodiscard]] std::u16string header() const;
    /// Valid until the next call.
    [[nodiscard]] std::u16string_view line(const store::TimeEntry& entry);

private:
    void addNote(const store::TimeEntry& entry);
    void addTime(const std::optional<platform::SystemTime>& time);

    CsvOptions options_;
    DateCells dates_;
    NoteTextConverter notes_;
    CsvLine line_;
};

} // namespace hourwright::exchange
