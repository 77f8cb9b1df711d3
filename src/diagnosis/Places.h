#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

/// Where a value stands in a JSON text.
struct ValuePlace {
    std::size_t offset = 0;
    std::size_t length = 0;
    /// Of its name, in an object.
    std::size_t nameOffset = 0;
    std::size_t nameLength = 0;
    /// A JSON pointer to it.
    std::string pointer;
};

/// Says of a value of a text, which is the number-th in its order, containers before what is in them, and begins at the
/// offset, whether its place is wanted.
using WantsPlace = std::function<bool(std::size_t number, std::size_t offset)>;

/// The places of the values that are wanted, in the order of the text. The text is one that was parsed; of one that is
/// no JSON, what precedes the fault is found.
[[nodiscard]] std::vector<ValuePlace> placesIn(std::string_view text, const WantsPlace& isWanted);

} // namespace Parameters
