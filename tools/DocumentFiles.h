#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tool {

/// A file that has been read, as it is called in messages.
struct SourceFile {
    std::string name;
    std::string text;
    /// Below the folder that was searched; of a file that was named itself, its own name.
    std::string place;
};

/// Where a document was read from.
struct Origin {
    const SourceFile* file = nullptr;
    /// Starts at 1; 0 if the document is the whole file.
    std::size_t line = 0;
};

/// FILE or FILE:LINE
std::string formatOrigin(const Origin& origin);

/// Why something is not read, by the name of a rule.
struct ReadingFault {
    std::string_view rule;
    std::string message;
    /// In the text, where it begins.
    std::size_t offset = 0;
};

/// The text of a document, which lives as long as its file.
struct DocumentText {
    Origin origin;
    std::string_view text;
    /// If it is no text that could be JSON.
    std::optional<ReadingFault> fault;
    /// Whether it is there for others alone, and not reported on.
    bool isContext = false;
};

/// What a command reads.
struct Sources {
    /// One may be "-", for standard input.
    std::vector<std::string> paths;
    /// What is there, but not reported on.
    std::vector<std::string> context;
    /// Whether links in folders are followed; those in the paths themselves always are.
    bool followsLinks = false;
};

/// A path that cannot be read.
struct UnreadablePath {
    std::string path;
    /// Goes on behind the path: "cannot be read: Permission denied."
    std::string reason;
};

struct DocumentFiles {
    std::deque<SourceFile> files;
    /// Those of the context first, then in the order of the paths, and by name within a folder.
    std::vector<DocumentText> documents;
    std::vector<UnreadablePath> unreadable;
    /// Links in folders that were not followed.
    std::size_t skippedLinks = 0;
};

/// The rules of reading faults, with a sentence on each.
struct ReadingRule {
    std::string_view name;
    std::string_view description;
};
const std::vector<ReadingRule>& readingRules();

/// Reads .json files (one document each), .jsonl files (one document per line), and folders recursively. Reads each
/// file once, even if several paths or links lead to it; what is in the paths and in the context is no context.
DocumentFiles readDocumentFiles(const Sources& sources);

} // namespace Tool
