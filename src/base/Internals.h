#pragma once

#include <memory>
#include <string>
#include <utility>

namespace Parameters {

/// The library's way to the data behind its public classes.
struct Internals {
    template <class Engine> [[nodiscard]] static const auto& implOf(const Engine& engine) noexcept {
        return *engine.impl_;
    }

    template <class Value> [[nodiscard]] static const auto& dataOf(const Value& value) noexcept { return *value.data_; }

    /// The same, to keep.
    template <class Value> [[nodiscard]] static const auto& sharedDataOf(const Value& value) noexcept {
        return value.data_;
    }

    /// Makes a value of ready data, without copying strings as the public constructors do.
    template <class Value, class... Fields> [[nodiscard]] static Value make(Fields&&... fields) {
        using Data = typename Value::Data;
        return Value(std::make_shared<const Data>(Data{std::forward<Fields>(fields)...}));
    }

    /// A copy of a value with some of its data replaced by change, which is called with the data to be.
    template <class Value, class Change> [[nodiscard]] static Value changed(const Value& value, const Change& change) {
        auto data = std::make_shared<typename Value::Data>(dataOf(value));
        change(*data);
        return Value(std::move(data));
    }
};

/// The typeid of a value without a copy; valid as long as the value.
template <class Value> [[nodiscard]] const std::string& typeIdOf(const Value& value) noexcept {
    return Internals::dataOf(value).typeId;
}

} // namespace Parameters
