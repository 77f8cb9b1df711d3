#include "base/TypeIdMap.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace Parameters {

std::uint32_t hashOfTypeId(std::string_view typeId) noexcept {
    static const char anchor = 0;
    const auto seed = reinterpret_cast<std::uintptr_t>(&anchor);
    return static_cast<std::uint32_t>(XXH3_64bits_withSeed(typeId.data(), typeId.size(), seed));
}

} // namespace Parameters
