#include "JsonText.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <cstddef>

namespace Tool {

namespace {

/// Keeps what belongs to the frame. As in the library, the first of several members of one name counts, and a string
/// ends at its first NUL.
class FrameHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, FrameHandler> {
public:
    FrameHandler(DocumentFrame& frame, bool stopsAtTypeId) : frame_(frame), stopsAtTypeId_(stopsAtTypeId) {}

    bool Key(const char* text, rapidjson::SizeType size, bool /*copy*/) {
        const std::string_view key(text, size);
        isTypeId_ = depth_ == 1 && !hasTypeId_ && key == "typeid";
        isInConstants_ = depth_ == 1 ? key == "constants" : isInConstants_;
        constantKey_ = depth_ == depthOfConstants ? key : std::string_view();
        frame_.hasSpecification = frame_.hasSpecification || (depth_ == 1 && key == "schemaSpecification");
        return true;
    }
    bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
        if (isTypeId_) {
            const std::string_view typeId(text, size);
            frame_.typeId = typeId.substr(0, typeId.find('\0'));
            hasTypeId_ = true;
            isTypeId_ = false;
            return !stopsAtTypeId_;
        }
        if (isInConstants_ && depth_ == depthOfConstants) {
            const std::string_view value(text, size);
            isName_ = constantKey_ == "id" ? value == "name" : isName_;
            if (constantKey_ == "value") {
                value_ = value;
            }
        }
        return true;
    }
    bool StartObject() { return enter(); }
    bool EndObject(rapidjson::SizeType /*size*/) { return leave(); }
    bool StartArray() { return enter(); }
    bool EndArray(rapidjson::SizeType /*size*/) { return leave(); }

private:
    bool enter() {
        ++depth_;
        isTypeId_ = false;
        return true;
    }
    bool leave() {
        if (isInConstants_ && depth_ == depthOfConstants) {
            // The members of a constant come in any order.
            if (isName_) {
                frame_.name = value_;
            }
            isName_ = false;
            value_.clear();
        }
        --depth_;
        return true;
    }

    /// Of their members.
    static constexpr std::size_t depthOfConstants = 3;

    DocumentFrame& frame_;
    bool stopsAtTypeId_;
    std::size_t depth_ = 0;
    /// Whether the next value is the typeid.
    bool isTypeId_ = false;
    bool hasTypeId_ = false;
    bool isInConstants_ = false;
    /// Of the member of a constant that is being read.
    std::string constantKey_;
    bool isName_ = false;
    std::string value_;
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

DocumentFrame readFrame(std::string_view text) {
    DocumentFrame frame;
    FrameHandler handler(frame, false);
    parse(text, handler);
    return frame;
}

std::string typeIdOf(std::string_view text) {
    DocumentFrame frame;
    FrameHandler handler(frame, true);
    parse(text, handler);
    return frame.typeId;
}

} // namespace Tool
