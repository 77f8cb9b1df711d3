#include "support/Documents.h"

#include <Parameters/Diagnostics.h>

#include <gmock/gmock.h>

using namespace Documents;
using namespace Parameters;
using namespace testing;

namespace {

/// "rule: message (place)" of each diagnostic.
std::vector<std::string> foundIn(const std::vector<std::string>& texts, const ParametersEngine& known = {},
                                 const DiagnosisOptions& options = {{"typeid-without-version"}, true}) {
    std::vector<std::string> found;
    for (const Diagnostic& diagnostic : diagnose({texts.begin(), texts.end()}, known, options).diagnostics) {
        found.push_back(std::string(diagnostic.rule) + ": " + diagnostic.message + " (" +
                        texts[diagnostic.document].substr(diagnostic.offset, diagnostic.length) + ")");
    }
    return found;
}

std::string parameterOf(const std::string& group) {
    return shortForm("p", "quovanta.parameter:parameter.string-3.0.0",
                     nameConstant("P") + "," + reference("group", group));
}

std::string specOf(const std::string& storageUnit) {
    return shortForm("s", "quovanta.spec:spec.measurable-2.1.0",
                     nameConstant("S") + "," + reference("storageUnit", storageUnit));
}

} // namespace

TEST(Diagnosis, KnowsWhatTheEngineKnowsWhateverItsState) {
    ParametersEngine context;
    context.registerSchema(group("imported", "G"));
    context.resolveSchemas();
    ParametersEngine known;
    known.registerSchema(dimension("d", "D"));
    known.registerSchema(unit("u", "U", "d"));
    known.registerSchema(group("finished", "G"));
    known.resolveSchemas();
    known.registerSchema(group("pending", "G"));
    known.registerSchemaWithContext(shortForm("other", "quovanta.parameter:parameter.string-3.0.0",
                                              nameConstant("P") + "," + reference("group", "imported")),
                                    context);
    for (const char* sound : {"finished", "pending", "imported"}) {
        EXPECT_THAT(foundIn({parameterOf(sound)}, known), IsEmpty()) << sound;
    }
    EXPECT_THAT(foundIn({specOf("u")}, known), IsEmpty());
    EXPECT_THAT(foundIn({specOf("d")}, known),
                ElementsAre("wrong-kind: d is of the units library, but no unit. (\"d\")"));
    EXPECT_THAT(foundIn({specOf("finished")}, known),
                ElementsAre("wrong-kind: finished is a group, not a unit. (\"finished\")"));
    EXPECT_THAT(foundIn({parameterOf("u")}, known),
                ElementsAre("wrong-kind: u is an item of the units library, not a group. (\"u\")"));
    EXPECT_THAT(foundIn({parameterOf("other")}, known),
                ElementsAre("wrong-kind: other is a parameter, not a group. (\"other\")"));
    // What has been imported may be defined anew; the rest may not.
    EXPECT_THAT(foundIn({group("imported", "G")}, known), IsEmpty());
    for (const std::string taken : {"finished", "pending", "u"}) {
        EXPECT_THAT(foundIn({group(taken, "G")}, known), ElementsAre("repeated-typeid: Schema with typeid " + taken +
                                                                     " is already registered. (\"" + taken + "\")"));
    }
    EXPECT_TRUE(known.isRegistered("pending"));
    EXPECT_THROW(static_cast<void>(known.getGroup("pending")), UnrecognizedIdentifierException);
}

TEST(Diagnosis, TakesOptions) {
    const std::vector<std::string> texts = {parameterOf("g"), shortForm("g", "quovanta.parameter:group-1.0.0", "")};
    EXPECT_THAT(foundIn(texts),
                ElementsAre("blocked: Not loaded: g, which it references, has errors. (\"g\")",
                            "missing-constant: Schema g has an undefined name constant. (" + texts[1] + ")"));
    DiagnosisOptions options;
    options.listsBlocked = false;
    options.disabledRules = {"missing-constant", "typeid-without-version"};
    // An error cannot be switched off.
    EXPECT_THAT(foundIn(texts, {}, options), ElementsAre(StartsWith("missing-constant: ")));
    const Diagnosis diagnosis = diagnose({texts.begin(), texts.end()}, {}, options);
    EXPECT_EQ(diagnosis.blocked, 1U);
    EXPECT_EQ(diagnose({texts.begin(), texts.end()}).diagnostics.front().cause, "g");
}

TEST(Diagnosis, PlacesWhatIsWrittenWithEscapes) {
    const std::string text = R"({"typeid":"p","inherits":["quovanta.parameter:parameter.string-3.0.0"],)"
                             R"("const\u0061nts":[{"id":"name","value":"P"},)"
                             R"({"id":"group","typedValue":{"typeid":"\u006eobody"}},{"i\/d":1}]})";
    const Diagnosis diagnosis = diagnose({text}, {}, {{"typeid-without-version"}, true});
    ASSERT_EQ(diagnosis.diagnostics.size(), 3U);
    const auto expectAt = [&](const Diagnostic& diagnostic, const std::string& pointer, const std::string& value) {
        EXPECT_EQ(diagnostic.pointer, pointer);
        EXPECT_EQ(text.substr(diagnostic.offset, diagnostic.length), value);
    };
    expectAt(diagnosis.diagnostics[0], "/constants/2", R"({"i\/d":1})");
    expectAt(diagnosis.diagnostics[1], "/constants/1/typedValue/typeid", R"("\u006eobody")");
    EXPECT_EQ(diagnosis.diagnostics[1].message, "No document defines nobody.");
    expectAt(diagnosis.diagnostics[2], "/constants/2/i~1d", R"("i\/d")");
}

TEST(Diagnosis, ReadsOnBehindAnIdThatIsNone) {
    const std::string text =
        shortForm("p", "quovanta.parameter:parameter-2.0.0",
                  nameConstant("P") + R"(,{"id":{},"value":1},{"id":"spec","typeid":"s","value":{}})",
                  R"({"id":"value","typeid":"e"})");
    EXPECT_THAT(foundIn({text}), ElementsAre("wrong-type: A property's id attribute must be a string. ({})",
                                             "missing-reference: No document defines s. (\"s\")",
                                             "missing-reference: No document defines e. (\"e\")"));
}

TEST(Diagnosis, SuggestsWhatIsNear) {
    const std::vector<std::string_view> candidates = {"group", "name", "readOnly", "acme:air-1.0.0"};
    const std::pair<const char*, const char*> words[] = {
        {"gruop", "group"},
        {"grou", "group"},
        {"nmae", "name"},
        {"readonly", "readOnly"},
        {"acme:iar-1.0.1", "acme:air-1.0.0"},
        {"value", ""},
        {"", ""},
        {"g", ""},
        {"group", ""},
    };
    for (const auto& [word, nearest] : words) {
        EXPECT_EQ(nearestWord(word, candidates), nearest) << word;
    }
}
