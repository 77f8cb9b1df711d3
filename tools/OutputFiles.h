#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Tool {

struct OutputFile {
    std::filesystem::path path;
    std::string text;
};

/// Writes whole files, and creates their folders if needed. A reader, a full disk or a signal meets either the former
/// file or the new one. A link is replaced, not followed; a file that has the text already is left alone.
///
/// @param overwrite  whether files with other texts are replaced; otherwise nothing is written if there are any
/// @throws std::runtime_error  a file is in the way, or cannot be written.
void writeFiles(const std::vector<OutputFile>& files, bool overwrite);

} // namespace Tool
