#include "diagnosis/Rules.h"

#include <array>
#include <cstddef>

namespace Parameters {

namespace {

struct RuleRow {
    Rule rule;
    DiagnosticRule description;
};

/// In the order of the enumerators.
constexpr std::array rows = {
    RuleRow{Rule::InvalidJson, {"invalid-json", Severity::Error, "The text is no JSON."}},
    RuleRow{Rule::WrongType,
            {"wrong-type", Severity::Error, "A value is of another JSON type than its place asks for."}},
    RuleRow{Rule::WrongForm,
            {"wrong-form", Severity::Error,
             "A value is of the right JSON type, but not of the form that its place asks for."}},
    RuleRow{Rule::EmptyValue, {"empty-value", Severity::Error, "A value that must hold something is empty."}},
    RuleRow{Rule::MissingMember, {"missing-member", Severity::Error, "An object lacks a member that it must have."}},
    RuleRow{Rule::MissingConstant,
            {"missing-constant", Severity::Error, "The document lacks a constant that it must have."}},
    RuleRow{Rule::MissingProperty,
            {"missing-property", Severity::Error, "The document lacks a property that it must have."}},
    RuleRow{Rule::UnsupportedSpecification,
            {"unsupported-specification", Severity::Error, "\"schemaSpecification\" names no form that can be read."}},
    RuleRow{Rule::RepeatedId, {"repeated-id", Severity::Error, "Two entries of one array have the same id."}},
    RuleRow{Rule::RepeatedValue, {"repeated-value", Severity::Error, "An array of unique values holds one twice."}},
    RuleRow{Rule::RepeatedTypeId, {"repeated-typeid", Severity::Error, "Another document defines the same typeid."}},
    RuleRow{Rule::UnknownBase, {"unknown-base", Severity::Error, "The base schema is none that documents can have."}},
    RuleRow{Rule::RefusedByUnits,
            {"refused-by-units", Severity::Error, "The units library refuses the document of a unit or dimension."}},
    RuleRow{Rule::MissingReference, {"missing-reference", Severity::Error, "No document defines what is referred to."}},
    RuleRow{Rule::WrongKind,
            {"wrong-kind", Severity::Error, "What is referred to is of another kind than its place asks for."}},
    RuleRow{Rule::CircularReference,
            {"circular-reference", Severity::Error, "Documents refer to each other in a circle."}},
    RuleRow{Rule::Blocked, {"blocked", Severity::Blocked, "The document leads to one that has errors."}},
    RuleRow{Rule::UnknownMember, {"unknown-member", Severity::Warning, "An object has a member that nothing reads."}},
    RuleRow{Rule::UnknownConstant,
            {"unknown-constant", Severity::Warning, "The document has a constant that nothing reads."}},
    RuleRow{Rule::UnknownProperty,
            {"unknown-property", Severity::Warning, "The document has a property that nothing reads."}},
    RuleRow{
        Rule::IgnoredConstant,
        {"ignored-constant", Severity::Warning, "Documents of another form have the constant; here it is ignored."}},
    RuleRow{Rule::RepeatedName, {"repeated-name", Severity::Warning, "An object has two members of one name."}},
    RuleRow{Rule::UnknownBaseVersion,
            {"unknown-base-version", Severity::Warning,
             "The base schema is of a known family, but not of a known version."}},
    RuleRow{Rule::MissingBoundary,
            {"missing-boundary", Severity::Warning, "A range says that it has a boundary and does not give it."}},
    RuleRow{Rule::CrossedBoundaries,
            {"crossed-boundaries", Severity::Warning, "The upper boundary of a range is below the lower."}},
    RuleRow{Rule::UnknownValueType,
            {"unknown-value-type", Severity::Warning,
             "A value type is neither a primitive name nor the typeid of a document."}},
    RuleRow{Rule::InvalidPattern, {"invalid-pattern", Severity::Warning, "A pattern is no regular expression."}},
    RuleRow{Rule::TypeIdWithoutVersion,
            {"typeid-without-version", Severity::Warning, "A typeid does not end in a version."}},
    RuleRow{Rule::RepeatedNumber,
            {"repeated-number", Severity::Warning, "Two items of an enumeration have the same number."}},
    RuleRow{
        Rule::OtherDimension,
        {"other-dimension", Severity::Warning, "An applicable unit is of another dimension than the storage unit."}},
    RuleRow{
        Rule::UnusedEnumeration,
        {"unused-enumeration", Severity::Warning, "A parameter has an enumeration in a form that no host looks up."}},
};

constexpr bool areInOrder() {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].rule != static_cast<Rule>(i)) {
            return false;
        }
    }
    return rows.back().rule == Rule::UnusedEnumeration;
}
static_assert(areInOrder(), "one row for each rule");

} // namespace

const DiagnosticRule& descriptionOf(Rule rule) noexcept { return rows[static_cast<std::size_t>(rule)].description; }

const std::vector<DiagnosticRule>& diagnosticRules() {
    static const std::vector<DiagnosticRule> rules = [] {
        std::vector<DiagnosticRule> all;
        all.reserve(rows.size());
        for (const RuleRow& row : rows) {
            all.push_back(row.description);
        }
        return all;
    }();
    return rules;
}

} // namespace Parameters
