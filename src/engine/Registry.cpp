#include "engine/Registry.h"

#include <Parameters/Exceptions.h>

#include <algorithm>
#include <new>

namespace Parameters {

void Registry::requireAbsent(const TypeIdKey& key) const {
    if (key.typeId.empty()) {
        throw ValidationException("Typeid must not be empty.");
    }
    if (contains(key)) {
        throwAlreadyRegistered(key.typeId);
    }
}

void Registry::throwAlreadyRegistered(std::string_view typeId) {
    throw ValidationException(concat({"Schema with typeid ", typeId, " is already registered."}));
}

void Registry::reserveFor(const Registry& other) {
    AllKinds::forEach([&](auto kind) {
        auto& items = store<decltype(kind)>();
        items.finished.makeRoom(items.staged.size() + other.store<decltype(kind)>().finished.size());
    });
    index_.reserveFor(other.index_);
    texts_.reserve(other.texts_.usedSize());
}

void Registry::finishPending() noexcept {
    AllKinds::forEach([&](auto kind) {
        using Kind = decltype(kind);
        auto& items = store<Kind>();
        for (std::size_t i = 0; i < items.pending.size(); ++i) {
            index_[items.pending[i].entry].value = KindStore<Kind>::locationOf(items.staged[i], items.finished.size());
            items.finished.push_back(std::move(items.staged[i]));
        }
        items.clearPending();
    });
    pendingTexts_ = {};
}

void Registry::dropPending() noexcept {
    std::size_t first = index_.size();
    AllKinds::forEach([&](auto kind) {
        auto& items = store<decltype(kind)>();
        if (!items.pending.empty()) {
            first = std::min(first, items.pending.front().entry);
        }
        for (const auto& item : items.pending) {
            texts_.discard(item.text.size());
        }
        items.clearPending();
    });
    pendingTexts_ = {};
    index_.eraseIf(first, [](const ItemLocation& location) { return location.isPending; });
    try {
        index_.shrink();
        compact();
    } catch (const std::bad_alloc&) {
        // It keeps more memory than it needs, until it is dropped from again.
    }
}

void Registry::takeFinished(Registry& other) noexcept {
    for (auto& entry : other.index_) {
        const TypeIdKey key(entry.typeId());
        if (contains(key)) {
            continue;
        }
        visitKind(entry.value.kind, [&](auto kind) {
            using Kind = decltype(kind);
            auto& item = other.store<Kind>().finished[entry.value.position];
            add<Kind>(store<Kind>().finished, key, std::move(item));
        });
    }
}

/// Lets go of the texts of dropped items if they are too many. Nothing is pending then.
void Registry::compact() {
    if (!texts_.isMostlyDiscarded(index_.size())) {
        return;
    }
    TextArena texts;
    texts.reserve(texts_.usedSize());
    AllKinds::forEach([&](auto kind) {
        for (auto& item : store<decltype(kind)>().finished) {
            item.text = texts.add(item.text);
        }
    });
    texts_ = std::move(texts);
}

} // namespace Parameters
