#pragma once

#include <Parameters/Category.h>
#include <Parameters/StringRange.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {

/// The library's way to the immutable data behind a value class.
struct Internals {
    template <class Value> [[nodiscard]] static const auto& dataOf(const Value& value) noexcept { return *value.data_; }

    /// Makes a value of ready data, without copying strings as the public constructors do.
    template <class Value, class... Fields> [[nodiscard]] static Value make(Fields&&... fields) {
        using Data = typename Value::Data;
        return Value(std::make_shared<const Data>(Data{std::forward<Fields>(fields)...}));
    }

    // Fields of components, of which the getters return copies.

    [[nodiscard]] static const std::string& regexOf(const RegexStringRangeComponent& component) noexcept {
        return component.regex_;
    }
    [[nodiscard]] static const std::vector<std::string>&
    allowedValuesOf(const SetStringRangeComponent& component) noexcept {
        return component.allowedValues_;
    }
    [[nodiscard]] static const std::string& parentOf(const SubCategoryComponent& component) noexcept {
        return component.parentCategory_;
    }
    [[nodiscard]] static const Taxon& domainOf(const MajorCategoryComponent& component) noexcept {
        return component.domain_;
    }
    [[nodiscard]] static const std::vector<Taxon>& disciplinesOf(const MajorCategoryComponent& component) noexcept {
        return component.disciplines_;
    }
};

/// The typeid of a value without a copy; valid as long as the value.
template <class Value> [[nodiscard]] const std::string& typeIdOf(const Value& value) noexcept {
    return Internals::dataOf(value).typeId;
}

} // namespace Parameters
