#include "DocumentJson.h"

#include <algorithm>

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
        } else if (depth_ == 3 && key_ == "constants" && constantKey_ == "id") {
            isName_ = text == "name";
        } else if (depth_ == 3 && key_ == "constants" && constantKey_ == "value") {
            value_ = text;
        }
        return true;
    }

    bool key(string_t& text) override {
        if (depth_ == 1) {
            key_ = text;
        } else if (depth_ == 3) {
            constantKey_ = text;
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
        // Of a constant, whose members come in any order.
        if (depth_ == 3 && key_ == "constants") {
            if (isName_) {
                frame_.name = value_;
            }
            isName_ = false;
            value_.clear();
        }
        --depth_;
        return true;
    }

    DocumentFrame& frame_;
    std::size_t depth_ = 0;
    /// Of the current member of the document.
    std::string key_;
    std::string constantKey_;
    bool isName_ = false;
    std::string value_;
};

constexpr std::string_view blanks = " \t\r\n";

/// @return the position behind a string that begins at a quotation mark.
std::size_t endOfString(std::string_view json, std::size_t begin) {
    std::size_t position = begin + 1;
    while (position < json.size() && json[position] != '"') {
        position += json[position] == '\\' ? 2 : 1;
    }
    return std::min(position + 1, json.size());
}

} // namespace

Json parseDocument(const std::string& text) { return Json::parse(text, nullptr, false); }

std::string textAt(const Json& object, const char* key) {
    if (object.is_object()) {
        const auto member = object.find(key);
        if (member != object.end() && member->is_string()) {
            return member->get<std::string>();
        }
    }
    return {};
}

DocumentFrame readFrame(const std::string& text) {
    DocumentFrame frame;
    FrameReader reader(frame);
    frame.isJson = Json::sax_parse(text, &reader);
    return frame;
}

std::string prettyPrinted(std::string_view text) {
    std::string result;
    std::size_t depth = 0;
    const auto breakLine = [&] { result.append("\n").append(2 * depth, ' '); };
    for (std::size_t position = 0; position < text.size(); ++position) {
        const char character = text[position];
        if (character == '"') {
            const std::size_t end = endOfString(text, position);
            result += text.substr(position, end - position);
            position = end - 1;
        } else if (character == '{' || character == '[') {
            result += character;
            ++depth;
            const std::size_t next = text.find_first_not_of(blanks, position + 1);
            // An empty object or array stays on its line.
            if (next != std::string_view::npos && text[next] != '}' && text[next] != ']') {
                breakLine();
            }
        } else if (character == '}' || character == ']') {
            --depth;
            if (result.back() != '{' && result.back() != '[') {
                breakLine();
            }
            result += character;
        } else if (character == ',') {
            result += character;
            breakLine();
        } else if (character == ':') {
            result += ": ";
        } else if (blanks.find(character) == std::string_view::npos) {
            result += character;
        }
    }
    return result;
}

} // namespace Tool
