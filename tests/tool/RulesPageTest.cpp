#include "tool/Program.h"

#include <Parameters/Diagnostics.h>

#include <gmock/gmock.h>

#include <regex>

using namespace testing;

namespace {

/// A rule as the page shows it.
struct Section {
    std::string rule, description, documents, findings;
};

std::vector<Section> sectionsOf(const std::string& page) {
    static const std::regex form(
        "### ([a-z-]+)\\n\\n([^\\n]+)\\n\\n```json\\n([^`]*)\\n```\\n```text\\n([^`]*)\\n```\\n");
    std::vector<Section> sections;
    for (std::sregex_iterator match(page.begin(), page.end(), form), end; match != end; ++match) {
        sections.push_back({(*match)[1], (*match)[2], (*match)[3], (*match)[4]});
    }
    return sections;
}

} // namespace

TEST(RulesPage, ShowsEachRuleAndWhatIsSaidOfItsExample) {
    const std::vector<Section> sections = sectionsOf(Documents::textOf(PARAMETERS_SOURCE_DIR "/docs/rules.md"));
    const auto& rules = Parameters::diagnosticRules();
    ASSERT_EQ(sections.size(), rules.size());
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const Section& section = sections[i];
        EXPECT_EQ(section.rule, rules[i].name);
        EXPECT_EQ(section.description, rules[i].description);
        EXPECT_THAT(section.findings, HasSubstr("[" + section.rule + "]"));
        std::vector<std::string> arguments = {"check", "a.jsonl"};
        if (section.rule == "blocked") {
            arguments.emplace_back("--all");
        }
        EXPECT_THAT(runToolOn(section.documents, arguments).output, StartsWith(section.findings + "\n"))
            << section.rule;
    }
}
