#pragma once

#include "Items.h"
#include "References.h"

#include <map>
#include <string>

namespace Tool {

/// Describes a graph of documents in the language of Graphviz, with a legend of the kinds in it.
///
/// @param shown  the documents to draw, with the references between them
std::string dotText(const std::map<std::string, Item>& items, const Links& references,
                    const std::map<std::string, std::size_t>& shown);

/// Draws a graph by Graphviz's dot.
///
/// @return the picture as SVG.
/// @throws std::runtime_error  dot is not installed, fails, or takes longer.
std::string svgOf(const std::string& dotText, unsigned seconds);

} // namespace Tool
