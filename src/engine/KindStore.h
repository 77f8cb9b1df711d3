#pragma once

#include "base/Internals.h"
#include "base/StoreList.h"
#include "engine/Kinds.h"
#include "engine/PendingItem.h"

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>

namespace Parameters {

/// The number by which an index names a kind.
template <class Kind> constexpr auto kindNumber = static_cast<std::uint8_t>(AllKinds::positionOf<Kind>());

/// Calls visit with the kind of that number.
template <class Visit> void visitKind(std::uint8_t number, Visit visit) {
    AllKinds::any([&](auto kind) {
        const bool isMeant = kindNumber<decltype(kind)> == number;
        if (isMeant) {
            visit(kind);
        }
        return isMeant;
    });
}

/// All items of one kind.
template <class Kind> struct KindStore : ObjectStore<typename Kind::Object> {
    using Object = typename Kind::Object;
    using Body = typename Kind::Body;

    KindStore() noexcept : ObjectStore<Object>{kindNumber<Kind>, {}, {}} {}

    RoomyVector<PendingItem<Body>> pending;

    void clearPending() noexcept {
        pending = RoomyVector<PendingItem<Body>>();
        this->staged = RoomyVector<FinishedItem<Object>>();
    }

    [[nodiscard]] static ItemLocation locationOf(const FinishedItem<Object>& item, std::size_t position) noexcept {
        return {kindNumber<Kind>, false, static_cast<std::uint32_t>(position), &Internals::dataOf(item.object)};
    }
    [[nodiscard]] static ItemLocation locationOf(const PendingItem<Body>& /*item*/, std::size_t position) noexcept {
        return {kindNumber<Kind>, true, static_cast<std::uint32_t>(position), nullptr};
    }
};

template <class... Kinds> std::tuple<KindStore<Kinds>...> kindStoresOf(KindList<Kinds...>);

/// A store for each kind.
using KindStores = decltype(kindStoresOf(AllKinds{}));

} // namespace Parameters
