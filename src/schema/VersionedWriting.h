#pragma once

#include "schema/DataModels.h"
#include "schema/SchemaDocumentWriting.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>
#include <Units/SchemaFormat.h>

#include <string_view>

namespace Parameters {

/// Writes the frame for a format and a version, with the base schema that goes with it, and returns whether it is the
/// full one.
inline bool addVersionedFrame(JSON::Writer& target, std::string_view typeId, const BaseSchemas& bases,
                              Units::SchemaFormat format, DataModelVersion version) {
    if (usesFullFrame(format, version)) {
        addFullFrame(target, typeId, bases.fullFrame);
        return true;
    }
    addShortFrame(target, typeId, bases.shortFrame);
    return false;
}

/// The "range" constant of a parameter's document, with an inline value, which fillValue writes, if it is inline. For
/// older versions a static base of a later major version is named by its first; a range of another typeid keeps it.
template <class Fill>
void createRangeConstant(JSON::Writer& target, const RangeBaseSchemas& bases, std::string_view typeId, bool isInline,
                         DataModelVersion version, const Fill& fillValue) {
    const bool isOlder = dataModelOf(version).format != Units::SchemaFormat::LumarDataSchema;
    const bool isLaterBase = beginsWithPrefix(typeId, bases.prefix) && !beginsWithPrefix(typeId, bases.majorPrefix);
    createMember(target, "range", [&] {
        target.addObject(Frame::typedValue, [&] {
            addTypeId(target, isOlder && isLaterBase ? bases.shortFrame : typeId);
            if (isInline) {
                target.addObject(Frame::value, fillValue);
            }
        });
    });
}

} // namespace Parameters
