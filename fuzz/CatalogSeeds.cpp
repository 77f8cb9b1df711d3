#include "Script.h"
#include "support/CatalogDocuments.h"
#include "support/FinishedObjects.h"

#include <cstdio>

using namespace Parameters;
using namespace Fuzz;

/// The item with all that it needs, brought into an engine by each of the ways that there are.
static std::string scriptFor(const std::string& typeId, const ParametersEngine& catalog) {
    const std::string document = Documents::onOneLine(catalog.getSchema(typeId));
    std::string script;
    for (const std::string& other : catalog.getDependencies(typeId)) {
        script += line(Operation::registerSchema, 0, 0, Documents::onOneLine(catalog.getSchema(other)));
    }
    script += line(Operation::resolve, 0);
    script += line(Operation::readDirectly, 0, 0, document);
    script += line(Operation::import, 1, 0, document) + line(Operation::resolve, 1);
    script += line(Operation::copyEngine, 2, 0) + line(Operation::registerObject, 2, 1, typeId);
    return script + line(Operation::writeTexts, 1, 2, typeId);
}

/// Writes a script for each object of a catalog into a folder, which it empties first.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s CATALOG FOLDER\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = argv[2];
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const ParametersEngine catalog = Documents::finishedCatalog(argv[1]);
    std::size_t count = 0;
    for (const auto& object : objectsIn(catalog)) {
        std::ofstream(folder / std::to_string(++count), std::ios::binary) << scriptFor(object.first, catalog);
    }
}
