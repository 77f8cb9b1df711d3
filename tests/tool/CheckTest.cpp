#include "tool/Program.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string group(const std::string& name) {
    return R"({"typeid":"test:group.)" + name +
           R"(-1.0.0","inherits":["quovanta.parameter:group-1.0.0"],"constants":[{"id":"name","value":"G"}]})";
}

/// A parameter of the built-in string spec.
std::string parameter(const std::string& name, const std::string& groupTypeId) {
    return R"({"typeid":"test:parameter.)" + name +
           R"(-1.0.0","inherits":["quovanta.parameter:parameter.string-3.0.0"],"constants":[{"id":"name","value":"P"},)" +
           R"({"id":"group","typedValue":{"typeid":")" + groupTypeId + R"("}}]})";
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
    folder.write("a.jsonl", group("a") + '\n' + std::string((64U << 20U) + 1, ' ') + "x\n" + group("b") + '\n');
    const ProgramRun run = runTool({"check", "a.jsonl"}, folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "a.jsonl:2: Larger than 64 MiB.\n\ngroup       2\n3 documents, 1 fault in 1 of them.\n");
}

TEST(CheckCommand, TakesTheSameFileTwiceForADuplicate) {
    const TemporaryFolder folder;
    folder.write("a.json", group("a"));
    const ProgramRun run = runTool({"check", "a.json", "."}, folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output,
                StartsWith("./a.json: Schema with typeid test:group.a-1.0.0 is already registered, from a.json.\n"));
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

TEST(CheckCommand, KeepsControlCharactersFromTheTerminal) {
    const TemporaryFolder folder;
    folder.write("a.json", parameter("a", "\\u001b[31m"));
    const ProgramRun run = runTool({"check", "a.json"}, folder.path());
    EXPECT_THAT(run.output, StartsWith("a.json: Refers to \\x1b[31m, which no document defines.\n"));
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
                                                      {"show", "examples/catalog", "--typeid", "x"}}) {
        const ProgramRun run = runTool(arguments);
        EXPECT_EQ(run.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors, "");
    }
}
