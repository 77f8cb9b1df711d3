#include "schema/TypeIdMap.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

std::string numbered(std::size_t number) { return "acme.building:spec." + std::to_string(number) + "-1.0.0"; }

TypeIdMap<std::size_t> mapOf(std::size_t count) {
    TypeIdMap<std::size_t> map;
    for (std::size_t i = 0; i < count; ++i) {
        map.insert(numbered(i), i);
    }
    return map;
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

TEST(TypeIdMapTest, FindsNothingInAnEmptyMap) {
    TypeIdMap<int> map;
    EXPECT_EQ(map.find(std::string()), nullptr);
    map.reserveMore(10);
    EXPECT_EQ(map.find(std::string("a")), nullptr);
    EXPECT_TRUE(map.empty());
    EXPECT_TRUE(map.sorted().empty());
}

TEST(TypeIdMapTest, FindsEveryEntryAtEverySize) {
    TypeIdMap<std::size_t> map;
    for (std::size_t count = 1; count <= 300; ++count) {
        map.insert(numbered(count - 1), count - 1);
        ASSERT_EQ(map.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t* found = map.find(numbered(i));
            ASSERT_NE(found, nullptr) << i << " of " << count;
            ASSERT_EQ(*found, i);
        }
        ASSERT_FALSE(map.contains(numbered(count))) << count;
    }
}

TEST(TypeIdMapTest, TellsTypeIdsOfOneHashApart) {
    const auto [first, second] = collidingTypeIds();
    TypeIdMap<int> map;
    map.insert(first, 1);
    EXPECT_EQ(map.find(second), nullptr);
    map.insert(second, 2);
    ASSERT_NE(map.find(first), nullptr);
    ASSERT_NE(map.find(second), nullptr);
    EXPECT_EQ(*map.find(first), 1);
    EXPECT_EQ(*map.find(second), 2);
}

TEST(TypeIdMapTest, TakesWhatWasReservedWithoutMovingAnything) {
    TypeIdMap<std::size_t> map = mapOf(5);
    map.reserveMore(1000);
    const std::size_t* first = map.find(numbered(0));
    for (std::size_t i = 5; i < 1005; ++i) {
        map.insert(numbered(i), i);
    }
    EXPECT_EQ(map.find(numbered(0)), first);
    EXPECT_EQ(*map.find(numbered(1004)), 1004u);
}

TEST(TypeIdMapTest, KeepsTheOrderOfInsertionAndSortsByBytes) {
    TypeIdMap<int> map;
    const std::vector<std::string> inserted = {"b", "\xC3\xA9", "a-1.0.0", "", "a", "Z"};
    for (const std::string& typeId : inserted) {
        map.insert(typeId, 0);
    }
    std::vector<std::string> order;
    for (const auto& entry : map) {
        order.push_back(entry.typeId);
    }
    EXPECT_EQ(order, inserted);

    std::vector<std::string> sorted;
    for (const auto* entry : std::as_const(map).sorted()) {
        sorted.push_back(entry->typeId);
    }
    EXPECT_EQ(sorted, (std::vector<std::string>{"", "Z", "a", "a-1.0.0", "b", "\xC3\xA9"}));
}

TEST(TypeIdMapTest, CopiesAreIndependentAndMovedFromMapsAreEmpty) {
    TypeIdMap<std::size_t> original = mapOf(20);
    TypeIdMap<std::size_t> copy = original;
    copy.insert("only in the copy", 0);
    EXPECT_FALSE(original.contains(std::string("only in the copy")));
    EXPECT_EQ(*copy.find(numbered(19)), 19u);

    const TypeIdMap<std::size_t> taken = std::exchange(original, {});
    EXPECT_EQ(*taken.find(numbered(19)), 19u);
    EXPECT_TRUE(original.empty());
    EXPECT_FALSE(original.contains(numbered(19)));
    original.insert("again", 1);
    EXPECT_EQ(*original.find(std::string("again")), 1u);
}

} // namespace
} // namespace Parameters
