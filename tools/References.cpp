#include "References.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Tool {

const std::set<std::string>& Links::at(const std::string& typeId) const {
    const auto [entry, isNew] = known_.try_emplace(typeId);
    if (isNew) {
        entry->second = referencesOf(catalog_.documents[catalog_.positions.at(typeId)]);
    }
    return entry->second;
}

Links linksToReferrers(const Catalog& catalog) {
    Links links(catalog);
    for (const Document& document : catalog.documents) {
        links.known_.try_emplace(document.typeId);
        for (const std::string& reference : referencesOf(document)) {
            links.known_[reference].insert(document.typeId);
        }
    }
    return links;
}

std::map<std::string, std::size_t> reachableFrom(const Links& links, const std::string& typeId, std::size_t distance) {
    std::map<std::string, std::size_t> reached = {{typeId, 0}};
    std::vector<std::string> last = {typeId};
    for (std::size_t step = 1; !last.empty() && step <= distance; ++step) {
        std::vector<std::string> next;
        for (const std::string& from : last) {
            for (const std::string& neighbour : links.at(from)) {
                if (reached.emplace(neighbour, step).second) {
                    next.push_back(neighbour);
                }
            }
        }
        last = std::move(next);
    }
    return reached;
}

} // namespace Tool
