#include "schema/JSON.h"

#include "schema/RapidJSON.h"

#include <endian.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <utility>

namespace Parameters {

/// Reports exhausted memory by std::bad_alloc; the allocator that comes with RapidJSON returns null, which its parser
/// would write to.
class ThrowingAllocator {
public:
    /// Part of RapidJSON's concept of an allocator, whether or not its version at hand asks.
    [[maybe_unused]] static constexpr bool kNeedFree = true;

    static void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }

    static void* Realloc(void* block, std::size_t oldSize, std::size_t newSize) {
        void* moved = Malloc(newSize);
        if (block != nullptr && moved != nullptr) {
            std::memcpy(moved, block, std::min(oldSize, newSize));
        }
        Free(block);
        return moved;
    }

    static void Free(void* block) noexcept { ::operator delete(block); }
};

namespace {

using Encoding = rapidjson::UTF8<>;
using Pool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
using ParserDocument = rapidjson::GenericDocument<Encoding, Pool, ThrowingAllocator>;
using Value = rapidjson::GenericValue<Encoding, Pool>;
using Reader = rapidjson::GenericReader<Encoding, Encoding, ThrowingAllocator>;

bool isPlain(char character) noexcept {
    return static_cast<unsigned char>(character) >= ' ' && character != '"' && character != '\\';
}

/// Skips characters that stand for themselves in a string, eight at a time: one at a time, registering takes 6 %
/// longer. At the end of the text there must be a NUL.
const char* skipPlain(const char* next, const char* end) noexcept {
    using Word = std::uint64_t;
    constexpr Word ones = 0x0101010101010101;
    constexpr Word highBits = 0x80 * ones;
    // Not zero if one of the characters is below the bound.
    const auto below = [](Word word, Word bound) { return (word - ones * bound) & ~word & highBits; };
    for (; end - next >= static_cast<std::ptrdiff_t>(sizeof(Word)); next += sizeof(Word)) {
        Word word;
        std::memcpy(&word, next, sizeof(word));
        word = le64toh(word);
        const Word found = below(word, ' ') | below(word ^ (ones * '"'), 1) | below(word ^ (ones * '\\'), 1);
        if (found != 0) {
            // The lowest bit is of the first such character; those above it may be of others.
            return next + __builtin_ctzll(found) / 8;
        }
    }
    while (isPlain(*next)) {
        ++next;
    }
    return next;
}

/// What streams of one text share. RapidJSON copies the stream for each token, so what is not needed there is here.
struct StreamState {
    const char* begin;
    const char* end;
    Pool* pool;
    /// Where decoded characters go, from the first string with an escape on.
    char* decoded = nullptr;
    bool isDecoding = false;
};

/// A text whose strings the parser takes as they stand there, but for those with escapes, which are decoded elsewhere.
/// To the parser it looks like a text that is decoded in place. Copying all strings makes registering 15 % slower.
class TextStream {
public:
    using Ch = char;

    explicit TextStream(StreamState& state) : next_(state.begin), state_(&state) {}

    [[nodiscard]] char Peek() const noexcept { return *next_; }
    char Take() noexcept { return *next_++; }
    [[nodiscard]] std::size_t Tell() const noexcept { return static_cast<std::size_t>(next_ - state_->begin); }

    /// Called at the beginning of a string: where it will stand.
    char* PutBegin() {
        const char* const string = next_;
        next_ = skipPlain(next_, state_->end);
        state_->isDecoding = *next_ == '\\';
        if (!state_->isDecoding) {
            // What there is of the string must not be written to, and is not.
            return const_cast<char*>(string);
        }
        if (state_->decoded == nullptr) {
            // Decoding makes strings shorter, so there is room for all of them.
            state_->decoded = static_cast<char*>(state_->pool->Malloc(static_cast<std::size_t>(state_->end - string)));
        }
        char* const target = state_->decoded;
        state_->decoded = std::copy(string, next_, target);
        return target;
    }
    /// Called with each character that is not yet where the string will stand, and with a NUL at its end.
    void Put(char character) noexcept {
        if (state_->isDecoding) {
            *state_->decoded++ = character;
        }
    }
    /// The size of the string with a NUL or quote behind it.
    std::size_t PutEnd(const char* string) const noexcept {
        return static_cast<std::size_t>((state_->isDecoding ? state_->decoded : next_) - string);
    }

private:
    const char* next_;
    StreamState* state_;
};

/// Hands the parser's events to the document, and stops the parser where they nest too deep.
class BoundedHandler {
public:
    BoundedHandler(ParserDocument& document, const StreamState& state) : document_(document), state_(state) {}

    bool Null() { return document_.Null(); }
    bool Bool(bool value) { return document_.Bool(value); }
    bool Int(int value) { return document_.Int(value); }
    bool Uint(unsigned value) { return document_.Uint(value); }
    bool Int64(std::int64_t value) { return document_.Int64(value); }
    bool Uint64(std::uint64_t value) { return document_.Uint64(value); }
    bool Double(double value) { return document_.Double(value); }
    bool RawNumber(const char* text, rapidjson::SizeType size, bool copy) {
        return document_.RawNumber(text, size, copy);
    }
    /// Only an escape can stand for a NUL, which ends the string.
    bool String(const char* text, rapidjson::SizeType size, bool copy) {
        const std::size_t length = state_.isDecoding ? strnlen(text, size) : size;
        return document_.String(text, static_cast<rapidjson::SizeType>(length), copy);
    }
    bool Key(const char* text, rapidjson::SizeType size, bool copy) { return document_.Key(text, size, copy); }
    bool StartObject() { return ++depth_ <= JSON::maximumDepth && document_.StartObject(); }
    bool EndObject(rapidjson::SizeType size) {
        --depth_;
        return document_.EndObject(size);
    }
    bool StartArray() { return ++depth_ <= JSON::maximumDepth && document_.StartArray(); }
    bool EndArray(rapidjson::SizeType size) {
        --depth_;
        return document_.EndArray(size);
    }

private:
    ParserDocument& document_;
    const StreamState& state_;
    unsigned depth_ = 0;
};

/// Messages by RapidJSON's error code, from 1 on.
constexpr std::array<const char*, 17> parseErrorMessages = {
    "The document is empty.",
    "The document root must not be followed by other values.",
    "Invalid value.",
    "Missing a name for an object member.",
    "Missing a colon after the name of an object member.",
    "Missing a comma or '}' after an object member.",
    "Missing a comma or ']' after an array element.",
    "Incorrect hex digit after \\\\u escape in a string.",
    "The Unicode surrogate pair in a string is invalid.",
    "Invalid escape character in a string.",
    "Missing a closing quotation mark in a string.",
    "Invalid encoding in a string.",
    "Number too big to be stored in a double.",
    "Missing a fractional part in a number.",
    "Missing an exponent in a number.",
    "Parsing was terminated.",
    "Unspecified syntax error.",
};
static_assert(rapidjson::kParseErrorDocumentEmpty == 1 &&
                  rapidjson::kParseErrorUnspecificSyntaxError == parseErrorMessages.size(),
              "one message for each error code");

const char* messageFor(rapidjson::ParseErrorCode code) {
    const auto index = static_cast<std::size_t>(code) - 1;
    return index < parseErrorMessages.size() ? parseErrorMessages[index] : "Unknown error.";
}

} // namespace

/// The parser may keep its place in a local copy.
template <> struct rapidjson::StreamTraits<TextStream> { static constexpr int copyOptimization = 1; };

struct JSON::Document::Tree {
    explicit Tree(Scratch* scratch)
        : pool(scratch != nullptr ? Pool(scratch->memory, sizeof(scratch->memory), poolBlock, &memory)
                                  : Pool(poolBlock, &memory)),
          isInScratch(scratch != nullptr) {}

    static std::unique_ptr<Tree, TreeDeleter> create(Scratch* scratch) {
        static_assert(sizeof(Tree) <= sizeof(Scratch::tree));
        return std::unique_ptr<Tree, TreeDeleter>(scratch != nullptr ? new (scratch->tree) Tree(scratch)
                                                                     : new Tree(nullptr));
    }

    ThrowingAllocator memory;
    Pool pool;
    bool isInScratch;
    ParserDocument document{&pool, stackSize, &memory};

    static constexpr std::size_t poolBlock = 64 * 1024;
    static constexpr std::size_t stackSize = 1024;
};

void JSON::Document::TreeDeleter::operator()(Tree* tree) const noexcept {
    if (tree->isInScratch) {
        tree->~Tree();
    } else {
        delete tree;
    }
}

void* JSON::Document::allocate(std::size_t size) const { return tree_->pool.Malloc(size); }

/// The JSON library's side of a handle.
struct JSON::Access {
    static const Value& value(const JSON& json) {
        static const Value null;
        return json.viewed_ != nullptr ? *static_cast<const Value*>(json.viewed_) : null;
    }

    /// Recurses once for each level, which parse() has bounded.
    static void walk(const Value& value, Node node, const std::function<void(const Node&)>& visit) {
        node.identity = &value;
        node.text = value.IsString() ? text(value) : std::string_view();
        visit(node);
        if (value.IsObject()) {
            for (const auto& member : value.GetObject()) {
                walk(member.value, {nullptr, &value, text(member.name), {}}, visit);
            }
        } else if (value.IsArray()) {
            for (const Value& element : value.GetArray()) {
                walk(element, {}, visit);
            }
        }
    }

    static std::string_view text(const Value& value) { return {value.GetString(), value.GetStringLength()}; }
};

JSON::Document JSON::parse(const ExceptionFactory& exceptionFactory, const std::string& text, Scratch* scratch) {
    auto tree = Document::Tree::create(scratch);
    rapidjson::ParseResult result;
    auto generate = [&](ParserDocument& document) {
        StreamState state{text.c_str(), text.c_str() + text.size(), &tree->pool};
        TextStream stream(state);
        BoundedHandler handler(document, state);
        result = Reader().Parse<rapidjson::kParseDefaultFlags | rapidjson::kParseInsituFlag>(stream, handler);
        return !result.IsError();
    };
    tree->document.Populate(generate);
    JSON root(static_cast<const Value*>(&tree->document), &exceptionFactory);
    if (result.IsError()) {
        const std::string message =
            "JSON parsing error at offset " + std::to_string(result.Offset()) + ": " + messageFor(result.Code());
        if (root.observer() == nullptr) {
            root.fail(message);
        }
        root.observer()->syntaxError(result.Offset(), message);
        root.viewed_ = nullptr;
    }
    return {std::move(tree), root};
}

bool JSON::isObject() const noexcept { return Access::value(*this).IsObject(); }

bool JSON::isArray() const noexcept { return Access::value(*this).IsArray(); }

bool JSON::isString() const noexcept { return Access::value(*this).IsString(); }

bool JSON::isBool() const noexcept { return Access::value(*this).IsBool(); }

bool JSON::isNumber() const noexcept { return Access::value(*this).IsNumber(); }

bool JSON::isInt64() const noexcept { return Access::value(*this).IsInt64(); }

bool JSON::getBool() const { return Access::value(*this).GetBool(); }

double JSON::getDouble() const { return Access::value(*this).GetDouble(); }

std::int64_t JSON::getInt64() const { return Access::value(*this).GetInt64(); }

std::string JSON::getString() const { return std::string(getStringView()); }

std::string_view JSON::getStringView() const { return Access::text(Access::value(*this)); }

std::uint32_t JSON::getSize() const {
    const Value& value = Access::value(*this);
    return value.IsObject() ? value.MemberCount() : value.Size();
}

bool JSON::hasMember(std::string_view key) const { return getMember(key).exists(); }

const void* JSON::find(std::string_view key) const noexcept {
    const Value& object = Access::value(*this);
    if (!object.IsObject()) {
        return nullptr;
    }
    for (const auto& member : object.GetObject()) {
        if (key == Access::text(member.name)) {
            return &member.value;
        }
    }
    return nullptr;
}

JSON JSON::getElement(std::uint32_t index) const { return {&Access::value(*this)[index], exceptionFactory_}; }

std::optional<std::map<std::string_view, std::string_view>> JSON::getStringMap() const {
    std::map<std::string_view, std::string_view> strings;
    for (const auto& member : Access::value(*this).GetObject()) {
        const JSON value(&member.value, exceptionFactory_);
        if (!member.name.IsString()) {
            value.report(Rule::WrongType, "Expected a map with string keys and values, but key was not a string.");
            return std::nullopt;
        }
        if (!member.value.IsString()) {
            value.report(Rule::WrongType, "Expected a map with string keys and values, but value was not a string.");
            return std::nullopt;
        }
        const std::string_view key = Access::text(member.name);
        strings[key.substr(0, key.find('\0'))] = Access::text(member.value);
    }
    return strings;
}

void JSON::fail(const std::string& message) const {
    std::rethrow_exception(exceptionFactory_->createException(message));
}

void JSON::report(Rule rule, const std::string& message) const {
    if (observer() == nullptr) {
        fail(message);
    }
    observer()->fault(rule, *this, message);
}

void JSON::walk(const std::function<void(const Node&)>& visit) const { Access::walk(Access::value(*this), {}, visit); }

} // namespace Parameters
