// Loads a catalog of schema documents and shows what the library makes of it, then imports from another one. Ends with
// an error if anything is not as expected.

#include "Sections.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

void run(const char* catalogFolder, const char* libraryFolder, const char* importFolder) {
    const Demo::Catalog catalog = Demo::load(catalogFolder);
    const Parameters::ParametersEngine& engine = catalog.engine;
    Demo::showCatalog(catalog, catalogFolder);
    Demo::showTaxon(engine, engine.getDiscipline("acme.building:discipline.hvac-1.0.0"));
    Demo::showSpec(engine, engine.getSpec("acme.building:spec.airFlow-1.0.0"));
    Demo::showParameter(engine, engine.getParameter("acme.building:parameter.terminalVelocity-1.0.0"));
    Demo::showRefusals(engine);
    Demo::showImport(libraryFolder, importFolder);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: demo CATALOG_FOLDER LIBRARY_FOLDER IMPORT_FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        run(argv[1], argv[2], argv[3]);
    } catch (const std::exception& exception) {
        std::cout.flush();
        std::cerr << "demo: " << exception.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
