#include <Units/UnitsEngine.h>

#include "base/Text.h"
#include "base/TypeIdMap.h"
#include "schema/Frame.h"
#include "schema/SchemaDocument.h"
#include "schema/SchemaDocumentWriting.h"
#include "schema/Vocabulary.h"

#include <Units/Exceptions.h>

#include <string_view>
#include <utility>

namespace Units {

enum class Kind { Dimension, Unit };

/// What a document says, beside its typeid.
struct Item {
    Kind kind;
    SchemaFormat format;
    std::string baseSchema;
    std::string name;
    /// Only ever set in a unit.
    std::optional<std::string> dimension;
    std::string text;
};

namespace {

// For the frame of schema documents, which is compiled into this library as well.
using namespace Parameters;

constexpr std::string_view dimensionPrefix = "quovanta.unit:dimension-";
constexpr std::string_view unitPrefix = "quovanta.unit:unit-";
constexpr std::string_view firstDimensionPrefix = "quovanta.unit:dimension-1.";
constexpr std::string_view firstUnitPrefix = "quovanta.unit:unit-1.";

constexpr std::string_view dimensionConstant = "dimension";

class ValidationExceptionFactory final : public ExceptionFactory {
public:
    [[nodiscard]] std::exception_ptr createException(const std::string& message) const override {
        return std::make_exception_ptr(ValidationException(message));
    }
};

Kind kindOf(const SchemaDocument& document) {
    if (document.isOfFamily(dimensionPrefix)) {
        return Kind::Dimension;
    }
    if (document.isOfFamily(unitPrefix)) {
        return Kind::Unit;
    }
    document.fail(concat({"Schema ", document.typeId, " does not represent a unit or a dimension."}));
}

Item readItem(const SchemaDocument& document, const std::string& text) {
    const Kind kind = kindOf(document);
    Item item{kind, document.schemaFormat, std::string(document.baseSchema), {}, {}, text};
    item.name = readStringConstant(document, Frame::name);
    if (kind == Kind::Unit) {
        readMembers(document.constants,
                    MemberHandler{dimensionConstant, [&](const JSON& json) { item.dimension = readTypedValue(json); }});
    }
    return item;
}

/// The document of an item for readers that don't know "schemaSpecification".
std::string writeDowngraded(const std::string& typeId, const Item& item) {
    JSON::Writer target = JSON::Writer::createDocument();
    constexpr std::size_t newest = Frame::newestOfFormat(SchemaFormat::LumarDataSchema);
    target.addMember(Frame::downgradedFrom, Frame::dataModels[newest].text);
    addShortFrame(target, typeId, item.baseSchema);
    addConstants(target, [&] {
        createNameMember(target, item.name, false);
        if (item.dimension) {
            createTypedValueMember(target, dimensionConstant, *item.dimension);
        }
    });
    return target.toString();
}

/// Lowest and highest format. Only the first versions of the base schemas are known to older readers.
std::pair<SchemaFormat, SchemaFormat> formatRange(const Item& item) {
    const bool isOld = item.format == SchemaFormat::PropertySets ||
                       containsPrefix(item.baseSchema, firstDimensionPrefix) ||
                       containsPrefix(item.baseSchema, firstUnitPrefix);
    return {isOld ? SchemaFormat::PropertySets : SchemaFormat::LumarDataSchema, item.format};
}

void addIfUnit(std::map<std::string, Unit>& units, const std::string& typeId, const Item& item) {
    if (item.kind == Kind::Unit) {
        // Nearly all come in ascending order.
        units.emplace_hint(units.end(), typeId, Unit(typeId, item.name, item.dimension));
    }
}

[[noreturn]] void throwUnknown(const std::string& typeId) {
    throw UnrecognizedIdentifierException(concat({"Could not find any object with typeid ", typeId, "."}));
}

} // namespace

struct UnitsEngine::Impl {
    TypeIdMap<Item> pending;
    TypeIdMap<Item> finished;
    /// Those of the finished items that are units.
    std::map<std::string, Unit> units;

    [[nodiscard]] const Item* find(const TypeIdKey& key) const noexcept {
        const Item* item = finished.find(key);
        return item != nullptr ? item : pending.find(key);
    }

    [[nodiscard]] bool isDimension(const std::string& typeId) const noexcept {
        const Item* item = find(typeId);
        return item != nullptr && item->kind == Kind::Dimension;
    }

    [[nodiscard]] const Item& getFinished(const std::string& typeId) const {
        const Item* item = finished.find(typeId);
        if (item == nullptr) {
            throwUnknown(typeId);
        }
        return *item;
    }

    /// What can fail comes first; the merge at the end only hands over a node.
    void insertFinished(const std::string& typeId, Item item) {
        std::map<std::string, Unit> added;
        addIfUnit(added, typeId, item);
        finished.insert(typeId, std::move(item));
        units.merge(added);
    }
};

UnitsEngine::UnitsEngine() : impl_(std::make_unique<Impl>()) {}

UnitsEngine::UnitsEngine(const UnitsEngine& other) : impl_(std::make_unique<Impl>(*other.impl_)) {}

UnitsEngine::UnitsEngine(UnitsEngine&& other) noexcept = default;

UnitsEngine& UnitsEngine::operator=(const UnitsEngine& other) {
    impl_ = std::make_unique<Impl>(*other.impl_);
    return *this;
}

UnitsEngine& UnitsEngine::operator=(UnitsEngine&& other) noexcept = default;

UnitsEngine::~UnitsEngine() = default;

std::set<std::string> UnitsEngine::registerSchema(const std::string& schemaText) {
    JSON::Scratch scratch;
    static const ValidationExceptionFactory exceptionFactory;
    const SchemaDocument document = readSchemaDocument(exceptionFactory, schemaText, &scratch);
    if (isRegistered(document.typeId)) {
        document.fail(concat({"Schema with typeid ", document.typeId, " is already registered."}));
    }
    Item item = readItem(document, schemaText);
    std::set<std::string> unknown;
    if (item.dimension && *item.dimension != document.typeId && !isRegistered(*item.dimension)) {
        unknown.insert(*item.dimension);
    }
    impl_->pending.insert(document.typeId, std::move(item));
    return unknown;
}

void UnitsEngine::resolveSchemas() {
    std::map<std::string, Unit> resolved;
    for (const auto* entry : impl_->pending.sorted()) {
        const Item& item = entry->value;
        if (item.dimension && !impl_->isDimension(*item.dimension)) {
            const ValidationException missing(
                concat({"Dependency ", *item.dimension, " in schema ", entry->typeId(),
                        " is missing or does not represent an object of the expected type."}));
            impl_->pending = {};
            throw missing;
        }
        addIfUnit(resolved, std::string(entry->typeId()), item);
    }
    impl_->finished.reserveFor(impl_->pending);
    // Nothing fails from here on.
    auto pending = std::exchange(impl_->pending, {});
    for (auto& entry : pending) {
        impl_->finished.insert(entry.typeId(), std::move(entry.value));
    }
    impl_->units.merge(resolved);
}

void UnitsEngine::copyItem(const std::string& typeId, const UnitsEngine& source) {
    if (isRegistered(typeId)) {
        return;
    }
    const Item* item = source.impl_->find(typeId);
    if (item == nullptr) {
        throwUnknown(typeId);
    }
    const auto& dimension = item->dimension;
    if (dimension && source.impl_->isDimension(*dimension)) {
        copyItem(*dimension, source);
    }
    if (source.impl_->pending.contains(typeId)) {
        impl_->pending.insert(typeId, *item);
    } else {
        impl_->insertFinished(typeId, *item);
    }
}

bool UnitsEngine::isRegistered(const std::string& typeId) const { return impl_->find(typeId) != nullptr; }

const std::map<std::string, Unit>& UnitsEngine::getAllUnits() const { return impl_->units; }

Unit UnitsEngine::getUnit(const std::string& typeId) const {
    const auto found = impl_->units.find(typeId);
    if (found == impl_->units.end()) {
        throwUnknown(typeId);
    }
    return found->second;
}

std::set<std::string> UnitsEngine::getDependencies(const std::string& typeId) const {
    const auto& dimension = impl_->getFinished(typeId).dimension;
    return dimension ? std::set<std::string>{*dimension} : std::set<std::string>{};
}

std::string UnitsEngine::getSchema(const std::string& typeId) const { return impl_->getFinished(typeId).text; }

std::pair<SchemaFormat, SchemaFormat> UnitsEngine::getCompatibleSchemaFormatRange(const std::string& typeId) const {
    return formatRange(impl_->getFinished(typeId));
}

std::string UnitsEngine::getSchemaInFormat(const std::string& typeId, SchemaFormat format) const {
    const Item& item = impl_->getFinished(typeId);
    const auto [lowest, highest] = formatRange(item);
    if (format < lowest || format > highest) {
        throw ValidationException("Cannot represent schema in requested format.");
    }
    return format == item.format ? item.text : writeDowngraded(typeId, item);
}

} // namespace Units
