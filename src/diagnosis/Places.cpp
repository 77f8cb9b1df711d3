#include "diagnosis/Places.h"

#include "schema/JSON.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Parameters {

namespace {

constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

void appendUtf8(std::string& target, std::uint32_t code) {
    const auto add = [&](std::uint32_t byte) { target += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto addTail = [&](unsigned shift) { add(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0U | (code >> 6U));
        addTail(0);
    } else if (code < 0x10000) {
        add(0xE0U | (code >> 12U));
        addTail(6);
        addTail(0);
    } else {
        add(0xF0U | (code >> 18U));
        addTail(12);
        addTail(6);
        addTail(0);
    }
}

std::uint32_t hexValueOf(std::string_view digits) {
    std::uint32_t value = 0;
    for (const char digit : digits) {
        const auto character = static_cast<unsigned char>(digit);
        value = value * 16 + (character <= '9' ? character - '0' : (character & 0xDFU) - 'A' + 10U);
    }
    return value;
}

/// The characters of a JSON string between its quotation marks, of which the parser has taken the escapes.
std::string decoded(std::string_view raw) {
    constexpr std::string_view escapes = "bfnrt";
    constexpr std::string_view controls = "\b\f\n\r\t";
    std::string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] != '\\' || i + 1 == raw.size()) {
            text += raw[i];
            continue;
        }
        const char escape = raw[++i];
        if (escape == 'u') {
            std::uint32_t code = hexValueOf(raw.substr(i + 1, 4));
            i += 4;
            if (code >= 0xD800 && code < 0xDC00) {
                // The second half of a pair follows, with its own escape in front.
                code = 0x10000 + ((code - 0xD800) << 10U) + (hexValueOf(raw.substr(i + 3, 4)) - 0xDC00);
                i += 6;
            }
            appendUtf8(text, code);
        } else {
            const std::size_t control = escapes.find(escape);
            text += control != std::string_view::npos ? controls[control] : escape;
        }
    }
    return text;
}

/// Walks through a text token by token. What has no place in JSON ends the walk.
class PlaceSearch {
public:
    PlaceSearch(std::string_view text, const WantsPlace& isWanted) : text_(text), isWanted_(isWanted) {}

    std::vector<ValuePlace> run() {
        while (next_ < text_.size() && step()) {
        }
        return std::move(places_);
    }

private:
    /// An object or array that is being walked through.
    struct Container {
        bool isObject;
        std::size_t index;
        std::size_t nameOffset;
        std::size_t nameLength;
        /// Its place, if it is wanted.
        std::size_t place;
    };

    /// Takes one token; whether it could.
    bool step() {
        switch (text_[next_]) {
        case ' ':
        case '\t':
        case '\n':
        case '\r':
        case ':':
            ++next_;
            return true;
        case ',':
            if (!open_.empty()) {
                ++open_.back().index;
                isName_ = open_.back().isObject;
            }
            ++next_;
            return true;
        case '{':
        case '[':
            return enter(text_[next_] == '{');
        case '}':
        case ']':
            return leave();
        case '"':
            return takeString();
        default:
            return takeWord();
        }
    }

    bool enter(bool isObject) {
        // Deeper the parser has not been.
        if (open_.size() == JSON::maximumDepth) {
            return false;
        }
        const std::size_t place = begin();
        open_.push_back({isObject, 0, 0, 0, place});
        isName_ = isObject;
        ++next_;
        return true;
    }

    bool leave() {
        if (open_.empty()) {
            return false;
        }
        ++next_;
        end(open_.back().place);
        open_.pop_back();
        isName_ = false;
        return true;
    }

    bool takeString() {
        const std::size_t offset = next_;
        const std::size_t place = isName_ ? nowhere : begin();
        for (++next_; next_ < text_.size() && text_[next_] != '"'; ++next_) {
            if (text_[next_] == '\\') {
                ++next_;
            }
        }
        if (next_ >= text_.size()) {
            next_ = text_.size();
            end(place);
            return false;
        }
        ++next_;
        if (isName_) {
            open_.back().nameOffset = offset;
            open_.back().nameLength = next_ - offset;
            isName_ = false;
        }
        end(place);
        return true;
    }

    bool takeWord() {
        const std::size_t place = begin();
        const std::size_t offset = next_;
        next_ = std::min(text_.find_first_of(" \t\n\r,:{}[]\"", next_), text_.size());
        end(place);
        return next_ != offset;
    }

    /// The beginning of a value: the position of its place, if that is wanted.
    std::size_t begin() {
        if (!isWanted_(count_++, next_)) {
            return nowhere;
        }
        ValuePlace& place = places_.emplace_back();
        place.offset = next_;
        if (!open_.empty()) {
            place.nameOffset = open_.back().nameOffset;
            place.nameLength = open_.back().nameLength;
        }
        for (const Container& container : open_) {
            appendStep(place.pointer, container);
        }
        return places_.size() - 1;
    }

    void end(std::size_t place) {
        if (place != nowhere) {
            places_[place].length = next_ - places_[place].offset;
        }
    }

    void appendStep(std::string& pointer, const Container& container) const {
        pointer += '/';
        if (!container.isObject) {
            pointer += std::to_string(container.index);
            return;
        }
        if (container.nameLength < 2) {
            return;
        }
        for (const char character : decoded(text_.substr(container.nameOffset + 1, container.nameLength - 2))) {
            if (character == '~') {
                pointer += "~0";
            } else if (character == '/') {
                pointer += "~1";
            } else {
                pointer += character;
            }
        }
    }

    std::string_view text_;
    const WantsPlace& isWanted_;
    std::size_t next_ = 0;
    std::size_t count_ = 0;
    /// Whether the next string names a member.
    bool isName_ = false;
    std::vector<Container> open_;
    std::vector<ValuePlace> places_;
};

} // namespace

std::vector<ValuePlace> placesIn(std::string_view text, const WantsPlace& isWanted) {
    return PlaceSearch(text, isWanted).run();
}

} // namespace Parameters
