#pragma once

#include "cli/output.h"

#include <string>
#include <string_view>
#include <vector>

namespace hourwright::cli {

struct TableColumn {
    std::string title;
    bool alignRight = false;
};

/// A table for people: a line of titles, then one line a row, columns aligned and two blanks between them. Rows are
/// kept only until a page of them is full; then they are printed with the widths known so far, which later pages may
/// widen but never narrow. So a table of any length takes the memory of one page.
class TextTable {
public:
    static constexpr std::size_t rowsOfPage = 500;

    TextTable(Output& out, std::vector<TableColumn> columns);

    /// Adds a row of one UTF-8 text without line breaks for each column.
    void add(std::vector<std::string> cells);

    /// Prints what is left; the titles also when there was no row.
    void finish() { printPage(); }

private:
    void printPage();
    void printRow(const std::vector<std::string>& cells);

    Output& out_;
    std::vector<TableColumn> columns_;
    std::vector<std::size_t> widths_;
    std::vector<std::vector<std::string>> rows_;
    bool titlesPrinted_ = false;
};

} // namespace hourwright::cli
