#include "Table.h"

#include "Text.h"

#include <fmt/core.h>

#include <algorithm>

namespace Tool {

void printTable(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], widthOf(row[column]));
        }
    }
    for (const Row& row : rows) {
        std::string line;
        // Blanks go in front of a cell, so that no line ends with them.
        std::size_t blanks = 0;
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (!row[column].empty()) {
                line += std::string(blanks, ' ') + row[column];
                blanks = 0;
            }
            blanks += widths[column] - widthOf(row[column]) + 2;
        }
        fmt::print("{}\n", line);
    }
}

} // namespace Tool
