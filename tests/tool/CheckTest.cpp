#include "tool/Program.h"

#include <gmock/gmock.h>
#include <unistd.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string group(const std::string& name) {
    return R"({"typeid":"test:group.)" + name +
           R"(-1.0.0","inherits":["quovanta.parameter:group-1.0.0"],"constants":[{"id":"name","value":"G"}]})";
}

/// A parameter of the built-in string spec, unless another is named.
std::string parameter(const std::string& name, const std::string& groupTypeId, const std::string& specTypeId = {}) {
    const std::string spec =
        specTypeId.empty() ? "" : R"(,{"id":"spec","typedValue":{"typeid":")" + specTypeId + R"("}})";
    return R"({"typeid":"test:parameter.)" + name +
           R"(-1.0.0","inherits":["quovanta.parameter:parameter.string-3.0.0"],"constants":[{"id":"name","value":"P"},)" +
           R"({"id":"group","typedValue":{"typeid":")" + groupTypeId + R"("}})" + spec + "]}";
}

} // namespace

TEST(CheckCommand, FindsNothingInTheExampleCatalog) {
    const ProgramRun run = runTool({"check", "examples/catalog"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, EndsWith(" documents, no faults.\n"));
    EXPECT_EQ(run.errors, "");
}

TEST(CheckCommand, ReportsEveryFault) {
    const ProgramRun run = runTool({"check", "tests/tool/broken"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, contentsOf(PARAMETERS_SOURCE_DIR "/tests/tool/broken.txt"));
    EXPECT_EQ(run.errors, "");
}

TEST(CheckCommand, GoesOnPastWhatCannotBeRead) {
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    folder.write("b.txt", "");
    std::filesystem::create_symlink("nowhere", folder.path("c.json"));
    std::filesystem::create_directories(folder.path("empty"));
    const ProgramRun run = runTool({"check", "absent", "b.txt", "empty", "."}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.output, EndsWith("1 document, no faults.\n"));
    EXPECT_EQ(run.errors, "parameters: absent cannot be read: No such file or directory.\n"
                          "parameters: b.txt is neither a .json file nor a .jsonl file nor a folder.\n"
                          "parameters: empty holds no .json or .jsonl files.\n"
                          "parameters: ./c.json cannot be read: No such file or directory.\n");
}

TEST(CheckCommand, RefusesHugeDocumentsAndNoOthers) {
    const TemporaryFolder folder;
    constexpr unsigned tooLarge = (64U << 20U) + 1;
    folder.write("a.jsonl", group("a") + '\n' + std::string(tooLarge, ' ') + '\n' + group("b") + '\n');
    folder.write("b.json", "");
    std::filesystem::resize_file(folder.path("b.json"), tooLarge);
    const ProgramRun run = runTool({"check", "."}, folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "./a.jsonl:2: Larger than 64 MiB.\n./b.json: Larger than 64 MiB.\n\n"
                          "group       2\n4 documents, 2 faults in 2 of them.\n");
}

TEST(CheckCommand, TellsWhichFilesItMayNotRead) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "Root may read all files.";
    }
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    std::filesystem::permissions(folder.path("a.json"), std::filesystem::perms::none);
    const ProgramRun run = runTool({"check", "."}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "parameters: ./a.json cannot be read: Permission denied.\n");
}

TEST(CheckCommand, ReadsLinkedFoldersOnceAndExtensionsInCapitals) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("catalog/a"));
    std::filesystem::create_directories(folder.path("shared"));
    std::filesystem::create_directory_symlink("../..", folder.path("catalog/a/up"));
    folder.write("catalog/A.JSON", group("a"));
    folder.write("shared/B.JSONL", group("b") + '\n' + group("c") + '\n');
    EXPECT_EQ(runTool({"check", "catalog"}, folder.path()).output, "group       3\n3 documents, no faults.\n");
}

TEST(CheckCommand, TakesEachFileOnceOnWhateverPath) {
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    std::filesystem::create_symlink("a.json", folder.path("b.json"));
    const ProgramRun run = runTool({"check", "a.json", ".", "."}, folder.path());
    EXPECT_EQ(run.output, "group       1\n1 document, no faults.\n");
    EXPECT_EQ(run.errors, "");
}

TEST(CheckCommand, FindsManyFaultsAmongManyDocumentsAtOnce) {
    const TemporaryFolder folder;
    std::string lines = group("g") + '\n' + parameter("noGroup", "test:group.g-1.0.0") + '\n';
    for (int number = 0; number < 5000; ++number) {
        const bool isFaulty = number % 100 == 0;
        lines +=
            parameter(std::to_string(number), isFaulty ? "test:parameter.noGroup-1.0.0" : "test:group.g-1.0.0") + '\n';
    }
    folder.write("a.jsonl", lines);
    const ProgramRun run = runTool({"check", "a.jsonl"}, folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("a.jsonl:3: Dependency test:parameter.noGroup-1.0.0 in schema "
                                      "test:parameter.0-1.0.0 is missing"));
    EXPECT_THAT(run.output, EndsWith("parameter    4951\n5002 documents, 50 faults in 50 of them.\n"));
}

TEST(CheckCommand, FindsAllFaultsOfADocument) {
    const TemporaryFolder folder;
    const std::string groupTypeId = "test:group.g-1.0.0";
    folder.write("a.jsonl", group("g") + '\n' + parameter("good", groupTypeId) + '\n' +
                                parameter("missing", "test:nobody", groupTypeId) + '\n' +
                                parameter("blocked", groupTypeId, "test:parameter.missing-1.0.0") + '\n' +
                                parameter("both", "test:parameter.missing-1.0.0", "test:nobody") + '\n' +
                                parameter("wrong", "test:parameter.good-1.0.0", groupTypeId) + '\n' +
                                parameter("behind", "test:parameter.wrong-1.0.0", groupTypeId) + '\n');
    const ProgramRun run = runTool({"check", "a.jsonl"}, folder.path());
    const std::string rest = " is missing or does not represent an object of the expected type.\n";
    EXPECT_EQ(run.output,
              "a.jsonl:3: Refers to test:nobody, which no document defines.\n"
              "a.jsonl:5: Refers to test:nobody, which no document defines.\n"
              "a.jsonl:3: Dependency test:group.g-1.0.0 in schema test:parameter.missing-1.0.0" +
                  rest + "a.jsonl:4: Dependency test:parameter.missing-1.0.0 in schema test:parameter.blocked-1.0.0" +
                  rest + "a.jsonl:5: Dependency test:parameter.missing-1.0.0 in schema test:parameter.both-1.0.0" +
                  rest + "a.jsonl:6: Dependency test:parameter.good-1.0.0 in schema test:parameter.wrong-1.0.0" + rest +
                  "a.jsonl:6: Dependency test:group.g-1.0.0 in schema test:parameter.wrong-1.0.0" + rest +
                  "a.jsonl:7: Dependency test:parameter.wrong-1.0.0 in schema test:parameter.behind-1.0.0" + rest +
                  "a.jsonl:7: Dependency test:group.g-1.0.0 in schema test:parameter.behind-1.0.0" + rest +
                  "\ngroup           1\nparameter       1\n7 documents, 9 faults in 5 of them.\n");
}

TEST(CheckCommand, NamesNoMoreThanTenDocumentsOfARing) {
    const TemporaryFolder folder;
    std::string lines;
    for (int number = 10; number < 22; ++number) {
        const int next = number == 21 ? 10 : number + 1;
        lines += parameter(std::to_string(number), "test:parameter." + std::to_string(next) + "-1.0.0") + '\n';
    }
    folder.write("a.jsonl", lines);
    const ProgramRun run = runTool({"check", "a.jsonl"}, folder.path());
    EXPECT_THAT(run.output, HasSubstr("\na.jsonl:12: Is in a ring of references: test:parameter.10-1.0.0, "));
    EXPECT_THAT(run.output, HasSubstr(", test:parameter.19-1.0.0 and 2 more.\n"));
    EXPECT_THAT(run.output, EndsWith("12 documents, 24 faults in 12 of them.\n"));
}

TEST(CheckCommand, KeepsControlCharactersFromTheTerminal) {
    const TemporaryFolder folder;
    folder.write("a.json", parameter("a", "\\u001b[31m\u009b1m"));
    const ProgramRun run = runTool({"check", "a.json"}, folder.path());
    EXPECT_THAT(run.output, StartsWith("a.json: Refers to \\x1b[31m\\x9b1m, which no document defines.\n"));
}

TEST(CommandLine, TellsHelpVersionAndWrongUsageByTheStatus) {
    EXPECT_THAT(runTool({"--help"}).output, HasSubstr("check"));
    EXPECT_THAT(runTool({"--version"}).output, StartsWith("parameters "));
    EXPECT_EQ(runTool({"--version"}).status, 0);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"check"},
                                                      {"nonsense", "."},
                                                      {"list", ".", "--kind", "nonsense"},
                                                      {"schema", ".", "--typeid", "x", "--data-model", "4"},
                                                      {"graph", ".", "--depth", "1"},
                                                      {"graph", ".", "--out", "a.png"},
                                                      {"graph", "examples/catalog", "--typeid", ""},
                                                      {"show", "examples/catalog", "--typeid", "x"}}) {
        const ProgramRun run = runTool(arguments);
        EXPECT_EQ(run.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors, "");
    }
}

TEST(CommandLine, TellsWhatADepthIs) {
    const ProgramRun run = runTool({"graph", ".", "--typeid", "x", "--depth", "-1"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, StartsWith("--depth: Must be a whole number from 0 on\n"));
}

TEST(CommandLine, TellsOnceThatItCannotWrite) {
    for (const char* command :
         {"$tool --version >/dev/full", "$tool list examples/catalog >/dev/full", "$tool list examples/catalog >&-"}) {
        const ProgramRun run = runShell(command);
        EXPECT_EQ(run.status, 2) << command;
        EXPECT_EQ(run.errors, "parameters: Standard output cannot be written.\n") << command;
    }
    const ProgramRun silenced = runShell("$tool check absent examples/catalog/domains 2>&-");
    EXPECT_EQ(silenced.status, 2);
    EXPECT_THAT(silenced.output, EndsWith(" documents, no faults.\n"));
}
