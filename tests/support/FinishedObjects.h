#pragma once

#include "support/CatalogDocuments.h"

#include <Parameters/ParametersEngine.h>

#include <functional>
#include <map>
#include <string>
#include <tuple>

namespace Documents {

/// An engine with all documents below a folder, finished.
inline Parameters::ParametersEngine finishedCatalog(const std::filesystem::path& root) {
    Parameters::ParametersEngine catalog;
    for (const auto& path : filesBelow(root)) {
        catalog.registerSchema(textOf(path));
    }
    catalog.resolveSchemas();
    return catalog;
}

} // namespace Documents

namespace Parameters {

/// A kind as a host sees it.
template <class GetAll, class Register> struct KindRow {
    const char* name;
    GetAll getAll;
    Register registerOne;
};
template <class GetAll, class Register> KindRow(const char*, GetAll, Register) -> KindRow<GetAll, Register>;

inline constexpr std::tuple kindRows = {
    KindRow{"category", &ParametersEngine::getAllCategories, &ParametersEngine::registerCategory},
    KindRow{"discipline", &ParametersEngine::getAllDisciplines, &ParametersEngine::registerDiscipline},
    KindRow{"domain", &ParametersEngine::getAllDomains, &ParametersEngine::registerDomain},
    KindRow{"enumeration", &ParametersEngine::getAllEnumerations, &ParametersEngine::registerEnumeration},
    KindRow{"float range", &ParametersEngine::getAllFloatRanges, &ParametersEngine::registerFloatRange},
    KindRow{"group", &ParametersEngine::getAllGroups, &ParametersEngine::registerGroup},
    KindRow{"int range", &ParametersEngine::getAllIntRanges, &ParametersEngine::registerIntRange},
    KindRow{"parameter", &ParametersEngine::getAllParameters, &ParametersEngine::registerParameter},
    KindRow{"spec", &ParametersEngine::getAllSpecs, &ParametersEngine::registerSpec},
    KindRow{"string range", &ParametersEngine::getAllStringRanges, &ParametersEngine::registerStringRange}};

/// Calls visit with each row.
template <class Visit> void forEachKind(Visit visit) {
    std::apply([&](const auto&... row) { (visit(row), ...); }, kindRows);
}

/// All finished objects by typeid, each as an operation that registers it in an engine.
inline std::map<std::string, std::function<void(ParametersEngine&)>> objectsIn(const ParametersEngine& engine) {
    std::map<std::string, std::function<void(ParametersEngine&)>> objects;
    forEachKind([&](const auto& row) {
        for (const auto& [typeId, object] : (engine.*row.getAll)()) {
            const auto registerOne = row.registerOne;
            objects[typeId] = [registerOne, copy = object](ParametersEngine& other) { (other.*registerOne)(copy); };
        }
    });
    return objects;
}

/// The texts of all finished objects, by typeid.
inline std::map<std::string, std::string> textsIn(const ParametersEngine& engine) {
    std::map<std::string, std::string> texts;
    for (const auto& object : objectsIn(engine)) {
        texts[object.first] = engine.getSchema(object.first);
    }
    return texts;
}

/// An engine that has, from the source, what an item there depends on; default taxa need not be registered anywhere.
inline ParametersEngine needsOf(const std::string& typeId, const ParametersEngine& source) {
    ParametersEngine needs;
    for (const std::string& other : source.getDependencies(typeId)) {
        if (source.isRegistered(other) && !needs.isRegistered(other)) {
            needs.registerSchemaWithContext(source.getSchema(other), source);
        }
    }
    needs.resolveSchemas();
    return needs;
}

/// Without "downgradedFrom", since what has been read from a downgraded text may be of that version.
inline std::string unmarked(const std::string& text) {
    const bool isMarked = text.rfind(R"({"downgradedFrom":)", 0) == 0;
    return isMarked ? "{" + text.substr(text.find(',') + 1) : text;
}

/// What is written for the object of a text, both in engines with nothing else than it needs.
inline std::string writtenAgain(const std::string& typeId, const std::string& text, DataModelVersion version,
                                const ParametersEngine& needs) {
    ParametersEngine reader = needs, writer = needs;
    reader.registerSchemas({{typeId, text}});
    objectsIn(reader).at(typeId)(writer);
    return unmarked(writer.getSchemaInCompatibleFormat(version, typeId));
}

} // namespace Parameters
