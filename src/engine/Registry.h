#pragma once

#include "base/Text.h"
#include "base/TextArena.h"
#include "engine/KindStore.h"

#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace Parameters {

/// Everything that is known by typeid, each item either finished or pending, of one kind.
class Registry {
public:
    /// Whether the typeid is that of a finished or a pending item.
    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept { return index_.contains(key); }
    /// Refuses an empty typeid, and one that is contained.
    void requireAbsent(const TypeIdKey& key) const;
    [[noreturn]] static void throwAlreadyRegistered(std::string_view typeId);

    /// The finished item of that kind, or null.
    template <class Kind> [[nodiscard]] const auto* find(const TypeIdKey& key) const noexcept {
        return store<Kind>().find(index_, key);
    }
    /// Where the finished item stands, or null.
    [[nodiscard]] const ItemLocation* findFinished(const TypeIdKey& key) const noexcept {
        const ItemLocation* location = index_.find(key);
        return location != nullptr && !location->isPending ? location : nullptr;
    }
    /// Calls visit with the kind and the finished item that stands there.
    template <class Visit> void visitAt(const ItemLocation& location, const Visit& visit) const {
        visitKind(location.kind, [&](auto kind) { visit(kind, store<decltype(kind)>().finished[location.position]); });
    }
    /// The same for a typeid, if it is that of a finished item; whether it is.
    template <class Visit> bool visitFinished(const TypeIdKey& key, const Visit& visit) const {
        const ItemLocation* location = findFinished(key);
        if (location != nullptr) {
            visitAt(*location, visit);
        }
        return location != nullptr;
    }

    template <class Kind> [[nodiscard]] KindStore<Kind>& store() noexcept { return std::get<KindStore<Kind>>(stores_); }
    template <class Kind> [[nodiscard]] const KindStore<Kind>& store() const noexcept {
        return std::get<KindStore<Kind>>(stores_);
    }
    /// Adds the finished items of that kind, and the staged ones, to where references are looked up.
    template <class Kind> void addTo(StoreList<typename Kind::Object>& list) const noexcept {
        list.add(index_, store<Kind>());
    }
    /// Where each item stands.
    [[nodiscard]] const ItemIndex& index() const noexcept { return index_; }

    /// Adds a finished object. The text is copied.
    template <class Kind> void addObject(typename Kind::Object object, std::string_view text);
    /// Adds a pending item, whose typeid must be absent. The text is copied, and so are the texts of the body that are
    /// no parts of it.
    template <class Kind> void addPending(const TypeIdKey& key, typename Kind::Body body, std::string_view text);

    /// Keeps what has been made of the next pending item of its kind. There must be room.
    template <class Kind> void stage(const PendingItem<typename Kind::Body>& item, typename Kind::Object object);
    /// Makes room for finishPending() and then takeFinished() of the other, so that these can't fail half-way.
    void reserveFor(const Registry& other);
    /// Makes all that is pending finished, as it has been staged.
    void finishPending() noexcept;
    /// Forgets what is pending and staged.
    void dropPending() noexcept;
    /// Moves the other's finished objects here, with their texts, but for those whose typeids are known here, of
    /// whatever kind.
    void takeFinished(Registry& other) noexcept;

private:
    template <class Kind, class Item> void add(RoomyVector<Item>& items, const TypeIdKey& key, Item item);
    void compact();

    /// The texts of all items.
    TextArena texts_;
    /// What pending items have read and is no part of their texts.
    TextArena pendingTexts_;
    ItemIndex index_;
    KindStores stores_;
};

template <class Kind> void Registry::addObject(typename Kind::Object object, std::string_view text) {
    const TypeIdKey key(typeIdOf(object));
    requireAbsent(key);
    add<Kind>(store<Kind>().finished, key, {std::move(object), text});
}

template <class Kind> void Registry::addPending(const TypeIdKey& key, typename Kind::Body body, std::string_view text) {
    std::size_t size = 0;
    Kind::visitTexts(body, [&](std::string_view part) { size += isPartOf(part, text) ? 0 : part.size(); });
    pendingTexts_.reserve(size);
    auto& items = store<Kind>().pending;
    add<Kind>(items, key, {Boxed(std::move(body)), text, index_.size()});
    PendingItem<typename Kind::Body>& item = items.back();
    Kind::visitTexts(*item.body, [&](std::string_view& part) {
        part = isPartOf(part, text) ? std::string_view(item.text.data() + (part.data() - text.data()), part.size())
                                    : pendingTexts_.add(part);
    });
}

template <class Kind> void Registry::stage(const PendingItem<typename Kind::Body>& item, typename Kind::Object object) {
    auto& staged = store<Kind>().staged;
    staged.push_back({std::move(object), item.text});
    index_[item.entry].value.data = &Internals::dataOf(staged.back().object);
}

/// Adds an item to a store, with a copy of its text. It may fail where there is no room, and then changes nothing that
/// can be seen.
template <class Kind, class Item> void Registry::add(RoomyVector<Item>& items, const TypeIdKey& key, Item item) {
    items.makeRoom(1);
    index_.reserveFor(key);
    item.text = texts_.add(item.text);
    index_.insert(key, KindStore<Kind>::locationOf(item, items.size()));
    items.push_back(std::move(item));
}

} // namespace Parameters
