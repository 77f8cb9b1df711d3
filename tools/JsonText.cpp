#include "JsonText.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <cstddef>
#include <utility>

namespace Tool {

namespace {

/// Follows the depth, and the names of members. Results may be set by derived handlers, which stop the parser by false.
template <class Derived> class FrameHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Derived> {
public:
    bool Key(const char* text, rapidjson::SizeType size, bool /*copy*/) {
        key_.assign(text, size);
        if (depth_ == 1) {
            section_ = key_;
        }
        return static_cast<Derived*>(this)->key();
    }
    bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
        const std::string_view whole(text, size);
        // As in the library, a string ends at its first NUL.
        return static_cast<Derived*>(this)->string(whole.substr(0, whole.find('\0')));
    }
    bool StartObject() { return enter(); }
    bool EndObject(rapidjson::SizeType /*size*/) { return leave(); }
    bool StartArray() { return enter(); }
    bool EndArray(rapidjson::SizeType /*size*/) { return leave(); }

    // What most do with a key, a string, or the end of an object or array.
    bool key() { return true; }
    bool string(std::string_view /*text*/) { return true; }
    bool end() { return true; }

protected:
    /// Of the members and elements that are being read: 1 in the document itself.
    [[nodiscard]] std::size_t depth() const { return depth_; }
    /// The name of the last member.
    [[nodiscard]] const std::string& lastKey() const { return key_; }
    /// That of the last member of the document itself.
    [[nodiscard]] const std::string& section() const { return section_; }

private:
    bool enter() {
        ++depth_;
        key_.clear();
        return true;
    }
    bool leave() {
        const bool goesOn = static_cast<Derived*>(this)->end();
        --depth_;
        return goesOn;
    }

    std::size_t depth_ = 0;
    std::string key_;
    std::string section_;
};

struct TypeIdHandler : FrameHandler<TypeIdHandler> {
    bool string(std::string_view text) {
        const bool isTypeId = depth() == 1 && lastKey() == "typeid";
        if (isTypeId) {
            typeId = text;
        }
        return !isTypeId;
    }

    std::string typeId;
};

constexpr std::string_view specificationKey = "schemaSpecification";

struct SpecificationHandler : FrameHandler<SpecificationHandler> {
    bool key() {
        isThere = depth() == 1 && lastKey() == specificationKey;
        return !isThere;
    }

    bool isThere = false;
};

struct NameHandler : FrameHandler<NameHandler> {
    bool string(std::string_view text) {
        if (section() == "constants" && depth() == depthOfConstants) {
            isName = lastKey() == "id" ? text == "name" : isName;
            if (lastKey() == "value") {
                value = text;
            }
        }
        return true;
    }
    bool end() {
        // The members of a constant come in any order.
        if (section() == "constants" && depth() == depthOfConstants) {
            if (isName) {
                name = value;
                return false;
            }
            value.clear();
        }
        return true;
    }

    /// Of their members.
    static constexpr std::size_t depthOfConstants = 3;

    bool isName = false;
    std::string value;
    std::string name;
};

/// The parser does not recurse, so that texts may nest as they like.
template <class Handler> bool parse(std::string_view text, Handler& handler) {
    rapidjson::MemoryStream stream(text.data(), text.size());
    return !rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag>(stream, handler).IsError();
}

} // namespace

bool isCompleteJson(std::string_view text) {
    rapidjson::BaseReaderHandler<> ignoring;
    return parse(text, ignoring);
}

std::string typeIdOf(std::string_view text) {
    TypeIdHandler handler;
    parse(text, handler);
    return std::move(handler.typeId);
}

std::string nameOf(std::string_view text) {
    NameHandler handler;
    parse(text, handler);
    return std::move(handler.name);
}

bool hasSpecification(std::string_view text) {
    // Most documents that do not name it do not contain it either, however it may be written.
    if (text.find(specificationKey) == std::string_view::npos && text.find('\\') == std::string_view::npos) {
        return false;
    }
    SpecificationHandler handler;
    parse(text, handler);
    return handler.isThere;
}

} // namespace Tool
