#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Tool {

/// Where a document was read from.
struct Origin {
    std::string file;
    /// Starts at 1; 0 if the document is the whole file.
    std::size_t line = 0;
};

/// FILE or FILE:LINE
std::string formatOrigin(const Origin& origin);

/// The text of a document, or the reason why it is not read as one.
struct DocumentText {
    Origin origin;
    std::string text;
    std::string error;
};

struct DocumentFiles {
    /// In the order of the paths, and by name within a folder.
    std::vector<DocumentText> documents;
    /// One message per path that could not be read.
    std::vector<std::string> unreadable;
};

/// Reads .json files (one document each), .jsonl files (one document per line), and folders recursively. Reads each
/// file once, even if several paths or links lead to it.
DocumentFiles readDocumentFiles(const std::vector<std::string>& paths);

} // namespace Tool
