#pragma once

#include "schema/Frame.h"
#include "schema/JSON.h"
#include "schema/Vocabulary.h"

#include <Units/SchemaFormat.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Parameters {

/// One entry of "constants", "properties" or "enum".
struct SchemaMember {
    std::string_view id;
    JSON json;
};

/// The entries of one section, in the order of the document. They stand with its tree.
class SchemaMembers {
public:
    SchemaMembers() noexcept = default;
    /// Takes the section's name, its members, which hold no id twice, and who is told what is asked for, or null.
    SchemaMembers(std::string_view section, const SchemaMember* begin, const SchemaMember* end,
                  ReadingObserver* observer) noexcept
        : section_(section), begin_(begin), end_(end), observer_(observer) {}

    [[nodiscard]] const JSON* find(std::string_view id) const;

    /// In ascending order of their ids.
    [[nodiscard]] std::vector<const SchemaMember*> sorted() const;

    [[nodiscard]] bool empty() const noexcept { return begin_ == end_; }
    /// In the order of the document.
    [[nodiscard]] const SchemaMember* begin() const noexcept { return begin_; }
    [[nodiscard]] const SchemaMember* end() const noexcept { return end_; }

private:
    std::string_view section_;
    const SchemaMember* begin_ = nullptr;
    const SchemaMember* end_ = nullptr;
    ReadingObserver* observer_ = nullptr;
};

/// The parsed frame of a schema document. Ids and views are valid as long as the tree and the text that it was made of.
struct SchemaDocument {
    std::string typeId;
    /// Empty in an enumeration document of the current form, which has no base.
    std::string_view baseSchema;
    /// Whether the base schema may contain the prefix of a family without beginning with it.
    bool hasInnerBeginning = false;
    /// Empty in a document without "schemaSpecification".
    std::string_view schemaType;
    Units::SchemaFormat schemaFormat = Units::SchemaFormat::PropertySets;
    /// From id to the member's "value" or, failing that, its "typedValue".
    SchemaMembers constants;
    /// From id to the whole member.
    SchemaMembers properties;
    /// From id to the whole member.
    SchemaMembers enumItems;
    JSON root;
    /// What all of these look into.
    JSON::Document tree;

    /// Whether the base schema contains the prefix of a family. All families are tried in turn, so it is quick to say
    /// no.
    [[nodiscard]] bool isOfFamily(std::string_view prefix) const noexcept {
        return hasInnerBeginning ? containsPrefix(baseSchema, prefix) : beginsWithPrefix(baseSchema, prefix);
    }

    /// Throws the message in the exception type of whoever had the document read.
    [[noreturn]] void fail(const std::string& message) const { root.fail(message); }
    /// Reports a fault of the document as a whole, as JSON does.
    void report(Rule rule, const std::string& message) const { root.report(rule, message); }
};

/// Parses a text, which must outlive the document, and checks the frame. All errors of it, and of the readers below,
/// are thrown through the factory, or reported to its observer; then something empty stands in for what is at fault.
[[nodiscard]] SchemaDocument readSchemaDocument(const ExceptionFactory& exceptionFactory, const std::string& text,
                                                JSON::Scratch* scratch = nullptr);
/// The same for a text that has been parsed.
[[nodiscard]] SchemaDocument readSchemaDocument(JSON::Document tree);

/// What to do with the member of one key.
template <class Handle> struct MemberHandler {
    std::string_view key;
    Handle handle;
};
template <class Handle> MemberHandler(std::string_view, Handle) -> MemberHandler<Handle>;

/// Calls each handler whose key the section holds. Handlers stand in ascending order of their keys, which is the order
/// in which faults are reported. Members without a handler are ignored.
template <class... Handles> void readMembers(const SchemaMembers& section, const MemberHandler<Handles>&... handlers) {
    const auto read = [&section](const auto& handler) {
        if (const JSON* member = section.find(handler.key)) {
            handler.handle(*member);
        }
    };
    (read(handlers), ...);
}

/// Reads of one JSON value, each with the tests and errors of its form. Texts are views into the document.
[[nodiscard]] std::string_view readString(const JSON& json);
[[nodiscard]] std::string_view readAnyString(const JSON& json);
[[nodiscard]] double readNumber(const JSON& json);
[[nodiscard]] std::int64_t readInteger(const JSON& json);
[[nodiscard]] bool readBool(const JSON& json);
/// The typeid of an object with a "typeid" attribute and no other.
[[nodiscard]] std::string_view readTypedValue(const JSON& json);
[[nodiscard]] std::vector<std::string_view> readTypedValueArray(const JSON& json);

void reportUndefinedConstant(const SchemaDocument& document, std::string_view key);

/// The value of a constant, read by one of the functions above, or the default. With neither: "Schema {typeid} has an
/// undefined {key} constant."
template <class Result>
[[nodiscard]] Result readConstant(const SchemaDocument& document, std::string_view key, std::optional<Result> value,
                                  Result (*read)(const JSON&)) {
    readMembers(document.constants, MemberHandler{key, [&](const JSON& json) { value = read(json); }});
    if (!value) {
        reportUndefinedConstant(document, key);
        return Result();
    }
    return *std::move(value);
}

/// A non-empty string.
[[nodiscard]] std::string_view readStringConstant(const SchemaDocument& document, std::string_view key,
                                                  std::optional<std::string_view> value = std::nullopt);
/// A string that may be empty.
[[nodiscard]] std::string_view readAnyStringConstant(const SchemaDocument& document, std::string_view key,
                                                     std::optional<std::string_view> value = std::nullopt);
[[nodiscard]] double readNumberConstant(const SchemaDocument& document, std::string_view key,
                                        std::optional<double> value = std::nullopt);
[[nodiscard]] std::int64_t readIntegerConstant(const SchemaDocument& document, std::string_view key,
                                               std::optional<std::int64_t> value = std::nullopt);
[[nodiscard]] bool readBoolConstant(const SchemaDocument& document, std::string_view key,
                                    std::optional<bool> value = std::nullopt);
[[nodiscard]] std::string_view readTypedValueConstant(const SchemaDocument& document, std::string_view key,
                                                      std::optional<std::string_view> value = std::nullopt);
[[nodiscard]] std::vector<std::string_view>
readTypedValueArrayConstant(const SchemaDocument& document, std::string_view key,
                            std::optional<std::vector<std::string_view>> value = std::nullopt);

/// The "typeid" attribute of a value, a non-empty string; nothing if there is no such attribute or the value is no
/// object.
[[nodiscard]] std::optional<std::string_view> readTypeIdAttribute(const JSON& json);

/// The "typeid" attribute of a property.
[[nodiscard]] std::string_view readPropertyTypeId(const SchemaDocument& document, std::string_view key);

} // namespace Parameters
