#include "schema/JSONWriter.h"

#include "schema/RapidJSON.h"

#include <charconv>
#include <utility>

namespace Parameters {

namespace {

/// Enough for any number.
constexpr std::size_t numberSize = 32;

/// What a text is written to that takes more than copying.
struct StringStream {
    using Ch = char;

    void Put(char character) { text.push_back(character); }
    void Flush() noexcept {}

    std::string text;
};

template <std::size_t width> struct Lanes {
    // NOLINTNEXTLINE(modernize-use-using): with a width that depends, g++ takes the attribute in a typedef alone.
    typedef unsigned char Type __attribute__((vector_size(width)));
};

/// Copies at least width characters, and tells whether none of them needs an escape. Character by character,
/// texts take 30 % longer to write.
template <std::size_t width> bool copyPlainBy(const char* from, std::size_t size, char* to) noexcept {
    using Characters = typename Lanes<width>::Type;
    Characters escaped{};
    const auto copy = [&](std::size_t position) {
        Characters some;
        std::memcpy(&some, from + position, width);
        std::memcpy(to + position, &some, width);
        escaped |= (some < ' ') | (some == '"') | (some == '\\');
    };
    const std::size_t last = size - width;
    for (std::size_t position = 0; position < last; position += width) {
        copy(position);
    }
    // The last ones, some of them once more.
    copy(last);
    std::array<unsigned char, width> found;
    std::memcpy(found.data(), &escaped, width);
    return found == std::array<unsigned char, width>{};
}

bool copyPlain(const char* from, std::size_t size, char* to) noexcept {
    if (size >= 16) {
        return copyPlainBy<16>(from, size, to);
    }
    if (size >= 8) {
        return copyPlainBy<8>(from, size, to);
    }
    if (size >= 4) {
        return copyPlainBy<4>(from, size, to);
    }
    bool isPlain = true;
    for (std::size_t i = 0; i < size; ++i) {
        isPlain = copyPlainBy<1>(from + i, 1, to + i) && isPlain;
    }
    return isPlain;
}

} // namespace

std::string JSON::Writer::toString() {
    close('}');
    return {begin_, next_};
}

void JSON::Writer::addValue(bool value) { addText(value ? std::string_view("true") : std::string_view("false")); }

void JSON::Writer::addValue(double value) {
    StringStream stream;
    rapidjson::Writer<StringStream>(stream).Double(value);
    addText(stream.text);
}

void JSON::Writer::addValue(std::int64_t value) {
    char* next = makeRoom(numberSize);
    next_ = std::to_chars(next, next + numberSize, value).ptr;
}

void JSON::Writer::addValue(std::string_view text) {
    char* next = makeRoom(text.size() + 2);
    // Nearly all strings are written as they are.
    if (copyPlain(text.data(), text.size(), next + 1)) {
        *next = '"';
        next[text.size() + 1] = '"';
        next_ = next + text.size() + 2;
    } else {
        StringStream stream;
        rapidjson::Writer<StringStream>(stream).String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
        addText(stream.text);
    }
}

void JSON::Writer::addText(std::string_view text) {
    std::memcpy(makeRoom(text.size()), text.data(), text.size());
    next_ += text.size();
}

void JSON::Writer::grow(std::size_t size) {
    const auto used = static_cast<std::size_t>(next_ - begin_);
    const std::size_t larger = 2 * used + size;
    // Not initialized, unlike that of std::make_unique.
    std::unique_ptr<char[]> room(new char[larger]);
    std::memcpy(room.get(), begin_, used);
    largeRoom_ = std::move(room);
    begin_ = largeRoom_.get();
    next_ = begin_ + used;
    end_ = begin_ + larger;
}

} // namespace Parameters
