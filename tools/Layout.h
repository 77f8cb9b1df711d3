#pragma once

#include <string>
#include <vector>

namespace Tool {

using Row = std::vector<std::string>;

/// Prints rows with equally many cells to standard output, each column as wide as its widest cell of a sensible width.
void printTable(const std::vector<Row>& rows);

struct Tree {
    std::string text;
    std::vector<Tree> branches;
};

/// Prints a tree to standard output, one line per node.
void printTree(const Tree& tree);

} // namespace Tool
