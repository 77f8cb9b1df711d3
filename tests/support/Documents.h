#pragma once

#include <cstddef>
#include <string>

/// Texts of small schema documents. Names and typeids are put in as they are, without JSON escapes.
namespace Documents {

inline std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

inline std::string sections(const std::string& constants, const std::string& properties) {
    return R"("constants":[)" + constants + (properties.empty() ? "]}" : R"(],"properties":[)" + properties + "]}");
}

/// A document without "schemaSpecification".
inline std::string shortForm(const std::string& typeId, const std::string& base, const std::string& constants,
                             const std::string& properties = "") {
    return R"({"typeid":")" + typeId + R"(","inherits":[")" + base + R"("],)" + sections(constants, properties);
}

/// A document with "schemaSpecification".
inline std::string fullForm(const std::string& typeId, const std::string& base, const std::string& constants,
                            const std::string& properties = "") {
    return R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":")" + typeId +
           R"(","inherits":[")" + base + R"("],"sealed":true,)" + sections(constants, properties);
}

/// A constant whose value is a JSON text.
inline std::string constant(const std::string& id, const std::string& value) {
    return R"({"id":")" + id + R"(","value":)" + value + "}";
}

/// A constant that refers to a schema.
inline std::string reference(const std::string& id, const std::string& typeId) {
    return R"({"id":")" + id + R"(","typedValue":{"typeid":")" + typeId + R"("}})";
}

inline std::string nameConstant(const std::string& name) { return R"({"id":"name","value":")" + name + R"("})"; }

inline std::string discipline(const std::string& typeId, const std::string& name) {
    return shortForm(typeId, "quovanta.spec:discipline-1.0.0", nameConstant(name));
}

inline std::string domain(const std::string& typeId, const std::string& name) {
    return shortForm(typeId, "quovanta.talmo.category:domain-1.0.0", nameConstant(name));
}

inline std::string group(const std::string& typeId, const std::string& name) {
    return shortForm(typeId, "quovanta.parameter:group-1.0.0", nameConstant(name));
}

inline std::string dimension(const std::string& typeId, const std::string& name) {
    return shortForm(typeId, "quovanta.unit:dimension-1.0.0", nameConstant(name));
}

inline std::string unit(const std::string& typeId, const std::string& name, const std::string& dimensionTypeId) {
    return shortForm(typeId, "quovanta.unit:unit-1.0.0",
                     nameConstant(name) + R"(,{"id":"dimension","typedValue":{"typeid":")" + dimensionTypeId +
                         R"("}})");
}

} // namespace Documents
