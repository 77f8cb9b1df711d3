#pragma once

#include "base/StoreList.h"
#include "base/Text.h"
#include "engine/Kinds.h"
#include "engine/Prefetch.h"

#include <Parameters/Exceptions.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace Parameters {

/// A value of its own on the heap, so that what holds it is cheap to move.
template <class Value> class Boxed {
public:
    explicit Boxed(Value value) : value_(std::make_unique<Value>(std::move(value))) {}
    Boxed(const Boxed& other) : value_(std::make_unique<Value>(*other.value_)) {}
    Boxed(Boxed&& other) noexcept = default;
    Boxed& operator=(const Boxed& other) { return *this = Boxed(other); }
    Boxed& operator=(Boxed&& other) noexcept = default;
    ~Boxed() = default;

    [[nodiscard]] Value& operator*() noexcept { return *value_; }

    /// The value, whose memory is free from then on.
    [[nodiscard]] Value take() noexcept {
        const auto taken = std::exchange(value_, nullptr);
        return std::move(*taken);
    }

private:
    std::unique_ptr<Value> value_;
};

/// A schema that has been read and waits for its resolution, with its text byte for byte, which is kept elsewhere.
template <class Body> struct PendingItem {
    Boxed<Body> body;
    std::string_view text;
    /// Its position in the registry's index.
    std::size_t entry;
};

/// All items of one kind.
template <class Kind> struct KindStore : ObjectStore<typename Kind::Object> {
    KindStore() noexcept
        : ObjectStore<typename Kind::Object>{static_cast<std::uint8_t>(AllKinds::positionOf<Kind>()), {}, {}} {}

    void clearPending() noexcept {
        pending = std::vector<PendingItem<typename Kind::Body>>();
        this->staged = std::vector<FinishedItem<typename Kind::Object>>();
    }

    std::vector<PendingItem<typename Kind::Body>> pending;
};

/// Everything that is known by typeid, each item either finished or pending, of one kind.
class Registry {
public:
    /// Whether the typeid is that of a finished object or of a pending schema.
    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept { return index_.contains(key); }

    // What a look-up waits for in a large registry, to be fetched before. Each reads what the one before it fetches.

    void prefetchIndex(const TypeIdKey& key) const noexcept { index_.prefetchIndex(key); }
    void prefetchEntry(const TypeIdKey& key) const noexcept { index_.prefetchEntry(key); }
    void prefetchItem(const TypeIdKey& key) const noexcept {
        const ItemLocation* place = index_.findLikelyValue(key);
        if (place == nullptr || place->data == nullptr) {
            return;
        }
        visitKind(place->kind, [&](auto kind) {
            const auto& items = store<decltype(kind)>();
            prefetch(items.at(*place), sizeof(*items.at(*place)));
        });
    }

    template <class Kind> [[nodiscard]] KindStore<Kind>& store() noexcept { return std::get<KindStore<Kind>>(stores_); }
    template <class Kind> [[nodiscard]] const KindStore<Kind>& store() const noexcept {
        return std::get<KindStore<Kind>>(stores_);
    }

    [[nodiscard]] std::string_view typeIdAt(std::size_t entry) const noexcept { return index_[entry].typeId(); }

    /// The finished object, or null.
    template <class Kind> [[nodiscard]] const auto* find(const TypeIdKey& key) const noexcept {
        return store<Kind>().find(index_, key);
    }

    template <class Kind> [[nodiscard]] const typename Kind::Object& lookupObject(const TypeIdKey& key) const {
        const auto* item = find<Kind>(key);
        if (item == nullptr) {
            throw UnrecognizedIdentifierException(
                concat({"Could not find ", Kind::name, " with typeid ", key.typeId, "."}));
        }
        return item->object;
    }

    /// Calls visit with the kind and the item if the typeid is that of a finished object; whether it is.
    template <class Visit> bool visitFinished(const TypeIdKey& key, Visit visit) const {
        const ItemLocation* place = index_.find(key);
        if (place == nullptr || place->isPending) {
            return false;
        }
        visitKind(place->kind, [&](auto kind) {
            using Kind = decltype(kind);
            using Data = decltype(Internals::dataOf(std::declval<typename Kind::Object>()));
            prefetch(place->data, sizeof(Data));
            visit(kind, store<Kind>().finished[place->position]);
        });
        return true;
    }

    template <class Kind> void addTo(StoreList<typename Kind::Object>& list) const noexcept {
        list.add(index_, store<Kind>());
    }

    void requireAbsent(const TypeIdKey& key) const {
        if (key.typeId.empty()) {
            throw ValidationException("Typeid must not be empty.");
        }
        if (contains(key)) {
            throwAlreadyRegistered(key.typeId);
        }
    }

    [[noreturn]] static void throwAlreadyRegistered(std::string_view typeId) {
        throw ValidationException(concat({"Schema with typeid ", typeId, " is already registered."}));
    }

    /// The text is copied.
    template <class Kind> void addObject(typename Kind::Object object, std::string_view text) {
        const TypeIdKey key(typeIdOf(object));
        requireAbsent(key);
        compact();
        add<Kind>(store<Kind>().finished, key, {std::move(object), text});
    }

    /// The typeid must be absent. The text is copied, and so are the texts of the body that are no parts of it.
    template <class Kind> void addPending(const TypeIdKey& key, typename Kind::Body body, std::string_view text) {
        compact();
        std::size_t size = 0;
        Kind::visitTexts(body, [&](std::string_view part) { size += isPartOf(part, text) ? 0 : part.size(); });
        pendingTexts_.reserve(size);
        auto& schemas = store<Kind>().pending;
        add<Kind>(schemas, key, {Boxed(std::move(body)), text, index_.size()});
        PendingItem<typename Kind::Body>& schema = schemas.back();
        Kind::visitTexts(*schema.body, [&](std::string_view& part) {
            part = isPartOf(part, text)
                       ? std::string_view(schema.text.data() + (part.data() - text.data()), part.size())
                       : pendingTexts_.add(part);
        });
    }

    /// Keeps what has been made of the next pending schema of its kind. There must be room.
    template <class Kind> void stage(const PendingItem<typename Kind::Body>& schema, typename Kind::Object object) {
        auto& staged = store<Kind>().staged;
        staged.push_back({std::move(object), schema.text});
        index_[schema.entry].value.data = &Internals::dataOf(staged.back().object);
    }

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
    template <class... Kinds> static std::tuple<KindStore<Kinds>...> storesOf(KindList<Kinds...>);

    /// Calls visit with the kind of that number.
    template <class Visit> static void visitKind(std::uint8_t number, Visit visit) {
        AllKinds::any([&](auto kind) {
            const bool isMeant = AllKinds::positionOf<decltype(kind)>() == number;
            if (isMeant) {
                visit(kind);
            }
            return isMeant;
        });
    }

    template <class Kind>
    [[nodiscard]] static ItemLocation placeOf(const FinishedItem<typename Kind::Object>& item,
                                              std::size_t position) noexcept {
        return {static_cast<std::uint8_t>(AllKinds::positionOf<Kind>()), false, static_cast<std::uint32_t>(position),
                &Internals::dataOf(item.object)};
    }
    template <class Kind>
    [[nodiscard]] static ItemLocation placeOf(const PendingItem<typename Kind::Body>& /*schema*/,
                                              std::size_t position) noexcept {
        return {static_cast<std::uint8_t>(AllKinds::positionOf<Kind>()), true, static_cast<std::uint32_t>(position),
                nullptr};
    }

    /// Adds an item to a store, with a copy of its text. It may fail where there is no room, and then changes nothing
    /// that can be seen.
    template <class Kind, class Item> void add(std::vector<Item>& items, const TypeIdKey& key, Item item) {
        makeRoom(items, 1);
        index_.reserveFor(key);
        item.text = texts_.add(item.text);
        index_.insert(key, placeOf<Kind>(item, items.size()));
        items.push_back(std::move(item));
    }

    /// Lets go of the texts of dropped schemas if they are too many.
    void compact();

    /// The texts of all items.
    TextArena texts_;
    /// What pending schemas have read and is no part of their texts.
    TextArena pendingTexts_;
    ItemIndex index_;
    decltype(storesOf(AllKinds{})) stores_;
};

} // namespace Parameters
