#include "tool/Program.h"

#include <gmock/gmock.h>

using namespace testing;

TEST(ListCommand, AlignsATableButForALongTypeid) {
    const std::string longTypeId(81, 'x');
    EXPECT_THAT(runToolOn(Documents::shortForm("range", "quovanta.range:range.string.regex-1.0.0",
                                               Documents::constant("regex", R"("a")")) +
                              '\n' + Documents::discipline(longTypeId, "N") + '\n' +
                              Documents::domain("sanitary", "Sanitary Fixtures"),
                          {"list", "a.jsonl"}),
                FieldsAre(0,
                          "TYPEID    KIND          NAME               FORMAT        VERSIONS\n"
                          "range     string-range                     PropertySets  1.0.0 to 2.0.0\n"
                          "sanitary  domain        Sanitary Fixtures  PropertySets  1.0.0 to 2.0.0\n" +
                              longTypeId + "  discipline    N                  PropertySets  1.0.0 to 2.0.0\n",
                          ""));
}

TEST(ListCommand, AlignsWideAndCombiningCharacters) {
    EXPECT_EQ(runToolOn(Documents::domain("a", "配管") + '\n' + Documents::domain("b", "e\u0301a") + '\n' +
                            Documents::domain("c", "Fan"),
                        {"list", "a.jsonl"})
                  .output,
              "TYPEID  KIND    NAME  FORMAT        VERSIONS\n"
              "a       domain  配管  PropertySets  1.0.0 to 2.0.0\n"
              "b       domain  e\u0301a    PropertySets  1.0.0 to 2.0.0\n"
              "c       domain  Fan   PropertySets  1.0.0 to 2.0.0\n");
}

TEST(ListCommand, WritesJsonForPrograms) {
    EXPECT_THAT(runTool({"list", "examples/catalog/domains", "--kind", "domain", "--json"}).output, StartsWith(R"([
  {
    "typeid": "acme.building:domain.electrical-1.0.0",
    "kind": "domain",
    "name": "Electrical Equipment",
    "format": "LumarDataSchema",
    "lowestVersion": "1.0.0",
    "highestVersion": "3.0.0",
    "file": "examples/catalog/domains/electrical.json",
    "line": 1
  },)"));
    EXPECT_EQ(runTool({"list", "examples/catalog/domains", "--kind", "spec", "--json"}).output, "[]\n");
    // The name of a dimension is read from its text, where others look like it.
    EXPECT_THAT(runToolOn(R"({"typeid":"d","inherits":["quovanta.unit:dimension-1.0.0"],"name":"A","x":{"constants":)"
                          R"([{"id":"name","value":"B"}]},"constants":[{"id":"rank","value":"C"},{"value":"D","id":)"
                          R"("name"},{"id":"x","typedValue":{"typeid":"t","value":{"id":"name","value":"E"}}}]})",
                          {"list", "a.jsonl", "--json"})
                    .output,
                HasSubstr("\n    \"name\": \"D\",\n"));
}

TEST(ListCommand, EscapesWhatCannotBeSeen) {
    const std::tuple<const char*, const char*, const char*> names[] = {
        {"\x7f", R"(\x7f)", R"(\u007f)"},
        {"\u009b", R"(\x9b)", R"(\u009b)"},
        {"\u00ad", R"(\xad)", R"(\u00ad)"},
        {"\u200b", R"(\u200b)", R"(\u200b)"},
        {"\u202e", R"(\u202e)", R"(\u202e)"},
        {"\u2066", R"(\u2066)", R"(\u2066)"},
        {"\u2028", R"(\u2028)", R"(\u2028)"},
        {"\u2029", R"(\u2029)", R"(\u2029)"},
        {"\u3164", R"(\u3164)", R"(\u3164)"},
        {"\ufeff", R"(\ufeff)", R"(\ufeff)"},
        {"\ufdd0", R"(\ufdd0)", R"(\ufdd0)"},
        {"\U000e0041", R"(\U000e0041)", R"(\udb40\udc41)"},
        {"\U0001ffff", R"(\U0001ffff)", R"(\ud83f\udfff)"},
        {"é\U0001f600", "é\U0001f600", "é\U0001f600"}};
    for (const auto& [name, text, json] : names) {
        const std::string line = Documents::domain("a", "x" + std::string(name) + "y");
        EXPECT_THAT(runToolOn(line, {"list", "a.jsonl"}).output,
                    HasSubstr("a       domain  x" + std::string(text) + "y  "));
        EXPECT_THAT(runToolOn(line, {"list", "a.jsonl", "--json"}).output,
                    HasSubstr("\"name\": \"x" + std::string(json) + "y\",\n"));
    }
}

TEST(ListCommand, ListsWhatIsLoadedAndReportsErrors) {
    EXPECT_THAT(runTool({"list", "examples/catalog/domains", "examples/catalog/units/volt.json"}),
                FieldsAre(1, HasSubstr("acme.building:domain.electrical-1.0.0"),
                          MatchesRegex("parameters: examples/catalog/units/volt.json:[0-9]+:[0-9]+: error: No document "
                                       "defines acme.building:dimension.electricPotential-1.0.0. "
                                       "\\[missing-reference\\]\n")));
}

TEST(ShowCommand, ShowsAParameterWithAllThatItRefersTo) {
    EXPECT_EQ(runTool({"show", "examples/catalog", "--typeid", diffuser}).output,
              R"(parameter Supply Diffuser (acme.building:parameter.supplyDiffuser-1.0.0)
├─ description   The diffuser that serves the space.
├─ read-only     no
├─ group         Air Side (acme.building:group.airSide-1.0.0)
├─ spec          Equipment (acme.building:spec.equipmentReference-1.0.0)
│  ├─ value type    quovanta.data:reference-1.0.0
│  ├─ context       single
│  └─ discipline    Common (quovanta.spec:discipline-2.0.0)
├─ category      Supply Diffusers (acme.building:category.supplyDiffusers-1.0.0)
│  └─ parent        Air Terminals (acme.building:category.airTerminals-1.0.0)
│     ├─ domain        Mechanical Equipment (acme.building:domain.mechanical-1.0.0)
│     └─ discipline    Heating, Ventilation and Air Conditioning (acme.building:discipline.hvac-1.0.0)
├─ format        LumarDataSchema
├─ data models   1.0.0 to 3.0.0
└─ document      examples/catalog/parameters/air/supply-diffuser.json
)");
}

TEST(ShowCommand, ShowsTheRangeWithoutALimit) {
    const std::string range =
        R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.string-1.0.0","value":{}}})";
    EXPECT_THAT(runToolOn(Documents::shortForm("test:p", "quovanta.parameter:parameter.string-3.0.0",
                                               Documents::nameConstant("P") + "," + range),
                          {"show", "a.jsonl", "--typeid", "test:p"})
                    .output,
                HasSubstr("\n├─ range         quovanta.range:range.string-1.0.0\n│  └─ allows        any text\n├─"));
}

TEST(ShowCommand, KnowsEveryKind) {
    for (const char* kind : {"category", "dimension", "discipline", "domain", "enumeration", "float-range", "group",
                             "int-range", "parameter", "spec", "string-range", "unit"}) {
        const std::string list = runTool({"list", "examples/catalog", "--kind", kind}).output;
        const std::size_t begin = list.find('\n') + 1;
        const std::string typeId = list.substr(begin, list.find(' ', begin) - begin);
        EXPECT_THAT(runTool({"show", "examples/catalog", "--typeid", typeId}),
                    FieldsAre(0, StartsWith(std::string(kind) + ' '), ""));
    }
}

TEST(SchemaCommand, PrintsTheRegisteredTextAndOlderOnes) {
    const std::string file = "examples/catalog/domains/electrical.json";
    const std::string typeId = "acme.building:domain.electrical-1.0.0";
    EXPECT_EQ(runTool({"schema", file, "--typeid", typeId}).output,
              Documents::textOf(PARAMETERS_SOURCE_DIR "/" + file));
    EXPECT_THAT(runTool({"schema", file, "--typeid", typeId, "--data-model", "2.0.0"}).output,
                StartsWith(R"({"downgradedFrom":"3.0.0","typeid")"));
    EXPECT_THAT(runTool({"schema", file, "--typeid", typeId, "--data-model", "2.0.0", "--pretty"}).output,
                StartsWith("{\n  \"downgradedFrom\": \"3.0.0\",\n"));
}

TEST(SchemaCommand, EscapesOnATerminalOnly) {
    const TemporaryFolder folder;
    const std::string text =
        "{\"typeid\":\"a\",\"inherits\":[\"quovanta.spec:discipline-1.0.0\"],\r \"constants\":[{\"id\":"
        "\"name\",\"value\":\"\u009b\u202e\"}]}";
    folder.write("a.json", text);
    const std::string schema = "$tool schema a.json --typeid a";
    EXPECT_EQ(runShell(schema, folder.path()).output, text + '\n');
    EXPECT_EQ(terminalOf(schema, folder.path()),
              R"({"typeid":"a","inherits":["quovanta.spec:discipline-1.0.0"],  "constants":[{"id":)"
              R"("name","value":"\u009b\u202e"}]})"
              "\r\n");
    EXPECT_THAT(terminalOf(schema + " --pretty", folder.path()), HasSubstr(R"("value": "\u009b\u202e")"));
    EXPECT_THAT(runShell(schema + " --pretty", folder.path()).output, HasSubstr("\"value\": \"\u009b\u202e\""));
}

TEST(SchemaCommand, TellsWhatCannotBeRepresented) {
    EXPECT_THAT(runToolOn(Documents::domain("a", "A"), {"schema", "a.jsonl", "--typeid", "a", "--data-model", "3.0.0"}),
                FieldsAre(1, "",
                          "parameters: a: Cannot represent schema in requested format. Documents are not rewritten for "
                          "newer data models than their own.\n"));
}

TEST(DepsCommand, ListsWhatADocumentNeeds) {
    EXPECT_EQ(runTool({"deps", "examples/catalog", "--typeid", diffuser}).output,
              "acme.building:category.airTerminals-1.0.0     category    indirectly  Air Terminals\n"
              "acme.building:category.supplyDiffusers-1.0.0  category    directly    Supply Diffusers\n"
              "acme.building:discipline.hvac-1.0.0           discipline  indirectly  "
              "Heating, Ventilation and Air Conditioning\n"
              "acme.building:domain.mechanical-1.0.0         domain      indirectly  Mechanical Equipment\n"
              "acme.building:group.airSide-1.0.0             group       directly    Air Side\n"
              "acme.building:spec.equipmentReference-1.0.0   spec        directly    Equipment\n");
}

TEST(DepsCommand, DrawsATreeAndTurnsAround) {
    EXPECT_THAT(runTool({"deps", "examples/catalog", "--typeid", diffuser, "--tree"}).output,
                HasSubstr("├─ category Supply Diffusers (acme.building:category.supplyDiffusers-1.0.0)\n"
                          "│  └─ category Air Terminals (acme.building:category.airTerminals-1.0.0)\n"));
    const std::string parents = "acme.building:category.supplyDiffusers-1.0.0";
    EXPECT_EQ(runTool({"deps", "examples/catalog", "--typeid", parents, "--reverse"}).output,
              diffuser + "  parameter  directly  Supply Diffuser\n");
}

TEST(DepsCommand, WritesASharedBranchOutOnceAndALeafEachTime) {
    EXPECT_EQ(
        runTool({"deps", "examples/catalog", "--typeid", "acme.building:spec.pressureDrop-1.0.0", "--tree"}).output,
        R"(spec Pressure Drop (acme.building:spec.pressureDrop-1.0.0)
├─ discipline Heating, Ventilation and Air Conditioning (acme.building:discipline.hvac-1.0.0)
├─ unit Kilopascal (acme.building:unit.kilopascal-1.0.0)
│  └─ dimension Pressure (acme.building:dimension.pressure-1.0.0)
└─ unit Pascal (acme.building:unit.pascal-1.0.0)
   └─ dimension Pressure (acme.building:dimension.pressure-1.0.0)
)");
    const std::string dimension = "acme.building:dimension.pressure-1.0.0";
    EXPECT_THAT(runTool({"deps", "examples/catalog", "--typeid", dimension, "--tree", "--reverse"}).output,
                EndsWith("\n└─ unit Pascal (acme.building:unit.pascal-1.0.0)\n"
                         "   └─ spec Pressure Drop (acme.building:spec.pressureDrop-1.0.0), see above\n"));
}
