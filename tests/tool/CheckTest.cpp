#include "tool/Program.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <tuple>

using namespace testing;

namespace {

std::string group(const std::string& name) { return Documents::group("test:" + name, "G") + '\n'; }

/// Arguments that check a path for errors alone, as the typeids of tests have no versions.
std::vector<std::string> errorsIn(const std::string& path) {
    return {"check", path, "--rule", "typeid-without-version=off"};
}

/// A parameter of the built-in string spec, unless another is named.
std::string parameter(const std::string& name, const std::string& groupTypeId, const std::string& specTypeId = {}) {
    const std::string constants = Documents::nameConstant("P") + "," + Documents::reference("group", groupTypeId);
    return Documents::shortForm("test:" + name, "quovanta.parameter:parameter.string-3.0.0",
                                specTypeId.empty() ? constants
                                                   : constants + "," + Documents::reference("spec", specTypeId)) +
           '\n';
}

} // namespace

TEST(CheckCommand, FindsNothingInTheExampleCatalog) {
    // Some of its value types are the host's own.
    EXPECT_THAT(runTool({"check", "examples/catalog", "--strict", "--rule", "unknown-value-type=off"}),
                FieldsAre(0, "254 documents, no faults.\n", ""));
}

TEST(CheckCommand, ReportsEveryError) {
    const ProgramRun run = runTool({"check", "tests/tool/broken"});
    EXPECT_EQ(run.output, Documents::textOf(PARAMETERS_SOURCE_DIR "/tests/tool/broken.txt"));
    EXPECT_THAT(run, FieldsAre(1, _, ""));
}

TEST(CheckCommand, GoesOnPastWhatCannotBeRead) {
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    folder.write("b.txt", "");
    std::filesystem::create_symlink("nowhere", folder.path("c.json"));
    std::filesystem::create_directories(folder.path("empty"));
    const std::string unreadable = "absent: error: Cannot be read: No such file or directory. [unreadable-path]\n"
                                   "b.txt: error: Is not a .json file, a .jsonl file or a folder. [unreadable-path]\n"
                                   "empty: error: Contains no .json or .jsonl files. [unreadable-path]\n";
    EXPECT_THAT(runTool({"check", "absent", "b.txt", "empty", ".", "--follow"}, folder.path()),
                FieldsAre(2,
                          unreadable +
                              "./c.json: error: Cannot be read: No such file or directory. [unreadable-path]\n"
                              "./a.json:1:11: warning: Typeid test:a does not end in a version, such as -1.0.0. "
                              "[typeid-without-version]\n4 errors and 1 warning in 1 of 1 document.\n",
                          ""));
    EXPECT_THAT(runTool({"check", "absent", "b.txt", "empty"}, folder.path()),
                FieldsAre(2, unreadable + "3 errors.\n", ""));
}

TEST(CheckCommand, RefusesHugeDocumentsAndNoOthers) {
    const TemporaryFolder folder;
    constexpr unsigned tooLarge = (64U << 20U) + 1;
    folder.write("a.jsonl", group("a") + std::string(tooLarge, ' ') + '\n' + group("b"));
    folder.write("b.json", "");
    std::filesystem::resize_file(folder.path("b.json"), tooLarge);
    EXPECT_THAT(runTool(errorsIn("."), folder.path()),
                FieldsAre(1,
                          "./a.jsonl:2:1: error: Larger than 64 MiB. [too-large]\n"
                          "./b.json:1:1: error: Larger than 64 MiB. [too-large]\n2 errors in 2 of 4 documents.\n",
                          ""));
}

TEST(CheckCommand, ReadsDocumentsOfTheLargestSize) {
    const TemporaryFolder folder;
    folder.write("a.json", "");
    std::filesystem::resize_file(folder.path("a.json"), 64U << 20U);
    EXPECT_THAT(
        runTool({"check", "a.json"}, folder.path()),
        FieldsAre(1, "a.json:1:1: error: Binary, not text. [wrong-encoding]\n1 error in 1 of 1 document.\n", ""));
}

TEST(CheckCommand, TellsWhichFilesItMayNotRead) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "Root may read all files.";
    }
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    std::filesystem::permissions(folder.path("a.json"), std::filesystem::perms::none);
    EXPECT_THAT(runTool({"check", "."}, folder.path()),
                FieldsAre(2, "./a.json: error: Cannot be read: Permission denied. [unreadable-path]\n1 error.\n", ""));
}

TEST(CheckCommand, FollowsLinksOnlyWhenAskedAndReadsEachFileOnceAndExtensionsInCapitals) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("catalog/a"));
    std::filesystem::create_directories(folder.path("shared"));
    std::filesystem::create_directory_symlink("../..", folder.path("catalog/a/up"));
    std::filesystem::create_symlink("A.JSON", folder.path("catalog/b.json"));
    folder.write("catalog/A.JSON", group("a"));
    folder.write("shared/B.JSONL", group("b") + group("c"));
    std::filesystem::create_hard_link(folder.path("catalog/A.JSON"), folder.path("catalog/c.json"));
    std::filesystem::create_symlink("nothing of interest", folder.path("catalog/note"));
    EXPECT_THAT(
        runTool({"check", "catalog/A.JSON", "catalog", "catalog", "--follow", "--rule", "typeid-without-version=off"},
                folder.path()),
        FieldsAre(0, "3 documents, no faults.\n", ""));
    EXPECT_THAT(runTool(errorsIn("catalog"), folder.path()),
                FieldsAre(0, "1 document, no faults.\n",
                          "parameters: 2 links skipped; --follow reads what links in folders lead to.\n"));
    EXPECT_EQ(runTool({"check", "catalog/a/up", "catalog/b.json"}, folder.path()).errors,
              "parameters: 2 links skipped; --follow reads what links in folders lead to.\n");
}

TEST(CheckCommand, TellsWhichFoldersAreTooDeepAndWhichFilesTooLarge) {
    const TemporaryFolder folder;
    const std::string deepest = "catalog" + Documents::repeated("/d", 99);
    std::filesystem::create_directories(folder.path(deepest + "/d/d"));
    folder.write(deepest + "/a.json", group("a"));
    folder.write(deepest + "/d/b.json", group("b"));
    folder.write("catalog/z.jsonl", "");
    std::filesystem::resize_file(folder.path("catalog/z.jsonl"), (std::uintmax_t{2} << 30U) + 1);
    EXPECT_THAT(runTool(errorsIn("catalog"), folder.path()),
                FieldsAre(2,
                          deepest + "/d: error: Is skipped: more than 100 folders deep. [unreadable-path]\n" +
                              "catalog/z.jsonl: error: Is skipped: larger than 2 GiB. [unreadable-path]\n" +
                              "2 errors in 0 of 1 document.\n",
                          ""));
}

TEST(CheckCommand, FindsManyErrorsAmongManyDocumentsAtOnce) {
    std::string lines = group("g") + parameter("noGroup", "test:g");
    for (int number = 0; number < 5000; ++number) {
        lines += parameter(std::to_string(number), number % 100 == 0 ? "test:noGroup" : "test:g");
    }
    EXPECT_THAT(runToolOn(lines, errorsIn("a.jsonl")).output,
                AllOf(MatchesRegex("a.jsonl:3:[0-9]+: error: test:noGroup is a parameter, not a group. "
                                   "\\[wrong-kind\\]\n(.*\n)*"),
                      EndsWith("\n50 errors in 50 of 5002 documents.\n")));
}

TEST(CheckCommand, TellsWhatIsWrongWithEachReferenceAndWhatItBlocks) {
    const std::string lines = group("g") + parameter("good", "test:g") + parameter("missing", "test:nobody", "test:g") +
                              parameter("blocked", "test:g", "test:missing") + parameter("behind", "test:good");
    const std::string errors = "a.jsonl:3:159: error: No document defines test:nobody. [missing-reference]\n"
                               "a.jsonl:3:211: error: test:g is a group, not a spec. [wrong-kind]\n"
                               "a.jsonl:4:206: error: test:missing is a parameter, not a spec. [wrong-kind]\n"
                               "a.jsonl:5:158: error: test:good is a parameter, not a group. [wrong-kind]\n";
    EXPECT_EQ(runToolOn(lines, errorsIn("a.jsonl")).output, errors + "4 errors in 3 of 5 documents.\n");
}

TEST(CheckCommand, ListsBlockedDocumentsOnRequestAndCountsThemAlways) {
    const std::string spec =
        Documents::fullForm("test:spec", "quovanta.spec:spec-2.0.0",
                            Documents::nameConstant("N") + "," + Documents::reference("discipline", "test:nobody"),
                            R"({"id":"value","typeid":"String"})");
    const std::string user = Documents::fullForm("test:user", "quovanta.parameter:parameter-3.0.0",
                                                 Documents::nameConstant("N"), R"({"id":"data","typeid":"test:spec"})");
    const std::string column = std::to_string(user.find("\"test:spec\"") + 1);
    std::vector<std::string> arguments = errorsIn("a.jsonl");
    const std::string summary = "1 error in 1 of 2 documents; 1 more cannot be loaded because of them.\n";
    EXPECT_THAT(runToolOn(spec + '\n' + user, arguments).output,
                AllOf(HasSubstr("No document defines test:nobody."), Not(HasSubstr("blocked")), EndsWith(summary)));
    arguments.emplace_back("--all");
    EXPECT_THAT(runToolOn(spec + '\n' + user, arguments).output,
                EndsWith("\na.jsonl:2:" + column +
                         ": blocked: Not loaded: test:spec, which it references, has errors. [blocked]\n" + summary));
}

TEST(CheckCommand, NamesNoMoreThanTenDocumentsOfACycle) {
    std::string lines;
    for (int number = 10; number < 22; ++number) {
        const int next = number == 21 ? 10 : number + 1;
        lines += parameter(std::to_string(number), "test:" + std::to_string(next));
    }
    EXPECT_THAT(runToolOn(lines, errorsIn("a.jsonl")).output,
                AllOf(StartsWith("a.jsonl:1:154: error: Circular reference: test:10, test:11, "),
                      HasSubstr(", test:19 and 2 more. [circular-reference]\n"),
                      EndsWith("\n12 errors in 12 of 12 documents.\n")));
}

TEST(CheckCommand, KeepsControlCharactersFromTheTerminal) {
    EXPECT_THAT(runToolOn(parameter("a", "\\u001b[31m\u009b1m"), errorsIn("a.jsonl")).output,
                HasSubstr("error: No document defines \\x1b[31m\\x9b1m. [missing-reference]"));
}

TEST(CheckCommand, PlacesFaultsByLinesAndCharacters) {
    const TemporaryFolder folder;
    folder.write("a.json", R"({
  "typeid": "test:ä-1.0.0", "inherits": ["quovanta.parameter:gruop-1.0.0"]
})");
    folder.write("b.jsonl", "\n{\"typeid\": \"test:b-1.0.0\",\t]\n");
    folder.write("c.json", "\xFF\xFE{");
    folder.write("d.json", "{\n\n \"\xC3\"}");
    EXPECT_EQ(runTool({"check", "."}, folder.path()).output,
              "./a.json:2:42: error: Schema test:ä-1.0.0 does not represent a unit or a dimension; did you mean "
              "quovanta.parameter:group-1.0.0? [unknown-base] at /inherits/0\n"
              "./b.jsonl:2:28: error: JSON parsing error at offset 27: Missing a name for an object member. "
              "[invalid-json]\n"
              "./c.json:1:1: error: Encoded in UTF-16, where JSON is in UTF-8. [wrong-encoding]\n"
              "./d.json:3:3: error: Invalid UTF-8 at offset 5. [wrong-encoding]\n"
              "4 errors in 4 of 4 documents.\n");
}

TEST(CheckCommand, TakesRulesAndStrictness) {
    const std::string line = Documents::group("test:g", "G");
    const std::string message = "Typeid test:g does not end in a version, such as -1.0.0. [typeid-without-version]\n";
    const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
        {{}, 0, "a.jsonl:1:11: warning: " + message + "1 warning in 1 of 1 document.\n"},
        {{"--strict"}, 1, "a.jsonl:1:11: warning: " + message + "1 warning in 1 of 1 document.\n"},
        {{"--rule", "typeid-without-version=error"},
         1,
         "a.jsonl:1:11: error: " + message + "1 error in 1 of 1 document.\n"},
        {{"--strict", "--rule", "typeid-without-version=off"}, 0, "1 document, no faults.\n"},
    };
    for (const auto& [options, status, output] : cases) {
        std::vector<std::string> arguments = {"check", "a.jsonl"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_THAT(runToolOn(line, arguments), FieldsAre(status, output, "")) << PrintToString(options);
    }
    const std::pair<const char*, const char*> wrongRules[] = {
        {"typeid-without-verson=off", "There is no rule typeid-without-verson; did you mean typeid-without-version?\n"},
        {"wrong-type=off", "wrong-type cannot be changed: documents that break it cannot be loaded.\n"},
        {"unknown-member", "unknown-member must be NAME=off, NAME=warning or NAME=error.\n"},
    };
    for (const auto& [rule, error] : wrongRules) {
        EXPECT_THAT(runToolOn(line, {"check", "a.jsonl", "--rule", rule}),
                    FieldsAre(2, "", StartsWith(std::string("parameters: --rule: ") + error)));
    }
}

TEST(CheckCommand, ReportsForPrograms) {
    const std::string lines = Documents::fullForm("test:a-1.0.0", "quovanta.parameter:group-2.0.0",
                                                  Documents::nameConstant("A") + R"(,{"id":"nam,e","value":1})") +
                              '\n' + Documents::group("test:b-1.0.0", "");
    const std::string first = std::to_string(lines.find("\"nam,e\"") + 1);
    const std::string second = std::to_string(Documents::group("test:b-1.0.0", "").find("\"\"") + 1);
    const ProgramRun json = runToolOn(lines, {"check", "a.jsonl", "--format", "json"});
    EXPECT_EQ(json.output, R"({
  "version": 1,
  "findings": [
    {
      "severity": "warning",
      "rule": "unknown-constant",
      "file": "a.jsonl",
      "line": 1,
      "column": )" + first + R"(,
      "pointer": "/constants/1/id",
      "typeid": "test:a-1.0.0",
      "message": "Constant \"nam,e\" is unknown and ignored."
    },
    {
      "severity": "error",
      "rule": "empty-value",
      "file": "a.jsonl",
      "line": 2,
      "column": )" + second + R"(,
      "pointer": "/constants/0/value",
      "typeid": "test:b-1.0.0",
      "message": "Expected a non-empty string."
    }
  ],
  "summary": {
    "documents": 2,
    "documentsWithFindings": 2,
    "errors": 1,
    "warnings": 1,
    "blocked": 0
  }
}
)");
    EXPECT_EQ(runToolOn(lines, {"check", "a.jsonl", "--format", "github"}).output,
              "::warning file=a.jsonl,line=1,col=" + first +
                  ",title=unknown-constant::Constant \"nam,e\" is unknown and ignored.\n"
                  "::error file=a.jsonl,line=2,col=" +
                  second +
                  ",title=empty-value::Expected a non-empty string.\n1 error and 1 warning in 2 of 2 "
                  "documents.\n");
}

TEST(CheckCommand, ReportsInSarif) {
    const TemporaryFolder folder;
    folder.write("a b.json", Documents::group("test:g", "G"));
    const std::string output = runTool({"check", "a b.json", "--format", "sarif"}, folder.path()).output;
    EXPECT_THAT(output, StartsWith(R"({
  "$schema": "https://json.schemastore.org/sarif-2.1.0.json",
  "version": "2.1.0",
  "runs": [
    {
      "tool": {
        "driver": {
          "name": "parameters",
          "version": ")"));
    EXPECT_THAT(output, HasSubstr(R"(
          "rules": [
            {
              "id": "invalid-json",
              "shortDescription": {
                "text": "The text is no JSON."
              },
              "defaultConfiguration": {
                "level": "error"
              }
            },
)"));
    EXPECT_THAT(output, EndsWith(R"(
      "columnKind": "unicodeCodePoints",
      "results": [
        {
          "ruleId": "typeid-without-version",
          "level": "warning",
          "message": {
            "text": "Typeid test:g does not end in a version, such as -1.0.0."
          },
          "locations": [
            {
              "physicalLocation": {
                "artifactLocation": {
                  "uri": "a%20b.json"
                },
                "region": {
                  "startLine": 1,
                  "startColumn": 11,
                  "endLine": 1,
                  "endColumn": 19
                }
              },
              "logicalLocations": [
                {
                  "fullyQualifiedName": "/typeid"
                }
              ]
            }
          ],
          "properties": {
            "typeid": "test:g"
          }
        }
      ]
    }
  ]
}
)"));
}

TEST(CheckCommand, ChecksAgainstAContextAndFromStandardInput) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("catalog"));
    folder.write("catalog/g.json", group("g-1.0.0"));
    folder.write("catalog/bad.json", "{");
    folder.write("p.json", parameter("p-1.0.0", "test:g-1.0.0"));
    EXPECT_THAT(runTool({"check", "p.json", "--with", "catalog"}, folder.path()),
                FieldsAre(0, "1 document, no faults.\n", ""));
    EXPECT_THAT(runTool({"check", "p.json"}, folder.path()).output, HasSubstr("No document defines test:g-1.0.0."));
    EXPECT_THAT(runShell("$tool check - --with catalog <p.json", folder.path()),
                FieldsAre(0, "1 document, no faults.\n", ""));
    // What is changed takes the place of what it was.
    EXPECT_THAT(runShell("cat catalog/g.json p.json | $tool check - --with catalog", folder.path()),
                FieldsAre(0, "2 documents, no faults.\n", ""));
    EXPECT_THAT(runShell("echo '{' | $tool check -", folder.path()).output, StartsWith("-:2:1: error: JSON parsing"));
}

TEST(CommandLine, TellsHelpVersionAndWrongUsageByTheStatus) {
    EXPECT_THAT(runTool({"--help"}).output, HasSubstr("check"));
    EXPECT_THAT(runTool({"--version"}), FieldsAre(0, StartsWith("parameters "), ""));
    const std::pair<std::vector<std::string>, std::string> wrongUsages[] = {
        {{}, "A command is needed.\n"},
        {{"check"}, "PATH is required.\n"},
        {{"chekc", "."}, "There is no command chekc; did you mean check?\n"},
        {{"check", ".", "--al"}, "Command check has no option --al; did you mean --all?\n"},
        {{"list", ".", "--kind", "nonsense"}, ""},
        {{"schema", ".", "--typeid", "x", "--data-model", "4"}, ""},
        {{"graph", ".", "--depth", "1"}, ""},
        {{"graph", ".", "--typeid", "x", "--depth", "-1"}, "--depth: Must be a non-negative integer.\n"},
        {{"graph", ".", "--out", "a.png"}, ""},
        {{"graph", "examples/catalog", "--typeid", ""}, ""}};
    for (const auto& [arguments, errors] : wrongUsages) {
        EXPECT_THAT(runTool(arguments), FieldsAre(2, "", StartsWith("parameters: " + errors)));
    }
}

TEST(CommandLine, WorksOnWhatIsLoadedAndTellsOfTheRestByTheStatus) {
    const std::string name = Documents::nameConstant("N");
    const std::string lines = group("good") +
                              Documents::fullForm("test:invalid", "quovanta.spec:spec-2.0.0",
                                                  name + "," + Documents::reference("discipline", "test:nobody"),
                                                  R"({"id":"value","typeid":"String"})") +
                              '\n' +
                              Documents::fullForm("test:blocked", "quovanta.parameter:parameter-3.0.0", name,
                                                  R"({"id":"data","typeid":"test:invalid"})");
    const auto columnOf = [&](const std::string& text) {
        const std::size_t position = lines.rfind('"' + text + '"');
        return std::to_string(position - lines.rfind('\n', position));
    };
    const std::string errors = "parameters: a.jsonl:2:" + columnOf("test:nobody") +
                               ": error: No document defines test:nobody. [missing-reference]\nparameters: a.jsonl:3:" +
                               columnOf("test:invalid") +
                               ": blocked: Not loaded: test:invalid, which it references, has errors. [blocked]\n";
    const std::tuple<std::string, int, std::string> cases[] = {
        {"test:good", 1, ""},
        {"test:no\033body", 2, "parameters: No document has the typeid test:no\\x1bbody.\n"},
        {"test:invalid", 2, "parameters: a.jsonl:2, which defines test:invalid, was not loaded.\n"},
        {"test:blocked", 2, "parameters: a.jsonl:3, which defines test:blocked, was not loaded.\n"}};
    for (const char* command : {"show", "schema", "deps", "bundle --out out", "graph"}) {
        for (const auto& [typeId, status, error] : cases) {
            const TemporaryFolder folder;
            folder.write("a.jsonl", lines);
            EXPECT_THAT(runShell("$tool " + std::string(command) + " a.jsonl --typeid '" + typeId + "'", folder.path()),
                        FieldsAre(status, _, errors + error))
                << command << ' ' << typeId;
        }
    }
    EXPECT_THAT(
        runToolOn(lines, {"export", "a.jsonl", "--data-model", "1.0.0", "--out", "out"}),
        FieldsAre(1, "1 document in out for data model 1.0.0, 0 rewritten; 0 cannot be represented.\n", errors));
    EXPECT_THAT(runToolOn(group("good"), {"list", "absent", "a.jsonl"}),
                FieldsAre(2, HasSubstr("\ntest:good "),
                          "parameters: absent: error: Cannot be read: No such file or directory. [unreadable-path]\n"));
}

TEST(CommandLine, DrawsABarOfSlowWorkOnATerminalOnly) {
    const TemporaryFolder folder;
    // Large enough to be still read when the program is stopped.
    folder.write("a.jsonl", "");
    std::filesystem::resize_file(folder.path("a.jsonl"), 16U << 20U);
    for (const char* name : {"b.json", "c.json", "d.json"}) {
        folder.write(name, group(name));
    }
    EXPECT_THAT(terminalOfSlowRun("$tool check . >output", folder.path(), folder.path("a.jsonl")),
                AllOf(StartsWith("\r\x1b[KReading [==========                              ] 1 of 4\r\x1b[K"),
                      EndsWith("\r\x1b[K")));
    EXPECT_EQ(terminalOfSlowRun("$tool check . >output 2>errors", folder.path(), folder.path("a.jsonl")), "");
    EXPECT_EQ(Documents::textOf(folder.path("errors")), "");
    EXPECT_THAT(Documents::textOf(folder.path("output")), EndsWith("\n1 error and 3 warnings in 4 of 4 documents.\n"));
}

TEST(CommandLine, TellsOnceThatItCannotWrite) {
    for (const char* command :
         {"$tool --version >/dev/full", "$tool list examples/catalog >/dev/full", "$tool list examples/catalog >&-"}) {
        EXPECT_THAT(runShell(command), FieldsAre(2, "", "parameters: Cannot write to standard output.\n"));
    }
    EXPECT_THAT(runShell("$tool check absent examples/catalog/domains 2>&-"),
                FieldsAre(2, EndsWith("\n1 error in 0 of 4 documents.\n"), ""));
}
