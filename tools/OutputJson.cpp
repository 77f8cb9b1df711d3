#include "OutputJson.h"

#include "Text.h"

namespace Tool {

std::string dumped(const OutputJson& json) {
    return printableJson(json.dump(2, ' ', false, OutputJson::error_handler_t::replace));
}

} // namespace Tool
