#pragma once

#include <string>

/// Texts of small schema documents. Names and typeids are put in as they are, without JSON escapes.
namespace Documents {

/// A document without "schemaSpecification".
inline std::string shortForm(const std::string& typeId, const std::string& base, const std::string& constants) {
    return R"({"typeid":")" + typeId + R"(","inherits":[")" + base + R"("],"constants":[)" + constants + "]}";
}

/// A document with "schemaSpecification".
inline std::string fullForm(const std::string& typeId, const std::string& base, const std::string& constants) {
    return R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":")" + typeId +
           R"(","inherits":[")" + base + R"("],"sealed":true,"constants":[)" + constants + "]}";
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
