#include "engine/Retrieval.h"

#include "base/UnitsErrors.h"
#include "engine/Prefetch.h"
#include "schema/Frame.h"
#include "schema/SchemaDocumentWriting.h"

#include <algorithm>
#include <utility>

namespace Parameters {

namespace {

/// Writes an object for a version in which it can be represented, marked if that is older than its own.
template <class Kind>
std::string writtenText(const typename Kind::Object& object, const Conversion& conversion, DataModelVersion version) {
    if (version > conversion.representable.highest) {
        throw NotRepresentable{"Documents are not rewritten for newer data models than their own."};
    }
    if (version < conversion.representable.lowest) {
        throw NotRepresentable{conversion.obstacle};
    }
    JSON::Writer document = JSON::Writer::createDocument();
    if (version < conversion.natural.lowest) {
        document.addMember(Frame::downgradedFrom, dataModelOf(conversion.natural.lowest).text);
    }
    Kind::write(object, document, version);
    return document.toString();
}

/// Writes an object for its own version.
template <class Kind> std::string naturalText(const typename Kind::Object& object) {
    const Conversion conversion = Kind::conversionOf(object);
    return writtenText<Kind>(object, conversion, conversion.natural.highest);
}

/// The one algorithm behind the texts of all kinds.
template <class Kind>
std::string compatibleText(const typename Kind::Object& object, std::string_view registeredText,
                           DataModelVersion version) {
    prefetchForWriting(object);
    const Conversion conversion = Kind::conversionOf(object);
    if (!registeredText.empty() && conversion.representable.contains(version) && conversion.natural.contains(version)) {
        return std::string(registeredText);
    }
    prefetchReferredTypeIds(object);
    return writtenText<Kind>(object, conversion, version);
}

/// Runs a retrieval. What hosts are told of an object without a text does not say why.
template <class Retrieval> std::string retrieved(const Retrieval& retrieval) {
    try {
        return retrieval();
    } catch (const NotRepresentable& /*refusal*/) {
        throw ValidationException("Cannot represent schema in requested format.");
    }
}

} // namespace

std::string textIn(const EngineImpl& engine, DataModelVersion version, const std::string& typeId) {
    if (const ItemLocation* location = engine.primary.findFinished(typeId)) {
        prefetchData(*location);
        std::string text;
        engine.primary.visitAt(*location, [&](auto kind, const auto& item) {
            text = compatibleText<decltype(kind)>(item.object, item.text, version);
        });
        return text;
    }
    return withUnitsValidation([&] {
        return askUnits(typeId, [&] { return engine.units.getSchemaInFormat(typeId, dataModelOf(version).format); });
    });
}

std::string ParametersEngine::getSchema(const Parameter& parameter) const {
    return retrieved([&] { return naturalText<ParameterKind>(impl_->validatedNew<ParameterKind>(parameter)); });
}

std::string ParametersEngine::getSchemaInCompatibleFormat(DataModelVersion version, const Parameter& parameter) const {
    return retrieved(
        [&] { return compatibleText<ParameterKind>(impl_->validatedNew<ParameterKind>(parameter), {}, version); });
}

std::string ParametersEngine::getSchema(const std::string& typeId) const {
    return retrieved([&] {
        std::string text;
        const bool found = impl_->primary.visitFinished(typeId, [&](auto kind, const auto& item) {
            text = item.text.empty() ? naturalText<decltype(kind)>(item.object) : std::string(item.text);
        });
        return found ? std::move(text) : askUnits(typeId, [&] { return impl_->units.getSchema(typeId); });
    });
}

std::string ParametersEngine::getSchemaInCompatibleFormat(DataModelVersion version, const std::string& typeId) const {
    return retrieved([&] { return textIn(*impl_, version, typeId); });
}

std::pair<DataModelVersion, DataModelVersion>
ParametersEngine::getCompatibleDataModelRange(const std::string& typeId) const {
    std::pair<DataModelVersion, DataModelVersion> range;
    const bool found = impl_->primary.visitFinished(typeId, [&](auto kind, const auto& item) {
        const VersionRange versions = decltype(kind)::conversionOf(item.object).representable;
        range = {versions.lowest, versions.highest};
    });
    if (found) {
        return range;
    }
    const auto [lowest, highest] =
        askUnits(typeId, [&] { return impl_->units.getCompatibleSchemaFormatRange(typeId); });
    // Formats are ordered, and a units library may know later ones.
    const auto lowestKnown = std::min(lowest, Units::SchemaFormat::LumarDataSchema);
    return {versionsOf(lowestKnown).lowest, versionsOf(highest).highest};
}

} // namespace Parameters
