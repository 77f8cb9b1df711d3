#pragma once

#include "engine/Kinds.h"
#include "engine/StoreList.h"
#include "schema/Text.h"

#include <Parameters/Exceptions.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace Parameters {

/// A value of its own on the heap, so that what holds it is cheap to move.
template <class Value> class Boxed {
public:
    Boxed(Value value) : value_(std::make_unique<Value>(std::move(value))) {}
    Boxed(const Boxed& other) : value_(std::make_unique<Value>(*other.value_)) {}
    Boxed(Boxed&& other) noexcept = default;
    Boxed& operator=(const Boxed& other) { return *this = Boxed(other); }
    Boxed& operator=(Boxed&& other) noexcept = default;
    ~Boxed() = default;

    [[nodiscard]] Value& operator*() noexcept { return *value_; }

private:
    std::unique_ptr<Value> value_;
};

/// A schema that has been read and waits for its resolution, with its text byte for byte.
template <class Body> struct PendingSchema {
    Boxed<Body> body;
    std::string text;
};

/// All items of one kind.
template <class Kind> struct KindStore {
    using Object = typename Kind::Object;

    TypeIdMap<PendingSchema<typename Kind::Body>> pending;
    ObjectMap<Object> finished;

    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept {
        return finished.contains(key) || pending.contains(key);
    }

    [[nodiscard]] const Object& lookupObject(const TypeIdKey& key) const {
        const auto* item = finished.find(key);
        if (item == nullptr) {
            throw UnrecognizedIdentifierException(
                joined({"Could not find ", Kind::name, " with typeid ", key.typeId, "."}));
        }
        return item->object;
    }
};

/// One store for each kind. A typeid stands in at most one of them, either finished or pending; the store that holds it
/// tells the item's kind.
class Registry {
public:
    template <class Kind> [[nodiscard]] KindStore<Kind>& store() noexcept { return std::get<KindStore<Kind>>(stores_); }
    template <class Kind> [[nodiscard]] const KindStore<Kind>& store() const noexcept {
        return std::get<KindStore<Kind>>(stores_);
    }

    /// Whether the typeid is that of a finished object or of a pending schema.
    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept {
        return AllKinds::any([&](auto kind) { return store<decltype(kind)>().contains(key); });
    }

    /// Calls visit with the kind and the item if the typeid is that of a finished object; whether it is.
    template <class Visit> bool visitFinished(const TypeIdKey& key, Visit visit) const {
        return AllKinds::any([&](auto kind) {
            const auto* item = store<decltype(kind)>().finished.find(key);
            if (item != nullptr) {
                visit(kind, *item);
            }
            return item != nullptr;
        });
    }

    void requireAbsent(const TypeIdKey& key) const {
        if (key.typeId.empty()) {
            throw ValidationException("Typeid must not be empty.");
        }
        if (contains(key)) {
            raiseAlreadyRegistered(key.typeId);
        }
    }

    [[noreturn]] static void raiseAlreadyRegistered(std::string_view typeId) {
        throw ValidationException(joined({"Schema with typeid ", typeId, " is already registered."}));
    }

    template <class Kind> void addObject(FinishedItem<typename Kind::Object> item) {
        std::string typeId = typeIdOf(item.object);
        requireAbsent(typeId);
        store<Kind>().finished.insert(std::move(typeId), std::move(item));
    }

private:
    template <class... Kinds> static std::tuple<KindStore<Kinds>...> storesOf(KindList<Kinds...>);

    decltype(storesOf(AllKinds{})) stores_;
};

} // namespace Parameters
