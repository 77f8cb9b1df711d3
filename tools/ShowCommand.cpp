#include "Catalog.h"
#include "CommandLine.h"
#include "Items.h"
#include "Layout.h"
#include "Text.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace Tool {

using namespace Parameters;

namespace {

Tree line(std::string_view label, std::string_view text) {
    return {fmt::format("{:<13} {}", label, printable(text)), {}};
}

Tree reference(std::string_view label, const std::string& typeId, const std::string& name) {
    return {fmt::format("{:<13} {}", label, formatLabel(typeId, name)), {}};
}

Tree reference(std::string_view label, const Taxon& taxon) {
    return reference(label, taxon.getTypeId(), taxon.getName());
}

std::string formatValueType(const ValueTypeId& valueType) {
    struct Formatter {
        std::string operator()(const std::string& name) const { return name; }
        std::string operator()(LegacyPrimitiveType type) const {
            static constexpr std::array names = {"general", "Boolean", "integer", "float", "reference", "string"};
            return fmt::format("{}, a primitive type of data model 1.0.0", names.at(static_cast<std::size_t>(type)));
        }
        std::string operator()(const AnyOf& anyOf) const { return "anything derived from " + anyOf.getBaseTypeId(); }
        std::string operator()(const OneOf& oneOf) const {
            return fmt::format("one of {}", fmt::join(oneOf.getTypeIds(), ", "));
        }
    };
    return std::visit(Formatter{}, valueType);
}

/// Describes the objects of each kind.
class Description {
public:
    Description(const ParametersEngine& engine, const std::map<std::string, Item>& items)
        : engine_(engine), items_(items) {}

    [[nodiscard]] std::vector<Tree> operator()(const Category& category) const {
        std::vector<Tree> lines;
        if (const auto sub = category.getSubCategoryComponent()) {
            const Category parent = engine_.getCategory(sub->getParentCategory());
            lines.push_back(described("parent", parent, parent.getName()));
        }
        if (const auto major = category.getMajorCategoryComponent()) {
            lines.push_back(reference("domain", major->getDomain()));
            for (const Taxon& discipline : major->getDisciplines()) {
                lines.push_back(reference("discipline", discipline));
            }
        }
        return lines;
    }

    [[nodiscard]] std::vector<Tree> operator()(const Enumeration& enumeration) const {
        std::vector<Tree> lines;
        for (const auto& [id, number] : enumeration.getValues()) {
            lines.push_back(line("value", fmt::format("{} = {}", id, number)));
        }
        return lines;
    }

    [[nodiscard]] std::vector<Tree> operator()(const FloatRange& range) const { return describeLimits(range); }
    [[nodiscard]] std::vector<Tree> operator()(const IntRange& range) const { return describeLimits(range); }

    [[nodiscard]] std::vector<Tree> operator()(const StringRange& range) const {
        if (const auto regex = range.getRegexStringRangeComponent()) {
            return {line("matches", regex->getRegex())};
        }
        const auto set = range.getSetStringRangeComponent();
        if (!set) {
            return {line("allows", "any text")};
        }
        std::vector<Tree> lines;
        for (const std::string& value : set->getAllowedValues()) {
            lines.push_back(line("value", value));
        }
        return lines;
    }

    [[nodiscard]] std::vector<Tree> operator()(const Units::Unit& unit) const {
        if (const auto& dimension = unit.getDimension()) {
            return {reference("dimension", *dimension, items_.at(*dimension).name)};
        }
        return {};
    }

    [[nodiscard]] std::vector<Tree> operator()(const Spec& spec) const {
        static constexpr std::array contexts = {"single", "array", "map"};
        std::vector<Tree> lines = {line("value type", formatValueType(spec.getValueTypeId())),
                                   line("context", contexts.at(static_cast<std::size_t>(spec.getContext()))),
                                   reference("discipline", spec.getDiscipline())};
        if (const auto& measurable = spec.getMeasurable()) {
            for (const Units::Unit& unit : measurable->getApplicableUnits()) {
                lines.push_back(described("unit", unit, unit.getName()));
            }
            lines.push_back(
                described("storage unit", measurable->getStorageUnit(), measurable->getStorageUnit().getName()));
        }
        return lines;
    }

    [[nodiscard]] std::vector<Tree> operator()(const Parameter& parameter) const {
        std::vector<Tree> lines;
        for (const auto& [label, text] : {std::pair("description", parameter.getDescription()),
                                          std::pair("sample text", parameter.getSampleText())}) {
            if (!text.empty()) {
                lines.push_back(line(label, text));
            }
        }
        lines.push_back(line("read-only", parameter.isReadOnly() ? "yes" : "no"));
        lines.push_back(reference("group", parameter.getGroup()));
        lines.push_back(described("spec", parameter.getSpec(), parameter.getSpec().getName()));
        lines.push_back(std::visit([this](const auto& range) { return describedRange(range); }, parameter.getRange()));
        return lines;
    }

    /// Disciplines, domains and groups have only a name.
    [[nodiscard]] std::vector<Tree> operator()(const Taxon& /*taxon*/) const { return {}; }

private:
    template <class Range> [[nodiscard]] static std::vector<Tree> describeLimits(const Range& range) {
        std::vector<Tree> lines;
        if (range.isBoundFromBottom()) {
            lines.push_back(line("from", fmt::format("{}", range.getBottomBoundary())));
        }
        if (range.isBoundFromTop()) {
            lines.push_back(line("up to", fmt::format("{}", range.getTopBoundary())));
        }
        if (lines.empty()) {
            lines.push_back(line("allows", "any number"));
        }
        return lines;
    }

    template <class Object>
    [[nodiscard]] Tree described(std::string_view label, const Object& object, const std::string& name) const {
        Tree tree = reference(label, object.getTypeId(), name);
        tree.branches = (*this)(object);
        return tree;
    }

    [[nodiscard]] Tree describedRange(std::monostate /*none*/) const { return line("range", "any value"); }
    [[nodiscard]] Tree describedRange(const Category& category) const {
        return described("category", category, category.getName());
    }
    template <class Range> [[nodiscard]] Tree describedRange(const Range& range) const {
        return described("range", range, "");
    }

    const ParametersEngine& engine_;
    const std::map<std::string, Item>& items_;
};

std::vector<Tree> describe(const Description& description, const ParametersEngine& engine, const Item& item,
                           const std::string& typeId) {
    std::vector<Tree> lines;
    const auto add = [&](const auto& row) {
        using Row = std::decay_t<decltype(row)>;
        if constexpr (!std::is_same_v<Row, UnlistedKind>) {
            static_assert(std::is_invocable_v<const Description&, const typename Row::Object&>,
                          "Description needs an overload for the objects of each kind.");
            if (item.kind == &row.kind) {
                lines = description(row.get(engine, typeId));
            }
        }
    };
    forEachKind(add);
    return lines;
}

Tree describe(const Catalog& catalog, const std::map<std::string, Item>& items, const std::string& typeId) {
    const Item& item = items.at(typeId);
    const auto [lowest, highest] = catalog.engine.getCompatibleDataModelRange(typeId);
    Tree tree = {fmt::format("{} {}", item.kind->name, formatLabel(typeId, item.name)),
                 describe(Description(catalog.engine, items), catalog.engine, item, typeId)};
    tree.branches.push_back(line("format", formatNameOf(*item.document)));
    tree.branches.push_back(
        line("data models", fmt::format("{} to {}", formatVersion(lowest), formatVersion(highest))));
    tree.branches.push_back(line("document", formatOrigin(item.document->origin)));
    return tree;
}

struct ShowOptions {
    Sources sources;
    std::string typeId;
};

Status show(const ShowOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const std::string typeId = typeIdIn(catalog, options.typeId);
    printTree(describe(catalog, itemsAround(catalog, Links(catalog), typeId), typeId));
    return statusOf(catalog.report);
}

} // namespace

void addShow(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("show", "Show a document and what it refers to as a tree");
    auto options = std::make_shared<ShowOptions>();
    addSources(*command, options->sources);
    addTypeId(*command, options->typeId)->required();
    addExample(*command, "catalog --typeid parameter.supplyDiffuser-1.0.0");
    command->callback([options, &status] { status = show(*options); });
}

} // namespace Tool
