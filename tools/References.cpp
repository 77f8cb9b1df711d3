#include "References.h"

#include "Text.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <utility>

namespace Tool {

namespace {

using Positions = std::vector<std::size_t>;

/// Takes documents whose references have all been taken before, until only rings of references are left.
class Ordering {
public:
    explicit Ordering(const Catalog& catalog)
        : catalog_(catalog), referrers_(referrersOf(catalog)), waitingFor_(catalog.documents.size()),
          isTaken_(catalog.documents.size()) {
        for (const Positions& referrers : referrers_) {
            for (const std::size_t referrer : referrers) {
                ++waitingFor_[referrer];
            }
        }
        for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
            if (catalog.documents[position].state == DocumentState::Refused) {
                isTaken_[position] = true;
            } else if (waitingFor_[position] == 0) {
                take(position);
            }
        }
        takeFollowers();
    }

    [[nodiscard]] const Positions& order() const { return order_; }

    /// The ring behind the first document that has not been taken; empty if all have been.
    [[nodiscard]] Positions nextRing() {
        while (next_ < isTaken_.size() && isTaken_[next_]) {
            ++next_;
        }
        if (next_ == isTaken_.size()) {
            return {};
        }
        Positions path;
        std::map<std::size_t, std::size_t> steps;
        std::size_t position = next_;
        // A document that has not been taken refers to another such one, so this ends where it has been before.
        while (steps.emplace(position, path.size()).second) {
            path.push_back(position);
            position = openReferenceOf(position);
        }
        path.erase(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(steps.at(position)));
        return path;
    }

    void takeRing(const Positions& ring) {
        for (const std::size_t position : ring) {
            take(position);
        }
        takeFollowers();
    }

private:
    void take(std::size_t position) {
        isTaken_[position] = true;
        order_.push_back(position);
    }

    void takeFollowers() {
        for (; followed_ < order_.size(); ++followed_) {
            for (const std::size_t referrer : referrers_[order_[followed_]]) {
                if (--waitingFor_[referrer] == 0 && !isTaken_[referrer]) {
                    take(referrer);
                }
            }
        }
    }

    [[nodiscard]] std::size_t openReferenceOf(std::size_t position) const {
        const Document& document = catalog_.documents[position];
        const auto reference =
            std::find_if(document.references.begin(), document.references.end(), [&](const std::string& typeId) {
                const auto entry = catalog_.positions.find(typeId);
                return entry != catalog_.positions.end() && entry->second != position && !isTaken_[entry->second];
            });
        return catalog_.positions.at(*reference);
    }

    const Catalog& catalog_;
    std::vector<Positions> referrers_;
    std::vector<std::size_t> waitingFor_;
    std::vector<bool> isTaken_;
    Positions order_;
    /// How many of those taken have been followed to their referrers.
    std::size_t followed_ = 0;
    std::size_t next_ = 0;
};

std::string missingMessage(const std::string& typeId, const std::map<std::string, const Document*>& refused) {
    const auto entry = refused.find(typeId);
    return entry == refused.end()
               ? fmt::format("Refers to {}, which no document defines.", typeId)
               : fmt::format("Refers to {}, which was refused in {}.", typeId, wordsFor(entry->second->origin));
}

/// Each document of a ring gets these words, so that they must not grow with the ring.
std::string wordsFor(const Catalog& catalog, const Positions& ring) {
    constexpr std::size_t mostNamed = 10;
    std::vector<std::string> typeIds;
    for (std::size_t step = 0; step < std::min(ring.size(), mostNamed); ++step) {
        typeIds.push_back(catalog.documents[ring[step]].typeId);
    }
    return fmt::format("{}{}", fmt::join(typeIds, ", "),
                       ring.size() > mostNamed ? fmt::format(" and {} more", ring.size() - mostNamed) : "");
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
                catalog.faults.push_back({position, missingMessage(typeId, refused)});
                document.state = DocumentState::Faulty;
            }
        }
    }
}

std::vector<Positions> referrersOf(const Catalog& catalog) {
    std::vector<Positions> referrers(catalog.documents.size());
    for (const auto& [typeId, position] : catalog.positions) {
        for (const std::string& reference : catalog.documents[position].references) {
            const auto entry = catalog.positions.find(reference);
            if (entry != catalog.positions.end() && entry->second != position) {
                referrers[entry->second].push_back(position);
            }
        }
    }
    return referrers;
}

Positions inOrderOfReferences(Catalog& catalog) {
    Ordering ordering(catalog);
    for (Positions ring = ordering.nextRing(); !ring.empty(); ring = ordering.nextRing()) {
        const std::string message = fmt::format("Is in a ring of references: {}.", wordsFor(catalog, ring));
        for (const std::size_t position : ring) {
            catalog.documents[position].state = DocumentState::Faulty;
            catalog.faults.push_back({position, message});
        }
        ordering.takeRing(ring);
    }
    return ordering.order();
}

} // namespace Tool
