#include "Sections.h"

#include "Words.h"

#include <iostream>
#include <stdexcept>

namespace Demo {

using namespace Parameters;

namespace {

/// Shows the message of the exception that a call must throw.
template <class Exception, class Call> void showRefusal(const char* what, Call call) {
    try {
        call();
    } catch (const Exception& exception) {
        std::cout << "  " << what << "\n    " << exception.what() << '\n';
        return;
    }
    throw std::runtime_error(std::string("The engine has nothing against this: ") + what);
}

constexpr const char* namelessText = R"({
  "typeid": "acme.building:parameter.nameless-1.0.0",
  "inherits": ["quovanta.parameter:parameter.bool-2.0.0"],
  "constants": [{"id": "description", "value": "Has no name."}]
})";

constexpr const char* danglingText = R"({
  "typeid": "acme.building:parameter.dangling-1.0.0",
  "inherits": ["quovanta.parameter:parameter-2.0.0"],
  "constants": [{"id": "name", "value": "Dangling"}],
  "properties": [{"id": "data", "typeid": "acme.building:spec.missing-1.0.0"}]
})";

} // namespace

void showRefusals(const ParametersEngine& engine) {
    printHeading("What the engine refuses");
    // A copy, because a resolution that fails drops what is pending.
    ParametersEngine trial = engine;
    const std::string registered = engine.getAllParameters().begin()->first;

    showRefusal<ValidationException>("A document that breaks off",
                                     [&] { trial.registerSchema(std::string(namelessText).substr(0, 60)); });
    showRefusal<ValidationException>("A parameter without a name", [&] { trial.registerSchema(namelessText); });
    showRefusal<ValidationException>("A document that has been registered before",
                                     [&] { trial.registerSchema(trial.getSchema(registered)); });
    showRefusal<ValidationException>("A reference to nothing, when it is resolved", [&] {
        trial.registerSchema(danglingText);
        trial.resolveSchemas();
    });
    showRefusal<ValidationException>("A text for a data model without maps", [&] {
        static_cast<void>(
            trial.getSchemaInCompatibleFormat(DataModelVersion::V2, "acme.building:spec.attachments-1.0.0"));
    });
    showRefusal<UnrecognizedIdentifierException>(
        "A query for what is not there", [&] { static_cast<void>(trial.getSpec("acme.building:spec.missing-1.0.0")); });

    if (numberOf(itemsByKind(trial)) != numberOf(itemsByKind(engine))) {
        throw std::runtime_error("What was refused has left something behind.");
    }
    std::cout << "\nThe engine holds what it held before.\n";
}

} // namespace Demo
