#pragma once

#include "Items.h"
#include "References.h"

#include <map>
#include <string>

namespace Tool {

/// A graph of documents in the language of Graphviz, with a legend of the kinds that stand in it.
///
/// @param shown  the documents to draw, with the references between them
std::string dotText(const std::map<std::string, Item>& items, const Links& references,
                    const std::map<std::string, std::size_t>& shown);

/// Has Graphviz's dot draw a graph.
///
/// @return the picture in SVG.
/// @throws std::runtime_error  dot is not installed, or fails.
std::string svgOf(const std::string& dotText);

} // namespace Tool
