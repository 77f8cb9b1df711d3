#include "support/FinishedObjects.h"
#include "tool/Program.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

using namespace testing;

namespace {

using Documents::textOf;

/// What a text says: members by name, those of one name in their order, with numbers and strings as they are written.
std::string meaningOf(std::string_view& rest) {
    const auto skip = [&] { rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n"), rest.size())); };
    const auto scalar = [&] {
        std::size_t end = rest.find_first_of(",:]} \t\r\n");
        if (rest.front() == '"') {
            for (end = 1; rest[end] != '"'; ++end) {
                end += rest[end] == '\\' ? 1 : 0;
            }
            ++end;
        }
        const std::string_view taken = rest.substr(0, end);
        rest.remove_prefix(taken.size());
        return std::string(taken);
    };
    skip();
    const char opening = rest.front();
    if (opening != '{' && opening != '[') {
        return scalar();
    }
    rest.remove_prefix(1);
    std::multimap<std::string, std::string> members;
    std::string elements;
    for (skip(); rest.front() != '}' && rest.front() != ']'; skip()) {
        if (rest.front() == ',') {
            rest.remove_prefix(1);
            skip();
        }
        std::string name;
        if (opening == '{') {
            name = nlohmann::json::parse(scalar()).get<std::string>();
            skip();
            rest.remove_prefix(1);
        }
        members.emplace(name, meaningOf(rest));
    }
    rest.remove_prefix(1);
    for (const auto& [name, value] : members) {
        elements += nlohmann::json(name).dump() + ":" + value + ",";
    }
    return opening + elements;
}

std::string meaningOf(const std::string& text) {
    std::string_view rest = text;
    return meaningOf(rest);
}

/// A text that is laid out in some other way: with other blanks, and members that the library ignores, in any order.
std::string mangled(const nlohmann::ordered_json& json, std::mt19937& random) {
    const auto blank = [&] { return std::string(random() % 3, " \n\t"[random() % 3]); };
    if (!json.is_structured()) {
        return json.dump();
    }
    std::vector<std::string> members;
    for (const auto& [name, value] : json.items()) {
        members.push_back((json.is_object() ? nlohmann::json(name).dump() + blank() + ":" : "") + blank() +
                          mangled(value, random));
    }
    if (json.is_object()) {
        const std::vector<std::string> additions = {R"("note":[{},[1E+2,[]]])", R"("no\u0074e":1)", R"("typeid":7)",
                                                    R"("value":-0.0)", R"("":"")"};
        std::shuffle(members.begin(), members.end(), random);
        members.push_back(additions[random() % additions.size()]);
    }
    std::string text;
    for (const std::string& member : members) {
        text += (text.empty() ? "" : ",") + blank() + member + blank();
    }
    return (json.is_object() ? "{" : "[") + text + (json.is_object() ? "}" : "]");
}

/// What the library makes of a text by itself.
std::string outcomeOf(const std::string& text) {
    Parameters::ParametersEngine engine;
    try {
        const auto [references, units] = engine.registerSchema(text);
        return PrintToString(references) + PrintToString(units);
    } catch (const std::logic_error& error) {
        const std::string message = error.what();
        return message.substr(0, message.find(" at offset"));
    }
}

} // namespace

TEST(FmtCommand, ChangesNothingThatADocumentSays) {
    const TemporaryFolder folder;
    std::map<std::string, std::string> texts;
    std::mt19937 random(20);
    for (const char* corpus : {"/examples/catalog", "/examples/library-catalog", "/fuzz/regressions/schema"}) {
        for (const auto& file : Documents::filesBelow(PARAMETERS_SOURCE_DIR + std::string(corpus))) {
            const auto json = nlohmann::ordered_json::parse(textOf(file));
            for (int variant = 0; variant < 8; ++variant) {
                const std::string text = variant == 0 ? textOf(file) : mangled(json, random);
                const std::string name = std::to_string(texts.size()) + (variant % 2 == 0 ? ".json" : ".jsonl");
                texts[name] = variant % 2 == 0 ? text : Documents::onOneLine(text);
                folder.write(name, texts[name]);
            }
        }
    }
    EXPECT_GT(texts.size(), 2000U);
    EXPECT_THAT(runTool({"fmt", "--write", "."}, folder.path()), FieldsAre(0, _, ""));
    for (const auto& [name, text] : texts) {
        const std::string now = textOf(folder.path(name));
        EXPECT_EQ(meaningOf(now), meaningOf(text)) << text;
        EXPECT_EQ(outcomeOf(now), outcomeOf(text)) << text;
        EXPECT_EQ(now.find('\n') == now.size() - 1, name.back() == 'l') << now;
    }
    EXPECT_EQ(runTool({"fmt", "--write", "."}, folder.path()).output,
              "0 of " + std::to_string(texts.size()) + " files rewritten.\n");
}

TEST(FmtCommand, KeepsTheOrderInWhichTheLibraryWrites) {
    Parameters::ParametersEngine engine;
    for (const auto& file : Documents::filesBelow(PARAMETERS_SOURCE_DIR "/examples/catalog")) {
        engine.registerSchema(textOf(file));
    }
    engine.resolveSchemas();
    std::string lines;
    for (const auto& [typeId, registerIn] : objectsIn(engine)) {
        Parameters::ParametersEngine other = needsOf(typeId, engine);
        if (!other.isRegistered(typeId)) {
            registerIn(other);
            lines += other.getSchema(typeId) + '\n';
        }
    }
    EXPECT_GT(lines.size(), 50'000U);
    const std::string output = runToolOn(lines, {"fmt", "a.jsonl"}).output;
    std::istringstream written(lines);
    std::istringstream laidOut(output);
    for (std::string text, line; std::getline(written, text) && std::getline(laidOut, line);) {
        EXPECT_EQ(nlohmann::ordered_json::parse(line).dump(), nlohmann::ordered_json::parse(text).dump());
    }
}

TEST(FmtCommand, LaysOut) {
    const std::string wide(64, 'w');
    const TemporaryFolder folder;
    folder.write("a.json", R"( {"x":{},"constants":[{"value":1.50,"id":"name","typeid":"String"},
        {"typedValue":{"value":{"topBoundary":1e2,"fromTop":true},"typeid":"r"},"id":"range"},
        {"value":0,"typeid":"Float64","id":"topBoundary"},{"value":["a","b"],"id":")" +
                               wide + R"("}, {"value":["a","b" ],"id":"c)" + wide +
                               R"("}],"typeid":"\u0061","inherits":["b"],"typeid":2,"y":[[],[1]]})");
    const std::string laidOut = R"({
  "typeid": "\u0061",
  "typeid": 2,
  "inherits": ["b"],
  "constants": [
    {"id": "name", "typeid": "String", "value": 1.50},
    {
      "id": "range",
      "typedValue": {"typeid": "r", "value": {"fromTop": true, "topBoundary": 1e2}}
    },
    {"id": "topBoundary", "value": 0, "typeid": "Float64"},
    {"id": ")" + wide + R"(", "value": ["a", "b"]},
    {
      "id": "c)" + wide + R"(",
      "value": ["a", "b"]
    }
  ],
  "x": {},
  "y": [
    [],
    [1]
  ]
}
)";
    EXPECT_THAT(runTool({"fmt", "a.json"}, folder.path()), FieldsAre(0, laidOut, ""));
    EXPECT_THAT(runShell("$tool fmt - <a.json", folder.path()), FieldsAre(0, laidOut, ""));
    folder.write("b.jsonl", "\n{\"b\":1,\"typeid\":[ ]}\r\n\n[]");
    EXPECT_EQ(runTool({"fmt", "b.jsonl"}, folder.path()).output, "\n{\"typeid\": [], \"b\": 1}\n\n[]\n");
}

TEST(FmtCommand, ChecksShowsAndWrites) {
    const TemporaryFolder folder;
    folder.write("a.json", "{\n  \"b\": 1\n}\n");
    folder.write("b.json", "{\n  \"a\": 1,\n\n  \"b\": 2\n}\n");
    folder.write("c.json", "{\"a\": }");
    folder.write("d.jsonl", "{}\n{\"a\":1}\n{,}\n");
    const std::string errors = "parameters: ./c.json:1:7: error: JSON parsing error at offset 6: Invalid value. "
                               "[invalid-json]\nparameters: ./d.jsonl:3:2: error: JSON parsing error at offset 1: "
                               "Missing a name for an object member. [invalid-json]\n";
    EXPECT_THAT(runTool({"fmt", "--check", "."}, folder.path()), FieldsAre(1, "./b.json\n./d.jsonl\n", errors));
    EXPECT_THAT(runTool({"fmt", "--check", "a.json"}, folder.path()), FieldsAre(0, "", ""));
    EXPECT_THAT(runTool({"fmt", "--diff", "a.json", "b.json"}, folder.path()),
                FieldsAre(1, "--- b.json\n+++ b.json\n@@ -1,5 +1,4 @@\n {\n   \"a\": 1,\n-\n   \"b\": 2\n }\n", ""));
    std::filesystem::create_symlink("b.json", folder.path("link.json"));
    EXPECT_EQ(runShell("chmod 600 b.json; $tool fmt --write link.json", folder.path()).output,
              "1 of 1 file rewritten.\n");
    EXPECT_EQ(textOf(folder.path("b.json")), "{\n  \"a\": 1,\n  \"b\": 2\n}\n");
    EXPECT_EQ(runShell("stat -c '%a %F' b.json link.json", folder.path()).output,
              "600 regular file\n777 symbolic link\n");
    EXPECT_THAT(runTool({"fmt", "--write", "."}, folder.path()),
                FieldsAre(1, "1 of 4 files rewritten.\n", EndsWith(errors)));
    EXPECT_EQ(textOf(folder.path("c.json")), "{\"a\": }");
    EXPECT_EQ(textOf(folder.path("d.jsonl")), "{}\n{\"a\": 1}\n{,}\n");
    EXPECT_THAT(runTool({"fmt", "--write", "-"}, folder.path()),
                FieldsAre(2, "", StartsWith("parameters: --write: standard input cannot be rewritten.\n")));
}
