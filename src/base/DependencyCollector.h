#pragma once

#include "base/Internals.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace Parameters {

/// The data of objects, kept alive so that no others take their places in memory.
using ObjectSet = std::set<std::shared_ptr<const void>>;

/// Collects the typeids that objects depend on, but for some. The list of an object that many refer to is collected
/// once.
struct DependencyCollector {
    /// Takes a test for typeids to leave out.
    explicit DependencyCollector(bool (*test)(std::string_view typeId)) noexcept : isLeftOut(test) {}

    bool (*isLeftOut)(std::string_view typeId);
    std::set<std::string> typeIds;
    /// Objects whose lists have been collected.
    ObjectSet listed;
    /// Objects whose lists nobody needs, or null.
    const ObjectSet* skipped = nullptr;

    void add(const std::string& typeId) {
        if (!isLeftOut(typeId)) {
            typeIds.insert(typeId);
        }
    }

    /// Whether to collect what the object lists.
    template <class Object> [[nodiscard]] bool beginList(const Object& object) {
        const auto& data = Internals::sharedDataOf(object);
        return (skipped == nullptr || skipped->count(data) == 0) && listed.insert(data).second;
    }
};

} // namespace Parameters
