#include "Items.h"

#include "DocumentJson.h"
#include "JsonText.h"
#include "Text.h"

#include <fmt/core.h>

#include <type_traits>

namespace Tool {

namespace {

using Items = std::map<std::string, Item>;

template <class Object, class = void> struct HasName : std::false_type {};
template <class Object>
struct HasName<Object, std::void_t<decltype(std::declval<const Object&>().getName())>> : std::true_type {};

template <class Engine, class Object, class Objects>
void addAll(Items& items, const Parameters::ParametersEngine& engine, const ListedKind<Engine, Object, Objects>& row) {
    for (const auto& [typeId, object] : row.getAll(engine)) {
        Item& item = items[typeId];
        item.kind = &row.kind;
        if constexpr (HasName<Object>::value) {
            item.name = object.getName();
        }
    }
}

void addAll(Items& /*items*/, const Parameters::ParametersEngine& /*engine*/, const UnlistedKind& /*row*/) {}

} // namespace

Items itemsOf(const Catalog& catalog) {
    Items items;
    forEachKind([&](const auto& row) { addAll(items, catalog.engine, row); });
    for (const Document& document : catalog.documents) {
        const auto [entry, isUnlisted] = items.try_emplace(document.typeId);
        entry->second.document = &document;
        if (isUnlisted) {
            entry->second.kind = &std::get<UnlistedKind>(kindRows).kind;
            entry->second.name = readFrame(document.text).name;
        }
    }
    return items;
}

std::string formatLabel(const std::string& typeId, const std::string& name) {
    return printable(name.empty() ? typeId : fmt::format("{} ({})", name, typeId));
}

std::string formatVersion(Parameters::DataModelVersion version) {
    return versionTexts.at(static_cast<std::size_t>(version));
}

std::string formatNameOf(const Document& document) {
    return readFrame(document.text).hasSpecification ? "LumarDataSchema" : "PropertySets";
}

} // namespace Tool
