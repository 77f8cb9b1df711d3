#include "tool/Program.h"

#include <gmock/gmock.h>

using namespace testing;

namespace {

/// A discipline with more than an older text holds.
const std::string rich =
    R"({"schemaSpecification":"lumar-data-schema-2.0.0","typeid":"test:rich/../../x-1.0.0",)"
    R"("inherits":["quovanta.spec:discipline-2.0.0"],"sealed":false,"author":"me","downgradedFrom":"9.0.0",)"
    R"("constants":[{"id":"name","typeid":"String","value":"N","note":1},{"id":"rank","value":7}],)"
    R"("properties":[{"id":"p","typeid":"String","context":"map"}]})";

} // namespace

TEST(ExportCommand, WritesWhatAnOlderModelReadsAndListsTheRest) {
    const TemporaryFolder folder;
    const ProgramRun run =
        runTool({"export", "examples/catalog", "--data-model", "2.0.0", "--out", folder.path("out"), "--quiet"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output,
                AllOf(HasSubstr("examples/catalog/specs/setpoint.json: acme.building:spec.setpoint-1.0.0: Cannot "
                                "represent schema in requested format.\n"),
                      HasSubstr("\nReferences to documents that cannot be represented remain in 3 documents.\n"),
                      Not(HasSubstr("loses:"))));
    EXPECT_THAT(Documents::textOf(folder.path("out/acme.building_domain.electrical-1.0.0.json")),
                StartsWith(R"({"downgradedFrom":"3.0.0",)"));
}

TEST(ExportCommand, TellsWhatTheOlderTextNoLongerHolds) {
    const TemporaryFolder folder;
    folder.write("rich.json", rich);
    EXPECT_THAT(runTool({"export", "rich.json", "--data-model", "1.0.0", "--out", "out"}, folder.path()),
                FieldsAre(0, R"(rich.json: Rewriting test:rich/../../x-1.0.0 loses:
  removed: sealed: false
  removed: author: "me"
  changed: downgradedFrom: "9.0.0" is now "3.0.0"
  removed: constant "name" note: 1
  removed: constant "rank": {"id":"rank","value":7}
  removed: property "p": {"id":"p","typeid":"String","context":"map"}
1 document in out for data model 1.0.0, 1 rewritten; 0 cannot be represented.
)",
                          ""));
    EXPECT_EQ(Documents::textOf(folder.path("out/test_rich_.._.._x-1.0.0.json")),
              R"({"downgradedFrom":"3.0.0","typeid":"test:rich/../../x-1.0.0",)"
              R"("inherits":["quovanta.spec:discipline-1.0.0"],"constants":[{"id":"name","value":"N"}]})"
              "\n");
}

TEST(ExportCommand, ComparesDocumentsOfManyMembers) {
    std::string members;
    for (int number = 0; number < 40; ++number) {
        members += "\"m" + std::to_string(number) + "\":1,";
    }
    const std::string line =
        R"({"schemaSpecification":"lumar-data-schema-2.0.0","typeid":"a","inherits":["quovanta.spec:discipline-2.0.0"],)" +
        members + R"("m7":2,"constants":[{"id":"name","typeid":"String","value":"N"}]})";
    EXPECT_THAT(runToolOn(line, {"export", "a.jsonl", "--data-model", "1.0.0", "--out", "out"}).output,
                AllOf(StartsWith("a.jsonl:1: Rewriting a loses:\n  removed: m0: 1\n  removed: m1: 1\n"),
                      HasSubstr("\n  removed: m6: 1\n  removed: m7: 2\n  removed: m8: 1\n"),
                      HasSubstr("\n  removed: m39: 1\n1 document in out")));
}

TEST(ExportCommand, TellsReferencesFromTheirLikesThatMove) {
    const std::string name = Documents::nameConstant("N");
    const std::string spec =
        Documents::fullForm("test:s", "quovanta.spec:spec-2.0.0", name, R"({"id":"value","typeid":"String"})");
    const std::string parameter = Documents::fullForm(
        "test:p", "quovanta.parameter:parameter-3.0.0", name + "," + Documents::reference("seeAlso", "test:s"),
        R"({"id":"data","typeid":"test:s","note":1},{"id":"extra","typeid":"String"})");
    EXPECT_EQ(runToolOn(spec + '\n' + parameter, {"export", "a.jsonl", "--data-model", "1.0.0", "--out", "out"}).output,
              R"(a.jsonl:2: Rewriting test:p loses:
  removed: constant "seeAlso": {"id":"seeAlso","typedValue":{"typeid":"test:s"}}
  removed: property "data" note: 1
  removed: property "extra": {"id":"extra","typeid":"String"}
2 documents in out for data model 1.0.0, 2 rewritten; 0 cannot be represented.
)");
}

TEST(ExportCommand, OverwritesOnlyWhenForced) {
    const TemporaryFolder folder;
    folder.write("rich.json", rich);
    folder.write("test_rich_.._.._x-1.0.0.json", "mine");
    std::vector<std::string> arguments = {"export", "rich.json", "--data-model", "1.0.0", "--out", "."};
    EXPECT_THAT(
        runTool(arguments, folder.path()),
        FieldsAre(2, "", "parameters: ./test_rich_.._.._x-1.0.0.json already exists; --force overwrites it.\n"));
    EXPECT_EQ(Documents::textOf(folder.path("test_rich_.._.._x-1.0.0.json")), "mine");
    EXPECT_EQ(runTool({"export", "rich.json", "--data-model", "1.0.0", "--out", "rich.json"}, folder.path()).errors,
              "parameters: Cannot create folder rich.json: Not a directory.\n");
    arguments.emplace_back("--force");
    EXPECT_EQ(runTool(arguments, folder.path()).status, 0);
    EXPECT_NE(Documents::textOf(folder.path("test_rich_.._.._x-1.0.0.json")), "mine");
}

TEST(ExportCommand, ReplacesLinksAndWritesIntoNothingButFiles) {
    const std::string written = Documents::domain("a", "A") + '\n';
    const std::string done = "1 document in out for data model 1.0.0, 0 rewritten; 0 cannot be represented.\n";
    const std::tuple<const char*, const char*, int, std::string> cases[] = {
        {"ln -s ../victim out/a.json", "--force", 0, ""},
        {"ln -s ../victim out/a.json", "", 2, "already exists; --force overwrites it"},
        {"ln -s ../absent out/a.json", "--force", 0, ""},
        {"ln victim out/a.json", "--force", 0, ""},
        {"echo longer than what is written >out/a.json; chmod 640 out/a.json", "--force", 0, ""},
        {"mkfifo out/a.json", "--force", 2, "is not a regular file"},
        {"mkfifo out/a.json", "", 2, "is not a regular file"},
        {"mkdir out/a.json", "--force", 2, "is a folder"}};
    for (const auto& [preparation, option, status, error] : cases) {
        const TemporaryFolder folder;
        folder.write("a.jsonl", Documents::domain("a", "A"));
        folder.write("victim", "mine");
        const std::string prepared = "mkdir out && " + std::string(preparation);
        EXPECT_THAT(
            runShell(prepared + " && $tool export a.jsonl --data-model 1.0.0 --out out " + option + "; s=$?; " +
                         "stat -c %a out/a.json >mode; ls -A . out >names; exit $s",
                     folder.path()),
            FieldsAre(status, status == 0 ? done : "", error.empty() ? "" : "parameters: out/a.json " + error + ".\n"))
            << prepared << option;
        EXPECT_EQ(Documents::textOf(folder.path("victim")), "mine") << prepared << option;
        EXPECT_EQ(Documents::textOf(folder.path("names")), ".:\na.jsonl\nmode\nnames\nout\nvictim\n\nout:\na.json\n")
            << prepared << option;
        if (status == 0) {
            EXPECT_FALSE(std::filesystem::is_symlink(folder.path("out/a.json"))) << prepared;
            EXPECT_EQ(Documents::textOf(folder.path("out/a.json")), written) << prepared;
        }
        if (prepared.find("chmod") != std::string::npos) {
            EXPECT_EQ(Documents::textOf(folder.path("mode")), "640\n");
        }
    }
}

TEST(ExportCommand, LeavesTheFormerFileAndNothingElseWhereTheTextDoesNotFit) {
    const TemporaryFolder folder;
    folder.write("a.jsonl", Documents::domain("a", std::string(9000, 'n')));
    // With the signal ignored a write fails, otherwise it comes when the temporary file is gone.
    for (const char* signal : {"trap '' XFSZ", ":"}) {
        EXPECT_NE(runShell("mkdir -p out; echo mine >out/a.json; (" + std::string(signal) +
                               "; ulimit -c 0; ulimit -f 4; $tool export a.jsonl --data-model 1.0.0 --out out --force)",
                           folder.path())
                      .status,
                  0);
        EXPECT_EQ(runShell("ls -A out; cat out/a.json", folder.path()).output, "a.json\nmine\n") << signal;
    }
}

TEST(ExportCommand, GoesOnAfterAnInterruption) {
    const TemporaryFolder folder;
    folder.write("a.jsonl", Documents::domain("a-1.0.0", "A") + '\n' + Documents::domain("b-1.0.0", "B"));
    const std::string again = "$tool export a.jsonl --data-model 1.0.0 --out out";
    // What a computer that failed leaves behind is no document either.
    EXPECT_EQ(
        runShell(again + " && rm out/b-1.0.0.json && echo '{' >out/.parameters-Ab3dEf && " + again +
                     " && $tool check out",
                 folder.path())
            .output,
        Documents::repeated("2 documents in out for data model 1.0.0, 0 rewritten; 0 cannot be represented.\n", 2) +
            "2 documents, no faults.\n");
}

TEST(ExportCommand, MakesFileNamesThatEverySystemTakesAndTellsApart) {
    const TemporaryFolder folder;
    std::string lines;
    for (const std::string& typeId : {std::string("a/b"), std::string("a:b"), std::string("A_b"), std::string("-c"),
                                      std::string(".d"), std::string(201, 'e')}) {
        lines += Documents::discipline(typeId, "N") + '\n';
    }
    folder.write("a.jsonl", lines);
    EXPECT_EQ(runTool({"export", "a.jsonl", "--data-model", "2.0.0", "--out", "out"}, folder.path()).status, 0);
    std::vector<std::string> names;
    for (const auto& file : Documents::filesBelow(folder.path("out"))) {
        names.push_back(file.filename().string());
    }
    EXPECT_THAT(names, UnorderedElementsAre("A_b.json", "a_b_2.json", "a_b_3.json", "_c.json", "_d.json",
                                            std::string(200, 'e') + ".json"));
}

TEST(BundleCommand, WritesWhatLoadsByItself) {
    const TemporaryFolder folder;
    const std::vector<std::string> arguments = {"bundle", "examples/catalog", "--typeid", diffuser,
                                                "--out",  folder.path("out")};
    EXPECT_THAT(runTool(arguments),
                FieldsAre(0, "7 documents written to " + folder.path("out") + "; they load on their own.\n", ""));
    EXPECT_EQ(Documents::textOf(folder.path("out/acme.building_parameter.supplyDiffuser-1.0.0.json")),
              Documents::textOf(PARAMETERS_SOURCE_DIR "/examples/catalog/parameters/air/supply-diffuser.json"));
    EXPECT_THAT(runTool({"check", folder.path("out")}).output, EndsWith("7 documents, no faults.\n"));
    EXPECT_EQ(runToolOn(Documents::discipline("a", "N"), {"bundle", "a.jsonl", "--typeid", "a", "--out", "out"}).output,
              "1 document written to out; it loads on its own.\n");
}

TEST(GraphCommand, DrawsKindsWithALegend) {
    EXPECT_THAT(
        runTool({"graph", "examples/catalog", "--typeid", diffuser, "--depth", "1"}),
        FieldsAre(
            0,
            AllOf(HasSubstr("  \"document " + diffuser + "\" -> \"document acme.building:group.airSide-1.0.0\";\n"),
                  HasSubstr(R"("legend group" [label="group", shape=octagon,)"), Not(HasSubstr("airTerminals"))),
            ""));
    EXPECT_THAT(runTool({"graph", "examples/catalog"}).output, HasSubstr(R"("legend unit" [label="unit")"));
}

TEST(GraphCommand, TurnsAround) {
    EXPECT_THAT(
        runTool({"graph", "examples/catalog", "--typeid", "acme.building:group.airSide-1.0.0", "--reverse"}).output,
        HasSubstr("  \"document " + diffuser + "\" -> \"document acme.building:group.airSide-1.0.0\";\n"));
}

TEST(GraphCommand, QuotesTypeidsAndTellsThemApart) {
    const std::string style = R"(, shape=hexagon, fillcolor="#e3d3ef"];)";
    const std::pair<std::string, std::string> typeIds[] = {
        {R"(a\"\\b\n)", R"("document a\"\\\\b\\x0a" [label="N", tooltip="a\"\\b\\x0a")"},
        {R"(a\\x0a)", R"("document a\\\\x0a" [label="N", tooltip="a\\x0a")"},
        {R"(a\n)", R"("document a\\x0a" [label="N", tooltip="a\\x0a")"},
        {"legend discipline", R"("document legend discipline" [label="N", tooltip="legend discipline")"},
        {"a&#0;\xEF\xBF\xBF", R"("document a&amp;#0;\\uffff" [label="N", tooltip="a&amp;#0;\\uffff")"}};
    for (const auto& [typeId, node] : typeIds) {
        EXPECT_THAT(runToolOn(Documents::discipline(typeId, "N"), {"graph", "a.jsonl"}).output,
                    HasSubstr("  " + node + style));
    }
}

TEST(GraphCommand, CutsLongLabels) {
    EXPECT_THAT(
        runToolOn(Documents::discipline(Documents::repeated("ü", 241), std::string(60, 'n')) + '\n' +
                      Documents::discipline("b", std::string(61, 'm')),
                  {"graph", "a.jsonl"})
            .output,
        AllOf(HasSubstr("[label=\"" + std::string(60, 'n') + "\", tooltip=\"" + Documents::repeated("ü", 239) + "…\""),
              HasSubstr("[label=\"" + std::string(59, 'm') + "…\", tooltip=\"b\"")));
}

TEST(GraphCommand, WarnsOfManyReferencesAndOfThoseDrawnOnly) {
    std::string lines;
    for (int number = 0; number < 700; ++number) {
        lines += Documents::group("g" + std::to_string(number), "G") + '\n' +
                 Documents::fullForm("u" + std::to_string(number), "quovanta.unit:unit-2.0.0",
                                     Documents::nameConstant("U") + "," + Documents::reference("dimension", "d")) +
                 '\n';
    }
    const TemporaryFolder folder;
    folder.write("a.jsonl", lines + Documents::dimension("d", "D"));
    folder.write("dot", "#!/bin/sh\nexit 0\n");
    const std::string drawing = "chmod +x dot; PATH=.:$PATH $tool graph a.jsonl --out a.svg --force ";
    EXPECT_EQ(
        runShell(drawing, folder.path()).errors,
        "parameters: Drawing 1401 documents and 700 references takes a while; --typeid and --depth select fewer.\n");
    EXPECT_EQ(runShell(drawing + "--typeid d --reverse", folder.path()).errors, "");
}

TEST(GraphCommand, BoundsGraphviz) {
    const TemporaryFolder folder;
    folder.write("a.jsonl", Documents::domain("a", "A"));
    const std::string drawing = "chmod +x dot; PATH=.:$PATH $tool graph a.jsonl --out a.svg --timeout ";
    // Without effect on an alarm that a host ignores.
    folder.write("dot", "#!/bin/sh\nexec sleep 100\n");
    EXPECT_THAT(
        runShell("trap '' ALRM; " + drawing + "1; s=$?; ls; exit $s", folder.path()),
        FieldsAre(2, "a.jsonl\ndot\n",
                  "parameters: Graphviz's program dot was ended after 1 second; --typeid and --depth select fewer "
                  "documents, --timeout gives it more time.\n"));
    folder.write("dot", "#!/bin/sh\nulimit -v; ulimit -t; exit 3\n");
    EXPECT_EQ(runShell(drawing + "7", folder.path()).errors, "parameters: Graphviz's program dot failed.\n");
    folder.write("dot", "#!/bin/sh\nulimit -v; ulimit -t\n");
    EXPECT_EQ(runShell(drawing + "7 && cat a.svg", folder.path()).output, "Wrote a.svg with 1 document.\n4194304\n7\n");
    folder.write("dot", "#!/bin/sh\necho $$ >dot.pid\nexec sleep 100\n");
    EXPECT_EQ(
        runShell(
            drawing +
                "90 --force & while ! [ -s dot.pid ]; do sleep 0.1; done; kill -9 $!; "
                "for i in 1 2 3 4 5; do grep -q sleep /proc/$(cat dot.pid)/cmdline || exit 0; sleep 0.2; done; exit 1",
            folder.path())
            .status,
        0);
}

TEST(GraphCommand, DrawsAPictureThroughGraphviz) {
    const TemporaryFolder folder;
    const ProgramRun run = runTool({"graph", "examples/catalog", "--typeid", diffuser, "--out", folder.path("a.svg")});
    if (run.errors ==
        "parameters: SVG output needs Graphviz, whose program dot is not installed; .dot output does not.\n") {
        EXPECT_EQ(run.status, 2);
        GTEST_SKIP() << "Graphviz is not installed.";
    }
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(Documents::textOf(folder.path("a.svg")), HasSubstr(">Supply Diffuser</text>"));
}
