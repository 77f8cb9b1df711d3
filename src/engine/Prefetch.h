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

/// Prefetches what it takes to write an object, where that lies in many places.
template <class Object> void prefetchForWriting(const Object& /*object*/) {}

inline void prefetchForWriting(const Parameter& parameter) {
    const auto prefetchData = [](const auto& object) {
        const auto& data = Internals::dataOf(object);
        prefetch(&data, sizeof(data));
    };
    const auto& data = Internals::dataOf(parameter);
    prefetchData(data.spec);
    prefetchData(data.group);
    std::visit(
        [&](const auto& range) {
            if constexpr (!std::is_same_v<decltype(range), const std::monostate&>) {
                prefetchData(range);
            }
        },
        data.range);
    prefetch(data.typeId);
    prefetch(data.name);
    prefetch(data.description);
}

} // namespace Parameters
