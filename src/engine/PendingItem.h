#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace Parameters {

/// A value of its own on the heap, so that what holds it is cheap to move.
template <class Value> class Boxed {
public:
    explicit Boxed(Value value) : value_(std::make_unique<Value>(std::move(value))) {}
    Boxed(const Boxed& other) : value_(std::make_unique<Value>(*other.value_)) {}
    Boxed(Boxed&& other) noexcept = default;
    Boxed& operator=(const Boxed& other) { return *this = Boxed(other); }
    Boxed& operator=(Boxed&& other) noexcept = default;
    ~Boxed() = default;

    [[nodiscard]] Value& operator*() noexcept { return *value_; }
    [[nodiscard]] const Value& operator*() const noexcept { return *value_; }

    /// The value, whose memory is free from then on.
    [[nodiscard]] Value take() noexcept {
        const auto taken = std::exchange(value_, nullptr);
        return std::move(*taken);
    }

private:
    std::unique_ptr<Value> value_;
};

/// A document that has been read and waits for its resolution, with its text byte for byte, which is kept elsewhere.
template <class Body> struct PendingItem {
    Boxed<Body> body;
    std::string_view text;
    /// Its position in the registry's index.
    std::size_t entry;
};

} // namespace Parameters
