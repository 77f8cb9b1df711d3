#include "Items.h"

#include "DocumentJson.h"
#include "Text.h"

#include <fmt/core.h>

#include <type_traits>

namespace Tool {

namespace {

using Items = std::map<std::string, Item>;

template <class Object, class = void> struct HasName : std::false_type {};
template <class Object>
struct HasName<Object, std::void_t<decltype(std::declval<const Object&>().getName())>> : std::true_type {};

template <class Object> void addAll(Items& items, Kind kind, const std::map<std::string, Object>& objects) {
    for (const auto& [typeId, object] : objects) {
        Item& item = items[typeId];
        item.kind = kind;
        if constexpr (HasName<Object>::value) {
            item.name = object.getName();
        }
    }
}

} // namespace

std::string nameOf(Kind kind) { return kindNames.at(static_cast<std::size_t>(kind)); }

Items itemsOf(const Catalog& catalog) {
    Items items;
    const Parameters::ParametersEngine& engine = catalog.engine;
    addAll(items, Kind::Category, engine.getAllCategories());
    addAll(items, Kind::Discipline, engine.getAllDisciplines());
    addAll(items, Kind::Domain, engine.getAllDomains());
    addAll(items, Kind::Enumeration, engine.getAllEnumerations());
    addAll(items, Kind::FloatRange, engine.getAllFloatRanges());
    addAll(items, Kind::Group, engine.getAllGroups());
    addAll(items, Kind::IntRange, engine.getAllIntRanges());
    addAll(items, Kind::Parameter, engine.getAllParameters());
    addAll(items, Kind::Spec, engine.getAllSpecs());
    addAll(items, Kind::StringRange, engine.getAllStringRanges());
    addAll(items, Kind::Unit, engine.getUnitsEngine().getAllUnits());
    for (const Document& document : catalog.documents) {
        if (document.state != DocumentState::Finished) {
            continue;
        }
        const auto [entry, isDimension] = items.try_emplace(document.typeId);
        entry->second.document = &document;
        if (isDimension) {
            // The units library keeps dimensions and lists them nowhere.
            entry->second.kind = Kind::Dimension;
            entry->second.name = textConstant(parseDocument(document.text), "name");
        }
    }
    return items;
}

std::string wordsFor(const std::string& typeId, const std::string& name) {
    return printable(name.empty() ? typeId : fmt::format("{} ({})", name, typeId));
}

std::string wordsFor(Parameters::DataModelVersion version) {
    return versionTexts.at(static_cast<std::size_t>(version));
}

std::string formatOf(const Document& document) {
    return parseDocument(document.base).contains("schemaSpecification") ? "LumarDataSchema" : "PropertySets";
}

} // namespace Tool
