#pragma once

#include "base/RoomyVector.h"
#include "base/TextArena.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Parameters {

/// Fast, and keyed by random numbers, one key per process: who does not know it can hardly write documents whose
/// typeids collide.
[[nodiscard]] std::uint32_t hashOfTypeId(std::string_view typeId) noexcept;

/// Slower, and made for withstanding who tries: for a map in which many typeids collide all the same.
[[nodiscard]] std::uint32_t strongHashOfTypeId(std::string_view typeId) noexcept;

/// A typeid with its hash, which serves the look-ups in several maps.
struct TypeIdKey {
    TypeIdKey() noexcept = default;
    // Implicit, so that a typeid can be looked up as it is.
    // NOLINTBEGIN(google-explicit-constructor)
    TypeIdKey(std::string_view key) noexcept : typeId(key), hash(hashOfTypeId(key)) {}
    TypeIdKey(const std::string& key) noexcept : TypeIdKey(std::string_view(key)) {}
    // NOLINTEND(google-explicit-constructor)

    std::string_view typeId;
    std::uint32_t hash = 0;
};

/// Map from typeid to value: entries stand in the order of insertion, a hash index beside them finds them, and the
/// order by typeid is worked out by whoever needs it. Look-ups take about as long whatever the typeids are: where too
/// many collide, the index goes over to the strong hash.
template <class Value> class TypeIdMap {
public:
    class Entry {
    public:
        /// The typeid must outlive the entry if it is long.
        Entry(std::string_view typeId, Value&& entryValue) : value(std::move(entryValue)), size_(typeId.size()) {
            if (isLong(typeId)) {
                const char* characters = typeId.data();
                std::memcpy(characters_.data(), &characters, sizeof(characters));
            } else {
                std::copy(typeId.begin(), typeId.end(), characters_.begin());
            }
        }

        /// Valid as long as nothing is inserted or erased.
        [[nodiscard]] std::string_view typeId() const noexcept {
            const char* characters = characters_.data();
            if (size_ > characters_.size()) {
                std::memcpy(&characters, characters_.data(), sizeof(characters));
            }
            return {characters, size_};
        }

        /// Whether a typeid does not fit the entry.
        static bool isLong(std::string_view typeId) noexcept { return typeId.size() > capacity; }

        Value value;

    private:
        static constexpr std::size_t capacity = 48;

        std::size_t size_;
        /// The characters or, of a long typeid, where they stand: a look-up waits for one place in memory only.
        std::array<char, capacity> characters_;
    };

    TypeIdMap() noexcept = default;
    TypeIdMap(const TypeIdMap& other)
        : longTypeIds_(other.longTypeIds_), entries_(other.entries_), slots_(other.slots_),
          longestWay_(other.longestWay_), isStrong_(other.isStrong_) {
        // As much as the entries have.
        if (!empty()) {
            reserveMore(entries_.roomOfCopy(size()));
        }
    }
    TypeIdMap(TypeIdMap&& other) noexcept = default;
    TypeIdMap& operator=(const TypeIdMap& other) = delete;
    TypeIdMap& operator=(TypeIdMap&& other) noexcept = default;
    ~TypeIdMap() = default;

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] bool empty() const noexcept { return entries_.empty(); }
    [[nodiscard]] auto begin() noexcept { return entries_.begin(); }
    [[nodiscard]] auto end() noexcept { return entries_.end(); }
    [[nodiscard]] auto begin() const noexcept { return entries_.begin(); }
    [[nodiscard]] auto end() const noexcept { return entries_.end(); }

    [[nodiscard]] Entry& operator[](std::size_t position) noexcept { return entries_[position]; }
    [[nodiscard]] const Entry& operator[](std::size_t position) const noexcept { return entries_[position]; }

    [[nodiscard]] const Value* find(const TypeIdKey& key) const noexcept {
        const Entry* entry = findEntry(key, [&](const Entry& each) { return each.typeId() == key.typeId; });
        return entry != nullptr ? &entry->value : nullptr;
    }
    [[nodiscard]] bool contains(const TypeIdKey& key) const noexcept { return find(key) != nullptr; }

    // A look-up goes from a slot of the index to an entry. Where many are coming, both can be prefetched.

    /// The slot that a look-up of the key reads first, or null.
    [[nodiscard]] const void* slotOf(const TypeIdKey& key) const noexcept {
        return slots_.empty() ? nullptr : &slots_[hashOf(key) & mask()];
    }
    /// The entry that find() reads, but for rare cases: the typeids are not compared. Null where there is none.
    [[nodiscard]] const Entry* findLikely(const TypeIdKey& key) const noexcept {
        return findEntry(key, [](const Entry& /*entry*/) { return true; });
    }

    /// Makes room for a further entry, so that inserting it can't fail.
    void reserveFor(const TypeIdKey& key) {
        reserveMore(1);
        longTypeIds_.reserve(Entry::isLong(key.typeId) ? key.typeId.size() : 0);
    }

    /// Makes room for the entries of another map, so that inserting them can't fail.
    void reserveFor(const TypeIdMap& other) {
        static_assert(std::is_nothrow_move_constructible_v<Value>, "what was reserved must not fail");
        reserveMore(other.size());
        longTypeIds_.reserve(other.longTypeIds_.usedSize());
    }

    /// Adds an entry; the map must not hold the typeid yet. Without room reserved it may fail and then changes nothing.
    void insert(const TypeIdKey& key, Value value) {
        reserveMore(1);
        entries_.emplace_back(kept(longTypeIds_, key.typeId), std::move(value));
        place(Slot{hashOf(key), static_cast<std::uint32_t>(entries_.size() - 1)});
        if (longestWay_ > longestFastWay && !isStrong_) {
            makeStrong();
        }
    }

    /// Removes the entries from a position on for whose values test returns true.
    template <class Test> void eraseIf(std::size_t first, Test test) noexcept {
        const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(first);
        for (std::size_t i = first; i < entries_.size(); ++i) {
            vacate(i);
        }
        const auto lose = [&](const Entry& entry) {
            const bool isErased = test(entry.value);
            if (isErased && Entry::isLong(entry.typeId())) {
                longTypeIds_.discard(entry.typeId().size());
            }
            return isErased;
        };
        entries_.erase(std::remove_if(begin, entries_.end(), lose), entries_.end());
        for (std::size_t i = first; i < entries_.size(); ++i) {
            placeEntry(i);
        }
    }

    /// Gives back memory where little of it is used. It may fail, and then gives back less.
    void shrink() {
        constexpr std::size_t worthIt = 64;
        if (longTypeIds_.isMostlyDiscarded(size())) {
            compact();
        }
        if (entries_.capacity() > 2 * entries_.size() + worthIt) {
            entries_.shrink_to_fit();
            rehash(entries_.size());
        }
    }

    /// The entries in ascending order of their typeids, as unsigned bytes.
    [[nodiscard]] std::vector<const Entry*> sorted() const {
        std::vector<const Entry*> order;
        order.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            order.push_back(&entry);
        }
        const auto byTypeId = [](const Entry* left, const Entry* right) { return left->typeId() < right->typeId(); };
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

    /// No entry of ten million is so far from where it wants to be, but by intent.
    static constexpr std::size_t longestFastWay = 192;

    [[nodiscard]] std::uint32_t hashOf(const TypeIdKey& key) const noexcept {
        return isStrong_ ? strongHashOfTypeId(key.typeId) : key.hash;
    }
    [[nodiscard]] std::uint32_t hashOf(const Entry& entry) const noexcept {
        return isStrong_ ? strongHashOfTypeId(entry.typeId()) : hashOfTypeId(entry.typeId());
    }

    [[nodiscard]] std::size_t mask() const noexcept { return slots_.size() - 1; }

    /// The first entry with the hash of the key that is accepted, or null.
    template <class Accept>
    [[nodiscard]] const Entry* findEntry(const TypeIdKey& key, const Accept& accept) const noexcept {
        if (entries_.empty()) {
            return nullptr;
        }
        const std::uint32_t hash = hashOf(key);
        for (std::size_t way = 0; way <= longestWay_; ++way) {
            const Slot& slot = slots_[(hash + way) & mask()];
            if (slot.entry == vacant) {
                return nullptr;
            }
            if (slot.hash == hash && accept(entries_[slot.entry])) {
                return &entries_[slot.entry];
            }
        }
        return nullptr;
    }

    void reserveMore(std::size_t count) {
        entries_.makeRoom(count);
        const std::size_t needed = entries_.size() + count;
        if (2 * needed > slots_.size()) {
            rehash(needed);
        }
    }

    /// The typeid where it can stay, if it can't be in an entry.
    static std::string_view kept(TextArena& longTypeIds, std::string_view typeId) {
        return Entry::isLong(typeId) ? longTypeIds.add(typeId) : typeId;
    }

    /// Lets go of the long typeids of erased entries.
    void compact() {
        TextArena typeIds;
        typeIds.reserve(longTypeIds_.usedSize());
        for (Entry& entry : entries_) {
            entry = Entry(kept(typeIds, entry.typeId()), std::move(entry.value));
        }
        longTypeIds_ = std::move(typeIds);
    }

    /// The number of slots is a power of two, and at most half of them are taken.
    void rehash(std::size_t needed) {
        std::size_t count = 8;
        while (count < 2 * needed) {
            count *= 2;
        }
        const auto former = std::exchange(slots_, std::vector<Slot>(count));
        longestWay_ = 0;
        for (const Slot& slot : former) {
            if (slot.entry != vacant) {
                place(slot);
            }
        }
    }

    void makeStrong() noexcept {
        isStrong_ = true;
        longestWay_ = 0;
        std::fill(slots_.begin(), slots_.end(), Slot{});
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            placeEntry(i);
        }
    }

    /// Empties the slot of an entry, and moves those behind it that only made way.
    void vacate(std::size_t entry) noexcept {
        std::size_t gap = hashOf(entries_[entry]) & mask();
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

    void placeEntry(std::size_t entry) noexcept {
        place(Slot{hashOf(entries_[entry]), static_cast<std::uint32_t>(entry)});
    }

    void place(Slot taken) noexcept {
        std::size_t way = 0;
        while (slots_[(taken.hash + way) & mask()].entry != vacant) {
            ++way;
        }
        slots_[(taken.hash + way) & mask()] = taken;
        longestWay_ = std::max(longestWay_, way);
    }

    TextArena longTypeIds_;
    RoomyVector<Entry> entries_;
    std::vector<Slot> slots_;
    /// How far an entry may be from the slot that its hash asks for. Look-ups go no further.
    std::size_t longestWay_ = 0;
    bool isStrong_ = false;
};

} // namespace Parameters
