#pragma once

#include "platform/number_text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// One line of a CSV file, built cell by cell in a memory that is used again for every line. Each cell stands between
/// double quotes, commas join them. A cell's text goes in as it is: quotes, commas and line breaks in it are not
/// escaped, because the readers of these files expect none of it.
class CsvLine {
public:
    void clear() { line_.clear(); }

    void text(std::u16string_view cell) {
        open();
        line_ += cell;
        close();
    }
    void integer(std::int64_t value) {
        open();
        platform::appendInteger(line_, value);
        close();
    }
    /// A number of hundredths with two decimals.
    void hundredths(std::int64_t value) {
        open();
        platform::appendHundredths(line_, value);
        close();
    }
    void twoDecimals(double value) {
        open();
        platform::appendFixedDecimals(line_, value, 2);
        close();
    }
    void empty() { text({}); }

    /// Begins and ends a cell that is put together with `content`.
    void open() { line_ += line_.empty() ? u"\"" : u",\""; }
    void close() { line_ += u'"'; }
    [[nodiscard]] std::u16string& content() { return line_; }

    /// Ends the line with CR LF. The text is valid until the line is changed.
    [[nodiscard]] std::u16string_view finish() {
        line_ += u"\r\n";
        return line_;
    }

private:
    std::u16string line_;
};

} // namespace hourwright::exchange
