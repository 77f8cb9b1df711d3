#include "support/ParameterDocuments.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace Parameters {
namespace {

/// Without "downgradedFrom", since what has been read from a downgraded text may be of that version.
std::string unmarked(const std::string& text) {
    const bool isMarked = text.rfind(R"({"downgradedFrom":)", 0) == 0;
    return isMarked ? "{" + text.substr(text.find(',') + 1) : text;
}

TEST(CatalogTest, IsWrittenTheSameAfterItHasBeenReadAgain) {
    ParametersEngine catalog;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(PARAMETERS_CATALOG)) {
        if (entry.path().extension() == ".json") {
            std::ifstream file(entry.path(), std::ios::binary);
            catalog.registerSchema(std::string(std::istreambuf_iterator<char>(file), {}));
        }
    }
    catalog.resolveSchemas();
    const auto objects = objectsIn(catalog);
    EXPECT_GE(objects.size(), 100u);
    for (const auto& object : objects) {
        const std::string& typeId = object.first;
        ParametersEngine needs;
        for (const std::string& other : catalog.getDependencies(typeId)) {
            if (!needs.isRegistered(other)) {
                needs.registerSchemaWithContext(catalog.getSchema(other), catalog);
            }
        }
        needs.resolveSchemas();
        const auto [lowest, highest] = catalog.getCompatibleDataModelRange(typeId);
        for (auto version = lowest; version <= highest; version = DataModelVersion(static_cast<int>(version) + 1)) {
            const auto writtenAgain = [&](const std::string& text) {
                ParametersEngine reader = needs, writer = needs;
                reader.registerSchemas({{typeId, text}});
                objectsIn(reader).at(typeId)(writer);
                return unmarked(writer.getSchemaInCompatibleFormat(version, typeId));
            };
            const std::string text = catalog.getSchemaInCompatibleFormat(version, typeId);
            const std::string written = writtenAgain(text);
            EXPECT_EQ(written, text == catalog.getSchema(typeId) ? written : unmarked(text));
            EXPECT_EQ(written, writtenAgain(written));
        }
    }
}

} // namespace
} // namespace Parameters
