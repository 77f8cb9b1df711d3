#include <Parameters/ParametersEngine.h>

#include <iostream>
#include <string>

int main() {
    Parameters::ParametersEngine engine;
    engine.registerSchema(R"({
  "typeid": "acme.building:group.airflow-1.0.0",
  "inherits": ["quovanta.parameter:group-1.0.0"],
  "constants": [{"id": "name", "value": "Air flow"}]
})");
    engine.registerSchema(R"({
  "schemaSpecification": "lumar-data-schema-2.0.0",
  "typeid": "acme.building:discipline.hvac-1.0.0",
  "inherits": ["quovanta.spec:discipline-2.0.0"],
  "constants": [{"id": "name", "value": "Heating and ventilation"}]
})");
    engine.resolveSchemas();

    for (const auto& [typeId, group] : engine.getAllGroups()) {
        std::cout << typeId << " is the group \"" << group.getName() << "\".\n";
    }
    const std::string hvac = "acme.building:discipline.hvac-1.0.0";
    std::cout << hvac << " is the discipline \"" << engine.getDiscipline(hvac).getName() << "\".\n"
              << "Its text:\n"
              << engine.getSchema(hvac) << '\n'
              << "Its text for readers of data model 2.0.0:\n"
              << engine.getSchemaInCompatibleFormat(Parameters::DataModelVersion::V2, hvac) << '\n';
}
