#include "Items.h"

#include "JsonText.h"
#include "OutputJson.h"
#include "Text.h"

#include <fmt/core.h>

#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tool {

namespace {

using Items = std::map<std::string, Item>;

template <class Object, class = void> struct HasName : std::false_type {};
template <class Object>
struct HasName<Object, std::void_t<decltype(std::declval<const Object&>().getName())>> : std::true_type {};

template <class Object> Item itemOf(const Kind& kind, const Object& object) {
    Item item;
    item.kind = &kind;
    if constexpr (HasName<Object>::value) {
        item.name = object.getName();
    }
    return item;
}

template <class Engine, class Object, class Objects>
void addAll(Items& items, const Parameters::ParametersEngine& engine, const ListedKind<Engine, Object, Objects>& row) {
    for (const auto& [typeId, object] : row.getAll(engine)) {
        items.emplace_hint(items.end(), typeId, itemOf(row.kind, object));
    }
}

void addAll(Items& /*items*/, const Parameters::ParametersEngine& /*engine*/, const UnlistedKind& /*row*/) {}

/// Whether the object is of the kind of the row, which the item then tells.
template <class Engine, class Object, class Objects>
bool describe(Item& item, const Parameters::ParametersEngine& engine, const ListedKind<Engine, Object, Objects>& row,
              const std::string& typeId) {
    try {
        item = itemOf(row.kind, row.get(engine, typeId));
        return true;
    } catch (const std::logic_error&) {
        return false;
    }
}

bool describe(Item& /*item*/, const Parameters::ParametersEngine& /*engine*/, const UnlistedKind& /*row*/,
              const std::string& /*typeId*/) {
    return false;
}

Item unlistedItem(const Document& document) {
    return {&std::get<UnlistedKind>(kindRows).kind, nameOf(document.text), &document};
}

} // namespace

Items itemsAround(const Catalog& catalog, const Links& links, const std::string& typeId) {
    Items items;
    for (const auto& [found, distance] : reachableFrom(links, typeId)) {
        const Document& document = catalog.documents[catalog.positions.at(found)];
        Item item;
        bool isListed = false;
        forEachKind([&, &typeIdFound = found](const auto& row) {
            isListed = isListed || describe(item, catalog.engine, row, typeIdFound);
        });
        item.document = &document;
        items.emplace(found, isListed ? std::move(item) : unlistedItem(document));
    }
    return items;
}

Items itemsOf(const Catalog& catalog) {
    Items items;
    forEachKind([&](const auto& row) { addAll(items, catalog.engine, row); });
    std::vector<bool> isListed(catalog.documents.size());
    for (auto& [typeId, item] : items) {
        const std::size_t position = catalog.positions.at(typeId);
        item.document = &catalog.documents[position];
        isListed[position] = true;
    }
    for (std::size_t position = 0; position < isListed.size(); ++position) {
        if (!isListed[position]) {
            const Document& document = catalog.documents[position];
            items.emplace(document.typeId, unlistedItem(document));
        }
    }
    return items;
}

std::string formatLabel(const std::string& typeId, const std::string& name) {
    return printable(name.empty() ? typeId : fmt::format("{} ({})", name, typeId));
}

const char* formatVersion(Parameters::DataModelVersion version) {
    return versionTexts.at(static_cast<std::size_t>(version));
}

const char* formatNameOf(const Document& document) {
    return hasSpecification(document.text) ? "LumarDataSchema" : "PropertySets";
}

} // namespace Tool
