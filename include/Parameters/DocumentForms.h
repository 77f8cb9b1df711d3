#pragma once

#include <Parameters/Export.h>

#include <set>
#include <string>
#include <vector>

namespace Parameters {

struct MemberForm;

/// What may stand in a place of a document. It is what readers take there by themselves: whether a reference leads
/// anywhere, and what depends on other places, is not told.
struct ValueForm {
    /// Of "null", "boolean", "integer", "number", "string", "array" and "object" those that are taken; "number"
    /// includes "integer".
    std::set<std::string> types;
    /// Whether a string may be empty.
    bool mayBeEmpty = false;
    /// The only strings that are taken; empty if there are others.
    std::set<std::string> words;
    /// Words for the kinds that a string may refer to by a typeid, such as "group" or "unit"; empty if it is no
    /// reference.
    std::set<std::string> kinds;
    /// Of an array, the form of its elements; otherwise empty.
    std::vector<ValueForm> elements;
    /// Of an object, its members in the order of their names; there are no others.
    std::vector<MemberForm> members;
};

/// A member of an object, or an entry of a section.
struct MemberForm {
    /// The name, or of an entry its id.
    std::string name;
    /// Whether it must be there.
    bool isRequired = false;
    /// What it may be.
    ValueForm value;
};

/// The documents of one base.
struct DocumentForm {
    /// The typeid that they name in "inherits"; empty for enumerations, which name none.
    std::string base;
    /// Whether they name the specification that they follow.
    bool isCurrent = false;
    /// The word for their kind, such as "parameter".
    std::string kind;
    /// Members of the document itself, but for the sections.
    std::vector<MemberForm> frame;
    /// Entries of "constants", by id.
    std::vector<MemberForm> constants;
    /// Entries of "properties", by id.
    std::vector<MemberForm> properties;
    /// The section whose entries may have any id, "properties" or "enum"; empty if there is none.
    std::string freeSection;
    /// Its entries.
    ValueForm freeEntry;
};

/// The forms of all documents that the library reads itself, which leaves those of the units library. Found out by
/// trying, which takes about a second.
[[nodiscard]] PARAMETERS_EXPORT std::vector<DocumentForm> documentForms();

} // namespace Parameters
