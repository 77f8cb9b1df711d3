#pragma once

#include "schema/ExceptionFactory.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Handle on a JSON value, and the only code that knows which JSON library stands behind it.
///
/// Handles come in four kinds. A parsed handle and a document handle own a tree; a value handle owns one value whose
/// strings and elements live in the tree of a document handle; a view looks into the tree of another handle. The handle
/// that owns a tree must outlive all views of it and all value handles made for it. Tests are defined on every value, a
/// moved-from handle included, which counts as null. Reads are for values that passed the matching test.
class JSON {
public:
    /// Memory for one small tree, to be put on the stack by operations that are done with the tree when they return.
    struct Scratch {
        alignas(16) std::byte tree[320];
        alignas(16) std::byte memory[16 * 1024];
    };

    /// Parses text up to its first NUL. Errors are raised through the factory as "JSON parsing error at offset
    /// {offset}: {message}"; a nesting deeper than maximumDepth and a number beyond the range of double are among them.
    /// The factory and the scratch, if there is one, must outlive the tree.
    [[nodiscard]] static JSON parse(const ExceptionFactory& exceptionFactory, const std::string& text,
                                    Scratch* scratch = nullptr);

    /// Deepest nesting of objects and arrays that parse() accepts: the parser recurses once for each level.
    static constexpr unsigned maximumDepth = 512;

    /// A new document whose root is an empty object.
    [[nodiscard]] static JSON createDocument(Scratch* scratch = nullptr);
    /// A value handle with an empty object.
    [[nodiscard]] static JSON createObject();

    explicit JSON(bool value);
    explicit JSON(double value);
    explicit JSON(std::int64_t value);
    /// A literal would silently become a Boolean.
    explicit JSON(const void*) = delete;
    /// A string, copied into the pool of the document.
    JSON(const JSON& document, std::string_view text);
    /// An array of the items, in their order. The items are moved from and hold null afterwards.
    JSON(const JSON& document, std::vector<JSON>& items);

    JSON(JSON&& other) noexcept;
    JSON& operator=(JSON&& other) noexcept;
    JSON(const JSON&) = delete;
    JSON& operator=(const JSON&) = delete;
    ~JSON() = default;

    /// Appends a member to this object without looking for one of the same name. The value is moved from and holds null
    /// afterwards. Neither may be a view.
    void addMember(const JSON& document, std::string_view key, JSON& value);

    [[nodiscard]] bool isObject() const noexcept;
    [[nodiscard]] bool isArray() const noexcept;
    [[nodiscard]] bool isString() const noexcept;
    [[nodiscard]] bool isBool() const noexcept;
    [[nodiscard]] bool isNumber() const noexcept;
    /// True for a number that was written as an integer and fits 64 bits with sign: 1, but not 1.0.
    [[nodiscard]] bool isInt64() const noexcept;

    [[nodiscard]] bool getBool() const;
    [[nodiscard]] double getDouble() const;
    [[nodiscard]] std::int64_t getInt64() const;
    /// The characters up to the first NUL.
    [[nodiscard]] std::string getString() const;
    /// The same without a copy; valid as long as the tree and, in a value handle, as the handle.
    [[nodiscard]] std::string_view getStringView() const;
    /// Number of members of an object or of elements of an array.
    [[nodiscard]] std::uint32_t getSize() const;

    /// False, too, on a value that is no object.
    [[nodiscard]] bool hasMember(std::string_view key) const noexcept;
    /// A view of the first member of that name, or of a null value where there is none.
    [[nodiscard]] JSON getMember(std::string_view key) const;
    /// Of a view that getMember() gave: whether there is such a member.
    [[nodiscard]] bool exists() const noexcept { return viewed_ != nullptr; }
    /// One view an element.
    [[nodiscard]] std::vector<JSON> getArray() const;
    /// A view of one element, without the vector.
    [[nodiscard]] JSON getElement(std::uint32_t index) const;
    /// Keys and values of an object of strings; the last of several members of one name counts. They are valid as those
    /// of getStringView().
    [[nodiscard]] std::map<std::string_view, std::string_view> getStringMap() const;

    /// Compact text: no white space, members in stored order. A number that is not finite ends the text early.
    [[nodiscard]] std::string toString() const;

    /// Throws what the factory makes of the message. For parsed handles and their views only.
    [[noreturn]] void raise(const std::string& message) const;

private:
    struct Tree;
    struct TreeDeleter {
        void operator()(Tree* tree) const noexcept;
    };
    struct Access;

    JSON(std::unique_ptr<Tree, TreeDeleter> tree, const ExceptionFactory* exceptionFactory) noexcept;
    JSON(const void* viewed, const ExceptionFactory* exceptionFactory) noexcept;

    /// Room for the value of a value handle; null in the other kinds. Where pointers have more than 48 bits a value
    /// takes all of it.
    alignas(8) std::byte own_[24];
    /// The value outside this handle that operations act on; none in a value handle.
    const void* viewed_ = nullptr;
    const ExceptionFactory* exceptionFactory_ = nullptr;
    std::unique_ptr<Tree, TreeDeleter> tree_;
};
