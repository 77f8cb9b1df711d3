#include "Tree.h"

#include <fmt/core.h>

namespace Tool {

namespace {

void printBranches(const Tree& tree, const std::string& indent) {
    for (const Tree& branch : tree.branches) {
        const bool isLast = &branch == &tree.branches.back();
        fmt::print("{}{}{}\n", indent, isLast ? "└─ " : "├─ ", branch.text);
        printBranches(branch, indent + (isLast ? "   " : "│  "));
    }
}

} // namespace

void printTree(const Tree& tree) {
    fmt::print("{}\n", tree.text);
    printBranches(tree, "");
}

} // namespace Tool
