#pragma once

#include <string>

namespace Tool {

/// Has Graphviz's dot draw a graph.
///
/// @return the picture in SVG.
/// @throws std::runtime_error  dot is not installed, or fails.
std::string svgOf(const std::string& dotText);

} // namespace Tool
