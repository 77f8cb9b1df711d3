#include "DocumentJson.h"

namespace Tool {

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
