#include "Checks.h"
#include "support/CatalogDocuments.h"
#include "support/FinishedObjects.h"

#include <cstddef>
#include <cstdint>

using namespace Parameters;

/// One schema text, read and registered beside the example catalog.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ParametersEngine catalog = Documents::finishedCatalog(PARAMETERS_CATALOG);
    const std::string text(reinterpret_cast<const char*>(data), size);
    Fuzz::checkReading(catalog, text);

    ParametersEngine engine;
    const bool isRegistered = Fuzz::succeeds([&] { engine.registerSchema(text); });
    ParametersEngine importing;
    const bool isImported = Fuzz::succeeds([&] { importing.registerSchemaWithContext(text, catalog); });
    Fuzz::require(isRegistered == isImported, "a context does not matter to what is registered", text);
    if (!isRegistered || !Fuzz::succeeds([&] { importing.resolveSchemas(); })) {
        Fuzz::require(objectsIn(importing).empty(), "nothing is finished by halves", text);
        return 0;
    }
    Fuzz::checkQueries(importing);
    for (const auto& [typeId, found] : textsIn(importing)) {
        if (!catalog.isRegistered(typeId) || catalog.getSchema(typeId) != found) {
            Fuzz::require(found == text, "the text of an object is that which was registered", found);
            Fuzz::checkWrittenTexts(importing, typeId);
        }
    }
    return 0;
}
