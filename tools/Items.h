#pragma once

#include "Catalog.h"
#include "Kinds.h"
#include "References.h"

#include <Parameters/DataModelVersion.h>

#include <array>
#include <cstddef>
#include <map>
#include <string>

namespace Tool {

/// A finished document of the catalog.
struct Item {
    const Kind* kind = nullptr;
    /// Empty for kinds that have no names.
    std::string name;
    const Document* document = nullptr;
};

/// All finished documents by typeid.
std::map<std::string, Item> itemsOf(const Catalog& catalog);

/// A document and all that links lead to from it, by typeid.
std::map<std::string, Item> itemsAround(const Catalog& catalog, const Links& links, const std::string& typeId);

/// name (typeid), or the typeid alone if there is no name.
std::string formatLabel(const std::string& typeId, const std::string& name);

/// By version.
inline constexpr std::array versionTexts = {"1.0.0", "2.0.0", "3.0.0"};
const char* formatVersion(Parameters::DataModelVersion version);

/// "LumarDataSchema" or "PropertySets", the form in which the document was registered.
const char* formatNameOf(const Document& document);

} // namespace Tool
