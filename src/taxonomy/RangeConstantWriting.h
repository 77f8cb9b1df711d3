#pragma once

#include "schema/SchemaDocumentWriting.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>

#include <string_view>

namespace Parameters {

/// The "range" constant of a parameter's document, with an inline value, which fillValue writes, if it is inline. For
/// older versions a static base of a later major version is named by its first; a range of another typeid keeps it.
template <class Fill>
void createRangeConstant(JSON::Writer& target, const RangeBaseSchemas& bases, std::string_view typeId, bool isInline,
                         DataModelVersion version, const Fill& fillValue) {
    const bool laterBase = beginsWithPrefix(typeId, bases.prefix) && !beginsWithPrefix(typeId, bases.majorPrefix);
    createMember(target, "range", [&] {
        target.addObject(Frame::typedValue, [&] {
            addTypeId(target, version != DataModelVersion::V3 && laterBase ? bases.shortFrame : typeId);
            if (isInline) {
                target.addObject(Frame::value, fillValue);
            }
        });
    });
}

} // namespace Parameters
