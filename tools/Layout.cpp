#include "Layout.h"

#include "Text.h"

#include <fmt/core.h>

#include <algorithm>

namespace Tool {

namespace {

/// A wider cell only shifts the rest of its own row.
constexpr std::size_t widestColumn = 80;

void printBranches(const Tree& tree, const std::string& indent) {
    for (const Tree& branch : tree.branches) {
        const bool isLast = &branch == &tree.branches.back();
        fmt::print("{}{}{}\n", indent, isLast ? "└─ " : "├─ ", branch.text);
        printBranches(branch, indent + (isLast ? "   " : "│  "));
    }
}

} // namespace

void printTable(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::size_t width = widthOf(row[column]);
            widths[column] = std::max(widths[column], width <= widestColumn ? width : 0);
        }
    }
    for (const Row& row : rows) {
        std::string line;
        // Padding precedes a cell, so that no line ends with blanks.
        std::size_t padding = 0;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::size_t width = widthOf(row[column]);
            if (width != 0) {
                line += std::string(padding, ' ') + row[column];
                padding = 0;
            }
            padding += widths[column] - std::min(widths[column], width) + 2;
        }
        fmt::print("{}\n", line);
    }
}

void printTree(const Tree& tree) {
    fmt::print("{}\n", tree.text);
    printBranches(tree, "");
}

} // namespace Tool
