#include "taxonomy/RangeConstantWriting.h"

#include "schema/Frame.h"
#include "schema/SchemaDocumentWriting.h"

namespace Parameters {

JSON createRangeConstant(const JSON& document, const RangeBaseSchemas& bases, std::string_view typeId,
                         std::optional<JSON> inlineValue, DataModelVersion version) {
    const bool laterBase = beginsWithPrefix(typeId, bases.prefix) && !beginsWithPrefix(typeId, bases.majorPrefix);
    JSON typedValue = JSON::createObject();
    addString(typedValue, document, Frame::typeId,
              version != DataModelVersion::V3 && laterBase ? bases.shortFrame : typeId);
    if (inlineValue) {
        typedValue.addMember(document, Frame::value, *inlineValue);
    }
    JSON member = createMember(document, "range");
    member.addMember(document, Frame::typedValue, typedValue);
    return member;
}

} // namespace Parameters
