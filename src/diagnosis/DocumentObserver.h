#pragma once

#include "schema/JSON.h"
#include "schema/SchemaDocument.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

/// Something to be said of a value of a document whose tree still stands.
struct Finding {
    Rule rule;
    /// Of the value; null for the root.
    const void* identity = nullptr;
    /// Where the value is known by its characters alone: those of a string.
    const char* characters = nullptr;
    /// Whether it is said of the name of a member, not of its value.
    bool isOfName = false;
    std::string message;
    std::string suggestion;
};

/// Collects what the readers of one document report and ask for.
class DocumentObserver final : public ReadingObserver {
public:
    /// A member that a reader has asked an object for.
    struct AskedMember {
        const void* object;
        /// The number of the object's members.
        std::size_t size;
        std::string_view key;
        /// The member, or null where there is none.
        const void* found;
    };
    /// An entry of a section that a reader has asked for.
    struct AskedEntry {
        std::string_view section;
        std::string_view id;
        bool isFound;
    };

    void syntaxError(std::size_t offset, const std::string& message) override;
    void fault(Rule rule, const JSON& value, const std::string& message) override;
    void askedForMember(const JSON& value, std::string_view key, const JSON& found) override;
    void askedForEntry(std::string_view section, std::string_view id, const SchemaMember* found) override;

    /// Forgets everything, for the next document.
    void clear();

    std::vector<Finding> findings;
    /// Where the text ceased to be JSON.
    std::optional<std::size_t> syntaxErrorOffset;
    std::vector<AskedMember> askedMembers;
    std::vector<AskedEntry> askedEntries;
};

/// A factory of readings that are followed.
class ObservedFactory final : public ExceptionFactory {
public:
    explicit ObservedFactory(DocumentObserver& observer) : ExceptionFactory(&observer) {}

    [[nodiscard]] std::exception_ptr createException(const std::string& message) const override;
};

} // namespace Parameters
