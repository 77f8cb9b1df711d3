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

/// Whether both texts name a built-in base, in different versions.
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
                // The older frame lists the values of an enumeration as properties.
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
            // Extracted, so that a second member with the same id counts as removed.
            if (const auto counterpart = counterparts.extract(id)) {
                compareAttributes(label, member, *counterpart.mapped());
            } else if (isMovedOrImplied(noun, id, member)) {
                addRemovedAttributes(label, member);
            } else {
                addRemoved(label, member);
            }
        }
    }

    /// By id; of several with one id, the first.
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

    /// Whether the reference of a member moves to another member, or is implied by the base or by its absence.
    [[nodiscard]] bool isMovedOrImplied(std::string_view noun, std::string_view id, const Json& member) const {
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

    /// For a member whose reference moves or is implied.
    void addRemovedAttributes(const std::string& label, const Json& member) {
        for (const auto& [key, value] : member.items()) {
            if (key != "id" && key != "typedValue" && key != typeIdKey) {
                addRemoved(fmt::format("{} {}", label, key), value);
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
            addRemoved(label, registered);
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

    void addRemoved(const std::string& label, const Json& json) {
        losses_.push_back(fmt::format("removed: {}: {}", label, json.dump()));
    }

    const Json& written_;
    /// Referenced by the member that names the spec of a parameter, where the older form also puts the category.
    std::set<std::string> specTypeIds_;
    std::vector<std::string> losses_;
};

} // namespace

std::vector<std::string> lossesOf(const std::string& registered, const std::string& written) {
    const Json writtenDocument = parseDocument(written);
    return Comparison(writtenDocument).run(parseDocument(registered));
}

} // namespace Tool
