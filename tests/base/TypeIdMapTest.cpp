#include "base/TypeIdMap.h"

#include <gtest/gtest.h>

#include <initializer_list>
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

TEST(TypeIdMapTest, ErasesByValueAndStillFindsTheRest) {
    for (const std::size_t first : std::initializer_list<std::size_t>{0, 1, 150, 299, 300}) {
        TypeIdMap<std::size_t> map;
        for (std::size_t i = 0; i < 300; ++i) {
            map.insert(numbered(i), i);
        }
        map.eraseIf(first, [](std::size_t value) { return value % 3 != 1; });
        // Lets go of what the erased ones took.
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
