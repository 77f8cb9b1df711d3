#include "support/CatalogDocuments.h"
#include "support/ParameterDocuments.h"

#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <locale>

namespace Parameters {
namespace {

using namespace Documents;

struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

/// Runs under the locale that programs start with, and under one with a decimal comma, for C and for C++.
class MangledInputTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (GetParam() == std::string("C")) {
            return;
        }
        setenv("LOCPATH", PARAMETERS_LOCALES, 1);
        if (std::setlocale(LC_ALL, GetParam()) == nullptr) {
            GTEST_SKIP() << "no locale " << GetParam() << " in " << PARAMETERS_LOCALES;
        }
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
        std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        std::locale::global(std::locale::classic());
    }
};

INSTANTIATE_TEST_SUITE_P(Locales, MangledInputTest, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& test) { return test.index == 0 ? "Classic" : "DecimalComma"; });

/// The shortest document of each form and base that the catalog has, on one line; all documents if the environment asks
/// for them.
std::map<std::string, std::string> documentsToMangle() {
    const bool all = std::getenv("PARAMETERS_MANGLE_ALL") != nullptr;
    std::map<std::string, std::string> shortest;
    for (const auto& path : filesBelow(PARAMETERS_CATALOG)) {
        const std::string text = onOneLine(textOf(path));
        const std::size_t begin = std::min(text.find("\"inherits\""), text.size());
        const bool isFull = text.find("schemaSpecification") != std::string::npos;
        const std::string sort = (isFull ? "full " : "short ") + text.substr(begin, text.find(']', begin) - begin);
        std::string& best = shortest[all ? path.string() : sort];
        best = best.empty() || text.size() < best.size() ? text : best;
    }
    return shortest;
}

TEST_P(MangledInputTest, IsTakenWholeOrLeavesTheEngineAlone) {
    const ParametersEngine catalog = finishedCatalog(PARAMETERS_CATALOG);
    ParametersEngine initial;
    initial.registerFloatRange(FloatRange("floats", true, 1.5, false, 0, Format::PropertySets));
    ParametersEngine engine = initial;
    std::size_t refused = 0, finished = 0;
    const auto offer = [&](const std::string& text) {
        try {
            engine.registerSchemaWithContext(text, catalog);
        } catch (const ValidationException&) {
            ++refused;
            return;
        }
        try {
            engine.resolveSchemas();
            ++finished;
        } catch (const ValidationException&) {
        }
        engine = initial;
    };
    for (auto [sort, text] : documentsToMangle()) {
        SCOPED_TRACE(sort);
        for (std::size_t i = 0; i < text.size(); ++i) {
            offer(text.substr(0, i));
            offer(text.substr(0, i) + text.substr(i + 1));
            const char original = text[i];
            for (const char other : std::string("\"{1-\\\0\xFF", 7)) {
                text[i] = other;
                offer(text);
            }
            text[i] = original;
        }
        engine.resolveSchemas(); // would bring to light what a refused text had left
        EXPECT_EQ(textsIn(engine), textsIn(initial));
        EXPECT_TRUE(engine.getUnitsEngine().getAllUnits().empty());
        offer(text);
    }
    EXPECT_GT(refused, finished);
    EXPECT_GT(finished, 10000u);
}

/// A group "x" with more members in front of its own.
std::string groupWith(const std::string& members, const std::string& name = R"("N")") {
    return "{" + members + R"("typeid":"x","inherits":["quovanta.parameter:group-1.0.0"],)" +
           R"("constants":[{"id":"name","value":)" + name + "}]}";
}

TEST_P(MangledInputTest, RefusesWhatIsTooMuch) {
    const std::string parsing = "JSON parsing error at offset ";
    const std::string digits = repeated("9", 10000), choices = R"({"typeid":"x","inherits":["Enum"],"properties":[)";
    const std::string many = repeated(R"({"id":"a","value":0},)", 100000);
    const std::pair<std::string, std::string> cases[] = {
        {groupWith(R"("a":)" + repeated("[", 512) + repeated("]", 512) + ","),
         parsing + "517: Parsing was terminated."},
        {groupWith(repeated(R"({"a":)", 1000000)), parsing + "1: Missing a name for an object member."},
        {groupWith(repeated(R"("a":{)", 1000000)), parsing + "2561: Parsing was terminated."},
        {groupWith(R"("a":)" + digits + ","), parsing + "5: Number too big to be stored in a double."},
        {groupWith(R"("a":-1e)" + digits + ","), parsing + "5: Number too big to be stored in a double."},
        {choices + R"({"id":"a","value":0.)" + digits + "}]}",
         "Value a in enumeration schema x must specify an integer value."},
        {choices + many + "0]}", "Item a in properties array must be defined only once."},
        {groupWith("", R"("\u0000N")"), "Expected a non-empty string."},
        {groupWith(R"("typeid":"\u0000",)"), "The typeid string may not be empty."},
        {groupWith(R"("typeid":0,)"), "Schema must specify a typeid string."},
    };
    ParametersEngine engine;
    for (const auto& [text, message] : cases) {
        EXPECT_THROWS(engine.registerSchema(text), ValidationException, message) << text.substr(0, 40);
    }
    EXPECT_FALSE(engine.isRegistered("x"));
}

TEST_P(MangledInputTest, TakesWhatIsMerelyMuch) {
    const std::string big = repeated("N", 10000000), typeId = repeated("t", 1000000);
    const std::string members = repeated(R"("a":{"a":[0,{"a":0,"a":0}],"a":0},)", 100000);
    const std::string deep = R"("a":)" + repeated("[", 511) + repeated("]", 511) + ",";
    const Cases namesAndTexts = {
        {big, groupWith("", '"' + big + '"')},
        {"N", groupWith(members)},
        {"N", groupWith(deep)},
        {"N", groupWith(R"("inherits":["quovanta.parameter:group-2.0.0"],)", R"("N\u0000M","value":0,"id":"z")")},
        {"N", groupWith(R"("typeid":"x\u0000y","typeid":"z",)") + std::string("\0}", 2)},
    };
    for (const auto& [name, text] : namesAndTexts) {
        ParametersEngine engine;
        engine.registerSchemas({{"x", text}});
        EXPECT_TRUE(engine.getGroup("x").getName() == name) << text.substr(0, 40);
        EXPECT_TRUE(engine.getSchema("x") == text) << text.substr(0, 40);
    }

    ParametersEngine engine;
    engine.registerSchemas({{"", group(typeId, "N")}});
    EXPECT_TRUE(engine.getAllGroups().begin()->first == typeId);
    EXPECT_THROWS(engine.registerSchema(group(typeId, "N")), ValidationException,
                  "Schema with typeid " + typeId + " is already registered.");
}

TEST_P(MangledInputTest, ReadsAndWritesNumbersWithAPoint) {
    const auto range = [](const std::string& bottom) {
        return shortForm("x", "quovanta.range:range.float64.bounded.static-1.0.0",
                         constant("fromBottom", "true") + "," + constant("bottomBoundary", bottom) + "," +
                             constant("fromTop", "false"));
    };
    for (const auto& [number, written] : Cases{{"0.5" + repeated("0", 10000), "0.5"},
                                               {"-1234567.5e-3", "-1234.5675"},
                                               {"1" + repeated("0", 21), "1e21"}}) {
        ParametersEngine reader, writer;
        reader.registerSchemas({{"x", range(number)}});
        writer.registerFloatRange(reader.getFloatRange("x"));
        EXPECT_EQ(writer.getSchema("x"), range(written));
    }
}

} // namespace
} // namespace Parameters
