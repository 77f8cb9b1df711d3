#pragma once

#include "schema/Prefetch.h"
#include "schema/TextArena.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Parameters {

/// Keyed by where the library was loaded, which makes it hard to write documents whose typeids collide.
[[nodiscard]] std::uint32_t hashOfTypeId(std::string_view typeId) noexcept;

/// A typeid with its hash, which serves the look-ups in several maps.
struct TypeIdKey {
    TypeIdKey() noexcept = default;
    // Implicit, so that a typeid can be looked up as it is.
    TypeIdKey(std::string_view key) noexcept : typeId(key), hash(hashOfTypeId(key)) {}
    TypeIdKey(const std::string& key) noexcept : TypeIdKey(std::string_view(key)) {}

    std::string_view typeId;
    std::uint32_t hash = 0;
};

/// Makes room for that many further items, and when it has to grow, for as many as there are.
template <class Item> void makeRoom(std::vector<Item>& items, std::size_t count) {
    const std::size_t needed = items.size() + count;
    if (needed > items.capacity()) {
        items.reserve(std::max(needed, 2 * items.capacity()));
    }
}

/// Map from typeid to value: entries stand in the order of insertion, a hash index beside them finds them, and the
/// order by typeid is worked out by whoever needs it.
template <class Value> class TypeIdMap {
public:
    struct Entry {
        std::string_view typeId;
        Value value;
    };

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] bool empty() const noexcept { return entries_.empty(); }
    [[nodiscard]] auto begin() noexcept { return entries_.begin(); }
    [[nodiscard]] auto end() noexcept { return entries_.end(); }
    [[nodiscard]] auto begin() const noexcept { return entries_.begin(); }
    [[nodiscard]] auto end() const noexcept { return entries_.end(); }

    [[nodiscard]] Entry& operator[](std::size_t position) noexcept { return entries_[position]; }
    [[nodiscard]] const Entry& operator[](std::size_t position) const noexcept { return entries_[position]; }

    [[nodiscard]] const Value* find(const TypeIdKey& key) const noexcept {
        if (entries_.empty()) {
            return nullptr;
        }
        for (std::size_t i = key.hash & mask();; i = (i + 1) & mask()) {
            const Slot& slot = slots_[i];
            if (slot.entry == vacant) {
                return nullptr;
            }
            if (slot.hash == key.hash && entries_[slot.entry].typeId == key.typeId) {
                return &entries_[slot.entry].value;
            }
        }
    }
    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept { return find(key) != nullptr; }

    /// Has the processor fetch what looking the key up begins with, so that several look-ups wait together.
    void prefetch(const TypeIdKey& key) const noexcept {
        if (!slots_.empty()) {
            Parameters::prefetch(&slots_[key.hash & mask()], sizeof(Slot));
        }
    }

    /// Makes room for a further entry, so that inserting it can't fail.
    void reserveFor(const TypeIdKey& key) {
        reserveMore(1);
        typeIds_.reserve(key.typeId.size());
    }

    /// Makes room for the entries of another map, so that inserting them can't fail.
    void reserveFor(const TypeIdMap& other) {
        static_assert(std::is_nothrow_move_constructible_v<Value>, "what was reserved must not fail");
        reserveMore(other.size());
        typeIds_.reserve(other.typeIds_.usedSize());
    }

    /// Adds an entry; the map must not hold the typeid yet. Without room reserved it may fail and then changes nothing.
    void insert(const TypeIdKey& key, Value value) {
        reserveMore(1);
        entries_.push_back(Entry{typeIds_.add(key.typeId), std::move(value)});
        place(slots_, Slot{key.hash, static_cast<std::uint32_t>(entries_.size() - 1)});
    }

    /// Removes the entries from a position on for whose values test returns true.
    template <class Test> void eraseIf(std::size_t first, Test test) noexcept {
        const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(first);
        for (std::size_t i = first; i < entries_.size(); ++i) {
            vacate(i);
        }
        const auto lose = [&](const Entry& entry) {
            const bool isErased = test(entry.value);
            if (isErased) {
                typeIds_.waste(entry.typeId.size());
            }
            return isErased;
        };
        entries_.erase(std::remove_if(begin, entries_.end(), lose), entries_.end());
        for (std::size_t i = first; i < entries_.size(); ++i) {
            place(slots_, Slot{hashOfTypeId(entries_[i].typeId), static_cast<std::uint32_t>(i)});
        }
    }

    /// The entries in ascending order of their typeids, as unsigned bytes.
    [[nodiscard]] std::vector<const Entry*> sorted() const {
        std::vector<const Entry*> order;
        order.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            order.push_back(&entry);
        }
        const auto byTypeId = [](const Entry* left, const Entry* right) { return left->typeId < right->typeId; };
        // Catalogs often come in this order already.
        if (!std::is_sorted(order.begin(), order.end(), byTypeId)) {
            std::sort(order.begin(), order.end(), byTypeId);
        }
        return order;
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = vacant;
    };
    static constexpr std::uint32_t vacant = 0xFFFFFFFF;

    [[nodiscard]] std::size_t mask() const noexcept { return slots_.size() - 1; }

    void reserveMore(std::size_t count) {
        if (typeIds_.isWasteful(size())) {
            tidyUp();
        }
        makeRoom(entries_, count);
        const std::size_t needed = entries_.size() + count;
        if (2 * needed > slots_.size()) {
            rehash(needed);
        }
    }

    /// Lets go of the typeids of erased entries.
    void tidyUp() {
        TextArena typeIds;
        typeIds.reserve(typeIds_.usedSize());
        for (Entry& entry : entries_) {
            entry.typeId = typeIds.add(entry.typeId);
        }
        typeIds_ = std::move(typeIds);
    }

    /// The number of slots is a power of two, and at most half of them are taken.
    void rehash(std::size_t needed) {
        std::size_t count = 8;
        while (count < 2 * needed) {
            count *= 2;
        }
        std::vector<Slot> slots(count);
        for (const Slot& slot : slots_) {
            if (slot.entry != vacant) {
                place(slots, slot);
            }
        }
        slots_ = std::move(slots);
    }

    /// Empties the slot of an entry, and moves those behind it that only made way.
    void vacate(std::size_t entry) noexcept {
        std::size_t gap = hashOfTypeId(entries_[entry].typeId) & mask();
        while (slots_[gap].entry != entry) {
            gap = (gap + 1) & mask();
        }
        for (std::size_t i = (gap + 1) & mask(); slots_[i].entry != vacant; i = (i + 1) & mask()) {
            const std::size_t wanted = slots_[i].hash & mask();
            if (((i - wanted) & mask()) >= ((i - gap) & mask())) {
                slots_[gap] = slots_[i];
                gap = i;
            }
        }
        slots_[gap] = Slot{};
    }

    static void place(std::vector<Slot>& slots, Slot taken) noexcept {
        std::size_t i = taken.hash & (slots.size() - 1);
        while (slots[i].entry != vacant) {
            i = (i + 1) & (slots.size() - 1);
        }
        slots[i] = taken;
    }

    TextArena typeIds_;
    std::vector<Entry> entries_;
    std::vector<Slot> slots_;
};

} // namespace Parameters
