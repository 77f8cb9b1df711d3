#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace Fuzz {

using Random = std::mt19937;

inline std::size_t pick(Random& random, std::size_t count) { return random() % count; }

/// The documents of the example catalog, each on one line.
const std::vector<std::string>& catalogTexts();

/// Changed in a few bytes, as libFuzzer does it.
std::string withBytesMutated(std::string text, std::size_t maximumSize);

/// A JSON text with a value removed, repeated, or replaced by one from the catalog, so that it is mostly still one.
std::string withValueMutated(std::string text, Random& random);

/// Hands a mutated text back to libFuzzer: the size that is left of it.
std::size_t putInto(std::uint8_t* data, std::size_t maximumSize, const std::string& text);

} // namespace Fuzz
