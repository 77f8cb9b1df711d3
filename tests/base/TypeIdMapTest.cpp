#include "base/TypeIdMap.h"
#include "base/SipHash.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

namespace Parameters {
namespace {

/// Typeids of all lengths around that from which they are kept apart, and some that are much longer.
std::string numbered(std::size_t number) {
    const std::size_t extra = number % 7 == 0 ? 1000 : number % 60;
    return "acme:" + std::string(extra, 'x') + std::to_string(number) + "-1.0.0";
}

/// Two typeids with one hash.
std::pair<std::string, std::string> collidingTypeIds() {
    std::unordered_map<std::uint32_t, std::size_t> seen;
    for (std::size_t i = 0;; ++i) {
        const auto [entry, added] = seen.emplace(hashOfTypeId(numbered(i)), i);
        if (!added) {
            return {numbered(entry->second), numbered(i)};
        }
    }
}

TEST(TypeIdMapTest, FindsEveryEntryAtEverySize) {
    TypeIdMap<std::size_t> map;
    for (std::size_t count = 0; count <= 300; ++count) {
        ASSERT_EQ(map.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t* found = map.find(numbered(i));
            ASSERT_TRUE(found != nullptr && *found == i) << i << " of " << count;
        }
        ASSERT_FALSE(map.contains(numbered(count))) << count;
        map.insert(numbered(count), count);
    }
}

TEST(TypeIdMapTest, TellsTypeIdsOfOneHashApart) {
    const auto [first, second] = collidingTypeIds();
    TypeIdMap<int> map;
    map.insert(first, 1);
    EXPECT_EQ(map.find(second), nullptr);
    map.insert(second, 2);
    EXPECT_EQ(*map.find(first), 1);
    EXPECT_EQ(*map.find(second), 2);
}

/// A typeid as it would be if all of them had one hash.
TypeIdKey collidingKey(const std::string& typeId) {
    TypeIdKey key(typeId);
    key.hash = 7;
    return key;
}

TEST(TypeIdMapTest, SpreadsTypeIdsOfOneHashOnceTheyAreMany) {
    constexpr std::size_t count = 5000;
    TypeIdMap<std::size_t> map;
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_FALSE(map.contains(collidingKey(numbered(i)))) << i;
        map.insert(collidingKey(numbered(i)), i);
    }
    std::set<const void*> slots;
    for (const TypeIdMap<std::size_t>& each : {map, TypeIdMap<std::size_t>(map)}) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t* found = each.find(collidingKey(numbered(i)));
            ASSERT_TRUE(found != nullptr && *found == i) << i;
            slots.insert(each.slotOf(collidingKey(numbered(i))));
        }
    }
    EXPECT_GT(slots.size(), count);
    map.eraseIf(100, [](std::size_t value) { return value % 2 == 0; });
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_EQ(map.contains(collidingKey(numbered(i))), i < 100 || i % 2 != 0) << i;
    }
}

TEST(TypeIdMapTest, TakesMoreInACopyWithoutMovingWhatItHas) {
    for (const int size : {1, 7, 8, 1000, 65'536}) {
        TypeIdMap<int> map;
        for (int i = 0; i < size; ++i) {
            map.insert(std::to_string(i), i);
        }
        TypeIdMap<int> copy = map;
        const auto* first = &copy[0];
        const void* slot = copy.slotOf(std::string("0"));
        copy.insert(std::string("new"), -1);
        EXPECT_EQ(&copy[0], first) << size;
        EXPECT_EQ(copy.slotOf(std::string("0")), slot) << size;
        EXPECT_FALSE(map.contains(std::string("new"))) << size;
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(*copy.find(std::to_string(i)), i) << size;
        }
    }
}

TEST(SipHashTest, HashesAsPublished) {
    // As Python hashes bytes, with the keys that it makes of PYTHONHASHSEED=0 and 1.
    constexpr SipHash::Key zero = {0, 0};
    constexpr SipHash::Key key = {0xaed66ce184be2329, 0xebe9bbf1f1499052};
    EXPECT_EQ(SipHash::of("a", zero), 0x407448d2b89b1813u);
    EXPECT_EQ(SipHash::of("a", key), 0xd6300bc9f7cc0e73u);
    EXPECT_EQ(SipHash::of("abcdefg", key), 0x2cc75771f0205010u);
    EXPECT_EQ(SipHash::of("abcdefgh", key), 0xfd3011ff3947e7f4u);
    EXPECT_EQ(SipHash::of(std::string(9, '\xff'), key), 0xb59a142383b9c1a6u);
    EXPECT_EQ(SipHash::of("abcdefghijklm", key), 0xc7ea427d7305c7e9u);
    EXPECT_EQ(SipHash::of("acme:parameter-1.0.0", key), 0xd5d75c6ad56ff81au);
    EXPECT_EQ(SipHash::of(std::string(1000, 'x'), key), 0x5d5a886a4b1a1f77u);
}

TEST(TypeIdMapTest, ErasesByValueAndStillFindsTheRest) {
    for (const std::size_t first : std::initializer_list<std::size_t>{0, 1, 150, 299, 300}) {
        TypeIdMap<std::size_t> map;
        for (std::size_t i = 0; i < 300; ++i) {
            map.insert(numbered(i), i);
        }
        map.eraseIf(first, [](std::size_t value) { return value % 3 != 1; });
        map.shrink();
        map.insert(numbered(300), 300);
        for (std::size_t i = 0; i <= 300; ++i) {
            const std::size_t* found = map.find(numbered(i));
            ASSERT_EQ(found != nullptr, i < first || i % 3 == 1 || i == 300) << i << " from " << first;
            ASSERT_TRUE(found == nullptr || *found == i) << i << " from " << first;
        }
    }
}

} // namespace
} // namespace Parameters
