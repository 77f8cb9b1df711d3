#include "Words.h"

#include <iostream>
#include <sstream>
#include <variant>

namespace Demo {

using namespace Parameters;

namespace {

std::string quoted(const std::string& text) { return '"' + text + '"'; }

/// Puts ", " between the texts of the items.
template <class Items, class TextOf> std::string listed(const Items& items, TextOf textOf) {
    std::string list;
    for (const auto& item : items) {
        list += (list.empty() ? "" : ", ") + textOf(item);
    }
    return list;
}

struct ValueTypeWords {
    std::string operator()(const std::string& name) const { return name; }
    std::string operator()(LegacyPrimitiveType type) const {
        static constexpr std::array<const char*, 6> words = {
            "a choice",           "a primitive Boolean",   "a primitive integer",
            "a primitive number", "a primitive reference", "a primitive string"};
        return words.at(static_cast<std::size_t>(type));
    }
    std::string operator()(const AnyOf& anyOf) const { return "anything derived from " + anyOf.getBaseTypeId(); }
    std::string operator()(const OneOf& oneOf) const {
        return "one of " + listed(oneOf.getTypeIds(), [](const std::string& typeId) { return typeId; });
    }
};

struct RangeWords {
    std::string operator()(std::monostate) const { return "any value"; }
    std::string operator()(const Category& category) const {
        return "an element of " + wordsFor(category.getTypeId(), category.getName());
    }
    std::string operator()(const Enumeration& enumeration) const {
        return "one of " + listed(enumeration.getValues(), [](const auto& value) { return value.first; }) + " (" +
               enumeration.getTypeId() + ")";
    }
    template <class NumericRange> std::string operator()(const NumericRange& range) const {
        std::ostringstream words;
        words << (range.isBoundFromBottom() || range.isBoundFromTop() ? "" : "any number ");
        if (range.isBoundFromBottom()) {
            words << "from " << range.getBottomBoundary() << ' ';
        }
        if (range.isBoundFromTop()) {
            words << "up to " << range.getTopBoundary() << ' ';
        }
        words << '(' << range.getTypeId() << ')';
        return words.str();
    }
    std::string operator()(const StringRange& range) const {
        const std::string typeId = " (" + range.getTypeId() + ")";
        if (const auto set = range.getSetStringRangeComponent()) {
            return "one of " + listed(set->getAllowedValues(), quoted) + typeId;
        }
        if (const auto regex = range.getRegexStringRangeComponent()) {
            return "what matches " + regex->getRegex() + typeId;
        }
        return "any text" + typeId;
    }
};

} // namespace

void printHeading(const std::string& heading) {
    std::cout << '\n' << heading << '\n' << std::string(heading.size(), '=') << "\n\n";
}

const char* wordsFor(DataModelVersion version) {
    static constexpr std::array<const char*, 3> words = {"1.0.0", "2.0.0", "3.0.0"};
    return words.at(static_cast<std::size_t>(version));
}

std::string wordsFor(const ValueTypeId& valueType) { return std::visit(ValueTypeWords{}, valueType); }

std::string wordsFor(const ParameterRange& range) { return std::visit(RangeWords{}, range); }

std::string wordsFor(const std::string& typeId, const std::string& name) { return quoted(name) + " (" + typeId + ")"; }

} // namespace Demo
