#pragma once

#include "schema/Rule.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Parameters {

class JSON;
struct SchemaMember;

/// Follows the reading of a document that goes on behind faults, with a default in place of what is at fault. Without
/// an observer the first fault is thrown.
class ReadingObserver {
public:
    /// The text is no JSON from that offset on; nothing of it is read.
    virtual void syntaxError(std::size_t offset, const std::string& message) = 0;
    /// A value, or what it lacks, breaks a rule.
    virtual void fault(Rule rule, const JSON& value, const std::string& message) = 0;
    /// A member of a value has been asked for. What was found is a handle that has nothing where there is none.
    virtual void askedForMember(const JSON& value, std::string_view key, const JSON& found) = 0;
    /// An entry of "constants", "properties" or "enum" has been asked for. What was found is null where there is none.
    virtual void askedForEntry(std::string_view section, std::string_view id, const SchemaMember* found) = 0;

protected:
    ReadingObserver() = default;
    ReadingObserver(const ReadingObserver&) = default;
    ReadingObserver& operator=(const ReadingObserver&) = default;
    ~ReadingObserver() = default;
};

} // namespace Parameters
