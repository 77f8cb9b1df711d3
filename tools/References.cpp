#include "References.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Tool {

Links linksToReferences(const Catalog& catalog) {
    Links links;
    for (const Document& document : catalog.documents) {
        links.emplace(document.typeId, referencesOf(document));
    }
    return links;
}

Links linksToReferrers(const Catalog& catalog) {
    Links links;
    for (const auto& [typeId, references] : linksToReferences(catalog)) {
        links.try_emplace(typeId);
        for (const std::string& reference : references) {
            links[reference].insert(typeId);
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
