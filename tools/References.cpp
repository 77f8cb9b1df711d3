#include "References.h"

#include "Text.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Tool {

namespace {

using Positions = std::vector<std::size_t>;

/// Strongly connected components of the graph of references, by Tarjan's algorithm; iterative, because references may
/// go deep. A component comes after those that it refers to.
class Components {
public:
    explicit Components(const Catalog& catalog) : catalog_(catalog), visits_(catalog.documents.size()) {
        for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
            if (catalog.documents[position].state != DocumentState::Refused && visits_[position].number == 0) {
                visitFrom(position);
            }
        }
    }

    [[nodiscard]] const std::vector<Positions>& all() const { return components_; }

private:
    struct Visit {
        /// In the order of visits, starting at 1; 0 before the visit.
        std::size_t number = 0;
        /// Smallest number known to be reachable within the component.
        std::size_t lowest = 0;
        bool isInComponent = false;
        std::set<std::string>::const_iterator nextReference;
    };

    void visitFrom(std::size_t start) {
        Positions path;
        const auto enter = [&](std::size_t position) {
            ++count_;
            visits_[position] = {count_, count_, false, catalog_.documents[position].references.begin()};
            path.push_back(position);
            open_.push_back(position);
        };
        enter(start);
        while (!path.empty()) {
            const std::size_t position = path.back();
            Visit& visit = visits_[position];
            if (visit.nextReference != catalog_.documents[position].references.end()) {
                const auto target = catalog_.positions.find(*visit.nextReference++);
                if (target == catalog_.positions.end()) {
                    continue;
                }
                const Visit& next = visits_[target->second];
                if (next.number == 0) {
                    enter(target->second);
                } else if (!next.isInComponent) {
                    visit.lowest = std::min(visit.lowest, next.number);
                }
                continue;
            }
            path.pop_back();
            if (visit.lowest == visit.number) {
                closeComponent(position);
            } else {
                Visit& referrer = visits_[path.back()];
                referrer.lowest = std::min(referrer.lowest, visit.lowest);
            }
        }
    }

    /// Takes all documents entered since the first one that are in no component yet.
    void closeComponent(std::size_t first) {
        const auto begin = std::find(open_.rbegin(), open_.rend(), first).base() - 1;
        components_.emplace_back(begin, open_.end());
        open_.erase(begin, open_.end());
        for (const std::size_t position : components_.back()) {
            visits_[position].isInComponent = true;
        }
    }

    const Catalog& catalog_;
    std::vector<Visit> visits_;
    std::size_t count_ = 0;
    Positions open_;
    std::vector<Positions> components_;
};

std::string missingMessage(const std::string& typeId, const std::map<std::string, const Document*>& refused) {
    const auto entry = refused.find(typeId);
    return entry == refused.end()
               ? fmt::format("Refers to {}, which no document defines.", typeId)
               : fmt::format("Refers to {}, which was rejected in {}.", typeId, formatOrigin(entry->second->origin));
}

/// Bounded, because the message is repeated for each document of the cycle.
std::string formatCycle(const Catalog& catalog, const Positions& cycle) {
    constexpr std::size_t mostNamed = 10;
    std::vector<std::string> typeIds;
    for (std::size_t step = 0; step < std::min(cycle.size(), mostNamed); ++step) {
        typeIds.push_back(catalog.documents[cycle[step]].typeId);
    }
    return fmt::format("{}{}", fmt::join(typeIds, ", "),
                       cycle.size() > mostNamed ? fmt::format(" and {} more", cycle.size() - mostNamed) : "");
}

} // namespace

void reportMissingReferences(Catalog& catalog) {
    std::map<std::string, const Document*> refused;
    for (const Document& document : catalog.documents) {
        if (document.state == DocumentState::Refused && !document.typeId.empty()) {
            refused.emplace(document.typeId, &document);
        }
    }
    for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
        Document& document = catalog.documents[position];
        for (const std::string& typeId : document.references) {
            if (document.state != DocumentState::Refused && catalog.positions.count(typeId) == 0) {
                catalog.errors.push_back({position, missingMessage(typeId, refused)});
                document.state = DocumentState::Invalid;
            }
        }
    }
}

Positions inOrderOfReferences(Catalog& catalog) {
    Positions order;
    const Components components(catalog);
    for (const Positions& component : components.all()) {
        order.insert(order.end(), component.begin(), component.end());
        if (component.size() == 1) {
            continue;
        }
        const std::string message = fmt::format("Circular reference: {}.", formatCycle(catalog, component));
        for (const std::size_t position : component) {
            catalog.documents[position].state = DocumentState::Invalid;
            catalog.errors.push_back({position, message});
        }
    }
    return order;
}

Links linksToReferences(const Catalog& catalog) {
    Links links;
    for (const Document& document : catalog.documents) {
        if (document.state == DocumentState::Finished) {
            links.emplace(document.typeId, document.references);
        }
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
