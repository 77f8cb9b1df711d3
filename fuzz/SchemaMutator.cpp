#include "Mutation.h"

using namespace Fuzz;

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed) {
    Random random(seed);
    std::string text(reinterpret_cast<const char*>(data), size);
    text = pick(random, 2) == 0 ? withBytesMutated(text, maximumSize) : withValueMutated(text, random);
    return putInto(data, maximumSize, text);
}
