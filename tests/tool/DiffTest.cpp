#include "tool/Program.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>

using namespace testing;

namespace {

using Documents::constant;
using Documents::nameConstant;
using Documents::reference;

/// What others refer to, the same on both sides.
std::string context() {
    std::string lines;
    for (const std::string& number : {std::string("1"), std::string("2")}) {
        lines += Documents::group("g" + number, "G") + '\n' + Documents::discipline("d" + number, "D") + '\n' +
                 Documents::domain("o" + number, "O") + '\n' + Documents::dimension("n" + number, "N") + '\n' +
                 Documents::unit("u" + number, "U", "n1") + '\n' +
                 Documents::shortForm("c" + number, "quovanta.talmo.category:majorCategory-1.0.0",
                                      nameConstant("C") + "," + reference("domain", "o1") +
                                          R"(,{"id":"disciplines","typedValue":[{"typeid":"d1"}]})") +
                 '\n' +
                 Documents::fullForm("s" + number, "quovanta.spec:spec-2.0.0", nameConstant("S"),
                                     R"({"id":"value","typeid":"Float64"})") +
                 '\n';
    }
    return lines;
}

std::string enumeration(const std::string& items) {
    return R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"enum","typeid":"x","enum":[)" + items +
           "]}";
}

std::string item(const std::string& id, int value) {
    return R"({"id":")" + id + R"(","value":)" + std::to_string(value) + "}";
}

std::string spec(const std::string& value, const std::string& constants = nameConstant("S")) {
    return Documents::fullForm("x", "quovanta.spec:spec-2.0.0", constants, R"({"id":"value",)" + value + "}");
}

std::string measurable(const std::string& storage, const std::string& applicable) {
    return Documents::fullForm("x", "quovanta.spec:spec.measurable-3.0.0",
                               nameConstant("S") + "," + reference("storageUnit", storage) +
                                   R"(,{"id":"applicableUnits","typedValue":[)" + applicable + "]}");
}

std::string parameter(const std::string& constants, const std::string& base = "quovanta.parameter:parameter-3.0.0",
                      const std::string& spec = "s1") {
    return Documents::fullForm("x", base, nameConstant("P") + (constants.empty() ? "" : "," + constants),
                               R"({"id":"data","typeid":")" + spec + R"("})");
}

std::string ranged(const std::string& limits) {
    return parameter(R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.float64.bounded.static-2.0.0",)"
                     R"("value":{)" +
                         limits + "}}}",
                     "quovanta.parameter:parameter.ranged.float64-2.0.0");
}

std::string category(const std::string& domain, const std::string& disciplines) {
    return Documents::shortForm("x", "quovanta.talmo.category:majorCategory-1.0.0",
                                nameConstant("C") + "," + reference("domain", domain) +
                                    R"(,{"id":"disciplines","typedValue":[)" + disciplines + "]}");
}

std::string subcategory(const std::string& parent) {
    return Documents::shortForm("x", "quovanta.talmo.category:subCategory-1.0.0",
                                nameConstant("C") + "," + reference("parent", parent));
}

std::string choices(const std::string& values) {
    return Documents::fullForm("x", "quovanta.range:range.string.set.static-2.0.0",
                               constant("allowedValues", "[" + values + "]"));
}

std::string pattern(const std::string& regex) {
    return Documents::fullForm("x", "quovanta.range:range.string.regex-2.0.0", constant("regex", '"' + regex + '"'));
}

const std::string u1 = R"({"typeid":"u1"})";
const std::string u2 = R"({"typeid":"u2"})";
const std::string d1 = R"({"typeid":"d1"})";
const std::string limitsNone = R"("fromBottom":false,"fromTop":false)";

} // namespace

TEST(DiffCommand, WeighsWhatBecameOfObjects) {
    struct Case {
        const char* level;
        const char* rule;
        std::string before, after;
        std::string message;
    };
    const std::string above0 = R"("fromBottom":true,"bottomBoundary":0,"fromTop":false)";
    const Case cases[] = {
        {"incompatible", "removed-item", Documents::group("x", "G"), "", "This group is removed."},
        {"incompatible", "refused-item", Documents::group("x", "G"), Documents::group("x", ""),
         "It can no longer be loaded."},
        {"incompatible", "changed-kind", Documents::group("x", "G"), Documents::domain("x", "G"),
         "The kind is now domain; it was group."},
        {"incompatible", "changed-base", category("o1", d1), subcategory("c1"),
         "The major category is now a subcategory."},
        {"incompatible", "changed-base", choices(R"("a")"), pattern("a"),
         "The range now matches a pattern; before it was one that allows some texts."},
        {"incompatible", "changed-value-type", spec(R"("typeid":"Float64")"), spec(R"("typeid":"Int64")"),
         "The value type is now Int64; it was Float64."},
        {"incompatible", "changed-value-type", spec(R"("oneOf":[{"typeid":"a"},{"typeid":"b"}])"),
         spec(R"("oneOf":[{"typeid":"b"}])"), "The value type \"a\" is removed."},
        {"compatible", "wider-value-type", spec(R"("oneOf":[{"typeid":"b"}])"),
         spec(R"("oneOf":[{"typeid":"a"},{"typeid":"b"}])"), "The value type \"a\" is added."},
        {"incompatible", "changed-context", spec(R"("typeid":"String")"), spec(R"("context":"map","typeid":"String")"),
         "A value is now a map; it was single."},
        {"incompatible", "changed-unit", measurable("u1", u1 + "," + u2), measurable("u2", u2 + "," + u1),
         "The storage unit is now u2; it was u1."},
        {"incompatible", "removed-unit", measurable("u1", u1 + "," + u2), measurable("u1", u1),
         "The applicable unit \"u2\" is removed."},
        {"compatible", "added-unit", measurable("u1", u1), measurable("u1", u1 + "," + u2),
         "The applicable unit \"u2\" is added."},
        {"incompatible", "changed-dimension", Documents::unit("x", "U", "n1"), Documents::unit("x", "U", "n2"),
         "The dimension is now n2; it was n1."},
        {"incompatible", "changed-spec", parameter(""), parameter("", "quovanta.parameter:parameter-3.0.0", "s2"),
         "The spec is now s2; it was s1."},
        {"incompatible", "changed-category", subcategory("c1"), subcategory("c2"),
         "The parent category is now c2; it was c1."},
        {"incompatible", "changed-category", parameter(""),
         parameter(reference("category", "c1"), "quovanta.talmo:parameter.categorized-2.0.0"),
         "Values are now of category c1; they were not limited."},
        {"incompatible", "changed-group", parameter(reference("group", "g1")), parameter(reference("group", "g2")),
         "The group is now g2; it was g1."},
        {"incompatible", "changed-discipline", spec(R"("typeid":"String")"),
         spec(R"("typeid":"String")", nameConstant("S") + "," + reference("discipline", "d2")),
         "The discipline is now d2; it was quovanta.spec:discipline-2.0.0."},
        {"incompatible", "changed-domain", category("o1", d1), category("o2", d1), "The domain is now o2; it was o1."},
        {"incompatible", "narrower-range", ranged(limitsNone), ranged(above0),
         "The range is now from 0; it was without limits."},
        {"incompatible", "narrower-range", parameter(""), ranged(above0),
         "Values are now numbers from 0; they were not limited."},
        {"incompatible", "narrower-range",
         ranged(R"("fromBottom":true,"bottomBoundary":-1,"fromTop":true,"topBoundary":1)"),
         ranged(R"("fromBottom":true,"bottomBoundary":-2,"fromTop":true,"topBoundary":0.5)"),
         "The range is now from -2 up to 0.5; it was from -1 up to 1."},
        {"incompatible", "changed-range", ranged(above0),
         parameter(R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.int64.bounded.static-2.0.0",)"
                   R"("value":{"fromBottom":false,"fromTop":true,"topBoundary":9}}})",
                   "quovanta.parameter:parameter.ranged.int64-2.0.0"),
         "Values are now integers up to 9; they were numbers from 0."},
        {"compatible", "wider-range", ranged(above0), ranged(limitsNone),
         "The range is now without limits; it was from 0."},
        {"incompatible", "changed-pattern", pattern("a"), pattern("b"), "The pattern is now \"b\"; it was \"a\"."},
        {"incompatible", "removed-choice", choices(R"("a","b")"), choices(R"("b")"), "The choice \"a\" is removed."},
        {"compatible", "added-choice", enumeration(item("a", 1)), enumeration(item("b", 2) + "," + item("a", 1)),
         "Item \"b\" is added."},
        {"incompatible", "removed-choice", enumeration(item("b", 2) + "," + item("a", 1)), enumeration(item("a", 1)),
         "Item \"b\" is removed."},
        {"incompatible", "changed-number", enumeration(item("a", 1)), enumeration(item("a", 2)),
         "The number of item \"a\" is now 2; it was 1."},
        {"incompatible", "read-only-on", parameter(constant("readOnly", "false")),
         parameter(constant("readOnly", "true")), "It is now read-only."},
        {"compatible", "added-item", "", Documents::group("x", "G"), "This group is new."},
        {"compatible", "read-only-off", parameter(constant("readOnly", "true")), parameter(""),
         "It is no longer read-only."},
        {"texts", "changed-name", Documents::dimension("x", "A"), Documents::dimension("x", "B"),
         "The name is now \"B\"; it was \"A\"."},
        {"texts", "changed-description", parameter(""), parameter(constant("description", R"("D")")),
         "The description is now \"D\"; it was \"\"."},
        {"texts", "changed-sample-text", parameter(""), parameter(constant("sampleText", R"("T")")),
         "The sample text is now \"T\"; it was \"\"."},
        {"layout", "changed-layout", parameter(""), parameter(constant("readOnly", "false")),
         "Another text defines the same."},
        {"layout", "changed-layout", Documents::group("x", "G"),
         Documents::fullForm("x", "quovanta.parameter:group-2.0.0", nameConstant("G")),
         "Another text defines the same."},
    };
    const TemporaryFolder folder;
    std::set<std::string> tested;
    for (const Case& each : cases) {
        tested.insert(each.rule);
        const std::string others = context();
        folder.write("old.jsonl", each.before + '\n' + others);
        folder.write("new.jsonl", each.after + '\n' + others);
        const bool isGone = each.after.empty();
        const ProgramRun run = runTool({"diff", "old.jsonl", "new.jsonl"}, folder.path());
        EXPECT_THAT(run.output, StartsWith((isGone ? "old" : "new") + std::string(".jsonl:1:1: ") + each.level +
                                           ": x: " + each.message + " [" + each.rule + "]\nChanges: "))
            << run.errors;
        EXPECT_EQ(run.status, each.level == std::string("incompatible") ? 1 : 0) << each.rule << each.message;
    }
    const std::string page = Documents::textOf(PARAMETERS_SOURCE_DIR "/docs/changes.md");
    const std::string sarif = runTool({"diff", "old.jsonl", "new.jsonl", "--format", "sarif"}, folder.path()).output;
    static const std::regex rule(R"re("id": "([a-z-]+)",\s+"shortDescription": \{\s+"text": "([^"]+)")re");
    std::size_t rules = 0;
    std::size_t position = 0;
    for (std::sregex_iterator match(sarif.begin(), sarif.end(), rule), end; match != end; ++match) {
        const std::string row = "| `" + (*match)[1].str() + "` | " + (*match)[2].str() + " |\n";
        position = page.find(row, position);
        EXPECT_NE(position, std::string::npos) << row;
        EXPECT_TRUE(tested.count((*match)[1]) == 1 || (*match)[1] == "moved-range") << row;
        ++rules;
    }
    EXPECT_EQ(rules, 31);
}

TEST(DiffCommand, TellsRangesOfAParameterFromThoseItRefersTo) {
    const auto range = [](const std::string& typeId, int top) {
        return Documents::fullForm(typeId, "quovanta.range:range.float64.bounded.static-2.0.0",
                                   constant("fromBottom", "false") + "," + constant("fromTop", "true") + "," +
                                       constant("topBoundary", std::to_string(top))) +
               '\n';
    };
    const auto referring = [](const std::string& typeId) {
        return parameter(reference("range", typeId), "quovanta.parameter:parameter.ranged.float64-2.0.0") + '\n';
    };
    const TemporaryFolder folder;
    folder.write("old.jsonl", referring("r") + range("r", 2) + range("q", 2) + range("p", 1) + context());
    const auto run = [&](const std::string& first, int top) {
        folder.write("new.jsonl", first + range("r", top) + range("q", 2) + range("p", 1) + context());
        return runTool({"diff", "old.jsonl", "new.jsonl"}, folder.path()).output;
    };
    const std::string one = "Documents: 0 added, 0 removed, 1 changed, 17 the same.\n";
    EXPECT_EQ(run(referring("r"), 1),
              "new.jsonl:2:1: incompatible: r: The range is now up to 1; it was up to 2. [narrower-range]\n"
              "Changes: 1 incompatible, 0 compatible, 0 texts, 0 layout. " +
                  one);
    EXPECT_EQ(run(referring("q"), 2),
              "new.jsonl:1:1: compatible: x: The range is now q; it was r, with the same limits. [moved-range]\n"
              "Changes: 0 incompatible, 1 compatible, 0 texts, 0 layout. " +
                  one);
    EXPECT_EQ(run(referring("p"), 2),
              "new.jsonl:1:1: incompatible: x: The range is now up to 1; it was up to 2. [narrower-range]\n"
              "Changes: 1 incompatible, 0 compatible, 0 texts, 0 layout. " +
                  one);
    EXPECT_EQ(run(referring("r"), 2), "Changes: 0 incompatible, 0 compatible, 0 texts, 0 layout. "
                                      "Documents: 0 added, 0 removed, 0 changed, 18 the same.\n");
}

TEST(DiffCommand, TakesRulesAndReportsForPrograms) {
    const TemporaryFolder folder;
    folder.write("old.jsonl", Documents::group("a", "A") + '\n' + Documents::group("b", "B"));
    folder.write("new.jsonl", Documents::group("a", "C"));
    const auto run = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"diff", "old.jsonl", "new.jsonl"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runTool(arguments, folder.path());
    };
    const std::string documents = " Documents: 0 added, 1 removed, 1 changed, 0 the same.\n";
    EXPECT_THAT(run({"--rule", "removed-item=off", "--rule", "changed-name=compatible"}),
                FieldsAre(0,
                          "new.jsonl:1:1: compatible: a: The name is now \"C\"; it was \"A\". [changed-name]\n"
                          "Changes: 0 incompatible, 1 compatible, 0 texts, 0 layout." +
                              documents,
                          ""));
    EXPECT_THAT(run({"--format", "github", "--rule", "removed-item=layout", "--rule", "changed-name=incompatible"}),
                FieldsAre(1,
                          "::error file=new.jsonl,line=1,col=1,title=changed-name::a: The name is now \"C\"; it was "
                          "\"A\".\n::notice file=old.jsonl,line=2,col=1,title=removed-item::b: This group is removed.\n"
                          "Changes: 1 incompatible, 0 compatible, 0 texts, 1 layout." +
                              documents,
                          ""));
    EXPECT_THAT(run({"--format", "json", "--rule", "changed-name=off"}), FieldsAre(1, R"({
  "version": 1,
  "findings": [
    {
      "severity": "incompatible",
      "rule": "removed-item",
      "file": "old.jsonl",
      "line": 2,
      "column": 1,
      "typeid": "b",
      "message": "b: This group is removed."
    }
  ],
  "summary": {
    "incompatible": 1,
    "compatible": 0,
    "texts": 0,
    "layout": 0,
    "added": 0,
    "removed": 1,
    "changed": 1,
    "same": 0
  }
}
)",
                                                                                   ""));
    EXPECT_THAT(run({"--rule", "changed-nam=off"}).errors,
                StartsWith("parameters: --rule: There is no rule changed-nam; did you mean changed-name?\n"));
    folder.write("new.jsonl", "{");
    EXPECT_THAT(run({}), FieldsAre(1, HasSubstr("a: This group is removed."),
                                   StartsWith("parameters: new.jsonl:1:2: error: JSON parsing error")));
    EXPECT_THAT(runTool({"diff", "old.jsonl", "absent.json"}, folder.path()),
                FieldsAre(2, "", StartsWith("parameters: absent.json: error: Cannot be read: ")));
}
