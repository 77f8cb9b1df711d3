#pragma once

#include <string>
#include <vector>

namespace Tool {

using Row = std::vector<std::string>;

/// Prints rows of equally many cells to standard output, each column as wide as its widest cell, within reason.
void printTable(const std::vector<Row>& rows);

struct Tree {
    std::string text;
    std::vector<Tree> branches;
};

/// Prints a tree to standard output, a line a node.
void printTree(const Tree& tree);

} // namespace Tool
