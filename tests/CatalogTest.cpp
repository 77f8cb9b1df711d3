#include "support/CatalogDocuments.h"
#include "support/FinishedObjects.h"

#include <gtest/gtest.h>

namespace Parameters {
namespace {

TEST(CatalogTest, IsWrittenTheSameAfterItHasBeenReadAgain) {
    const ParametersEngine catalog = Documents::finishedCatalog(PARAMETERS_CATALOG);
    const auto objects = objectsIn(catalog);
    EXPECT_GE(objects.size(), 100u);
    for (const auto& object : objects) {
        const std::string& typeId = object.first;
        const ParametersEngine needs = needsOf(typeId, catalog);
        const auto [lowest, highest] = catalog.getCompatibleDataModelRange(typeId);
        for (auto version = lowest; version <= highest; version = DataModelVersion(static_cast<int>(version) + 1)) {
            const std::string text = catalog.getSchemaInCompatibleFormat(version, typeId);
            const std::string written = writtenAgain(typeId, text, version, needs);
            EXPECT_EQ(written, text == catalog.getSchema(typeId) ? written : unmarked(text));
            EXPECT_EQ(written, writtenAgain(typeId, written, version, needs));
        }
    }
}

} // namespace
} // namespace Parameters
