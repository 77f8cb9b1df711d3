#pragma once

#include "base/StoreList.h"
#include "base/Text.h"
#include "schema/ReferenceTo.h"
#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"
#include "taxonomy/NumericRangeSchema.h"
#include "taxonomy/StringRangeSchema.h"

#include <Parameters/Parameter.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace Parameters {

inline constexpr std::string_view rangeKey = "range";

// By the type of range.
constexpr std::string_view kindNameOf(const std::optional<FloatRange>& /*range*/) { return KindNames::floatRange; }
constexpr std::string_view kindNameOf(const std::optional<IntRange>& /*range*/) { return KindNames::intRange; }
constexpr std::string_view kindNameOf(const std::optional<StringRange>& /*range*/) { return KindNames::stringRange; }

/// The "range" constant of a parameter's document: nothing, the typeid of a range, or a range given inline under the
/// typeid of a base schema.
template <class Range> struct RangeConstant {
    /// Empty where the constant is missing.
    TypeIdKey typeId;
    std::optional<Range> inlineRange;

    [[nodiscard]] ReferenceTo target() const noexcept {
        return {kindNameOf(inlineRange), inlineRange ? isAlwaysBuiltIn : isNeverBuiltIn};
    }
};

/// Reads the inline value of a range, given the base schema that the constant names.
inline void readInlineRange(std::string_view /*base*/, const JSON& value, Units::SchemaFormat format,
                            std::optional<FloatRange>& range) {
    range = readInlineNumericRange<FloatRange>(value, format);
}
inline void readInlineRange(std::string_view /*base*/, const JSON& value, Units::SchemaFormat format,
                            std::optional<IntRange>& range) {
    range = readInlineNumericRange<IntRange>(value, format);
}
inline void readInlineRange(std::string_view base, const JSON& value, Units::SchemaFormat format,
                            std::optional<StringRange>& range) {
    range = readInlineStringRange(base, value, format);
}

/// Reads the constant. A typeid among the inline bases must come with an inline value, any other must not.
template <class Range, class Bases>
[[nodiscard]] RangeConstant<Range> readRangeConstant(const SchemaDocument& document, const Bases& inlineBases) {
    RangeConstant<Range> constant;
    readMembers(
        document.constants,
        MemberHandler{rangeKey, [&](const JSON& json) {
                          const auto rangeTypeId = readTypeIdAttribute(json);
                          if (!rangeTypeId) {
                              json.report(Rule::MissingMember,
                                          concat({"Schema ", document.typeId,
                                                  " must specify a typeid string attribute in its range constant "
                                                  "typedValue."}));
                              return;
                          }
                          const std::string_view typeId = *rangeTypeId;
                          if (typeId.empty()) {
                              return;
                          }
                          constant.typeId = typeId;
                          const JSON value = json.getMember(Frame::value);
                          if (std::find(inlineBases.begin(), inlineBases.end(), typeId) != inlineBases.end()) {
                              if (!value.exists()) {
                                  json.report(Rule::MissingMember,
                                              concat({"Inline value override is required when specifying range schema ",
                                                      typeId, " in range constant typedValue."}));
                              } else if (!value.isObject()) {
                                  value.report(Rule::WrongType,
                                               "Inline value override in range constant typedValue must be an object.");
                              } else {
                                  readInlineRange(typeId, value, document.schemaFormat, constant.inlineRange);
                                  return;
                              }
                              constant.typeId = {};
                          } else if (value.exists() && (!value.isObject() || value.getSize() != 0)) {
                              value.report(Rule::WrongForm,
                                           concat({"Inline value override for range schema ", typeId,
                                                   " in range constant typedValue, if present, must be an empty "
                                                   "object."}));
                          }
                      }});
    return constant;
}

/// The inline range, the range that the constant names, or none.
template <class Range>
[[nodiscard]] ParameterRange resolveRangeConstant(const RangeConstant<Range>& constant, std::string_view schemaTypeId,
                                                  const StoreList<Range>& stores) {
    if (constant.inlineRange) {
        return *constant.inlineRange;
    }
    if (constant.typeId.typeId.empty()) {
        return std::monostate();
    }
    return findDependency(stores, schemaTypeId, constant.typeId);
}

} // namespace Parameters
