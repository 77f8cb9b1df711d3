#include "DotText.h"

#include "Text.h"

#include <fmt/core.h>

#include <string>
#include <string_view>

namespace Tool {

namespace {

std::string dotString(std::string_view text) {
    std::string result = "\"";
    for (const char character : printable(text)) {
        if (character == '"' || character == '\\') {
            result += '\\';
        }
        result += character;
    }
    return result + '"';
}

std::string attributesOf(const Kind& kind) { return fmt::format("shape={}, fillcolor=\"{}\"", kind.shape, kind.color); }

std::string nodeOf(const std::string& typeId, const Item& item) {
    const std::string& label = item.name.empty() ? typeId : item.name;
    return fmt::format("  {} [label={}, tooltip={}, {}];\n", dotString(typeId), dotString(label), dotString(typeId),
                       attributesOf(*item.kind));
}

constexpr std::size_t legendColumns = 4;

/// In rows, which edges that are not seen keep together.
std::string legendOf(const std::map<std::string, const Kind*>& kinds) {
    std::string legend = "  subgraph cluster_legend {\n    label=\"Legend\";\n    color=\"#999999\";\n";
    std::string last;
    std::size_t column = 0;
    for (const auto& [name, kind] : kinds) {
        const std::string node = fmt::format("\"legend {}\"", name);
        legend += fmt::format("    {} [label=\"{}\", {}];\n", node, name, attributesOf(*kind));
        if (column++ % legendColumns != 0) {
            legend += fmt::format("    {} -> {} [style=invis];\n", last, node);
        }
        last = node;
    }
    return legend + "  }\n";
}

} // namespace

std::string dotText(const std::map<std::string, Item>& items, const Links& references,
                    const std::map<std::string, std::size_t>& shown) {
    std::string text =
        "digraph catalog {\n"
        "  graph [rankdir=LR, nodesep=0.15, fontname=\"Helvetica\", fontsize=11];\n"
        "  node [style=filled, fontname=\"Helvetica\", fontsize=11, height=0.35, margin=\"0.12,0.04\"];\n"
        "  edge [color=\"#555555\"];\n";
    std::map<std::string, const Kind*> kinds;
    for (const auto& [typeId, distance] : shown) {
        const Item& item = items.at(typeId);
        kinds.emplace(item.kind->name, item.kind);
        text += nodeOf(typeId, item);
    }
    for (const auto& [typeId, distance] : shown) {
        for (const std::string& reference : references.at(typeId)) {
            if (shown.count(reference) != 0) {
                text += fmt::format("  {} -> {};\n", dotString(typeId), dotString(reference));
            }
        }
    }
    return text + legendOf(kinds) + "}\n";
}

} // namespace Tool
