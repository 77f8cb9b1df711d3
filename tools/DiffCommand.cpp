#include "Changes.h"
#include "CommandLine.h"
#include "JsonText.h"
#include "Progress.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace Tool {

namespace {

struct DiffOptions {
    std::string before;
    std::string after;
    bool followsLinks = false;
    std::string format = "text";
    RuleSettings rules;
};

constexpr std::array weights = {Level::Incompatible, Level::Compatible, Level::Texts, Level::Layout};

/// Typeids that documents define which cannot be loaded, with these.
std::map<std::string, const DocumentText*> refusedIn(const Catalog& catalog) {
    std::map<std::string, const DocumentText*> refused;
    for (std::size_t i = 0; i < catalog.report.isRefused.size(); ++i) {
        if (catalog.report.isRefused[i]) {
            const DocumentText& source = catalog.files.documents[i];
            refused.emplace(typeIdOf(source.text), &source);
        }
    }
    return refused;
}

class CatalogComparison {
public:
    CatalogComparison(const Catalog& before, const Catalog& after, const RuleSettings& rules)
        : before_(before), after_(after), rules_(rules) {}

    void run() {
        const std::map<std::string, Item> oldItems = itemsOf(before_);
        const std::map<std::string, Item> newItems = itemsOf(after_);
        const auto oldRefused = refusedIn(before_);
        const auto newRefused = refusedIn(after_);
        std::set<std::string> typeIds;
        for (const auto& items : {&oldItems, &newItems}) {
            for (const auto& [typeId, item] : *items) {
                typeIds.insert(typeIds.end(), typeId);
            }
        }
        Progress progress("Comparing", typeIds.size());
        for (const std::string& typeId : typeIds) {
            progress.advance();
            const auto oldItem = oldItems.find(typeId);
            const auto newItem = newItems.find(typeId);
            if (oldItem == oldItems.end()) {
                const bool wasRefused = oldRefused.count(typeId) != 0;
                ++added_;
                report(newItem->second.document->origin, typeId,
                       changeBy("added-item", wasRefused ? "It could not be loaded before."
                                                         : fmt::format("This {} is new.", newItem->second.kind->name)));
            } else if (newItem != newItems.end()) {
                compare(typeId, oldItem->second, newItem->second);
            } else if (const auto refused = newRefused.find(typeId); refused != newRefused.end()) {
                ++removed_;
                report(refused->second->origin, typeId, changeBy("refused-item", "It can no longer be loaded."));
            } else {
                ++removed_;
                report(oldItem->second.document->origin, typeId,
                       changeBy("removed-item", fmt::format("This {} is removed.", oldItem->second.kind->name)));
            }
        }
    }

    void print(std::string_view format) const {
        const auto countOf = [&](Level weight) {
            return static_cast<std::size_t>(std::count_if(findings_.begin(), findings_.end(),
                                                          [&](const Finding& each) { return each.level == weight; }));
        };
        ReportFrame frame = {changeRules(), {}, {}};
        std::string changes;
        for (const Level weight : weights) {
            const std::size_t count = countOf(weight);
            frame.counts.emplace_back(nameOf(weight).data(), count);
            changes += fmt::format("{}{} {}", changes.empty() ? "" : ", ", count, nameOf(weight));
        }
        frame.counts.insert(frame.counts.end(),
                            {{"added", added_}, {"removed", removed_}, {"changed", changed_}, {"same", same_}});
        frame.summary = fmt::format("Changes: {}. Documents: {} added, {} removed, {} changed, {} the same.", changes,
                                    added_, removed_, changed_, same_);
        printFindings(findings_, frame, format);
    }

    [[nodiscard]] bool isIncompatible() const {
        return std::any_of(findings_.begin(), findings_.end(),
                           [](const Finding& finding) { return finding.level == Level::Incompatible; });
    }

private:
    void compare(const std::string& typeId, const Item& oldItem, const Item& newItem) {
        if (oldItem.document->text == newItem.document->text) {
            ++same_;
            return;
        }
        ++changed_;
        std::vector<Change> changes = changesOf(typeId, before_, oldItem, after_, newItem);
        if (changes.empty()) {
            changes.push_back(changeBy("changed-layout", "Another text defines the same."));
        }
        for (const Change& change : changes) {
            report(newItem.document->origin, typeId, change);
        }
    }

    void report(const Origin& origin, const std::string& typeId, const Change& change) {
        Finding finding = findingOf(origin, typeId, change.message);
        finding.level = change.rule->level;
        finding.rule = change.rule->name;
        if (const auto set = rules_.find(finding.rule); set != rules_.end()) {
            const auto* weight =
                std::find_if(weights.begin(), weights.end(), [&](Level each) { return nameOf(each) == set->second; });
            if (weight == weights.end()) {
                return;
            }
            finding.level = *weight;
        }
        findings_.push_back(std::move(finding));
    }

    const Catalog& before_;
    const Catalog& after_;
    const RuleSettings& rules_;
    std::vector<Finding> findings_;
    std::size_t added_ = 0;
    std::size_t removed_ = 0;
    std::size_t changed_ = 0;
    std::size_t same_ = 0;
};

/// A side that could not be read at all: what the other has is neither new nor removed.
bool isNothingRead(const Catalog& catalog) {
    return catalog.files.documents.empty() && !catalog.files.unreadable.empty();
}

Status diff(const DiffOptions& options) {
    const Catalog before = loadForUse({{options.before}, {}, options.followsLinks});
    const Catalog after = loadForUse({{options.after}, {}, options.followsLinks});
    if (isNothingRead(before) || isNothingRead(after)) {
        return statusOf(before.report) | statusOf(after.report);
    }
    CatalogComparison comparison(before, after, options.rules);
    comparison.run();
    comparison.print(options.format);
    return statusOf(before.report) | statusOf(after.report) |
           (comparison.isIncompatible() ? Status::Errors : Status::Success);
}

} // namespace

void addDiff(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("diff", "Tell what changed between two catalogs, and whether hosts bear it");
    auto options = std::make_shared<DiffOptions>();
    command->add_option("OLD", options->before, "The catalog as it was: a file or a folder")->type_name("")->required();
    command->add_option("NEW", options->after, "The catalog as it is")->type_name("")->required();
    addFormat(*command, options->format);
    SettableRules rules;
    for (const ReportRule& rule : changeRules()) {
        rules[rule.name] = "";
    }
    addRules(*command, options->rules, {"off", "incompatible", "compatible", "texts", "layout"}, rules);
    addFollow(*command, options->followsLinks);
    addExample(*command, "last-release/catalog catalog --rule changed-group=compatible");
    command->callback([options, &status] { status = diff(*options); });
}

} // namespace Tool
