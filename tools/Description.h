#pragma once

#include "Catalog.h"
#include "Items.h"
#include "Tree.h"

#include <map>
#include <string>

namespace Tool {

/// What there is to know about a finished document, with what it refers to.
Tree describe(const Catalog& catalog, const std::map<std::string, Item>& items, const std::string& typeId);

} // namespace Tool
