#pragma once

#include "base/TypeIdMap.h"
#include "engine/Registry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace Parameters {

// A use stays as long as scripts/bench shows it. With 100,000 parameters, and runs with and without it taken in turn,
// resolveSchemas took 15 % longer without; getSchemaInCompatibleFormat 6 % without the item's data, 18 % without the
// typeids of what a parameter refers to, and 56 % without these and their data. Registering and parsing showed nothing.

/// Prefetches memory that is going to be read, so that several places of a large catalog arrive together instead of one
/// after the other.
inline void prefetch(const void* begin, std::size_t size) noexcept {
    constexpr std::size_t cacheLine = 64;
    // As integers: a line may begin before the object, where no pointer into it may point.
    const auto first = reinterpret_cast<std::uintptr_t>(begin);
    for (std::uintptr_t line = first - first % cacheLine; line < first + size; line += cacheLine) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        __builtin_prefetch(reinterpret_cast<const void*>(line));
    }
    // Does nothing, but without it g++ takes functions that only prefetch for useless, and drops their calls.
    asm volatile("");
}

/// Of a long text the beginning: the processor sees by itself how it goes on.
inline void prefetch(std::string_view text) noexcept {
    constexpr std::size_t beginning = 1024;
    prefetch(text.data(), std::min(text.size(), beginning));
}

/// Prefetches what a look-up reads first.
template <class Value> void prefetchSlot(const TypeIdMap<Value>& map, const TypeIdKey& key) noexcept {
    prefetch(map.slotOf(key), 1);
}

/// Prefetches what a look-up reads next. Reads the slot.
template <class Value> void prefetchEntry(const TypeIdMap<Value>& map, const TypeIdKey& key) noexcept {
    if (const auto* entry = map.findLikely(key)) {
        prefetch(entry, sizeof(*entry));
    }
}

/// Prefetches the item of a typeid, pending or finished. Reads the entry.
inline void prefetchItem(const Registry& registry, const TypeIdKey& key) noexcept {
    const auto* entry = registry.index().findLikely(key);
    if (entry == nullptr || entry->value.data == nullptr) {
        return;
    }
    visitKind(entry->value.kind, [&](auto kind) {
        const auto* item = registry.store<decltype(kind)>().at(entry->value);
        prefetch(item, sizeof(*item));
    });
}

/// Prefetches the data of a finished object, which are read after the item that holds it.
inline void prefetchData(const ItemLocation& location) noexcept {
    visitKind(location.kind, [&](auto kind) {
        using Data = decltype(Internals::dataOf(std::declval<typename decltype(kind)::Object>()));
        prefetch(location.data, sizeof(Data));
    });
}

// Only parameters refer to so much that writing them waits for it. What an object is made of comes in two steps: the
// data of what it refers to and, once these are there, the typeids in them.

template <class Object> void prefetchForWriting(const Object& /*object*/) {}
template <class Object> void prefetchReferredTypeIds(const Object& /*object*/) {}

/// Calls visit with each object that the parameter refers to.
template <class Visit> void visitReferences(const Parameter& parameter, const Visit& visit) {
    const auto& data = Internals::dataOf(parameter);
    visit(data.spec);
    visit(data.group);
    std::visit(
        [&](const auto& range) {
            if constexpr (!std::is_same_v<decltype(range), const std::monostate&>) {
                visit(range);
            }
        },
        data.range);
}

inline void prefetchForWriting(const Parameter& parameter) {
    visitReferences(parameter, [](const auto& object) {
        const auto& data = Internals::dataOf(object);
        prefetch(&data, sizeof(data));
    });
    const auto& data = Internals::dataOf(parameter);
    prefetch(data.typeId);
    prefetch(data.name);
    prefetch(data.description);
}

inline void prefetchReferredTypeIds(const Parameter& parameter) {
    visitReferences(parameter, [](const auto& object) { prefetch(typeIdOf(object)); });
}

} // namespace Parameters
