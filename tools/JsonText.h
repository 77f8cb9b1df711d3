#pragma once

#include <string>
#include <string_view>

namespace Tool {

/// Whether the text is JSON as a whole.
bool isCompleteJson(std::string_view text);

/// What the frame of a document says.
struct DocumentFrame {
    /// Empty if there is none.
    std::string typeId;
    /// The value of the constant that holds the name; empty if there is none.
    std::string name;
    /// Whether it names the specification that it follows.
    bool hasSpecification = false;
};

/// Reads a document that the library has taken.
DocumentFrame readFrame(std::string_view text);

/// The same, of the typeid alone, which takes no longer than to get there.
std::string typeIdOf(std::string_view text);

} // namespace Tool
