#include "cli/text_table.h"

#include "cli/display_width.h"

#include <algorithm>

namespace hourwright::cli {

TextTable::TextTable(Output& out, std::vector<TableColumn> columns) : out_(out), columns_(std::move(columns)) {
    for (const TableColumn& column : columns_)
        widths_.push_back(displayWidth(column.title));
}

void TextTable::add(std::vector<std::string> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
        widths_[i] = std::max(widths_[i], displayWidth(cells[i]));
    rows_.push_back(std::move(cells));
    if (rows_.size() == rowsOfPage)
        printPage();
}

void TextTable::printPage() {
    if (!titlesPrinted_) {
        std::vector<std::string> titles;
        for (const TableColumn& column : columns_)
            titles.push_back(column.title);
        printRow(titles);
        titlesPrinted_ = true;
    }
    for (const auto& row : rows_)
        printRow(row);
    rows_.clear();
}

void TextTable::printRow(const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string padding(widths_[i] - std::min(widths_[i], displayWidth(cells[i])), ' ');
        if (i > 0)
            line += "  ";
        line += columns_[i].alignRight ? padding + cells[i] : cells[i] + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out_.writeLine(line);
}

} // namespace hourwright::cli
