#include "Guide.h"

#include "GuideText.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace Tool {

namespace {

/// The part of the guide below a heading.
struct Section {
    std::string_view text;
    /// By name of a member, its meaning.
    std::map<std::string, std::string, std::less<>> meanings;
};

std::vector<std::string_view> cellsOf(std::string_view row) {
    std::vector<std::string_view> cells;
    constexpr std::string_view border = " | ";
    row = row.substr(2, row.size() - 4);
    for (std::size_t end = row.find(border); end != std::string_view::npos; end = row.find(border)) {
        cells.push_back(row.substr(0, end));
        row.remove_prefix(end + border.size());
    }
    cells.push_back(row);
    return cells;
}

/// Without code marks, and with links as their texts.
std::string plainTextOf(std::string_view markdown) {
    static const std::regex link(R"(\[([^\]]*)\]\([^)]*\)|`)");
    return std::regex_replace(std::string(markdown), link, "$1");
}

/// What stands in the first code marks.
std::string_view codeIn(std::string_view text) {
    const std::size_t begin = std::min(text.find('`'), text.size() - 1) + 1;
    return text.substr(begin, text.find('`', begin) - begin);
}

/// Reads tables with names in the first column and meanings in the last.
class TableReader {
public:
    void readLine(std::string_view line, Section& section) {
        if (beginsWith(line, "| Constant") || beginsWith(line, "| Member")) {
            isOfMembers_ = true;
        } else if (beginsWith(line, "| Attribute of the property")) {
            property_ = codeIn(line);
        } else if (!beginsWith(line, "| ")) {
            isOfMembers_ = false;
            property_ = {};
        } else if (!beginsWith(line, "| ---")) {
            const std::vector<std::string_view> cells = cellsOf(line);
            if (isOfMembers_) {
                section.meanings.emplace(codeIn(cells.front()), plainTextOf(cells.back()));
            } else if (!property_.empty()) {
                // Its first attribute tells what the property is for.
                section.meanings.emplace(std::exchange(property_, {}), plainTextOf(cells.back()));
            }
        }
    }

private:
    bool isOfMembers_ = false;
    /// Whose attributes follow.
    std::string_view property_;
};

std::vector<Section> readGuide() {
    std::vector<Section> sections;
    std::string_view rest = guideText;
    TableReader tables;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        if (sections.empty() || beginsWith(line, "## ")) {
            sections.push_back({rest, {}});
        }
        tables.readLine(line, sections.back());
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        sections[i].text.remove_suffix(sections[i + 1].text.size());
    }
    return sections;
}

} // namespace

std::string meaningOf(std::string_view base, std::string_view name) {
    static const std::vector<Section> sections = readGuide();
    const std::string* meaning = nullptr;
    for (const Section& section : sections) {
        const auto found = section.meanings.find(name);
        if (found == section.meanings.end()) {
            continue;
        }
        if (!base.empty() && section.text.find(base) != std::string_view::npos) {
            return found->second;
        }
        meaning = meaning == nullptr ? &found->second : meaning;
    }
    return meaning != nullptr ? *meaning : "";
}

} // namespace Tool
