#include "tool/Program.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <tuple>

using namespace testing;

namespace {

std::string group(const std::string& name) { return Documents::group("test:" + name, "G") + '\n'; }

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
    EXPECT_THAT(runTool({"check", "examples/catalog"}), FieldsAre(0, EndsWith(" documents, no errors.\n"), ""));
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
    EXPECT_THAT(runTool({"check", "absent", "b.txt", "empty", ".", "--follow"}, folder.path()),
                FieldsAre(2, EndsWith("1 document, no errors.\n"),
                          "parameters: absent cannot be read: No such file or directory.\n"
                          "parameters: b.txt is not a .json file, a .jsonl file or a folder.\n"
                          "parameters: empty contains no .json or .jsonl files.\n"
                          "parameters: ./c.json cannot be read: No such file or directory.\n"));
}

TEST(CheckCommand, RefusesHugeDocumentsAndNoOthers) {
    const TemporaryFolder folder;
    constexpr unsigned tooLarge = (64U << 20U) + 1;
    folder.write("a.jsonl", group("a") + std::string(tooLarge, ' ') + '\n' + group("b"));
    folder.write("b.json", "");
    std::filesystem::resize_file(folder.path("b.json"), tooLarge);
    EXPECT_THAT(runTool({"check", "."}, folder.path()),
                FieldsAre(1,
                          "./a.jsonl:2: Larger than 64 MiB.\n./b.json: Larger than 64 MiB.\n\n"
                          "group       2\n4 documents, 2 errors in 2 of them.\n",
                          ""));
}

TEST(CheckCommand, ReadsDocumentsOfTheLargestSize) {
    const TemporaryFolder folder;
    folder.write("a.json", "");
    std::filesystem::resize_file(folder.path("a.json"), 64U << 20U);
    EXPECT_THAT(runTool({"check", "a.json"}, folder.path()),
                FieldsAre(1, "a.json: Binary, not text.\n\n1 document, 1 error in 1 of them.\n", ""));
}

TEST(CheckCommand, TellsWhichFilesItMayNotRead) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "Root may read all files.";
    }
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    std::filesystem::permissions(folder.path("a.json"), std::filesystem::perms::none);
    EXPECT_THAT(runTool({"check", "."}, folder.path()),
                FieldsAre(2, _, "parameters: ./a.json cannot be read: Permission denied.\n"));
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
    EXPECT_THAT(runTool({"check", "catalog/A.JSON", "catalog", "catalog", "--follow"}, folder.path()),
                FieldsAre(0, "group       3\n3 documents, no errors.\n", ""));
    EXPECT_THAT(runTool({"check", "catalog"}, folder.path()),
                FieldsAre(0, "group       1\n1 document, no errors.\n",
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
    EXPECT_THAT(runTool({"check", "catalog"}, folder.path()),
                FieldsAre(2, "group       1\n1 document, no errors.\n",
                          "parameters: " + deepest + "/d is skipped: more than 100 folders deep.\n" +
                              "parameters: catalog/z.jsonl is skipped: larger than 2 GiB.\n"));
}

TEST(CheckCommand, FindsManyErrorsAmongManyDocumentsAtOnce) {
    std::string lines = group("g") + parameter("noGroup", "test:g");
    for (int number = 0; number < 5000; ++number) {
        lines += parameter(std::to_string(number), number % 100 == 0 ? "test:noGroup" : "test:g");
    }
    EXPECT_THAT(runToolOn(lines, {"check", "a.jsonl"}).output,
                AllOf(StartsWith("a.jsonl:3: Dependency test:noGroup in schema test:0 is missing"),
                      EndsWith("parameter    4951\n5002 documents, 50 errors in 50 of them.\n")));
}

TEST(CheckCommand, FindsAllErrorsOfADocument) {
    const std::string lines = group("g") + parameter("good", "test:g") + parameter("missing", "test:nobody", "test:g") +
                              parameter("blocked", "test:g", "test:missing") +
                              parameter("both", "test:missing", "test:nobody") +
                              parameter("wrong", "test:good", "test:g") + parameter("behind", "test:wrong", "test:g");
    const std::string rest = " is missing or does not represent an object of the expected type.\n";
    EXPECT_EQ(runToolOn(lines, {"check", "a.jsonl"}).output,
              "a.jsonl:3: Refers to test:nobody, which no document defines.\n"
              "a.jsonl:5: Refers to test:nobody, which no document defines.\n"
              "a.jsonl:3: Dependency test:g in schema test:missing" +
                  rest + "a.jsonl:4: Dependency test:missing in schema test:blocked" + rest +
                  "a.jsonl:5: Dependency test:missing in schema test:both" + rest +
                  "a.jsonl:6: Dependency test:good in schema test:wrong" + rest +
                  "a.jsonl:6: Dependency test:g in schema test:wrong" + rest +
                  "a.jsonl:7: Dependency test:wrong in schema test:behind" + rest +
                  "a.jsonl:7: Dependency test:g in schema test:behind" + rest +
                  "\ngroup           1\nparameter       1\n7 documents, 9 errors in 5 of them.\n");
}

TEST(CheckCommand, NamesNoMoreThanTenDocumentsOfACycle) {
    std::string lines;
    for (int number = 10; number < 22; ++number) {
        const int next = number == 21 ? 10 : number + 1;
        lines += parameter(std::to_string(number), "test:" + std::to_string(next));
    }
    EXPECT_THAT(runToolOn(lines, {"check", "a.jsonl"}).output,
                AllOf(HasSubstr("\na.jsonl:12: Circular reference: test:10, test:11, "),
                      HasSubstr(", test:19 and 2 more.\n"), EndsWith("12 documents, 24 errors in 12 of them.\n")));
}

TEST(CheckCommand, KeepsControlCharactersFromTheTerminal) {
    EXPECT_THAT(runToolOn(parameter("a", "\\u001b[31m\u009b1m"), {"check", "a.jsonl"}).output,
                StartsWith("a.jsonl:1: Refers to \\x1b[31m\\x9b1m, which no document defines.\n"));
}

TEST(CommandLine, TellsHelpVersionAndWrongUsageByTheStatus) {
    EXPECT_THAT(runTool({"--help"}).output, HasSubstr("check"));
    EXPECT_THAT(runTool({"--version"}), FieldsAre(0, StartsWith("parameters "), ""));
    const std::pair<std::vector<std::string>, std::string> wrongUsages[] = {
        {{}, ""},
        {{"check"}, ""},
        {{"nonsense", "."}, ""},
        {{"list", ".", "--kind", "nonsense"}, ""},
        {{"schema", ".", "--typeid", "x", "--data-model", "4"}, ""},
        {{"graph", ".", "--depth", "1"}, ""},
        {{"graph", ".", "--typeid", "x", "--depth", "-1"}, "--depth: Must be a non-negative integer\n"},
        {{"graph", ".", "--out", "a.png"}, ""},
        {{"graph", "examples/catalog", "--typeid", ""}, ""}};
    for (const auto& [arguments, errors] : wrongUsages) {
        EXPECT_THAT(runTool(arguments), FieldsAre(2, "", AllOf(Not(""), StartsWith(errors))));
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
    const std::string errors = "parameters: a.jsonl:2: Refers to test:nobody, which no document defines.\n"
                               "parameters: a.jsonl:3: Not loaded: test:invalid, which it references, has "
                               "errors.\n";
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
    EXPECT_THAT(
        runToolOn(group("good"), {"list", "absent", "a.jsonl"}),
        FieldsAre(2, HasSubstr("\ntest:good "), "parameters: absent cannot be read: No such file or directory.\n"));
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
    EXPECT_THAT(Documents::textOf(folder.path("output")), EndsWith("\n4 documents, 1 error in 1 of them.\n"));
}

TEST(CommandLine, TellsOnceThatItCannotWrite) {
    for (const char* command :
         {"$tool --version >/dev/full", "$tool list examples/catalog >/dev/full", "$tool list examples/catalog >&-"}) {
        EXPECT_THAT(runShell(command), FieldsAre(2, "", "parameters: Cannot write to standard output.\n"));
    }
    EXPECT_THAT(runShell("$tool check absent examples/catalog/domains 2>&-"),
                FieldsAre(2, EndsWith(" documents, no errors.\n"), ""));
}
