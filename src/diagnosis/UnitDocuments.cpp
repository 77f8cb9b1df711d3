#include "diagnosis/UnitDocuments.h"

#include <Units/Exceptions.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Parameters {

namespace {

using Positions = std::vector<std::size_t>;

/// Finishes documents, each after those that it refers to: what the units library says of one then is about it alone.
class UnitFinishing {
public:
    UnitFinishing(Units::UnitsEngine& engine, const std::vector<UnitDocument>& documents)
        : engine_(engine), documents_(documents), nodes_(documents.size()) {
        std::unordered_map<std::string_view, std::size_t> positions;
        for (std::size_t i = 0; i < documents.size(); ++i) {
            positions.emplace(documents[i].typeId, i);
        }
        for (std::size_t i = 0; i < documents.size(); ++i) {
            for (const std::string& reference : documents[i].references) {
                const auto target = positions.find(reference);
                if (target != positions.end()) {
                    nodes_[target->second].referrers.push_back(i);
                    nodes_[i].targets.push_back(target->second);
                    ++nodes_[i].openTargets;
                } else if (!engine.isRegistered(reference)) {
                    nodes_[i].isGivenUp = true;
                }
            }
        }
    }

    std::vector<UnitFault> run() {
        Positions batch;
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            if (nodes_[i].openTargets == 0 && !nodes_[i].isGivenUp) {
                batch.push_back(i);
            }
        }
        while (!batch.empty()) {
            finish(batch.begin(), batch.end());
            batch = nextBatch(batch);
        }
        finishCircles();
        return std::move(faults_);
    }

private:
    struct Node {
        Positions targets;
        Positions referrers;
        /// How many of its targets are not finished.
        std::size_t openTargets = 0;
        bool isFinished = false;
        /// Whether it is at fault, or leads to what is.
        bool isGivenUp = false;
    };

    /// @return why they cannot be finished together; empty if they are.
    std::string tryToFinish(Positions::const_iterator first, Positions::const_iterator last) {
        try {
            std::for_each(first, last, [&](std::size_t i) { engine_.registerSchema(documents_[i].text); });
            engine_.resolveSchemas();
        } catch (const Units::ValidationException& exception) {
            return exception.what();
        }
        std::for_each(first, last, [&](std::size_t i) { nodes_[i].isFinished = true; });
        return {};
    }

    /// A failure drops all that it was tried with, so the rest is searched by halves.
    void finish(Positions::const_iterator first, Positions::const_iterator last) {
        std::string error = tryToFinish(first, last);
        if (error.empty()) {
            return;
        }
        if (last - first == 1) {
            faults_.push_back({documents_[*first].document, std::move(error)});
            nodes_[*first].isGivenUp = true;
            return;
        }
        const auto middle = first + (last - first) / 2;
        finish(first, middle);
        finish(middle, last);
    }

    /// Those that only waited for the ones that were tried.
    Positions nextBatch(const Positions& tried) {
        Positions next;
        for (const std::size_t target : tried) {
            if (!nodes_[target].isFinished) {
                continue;
            }
            for (const std::size_t referrer : nodes_[target].referrers) {
                if (--nodes_[referrer].openTargets == 0 && !nodes_[referrer].isGivenUp) {
                    next.push_back(referrer);
                }
            }
        }
        return next;
    }

    /// What is left waits for itself, or for what has been given up.
    void finishCircles() {
        Positions givenUp;
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            if (nodes_[i].isGivenUp) {
                givenUp.push_back(i);
            }
        }
        while (!givenUp.empty()) {
            const std::size_t target = givenUp.back();
            givenUp.pop_back();
            for (const std::size_t referrer : nodes_[target].referrers) {
                if (!std::exchange(nodes_[referrer].isGivenUp, true)) {
                    givenUp.push_back(referrer);
                }
            }
        }
        Positions left;
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            if (!nodes_[i].isFinished && !nodes_[i].isGivenUp) {
                left.push_back(i);
            }
        }
        if (left.empty() || tryToFinish(left.begin(), left.end()).empty()) {
            return;
        }
        for (const std::size_t i : circlesAmong(left)) {
            faults_.push_back({documents_[i].document, {}});
        }
    }

    /// Without those that nothing left refers to: they only lead to a circle.
    Positions circlesAmong(const Positions& left) {
        std::vector<std::size_t> openReferrers(nodes_.size());
        std::vector<bool> isLeft(nodes_.size());
        for (const std::size_t i : left) {
            isLeft[i] = true;
            for (const std::size_t target : nodes_[i].targets) {
                ++openReferrers[target];
            }
        }
        Positions removed;
        const auto removeIfUnused = [&](std::size_t i) {
            if (isLeft[i] && openReferrers[i] == 0) {
                isLeft[i] = false;
                removed.push_back(i);
            }
        };
        std::for_each(left.begin(), left.end(), removeIfUnused);
        while (!removed.empty()) {
            const std::size_t i = removed.back();
            removed.pop_back();
            for (const std::size_t target : nodes_[i].targets) {
                --openReferrers[target];
                removeIfUnused(target);
            }
        }
        Positions circles;
        std::copy_if(left.begin(), left.end(), std::back_inserter(circles), [&](std::size_t i) { return isLeft[i]; });
        return circles;
    }

    Units::UnitsEngine& engine_;
    const std::vector<UnitDocument>& documents_;
    std::vector<Node> nodes_;
    std::vector<UnitFault> faults_;
};

} // namespace

UnitReading readUnitDocument(const std::string& text) {
    UnitReading reading;
    try {
        Units::UnitsEngine engine;
        reading.references = engine.registerSchema(text);
    } catch (const Units::ValidationException& exception) {
        reading.refusal = exception.what();
    }
    return reading;
}

std::vector<UnitFault> finishUnits(Units::UnitsEngine& engine, const std::vector<UnitDocument>& documents) {
    return UnitFinishing(engine, documents).run();
}

} // namespace Parameters
