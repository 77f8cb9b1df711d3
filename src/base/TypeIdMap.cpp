#include "base/TypeIdMap.h"

#include "base/SipHash.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <unistd.h>

#include <chrono>

namespace Parameters {

namespace {

/// What keeps the two hashes secret. A process and its forks share one.
struct Secret {
    std::array<unsigned char, XXH3_SECRET_DEFAULT_SIZE> fast;
    SipHash::Key strong;
};

/// Random numbers of the system or, where it has none for us, of what differs from process to process: the time and
/// where the stack is.
Secret makeSecret() noexcept {
    static_assert(sizeof(Secret) <= 256, "getentropy() gives no more at once");
    Secret secret;
    if (getentropy(&secret, sizeof(secret)) != 0) {
        const auto time = std::chrono::high_resolution_clock::now().time_since_epoch().count();
        secret.strong = {static_cast<std::uint64_t>(time), reinterpret_cast<std::uintptr_t>(&secret)};
        for (std::size_t i = 0; i < secret.fast.size(); ++i) {
            const char number = static_cast<char>(i);
            secret.fast[i] = static_cast<unsigned char>(SipHash::of({&number, 1}, secret.strong));
        }
    }
    return secret;
}

const Secret& secret() noexcept {
    static const Secret made = makeSecret();
    return made;
}

} // namespace

std::uint32_t hashOfTypeId(std::string_view typeId) noexcept {
    const auto& key = secret().fast;
    return static_cast<std::uint32_t>(XXH3_64bits_withSecret(typeId.data(), typeId.size(), key.data(), key.size()));
}

std::uint32_t strongHashOfTypeId(std::string_view typeId) noexcept {
    return static_cast<std::uint32_t>(SipHash::of(typeId, secret().strong));
}

} // namespace Parameters
