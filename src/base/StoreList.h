#pragma once

#include "base/RoomyVector.h"
#include "base/Text.h"
#include "base/TypeIdMap.h"

#include <Parameters/Exceptions.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace Parameters {

/// A finished object with the text that it was registered as, which is kept elsewhere. An object that a caller
/// registered directly has none.
template <class Object> struct FinishedItem {
    Object object;
    std::string_view text;
};

/// Where a registry keeps an item.
struct ItemLocation {
    /// Its position among all kinds.
    std::uint8_t kind;
    bool isPending;
    std::uint32_t position;
    /// The data of the object, which may be fetched before the item is; null of a schema until it is staged.
    const void* data;
};

/// Where each item of a registry stands.
using ItemIndex = TypeIdMap<ItemLocation>;

/// The objects of one kind in a registry.
template <class Object> struct ObjectStore {
    std::uint8_t kind;
    RoomyVector<FinishedItem<Object>> finished;
    /// While a resolution runs, what it has made of the pending schemas, in their order.
    RoomyVector<FinishedItem<Object>> staged;

    [[nodiscard]] const FinishedItem<Object>* find(const ItemIndex& places, const TypeIdKey& key) const noexcept {
        const ItemLocation* place = places.find(key);
        return place != nullptr && place->kind == kind ? at(*place) : nullptr;
    }

    /// The item at a place of this kind, or null of a schema that is not staged yet. Once one of the kind has turned
    /// out faulty, places of pending schemas are no longer right, and nothing is looked up.
    [[nodiscard]] const FinishedItem<Object>* at(const ItemLocation& place) const noexcept {
        const auto& items = place.isPending ? staged : finished;
        return place.position < items.size() ? &items[place.position] : nullptr;
    }
};

/// Where a reference may be looked up: objects of one kind in up to three places, searched front to back. It lives
/// within one operation.
template <class Object> class StoreList {
public:
    void add(const ItemIndex& places, const ObjectStore<Object>& store) noexcept {
        if (!store.finished.empty() || !store.staged.empty()) {
            stores_[count_++] = {&places, &store};
        }
    }

    /// The first hit, or null.
    [[nodiscard]] const Object* find(const TypeIdKey& key) const noexcept {
        for (std::size_t i = 0; i < count_; ++i) {
            const auto& [places, store] = stores_[i];
            if (const auto* item = store->find(*places, key)) {
                return &item->object;
            }
        }
        return nullptr;
    }

    static constexpr std::size_t capacity = 3;

private:
    struct Store {
        const ItemIndex* places;
        const ObjectStore<Object>* objects;
    };

    std::array<Store, capacity> stores_{};
    std::size_t count_ = 0;
};

/// A copy of what a schema refers to, by typeid and kind.
template <class Object>
[[nodiscard]] Object findDependency(const StoreList<Object>& stores, std::string_view schemaTypeId,
                                    const TypeIdKey& dependency) {
    const Object* found = stores.find(dependency);
    if (found == nullptr) {
        throw ValidationException(concat({"Dependency ", dependency.typeId, " in schema ", schemaTypeId,
                                          " is missing or does not represent an object of the expected type."}));
    }
    return *found;
}

} // namespace Parameters
