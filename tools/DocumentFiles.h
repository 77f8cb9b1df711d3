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

/// What a command reads.
struct Sources {
    std::vector<std::string> paths;
    /// Whether links in folders are followed; those in the paths themselves always are.
    bool followsLinks = false;
};

struct DocumentFiles {
    /// In the order of the paths, and by name within a folder.
    std::vector<DocumentText> documents;
    /// One message per path that could not be read.
    std::vector<std::string> unreadable;
    /// Links in folders that were not followed.
    std::size_t skippedLinks = 0;
};

/// Reads .json files (one document each), .jsonl files (one document per line), and folders recursively. Reads each
/// file once, even if several paths or links lead to it.
DocumentFiles readDocumentFiles(const Sources& sources);

} // namespace Tool
