#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Parameters {

/// Hashes texts by SipHash-1-3: whoever does not know the key can't find texts whose hashes collide.
class SipHash {
public:
    struct Key {
        std::uint64_t low;
        std::uint64_t high;
    };

    [[nodiscard]] static std::uint64_t of(std::string_view text, const Key& key) noexcept {
        SipHash hash(key);
        const char* next = text.data();
        std::size_t left = text.size();
        for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t), next += sizeof(std::uint64_t)) {
            hash.add(wordAt(next));
        }
        hash.add(rest(next, left, text.size()) | static_cast<std::uint64_t>(text.size()) << 56U);
        return hash.finish();
    }

private:
    explicit SipHash(const Key& key) noexcept
        : v0_(key.low ^ 0x736f6d6570736575), v1_(key.high ^ 0x646f72616e646f6d), v2_(key.low ^ 0x6c7967656e657261),
          v3_(key.high ^ 0x7465646279746573) {}

    void add(std::uint64_t word) noexcept {
        v3_ ^= word;
        mix();
        v0_ ^= word;
    }

    [[nodiscard]] std::uint64_t finish() noexcept {
        v2_ ^= 0xff;
        mix();
        mix();
        mix();
        return v0_ ^ v1_ ^ v2_ ^ v3_;
    }

    void mix() noexcept {
        v0_ += v1_;
        v2_ += v3_;
        v1_ = rotated(v1_, 13) ^ v0_;
        v3_ = rotated(v3_, 16) ^ v2_;
        v0_ = rotated(v0_, 32);
        v2_ += v1_;
        v0_ += v3_;
        v1_ = rotated(v1_, 17) ^ v2_;
        v3_ = rotated(v3_, 21) ^ v0_;
        v2_ = rotated(v2_, 32);
    }

    static std::uint64_t rotated(std::uint64_t word, unsigned bits) noexcept {
        return word << bits | word >> (64 - bits);
    }

    /// The first of eight characters in the lowest byte.
    static std::uint64_t wordAt(const char* characters) noexcept {
        std::uint64_t word;
        std::memcpy(&word, characters, sizeof(word));
        return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? word : __builtin_bswap64(word);
    }

    /// Less than eight characters at the end of a text. Of a longer text they are part of its last eight.
    static std::uint64_t rest(const char* next, std::size_t left, std::size_t size) noexcept {
        if (left != 0 && size >= sizeof(std::uint64_t)) {
            return wordAt(next + left - sizeof(std::uint64_t)) >> 8 * (sizeof(std::uint64_t) - left);
        }
        std::uint64_t word = 0;
        for (std::size_t i = 0; i < left; ++i) {
            word |= static_cast<std::uint64_t>(static_cast<unsigned char>(next[i])) << 8 * i;
        }
        return word;
    }

    std::uint64_t v0_;
    std::uint64_t v1_;
    std::uint64_t v2_;
    std::uint64_t v3_;
};

} // namespace Parameters
