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

/// A spec and a parameter of the current form.
std::string fullSpec(const std::string& typeId, const std::string& value) {
    return Documents::fullForm(typeId, "quovanta.spec:spec-2.0.0", Documents::nameConstant("S"),
                               R"({"id":"value",)" + value + "}") +
           '\n';
}
std::string fullParameter(const std::string& typeId, const std::string& spec, const std::string& constants = {}) {
    return Documents::fullForm(typeId, "quovanta.parameter:parameter-3.0.0", Documents::nameConstant("P") + constants,
                               R"({"id":"data","typeid":")" + spec + R"("})") +
           '\n';
}

} // namespace

TEST(ExportCommand, KeepsThePlacesOfDocumentsAndNamesWhatIsLeftBehind) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("in/specs"));
    folder.write("in/specs/map.json", fullSpec("s1", R"("context":"map","typeid":"String")"));
    folder.write("in/specs/plain.json", fullSpec("s2", R"("typeid":"String")"));
    folder.write("in/parameters.jsonl", fullParameter("p1", "s1") + '\n' + fullParameter("p2", "s2"));
    folder.write("more.json", Documents::group("g", "G"));
    const std::string refusals =
        "in/parameters.jsonl:1:1: error: p1: Data model 2.0.0 cannot represent it: Data models before 3.0.0 have "
        "neither arrays nor maps as values. It can be written for 3.0.0. [not-representable]\n"
        "in/specs/map.json:1:1: error: s1: Data model 2.0.0 cannot represent it: Data models before 3.0.0 have "
        "neither arrays nor maps as values. It can be written for 3.0.0. [not-representable]\n";
    EXPECT_THAT(runTool({"export", "in/", "more.json", "--data-model", "2.0.0", "--out", "out"}, folder.path()),
                FieldsAre(1,
                          refusals + "3 documents in out for data model 2.0.0, 2 rewritten; 2 cannot be "
                                     "represented.\n",
                          ""));
    EXPECT_EQ(runShell("cd out; find . -type f | LC_ALL=C sort; cat parameters.jsonl", folder.path()).output,
              "./more.json\n./parameters.jsonl\n./specs/plain.json\n"
              R"({"downgradedFrom":"3.0.0","typeid":"p2","inherits":["quovanta.parameter:parameter-2.0.0"],)"
              R"("constants":[{"id":"name","value":"P"}],"properties":[{"id":"data","typeid":"s2"}]})"
              "\n");
    EXPECT_EQ(runTool({"export", "in/specs", "in", "--data-model", "3.0.0", "--out", "out2"}, folder.path()).status, 0);
    EXPECT_EQ(runShell("cd out2; find . -type f | LC_ALL=C sort", folder.path()).output,
              "./map.json\n./parameters.jsonl\n./plain.json\n");
    folder.write("in/more.json", Documents::group("h", "G"));
    EXPECT_EQ(runTool({"export", "in", "more.json", "--data-model", "2.0.0", "--out", "out3"}, folder.path()).errors,
              "parameters: in/more.json and more.json would both be written to out3/more.json; --flat names files "
              "after typeids.\n");
}

TEST(ExportCommand, ClosesWhatItWrites) {
    const TemporaryFolder folder;
    // The older form has neither a unit of the newer base nor what leads to it.
    folder.write(
        "a.jsonl",
        Documents::dimension("d", "D") + '\n' +
            Documents::fullForm("u", "quovanta.unit:unit-2.0.0",
                                Documents::nameConstant("U") + "," + Documents::reference("dimension", "d")) +
            '\n' +
            Documents::fullForm("s", "quovanta.spec:spec.measurable-3.0.0",
                                Documents::nameConstant("S") + "," + Documents::reference("storageUnit", "u")) +
            '\n' + fullParameter("p", "s") + Documents::group("g", "G"));
    const std::string refusal = "a.jsonl:2:1: error: u: Data model 2.0.0 cannot represent it: The units library has no "
                                "such form of the document. It can be written for 3.0.0. [not-representable]\n";
    EXPECT_THAT(
        runTool({"export", "a.jsonl", "--data-model", "2.0.0", "--out", "open"}, folder.path()),
        FieldsAre(1,
                  refusal +
                      "a.jsonl:3:1: blocked: s: It cannot be loaded without u, which data model 2.0.0 cannot "
                      "represent. [left-behind]\n"
                      "a.jsonl:4:1: blocked: p: It cannot be loaded without u, which data model 2.0.0 cannot "
                      "represent. [left-behind]\n"
                      "4 documents in open for data model 2.0.0, 2 rewritten; 1 cannot be represented, 2 cannot be "
                      "loaded without it.\n",
                  ""));
    for (const char* way : {"--out closed", "--out closed --flat --force", "--jsonl closed/b.jsonl"}) {
        EXPECT_THAT(
            runShell("$tool export a.jsonl --data-model 2.0.0 --closed " + std::string(way), folder.path()),
            FieldsAre(1,
                      AllOf(StartsWith(refusal + "a.jsonl:3:1: blocked: s: It is left out, as it needs u, which "
                                                 "data model 2.0.0 cannot represent. [left-behind]\n"),
                            HasSubstr("\n2 documents in closed"),
                            EndsWith("; 1 cannot be represented, 2 left out without it.\n")),
                      ""));
        EXPECT_THAT(runShell("$tool check closed --rule typeid-without-version=off && rm -r closed", folder.path()),
                    FieldsAre(0, "2 documents, no faults.\n", ""))
            << way;
    }
}

TEST(ExportCommand, CountsAsLostWhatTheObjectNoLongerHas) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("in"));
    folder.write("in/rich.json", rich);
    const std::string defaults = R"(,{"id":"description","value":""},{"id":"readOnly","value":false})";
    folder.write(
        "in/taxa.jsonl",
        Documents::domain("d", "D") + '\n' +
            Documents::fullForm("c", "quovanta.talmo.category:majorCategory-2.0.0",
                                Documents::nameConstant("C") + "," + Documents::reference("domain", "d") +
                                    R"(,{"id":"disciplines","typedValue":[{"typeid":"test:rich/../../x-1.0.0"}]})") +
            '\n' + fullSpec("s", R"("typeid":"Reference")") + fullSpec("t", R"("typeid":"String")") +
            fullParameter("t1", "t", defaults) +
            Documents::fullForm("t2", "quovanta.talmo:parameter.categorized-2.0.0",
                                Documents::nameConstant("P") + "," + Documents::reference("category", "c"),
                                R"({"id":"data","typeid":"s"})") +
            '\n' +
            Documents::fullForm("r", "quovanta.range:range.int64.bounded.static-2.0.0",
                                R"({"id":"fromBottom","value":true},{"id":"bottomBoundary","value":0},)"
                                R"({"id":"fromTop","value":false})"));
    const std::string summary = "8 documents in out for data model 1.0.0, 7 rewritten; 0 cannot be represented.\n";
    EXPECT_THAT(runTool({"export", "in", "--data-model", "1.0.0", "--out", "out"}, folder.path()),
                FieldsAre(0,
                          "in/taxa.jsonl:6:1: warning: t2: Values are now not limited; they were of category c. "
                          "[loss]\n" +
                              summary,
                          ""));
    EXPECT_EQ(runTool({"export", "in", "--data-model", "1.0.0", "--out", "out", "--quiet"}, folder.path()).output,
              summary);
    EXPECT_EQ(Documents::textOf(folder.path("out/rich.json")),
              R"({"downgradedFrom":"3.0.0","typeid":"test:rich/../../x-1.0.0",)"
              R"("inherits":["quovanta.spec:discipline-1.0.0"],"constants":[{"id":"name","value":"N"}]})"
              "\n");
    EXPECT_THAT(
        runTool({"export", "in", "--data-model", "1.0.0", "--out", "out", "--format", "json"}, folder.path()).output,
        AllOf(HasSubstr(R"("rule": "loss")"), HasSubstr(R"("losses": 1)")));
    EXPECT_EQ(runTool({"export", "in", "--data-model", "1.0.0"}, folder.path()).errors,
              "parameters: --out or --jsonl is required.\nparameters: parameters export --help tells what there is.\n");
}

TEST(ExportCommand, OverwritesOnlyWhenForced) {
    const TemporaryFolder folder;
    folder.write("rich.json", rich);
    folder.write("test_rich_.._.._x-1.0.0.json", "mine");
    std::vector<std::string> arguments = {"export", "rich.json", "--data-model", "1.0.0", "--out", ".", "--flat"};
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
            runShell(prepared + " && $tool export a.jsonl --data-model 1.0.0 --flat --out out " + option + "; s=$?; " +
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
        EXPECT_NE(
            runShell(
                "mkdir -p out; echo mine >out/a.json; (" + std::string(signal) +
                    "; ulimit -c 0; ulimit -f 4; $tool export a.jsonl --data-model 1.0.0 --flat --out out --force)",
                folder.path())
                .status,
            0);
        EXPECT_EQ(runShell("ls -A out; cat out/a.json", folder.path()).output, "a.json\nmine\n") << signal;
    }
}

TEST(ExportCommand, GoesOnAfterAnInterruption) {
    const TemporaryFolder folder;
    folder.write("a.jsonl", Documents::domain("a-1.0.0", "A") + '\n' + Documents::domain("b-1.0.0", "B"));
    const std::string again = "$tool export a.jsonl --data-model 1.0.0 --flat --out out";
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
    EXPECT_EQ(runTool({"export", "a.jsonl", "--data-model", "2.0.0", "--out", "out", "--flat"}, folder.path()).status,
              0);
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
