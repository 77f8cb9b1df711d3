#pragma once

#include "schema/JSON.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace Parameters {

/// Writes the text of one document front to back: an object, whose members stand in the order in which they are added.
/// The text is compact, without white space.
///
/// Keys are written as they are, and must not need escapes.
class JSON::Writer {
public:
    /// A document without members yet.
    [[nodiscard]] static Writer createDocument() { return {}; }

    // What points into itself stays where it is.
    Writer(const Writer&) = delete;
    Writer(Writer&&) = delete;
    Writer& operator=(const Writer&) = delete;
    Writer& operator=(Writer&&) = delete;
    ~Writer() = default;

    /// Adds a member to the object that is open: a Boolean, a 64-bit integer, a finite double or a string.
    template <class Value> void addMember(std::string_view key, const Value& value) {
        static_assert(!std::is_convertible_v<const Value&, const char*>, "a literal would silently become a Boolean");
        addKey(key);
        addValue(value);
    }

    /// Adds a member that is an object, to which fill then adds the members.
    template <class Fill> void addObject(std::string_view key, const Fill& fill) {
        addKey(key);
        enclose('{', fill, '}');
    }

    /// Adds a member that is an array, to which fill then adds the elements.
    template <class Fill> void addArray(std::string_view key, const Fill& fill) {
        addKey(key);
        enclose('[', fill, ']');
    }

    /// Adds an element to the array that is open: an object, to which fill then adds the members.
    template <class Fill> void createObject(const Fill& fill) {
        addSeparator();
        enclose('{', fill, '}');
    }

    /// Adds an element to the array that is open.
    void addElement(std::string_view text) {
        addSeparator();
        addValue(text);
    }

    /// The text of the document, which is complete with that.
    [[nodiscard]] std::string toString();

private:
    Writer() noexcept { open('{'); }

    void addSeparator() {
        char* next = makeRoom(1);
        *next = ',';
        next_ = next + (isFirst_ ? 0 : 1);
        isFirst_ = false;
    }

    void addKey(std::string_view key) {
        addSeparator();
        char* next = makeRoom(key.size() + 3);
        *next++ = '"';
        std::memcpy(next, key.data(), key.size());
        next += key.size();
        *next++ = '"';
        *next++ = ':';
        next_ = next;
    }

    void addValue(bool value);
    void addValue(double value);
    void addValue(std::int64_t value);
    void addValue(std::string_view text);

    template <class Fill> void enclose(char opening, const Fill& fill, char closing) {
        open(opening);
        fill();
        close(closing);
    }

    void open(char bracket) {
        *makeRoom(1) = bracket;
        ++next_;
        isFirst_ = true;
    }
    void close(char bracket) {
        *makeRoom(1) = bracket;
        ++next_;
        isFirst_ = false;
    }

    /// Room for that many characters where the text goes on.
    char* makeRoom(std::size_t size) {
        if (size > static_cast<std::size_t>(end_ - next_)) {
            grow(size);
        }
        return next_;
    }
    void grow(std::size_t size);

    void addText(std::string_view text);

    /// Few texts are longer.
    std::array<char, 2048> usualRoom_;
    std::unique_ptr<char[]> largeRoom_;
    char* begin_ = usualRoom_.data();
    char* next_ = begin_;
    char* end_ = begin_ + usualRoom_.size();
    /// Whether nothing has been added yet to what is open.
    bool isFirst_ = true;
};

} // namespace Parameters
