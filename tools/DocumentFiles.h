#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Tool {

/// Where a document stands.
struct Origin {
    std::string file;
    /// From 1; 0 if the document is the whole file.
    std::size_t line = 0;
};

/// FILE or FILE:LINE
std::string formatOrigin(const Origin& origin);

/// The text of a document, or what speaks against reading it as one; then the text is empty.
struct DocumentText {
    Origin origin;
    std::string text;
    std::string error;
};

struct DocumentFiles {
    /// In the order of the paths, and within a folder in the order of the names.
    std::vector<DocumentText> documents;
    /// What could not be read at all, a message each.
    std::vector<std::string> unreadable;
};

/// Reads .json files (a document each), .jsonl files (a document a line) and folders of them, which may hold folders.
/// A file is read once, also where several paths or links lead to it.
DocumentFiles readDocumentFiles(const std::vector<std::string>& paths);

} // namespace Tool
