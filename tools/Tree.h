#pragma once

#include <string>
#include <vector>

namespace Tool {

struct Tree {
    std::string text;
    std::vector<Tree> branches;
};

/// Prints a tree to standard output, a line a node.
void printTree(const Tree& tree);

} // namespace Tool
