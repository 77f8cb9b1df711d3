#include "Differences.h"

#include "Catalog.h"
#include "DocumentJson.h"

#include <Parameters/Defaults.h>

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace Tool {

namespace {

constexpr std::string_view typeIdKey = "typeid";

bool isPrimitiveTypeName(const std::string& text) {
    const std::array names = {Parameters::Defaults::BooleanPrimitiveType(),
                              Parameters::Defaults::IntegerPrimitiveType(), Parameters::Defaults::FloatPrimitiveType(),
                              Parameters::Defaults::ReferencePrimitiveType(),
                              Parameters::Defaults::StringPrimitiveType()};
    return std::find(names.begin(), names.end(), text) != names.end();
}

std::string_view familyOf(std::string_view typeId) { return typeId.substr(0, typeId.rfind('-')); }

/// Whether texts name versions of one base that each data model has in its own.
bool areVersionsOfOneBase(const Json& left, const Json& right) {
    if (!left.is_string() || !right.is_string()) {
        return false;
    }
    const auto& leftText = left.get_ref<const std::string&>();
    const auto& rightText = right.get_ref<const std::string&>();
    return familyOf(leftText) == familyOf(rightText) && isBuiltIn(leftText) && isBuiltIn(rightText);
}

void collectTypeIds(const Json& json, std::set<std::string>& typeIds) {
    if (json.is_object() && json.contains(typeIdKey) && json.at(typeIdKey).is_string()) {
        typeIds.insert(json.at(typeIdKey).get<std::string>());
    }
    if (json.is_structured()) {
        for (const Json& element : json) {
            collectTypeIds(element, typeIds);
        }
    }
}

class Comparison {
public:
    explicit Comparison(const Json& written) : written_(written) {
        for (const auto& [section, id] : {std::pair{"constants", "spec"}, {"properties", "data"}}) {
            for (const auto& [memberId, member] : writtenMembers(section)) {
                if (memberId == id) {
                    collectTypeIds(*member, specTypeIds_);
                }
            }
        }
    }

    std::vector<std::string> run(const Json& registered) {
        for (const auto& [key, value] : registered.items()) {
            if (key == "constants") {
                compareMembers("constant", value, key);
            } else if (key == "properties" || key == "enum") {
                // The choices of an enumeration are properties in the older frame.
                compareMembers("property", value, "properties");
            } else if (!belongsToFrame(key, value)) {
                compareAt(key, value, written_, key);
            }
        }
        return std::move(losses_);
    }

private:
    static bool belongsToFrame(std::string_view key, const Json& value) {
        return key == "schemaSpecification" || key == "inherits" || key == "schemaType" ||
               (key == "sealed" && value == true);
    }

    void compareMembers(std::string_view noun, const Json& members, const std::string& writtenKey) {
        std::map<std::string, const Json*> counterparts = writtenMembers(writtenKey);
        for (const Json& member : members) {
            const std::string id = textAt(member, "id");
            const std::string label = fmt::format("{} {}", noun, Json(id).dump());
            // Taken out, so that a second member of the same name counts as gone.
            if (const auto counterpart = counterparts.extract(id)) {
                compareAttributes(label, member, *counterpart.mapped());
            } else if (isHeldElsewhere(noun, id, member)) {
                addGoneAttributes(label, member);
            } else {
                addGone(label, member);
            }
        }
    }

    /// By id; the first of several of one id.
    [[nodiscard]] std::map<std::string, const Json*> writtenMembers(const std::string& key) const {
        std::map<std::string, const Json*> result;
        const auto members = written_.find(key);
        if (members != written_.end()) {
            for (const Json& member : *members) {
                result.emplace(textAt(member, "id"), &member);
            }
        }
        return result;
    }

    /// Whether what a member refers to stands in another member, or is implied by the base or by its absence.
    [[nodiscard]] bool isHeldElsewhere(std::string_view noun, std::string_view id, const Json& member) const {
        const auto typedValue = member.find("typedValue");
        const bool isConstant = noun == "constant";
        if (isConstant && (typedValue == member.end() || typedValue->size() != 1)) {
            return false;
        }
        const std::string typeId = textAt(isConstant ? *typedValue : member, typeIdKey.data());
        if (isConstant ? id == "spec" || id == "category" : id == "data") {
            return isBuiltIn(typeId) || specTypeIds_.count(typeId) != 0;
        }
        return isConstant ? (id == "group" || id == "discipline" || id == "range") && isBuiltIn(typeId)
                          : id == "value" && isPrimitiveTypeName(typeId);
    }

    /// Of a member whose reference is held elsewhere.
    void addGoneAttributes(const std::string& label, const Json& member) {
        for (const auto& [key, value] : member.items()) {
            if (key != "id" && key != "typedValue" && key != typeIdKey) {
                addGone(fmt::format("{} {}", label, key), value);
            }
        }
    }

    void compareAttributes(const std::string& label, const Json& registered, const Json& written) {
        for (const auto& [key, value] : registered.items()) {
            const bool isTypeName =
                key == typeIdKey && value.is_string() && isPrimitiveTypeName(value.get_ref<const std::string&>());
            if (!isTypeName) {
                compareAt(fmt::format("{} {}", label, key), value, written, key);
            }
        }
    }

    void compareAt(const std::string& label, const Json& registered, const Json& parent, const std::string& key) {
        const auto written = parent.find(key);
        if (written == parent.end()) {
            addGone(label, registered);
        } else {
            compare(label, registered, *written);
        }
    }

    void compare(const std::string& label, const Json& registered, const Json& written) {
        if (registered.is_object() && written.is_object()) {
            for (const auto& [key, value] : registered.items()) {
                compareAt(fmt::format("{}.{}", label, key), value, written, key);
            }
        } else if (registered != written && !areVersionsOfOneBase(registered, written)) {
            losses_.push_back(fmt::format("changed: {}: {} is now {}", label, registered.dump(), written.dump()));
        }
    }

    void addGone(const std::string& label, const Json& json) {
        losses_.push_back(fmt::format("gone:    {}: {}", label, json.dump()));
    }

    const Json& written_;
    /// What the member that names the spec of a parameter refers to: the older form puts the category there, too.
    std::set<std::string> specTypeIds_;
    std::vector<std::string> losses_;
};

} // namespace

std::vector<std::string> lossesOf(const std::string& registered, const std::string& written) {
    const Json writtenDocument = parseDocument(written);
    return Comparison(writtenDocument).run(parseDocument(registered));
}

} // namespace Tool
