#include "diagnosis/DocumentObserver.h"

#include "engine/ValidationExceptionFactory.h"

namespace Parameters {

void DocumentObserver::syntaxError(std::size_t offset, const std::string& message) {
    syntaxErrorOffset = offset;
    findings.push_back({Rule::InvalidJson, nullptr, nullptr, false, message, {}});
}

void DocumentObserver::fault(Rule rule, const JSON& value, const std::string& message) {
    findings.push_back({rule, value.identity(), nullptr, false, message, {}});
}

void DocumentObserver::askedForMember(const JSON& value, std::string_view key, const JSON& found) {
    if (value.isObject()) {
        askedMembers.push_back({value.identity(), value.getSize(), key, found.identity()});
    }
}

void DocumentObserver::askedForEntry(std::string_view section, std::string_view id, const SchemaMember* found) {
    // Who asks may do so with an id of its own, which is soon gone.
    askedEntries.push_back({section, found != nullptr ? found->id : id, found != nullptr});
}

void DocumentObserver::clear() {
    findings.clear();
    syntaxErrorOffset.reset();
    askedMembers.clear();
    askedEntries.clear();
}

std::exception_ptr ObservedFactory::createException(const std::string& message) const {
    return ValidationExceptionFactory().createException(message);
}

} // namespace Parameters
