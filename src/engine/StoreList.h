#pragma once

#include "schema/Text.h"
#include "schema/TypeIdMap.h"

#include <Parameters/Exceptions.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace Parameters {

/// A finished object with the text that it was registered as. An object that a caller registered directly has no text.
template <class Object> struct FinishedItem {
    Object object;
    std::optional<std::string> text;
};

/// The finished objects of one kind.
template <class Object> using ObjectMap = TypeIdMap<FinishedItem<Object>>;

/// Where a reference may be looked up: objects of one kind in up to three places, searched front to back. It lives
/// within one operation.
template <class Object> class StoreList {
public:
    void add(const ObjectMap<Object>& objects) noexcept {
        if (!objects.empty()) {
            stores_[count_++] = &objects;
        }
    }

    /// The first hit, or null.
    [[nodiscard]] const Object* find(const TypeIdKey& key) const noexcept {
        for (std::size_t i = 0; i < count_; ++i) {
            if (const auto* item = stores_[i]->find(key)) {
                return &item->object;
            }
        }
        return nullptr;
    }

    static constexpr std::size_t capacity = 3;

private:
    std::array<const ObjectMap<Object>*, capacity> stores_{};
    std::size_t count_ = 0;
};

/// A copy of what a schema refers to, by typeid and kind.
template <class Object>
[[nodiscard]] Object findDependency(const StoreList<Object>& stores, std::string_view schemaTypeId,
                                    std::string_view dependencyTypeId) {
    const Object* found = stores.find(dependencyTypeId);
    if (found == nullptr) {
        throw ValidationException(joined({"Dependency ", dependencyTypeId, " in schema ", schemaTypeId,
                                          " is missing or does not represent an object of the expected type."}));
    }
    return *found;
}

} // namespace Parameters
