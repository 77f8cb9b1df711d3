#include "base/Internals.h"
#include "engine/Retrieval.h"
#include "schema/DataModels.h"

#include <Parameters/Diagnostics.h>

namespace Parameters {

std::string reasonNotRepresentable(const ParametersEngine& engine, DataModelVersion version,
                                   const std::string& typeId) {
    try {
        static_cast<void>(textIn(Internals::implOf(engine), version, typeId));
        return {};
    } catch (const NotRepresentable& refusal) {
        return std::string(refusal.reason);
    } catch (const ValidationException& /*refusal*/) {
        return "The units library has no such form of the document.";
    }
}

} // namespace Parameters
