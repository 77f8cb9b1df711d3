#pragma once

#include "schema/ExceptionFactory.h"
#include "schema/ReadingObserver.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {

/// View of a JSON value that was read, cheap to copy. Its Writer, of JSONWriter.h, writes texts.
///
/// It looks into a tree, which must outlive it. Tests are defined on every value; where there is none, they take it as
/// null. Reads are for values that passed the matching test.
class JSON {
public:
    class Document;
    class Writer;

    /// Memory for one small tree, to be put on the stack by operations that are done with the tree when they return.
    struct Scratch {
        alignas(16) std::byte tree[320];
        alignas(16) std::byte memory[16 * 1024];
    };

    /// Parses text up to its first NUL. Errors are thrown through the factory as "JSON parsing error at offset
    /// {offset}: {message}"; a nesting deeper than maximumDepth is among them. An observer is told instead, and gets a
    /// root that has nothing.
    /// The factory, the text and the scratch, if there is one, must outlive the tree.
    [[nodiscard]] static Document parse(const ExceptionFactory& exceptionFactory, const std::string& text,
                                        Scratch* scratch = nullptr);
    static Document parse(const ExceptionFactory& exceptionFactory, std::string&& text,
                          Scratch* scratch = nullptr) = delete;

    /// Deepest nesting of objects and arrays that parse() accepts: the parser recurses once for each level.
    static constexpr unsigned maximumDepth = 512;

    [[nodiscard]] bool isObject() const noexcept;
    [[nodiscard]] bool isArray() const noexcept;
    [[nodiscard]] bool isString() const noexcept;
    [[nodiscard]] bool isBool() const noexcept;
    [[nodiscard]] bool isNumber() const noexcept;
    /// True for a number that was written as an integer and fits 64 bits with sign: 1, but not 1.0.
    [[nodiscard]] bool isInt64() const noexcept;

    [[nodiscard]] bool getBool() const;
    /// Infinite for some numbers beyond the range of double.
    [[nodiscard]] double getDouble() const;
    [[nodiscard]] std::int64_t getInt64() const;
    /// The characters up to the first NUL.
    [[nodiscard]] std::string getString() const;
    /// The same without a copy: a part of the text where it has no escapes, and valid as long as tree and text.
    [[nodiscard]] std::string_view getStringView() const;
    /// Number of members of an object or of elements of an array.
    [[nodiscard]] std::uint32_t getSize() const;

    /// False, too, on a value that is no object.
    [[nodiscard]] bool hasMember(std::string_view key) const;
    /// The first member of that name, or nothing.
    [[nodiscard]] JSON getMember(std::string_view key) const {
        const JSON found(find(key), exceptionFactory_);
        if (observer() != nullptr) {
            observer()->askedForMember(*this, key, found);
        }
        return found;
    }
    /// Of what getMember() gave: whether there is such a member.
    [[nodiscard]] bool exists() const noexcept { return viewed_ != nullptr; }
    /// One element of an array.
    [[nodiscard]] JSON getElement(std::uint32_t index) const;
    /// Keys and values of an object of strings; the last of several members of one name counts. They are valid as those
    /// of getStringView(). Nothing where an observer has been told of a value of another type.
    [[nodiscard]] std::optional<std::map<std::string_view, std::string_view>> getStringMap() const;

    /// Throws what the factory makes of the message.
    [[noreturn]] void fail(const std::string& message) const;
    /// Tells the observer that the value breaks a rule, and returns; without an observer it throws.
    void report(Rule rule, const std::string& message) const;

    /// Who follows the reading, or null.
    [[nodiscard]] ReadingObserver* observer() const noexcept { return exceptionFactory_->observer(); }
    /// The same for all handles on one value, and for no others while the tree stands; null where there is none.
    [[nodiscard]] const void* identity() const noexcept { return viewed_; }

    /// A value met by walk().
    struct Node {
        const void* identity;
        /// The object that it is a member of, or null, and its name there.
        const void* object;
        std::string_view key;
        /// The characters of a string, at the same place as those of getStringView(); without data of other values.
        std::string_view text;
    };
    /// Calls visit with each value, in the order of the text: containers come before what is in them.
    void walk(const std::function<void(const Node&)>& visit) const;

private:
    struct Access;

    JSON(const void* viewed, const ExceptionFactory* exceptionFactory)
    noexcept : viewed_(viewed), exceptionFactory_(exceptionFactory) {}

    [[nodiscard]] const void* find(std::string_view key) const noexcept;

    /// The value that operations act on, or null where there is none.
    const void* viewed_;
    const ExceptionFactory* exceptionFactory_;
};

/// The tree of a parsed text. It does not own the text, where most of the strings stand.
class JSON::Document {
public:
    [[nodiscard]] JSON root() const& noexcept { return root_; }
    JSON root() const&& = delete;

    /// Memory for what lives as long as the tree and is never destroyed, aligned for pointers.
    [[nodiscard]] void* allocate(std::size_t size) const;

private:
    friend class JSON;

    struct Tree;
    struct TreeDeleter {
        void operator()(Tree* tree) const noexcept;
    };

    Document(std::unique_ptr<Tree, TreeDeleter> tree, JSON root) noexcept : tree_(std::move(tree)), root_(root) {}

    std::unique_ptr<Tree, TreeDeleter> tree_;
    JSON root_;
};

} // namespace Parameters

using Parameters::JSON;
