#pragma once

#include <Parameters/ParametersEngine.h>

#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace Tool {

/// A kind of document, as the program names and draws it.
struct Kind {
    const char* name;
    /// As the library's messages call it.
    const char* word;
    /// Of its nodes in Graphviz. Kinds of one family share a color, so that a graph can be read from afar.
    const char* shape;
    const char* color;
};

/// A kind whose objects are listed by the engine, or by the units engine inside.
template <class Engine, class GetResult, class GetAllResult> struct ListedKind {
    using Object = GetResult;

    Kind kind;
    GetResult (Engine::*getter)(const std::string&) const;
    GetAllResult (Engine::*getterOfAll)() const;

    [[nodiscard]] GetResult get(const Parameters::ParametersEngine& engine, const std::string& typeId) const {
        return (listingEngine(engine).*getter)(typeId);
    }
    [[nodiscard]] GetAllResult getAll(const Parameters::ParametersEngine& engine) const {
        return (listingEngine(engine).*getterOfAll)();
    }

private:
    static const Engine& listingEngine(const Parameters::ParametersEngine& engine) {
        if constexpr (std::is_same_v<Engine, Parameters::ParametersEngine>) {
            return engine;
        } else {
            return engine.getUnitsEngine();
        }
    }
};

template <class Engine, class GetResult, class GetAllResult>
ListedKind(Kind, GetResult (Engine::*)(const std::string&) const, GetAllResult (Engine::*)() const)
    -> ListedKind<Engine, GetResult, GetAllResult>;

/// A kind that is registered and referenced, but that no engine lists.
struct UnlistedKind {
    Kind kind;
};

/// All kinds, by name. Whatever differs by kind in the program is a column here, or an overload that a row calls for.
inline constexpr std::tuple kindRows = {
    ListedKind{Kind{"category", "category", "folder", "#f6c9a8"}, &Parameters::ParametersEngine::getCategory,
               &Parameters::ParametersEngine::getAllCategories},
    UnlistedKind{Kind{"dimension", "dimension", "cds", "#cfe3b4"}},
    ListedKind{Kind{"discipline", "discipline", "hexagon", "#e3d3ef"}, &Parameters::ParametersEngine::getDiscipline,
               &Parameters::ParametersEngine::getAllDisciplines},
    ListedKind{Kind{"domain", "domain", "tab", "#f9e0c7"}, &Parameters::ParametersEngine::getDomain,
               &Parameters::ParametersEngine::getAllDomains},
    ListedKind{Kind{"enumeration", "enumeration", "note", "#fbf1b3"}, &Parameters::ParametersEngine::getEnumeration,
               &Parameters::ParametersEngine::getAllEnumerations},
    ListedKind{Kind{"float-range", "floating-point range", "parallelogram", "#fbf1b3"},
               &Parameters::ParametersEngine::getFloatRange, &Parameters::ParametersEngine::getAllFloatRanges},
    ListedKind{Kind{"group", "group", "octagon", "#d9d9d9"}, &Parameters::ParametersEngine::getGroup,
               &Parameters::ParametersEngine::getAllGroups},
    ListedKind{Kind{"int-range", "integer range", "trapezium", "#fbf1b3"}, &Parameters::ParametersEngine::getIntRange,
               &Parameters::ParametersEngine::getAllIntRanges},
    ListedKind{Kind{"parameter", "parameter", "box", "#a9cdea"}, &Parameters::ParametersEngine::getParameter,
               &Parameters::ParametersEngine::getAllParameters},
    ListedKind{Kind{"spec", "spec", "ellipse", "#b5e2dc"}, &Parameters::ParametersEngine::getSpec,
               &Parameters::ParametersEngine::getAllSpecs},
    ListedKind{Kind{"string-range", "string range", "house", "#fbf1b3"}, &Parameters::ParametersEngine::getStringRange,
               &Parameters::ParametersEngine::getAllStringRanges},
    ListedKind{Kind{"unit", "unit", "diamond", "#dff0c8"}, &Units::UnitsEngine::getUnit,
               &Units::UnitsEngine::getAllUnits},
};
inline constexpr std::size_t kindCount = std::tuple_size_v<decltype(kindRows)>;

template <class Visit> void forEachKind(Visit visit) {
    std::apply([&](const auto&... rows) { (visit(rows), ...); }, kindRows);
}

inline std::vector<std::string> kindNames() {
    std::vector<std::string> names;
    forEachKind([&](const auto& row) { names.emplace_back(row.kind.name); });
    return names;
}

} // namespace Tool
