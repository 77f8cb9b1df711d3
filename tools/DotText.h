#pragma once

#include "Items.h"
#include "Links.h"

#include <map>
#include <string>

namespace Tool {

/// A graph of documents in the language of Graphviz, with a legend of the kinds that stand in it.
///
/// @param shown  the documents to draw, with the references between them
std::string dotText(const std::map<std::string, Item>& items, const Links& references,
                    const std::map<std::string, std::size_t>& shown);

} // namespace Tool
