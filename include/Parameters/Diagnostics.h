#pragma once

#include <Parameters/DataModelVersion.h>
#include <Parameters/Export.h>
#include <Parameters/ParametersEngine.h>

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

/// How much a diagnostic weighs.
enum class Severity {
    /// Registering the document, or resolving it, is refused.
    Error,
    /// The document is taken, but can hardly be meant as it stands.
    Warning,
    /// Nothing is wrong with the document itself, but with one that it leads to.
    Blocked,
};

/// What a diagnosis can find, by its stable name.
struct DiagnosticRule {
    /// Lower-case words with hyphens: "missing-reference".
    std::string_view name;
    /// Of what is found by it.
    Severity severity;
    /// One sentence.
    std::string_view description;
};

/// All rules: first those of errors, then "blocked", then those of warnings.
[[nodiscard]] PARAMETERS_EXPORT const std::vector<DiagnosticRule>& diagnosticRules();

/// One thing that is to be said of a document.
struct Diagnostic {
    /// That of the rule.
    Severity severity = Severity::Error;
    /// The name of the rule; lives as long as the library.
    std::string_view rule;
    /// The position of the document among the texts.
    std::size_t document = 0;
    /// Where the value at fault begins in the text, in bytes. What is said of the whole document, such as that it lacks
    /// something, is said of its root.
    std::size_t offset = 0;
    /// How long the value is, in bytes; 0 where the text is no JSON from the offset on.
    std::size_t length = 0;
    /// A JSON pointer to the value; empty for the root, and where the text is no JSON.
    std::string pointer;
    /// Of the document; empty where it has none.
    std::string typeId;
    /// Ends in a full stop. Of a text that registering refuses, the library's own message.
    std::string message;
    /// What may have been meant in place of the value at fault; empty where nothing is near.
    std::string suggestion;
    /// Of a document that is blocked, the typeid of the document with the errors; otherwise empty.
    std::string cause;
};

/// What diagnose() leaves out.
struct DiagnosisOptions {
    /// Names of rules of warnings that are off. Those of errors cannot be switched off.
    std::set<std::string, std::less<>> disabledRules;
    /// Whether each blocked document has a diagnostic of its own.
    bool listsBlocked = true;
};

/// What diagnose() found.
struct Diagnosis {
    /// In the order of the documents; of one document what registering refuses it for comes first, in the order in
    /// which it is found, then what resolving does, then warnings.
    std::vector<Diagnostic> diagnostics;
    /// The number of documents that have no errors and cannot be loaded because of others that have.
    std::size_t blocked = 0;
};

/// Tells all that registering and resolving documents would ever complain of, and more, without registering anything.
///
/// The set of documents has no error exactly when registering them all with a copy of the known engine, in any order,
/// and resolving succeeds. The first error of a document is the one that registerSchema() throws for it, if it does.
/// What is pending in the known engine counts as it stands: its own faults are not looked for.
///
/// @param texts    documents in any order, each read up to its first NUL; need not live longer than the call.
/// @param known    what the documents may refer to beside each other, and must not define again.
/// @param options  what to leave out.
/// @return what was found; no diagnostic throws.
[[nodiscard]] PARAMETERS_EXPORT Diagnosis diagnose(const std::vector<std::string_view>& texts,
                                                   const ParametersEngine& known = {},
                                                   const DiagnosisOptions& options = {});

/// Why getSchemaInCompatibleFormat() refuses a finished document for a version, as a sentence; empty if it does not.
///
/// @throws UnrecognizedIdentifierException  "Could not find any object with typeid {typeid}." for one that is unknown
///     or pending.
[[nodiscard]] PARAMETERS_EXPORT std::string reasonNotRepresentable(const ParametersEngine& engine,
                                                                   DataModelVersion version, const std::string& typeId);

/// What may have been meant by a word, as in a diagnostic's suggestion: the nearest of the candidates by the characters
/// that would have to change, the first of several; empty if none is near.
[[nodiscard]] PARAMETERS_EXPORT std::string nearestWord(std::string_view word,
                                                        const std::vector<std::string_view>& candidates);

} // namespace Parameters
