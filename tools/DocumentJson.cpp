#include "DocumentJson.h"

namespace Tool {

namespace {

/// Keeps what belongs to the frame.
class FrameReader final : public nlohmann::json_sax<Json> {
public:
    explicit FrameReader(DocumentFrame& frame) : frame_(frame) {}

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }

    bool string(string_t& text) override {
        if (depth_ == 1 && key_ == "typeid") {
            frame_.typeId = text;
        } else if (depth_ == 1 && (key_ == "schemaSpecification" || key_ == "schemaType")) {
            frame_.base[key_] = text;
        } else if (depth_ == 2 && key_ == "inherits") {
            frame_.base[key_].push_back(text);
        }
        return true;
    }

    bool key(string_t& text) override {
        if (depth_ == 1) {
            key_ = text;
        }
        return true;
    }

    bool start_object(std::size_t) override { return enter(); }
    bool end_object() override { return leave(); }
    bool start_array(std::size_t) override { return enter(); }
    bool end_array() override { return leave(); }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) override { return false; }

private:
    bool enter() {
        ++depth_;
        return true;
    }

    bool leave() {
        --depth_;
        return true;
    }

    DocumentFrame& frame_;
    std::size_t depth_ = 0;
    /// Of the current member of the document.
    std::string key_;
};

} // namespace

Json parseDocument(const std::string& text) { return Json::parse(text, nullptr, false); }

DocumentFrame readFrame(const std::string& text) {
    DocumentFrame frame;
    FrameReader reader(frame);
    frame.isJson = Json::sax_parse(text, &reader);
    return frame;
}

std::string textAt(const Json& object, const char* key) {
    if (object.is_object()) {
        const auto member = object.find(key);
        if (member != object.end() && member->is_string()) {
            return member->get<std::string>();
        }
    }
    return {};
}

std::string textConstant(const Json& document, const char* id) {
    const auto constants = document.find("constants");
    if (constants != document.end() && constants->is_array()) {
        for (const Json& constant : *constants) {
            if (textAt(constant, "id") == id) {
                return textAt(constant, "value");
            }
        }
    }
    return {};
}

std::string prettyPrinted(const std::string& text) { return parseDocument(text).dump(2); }

} // namespace Tool
