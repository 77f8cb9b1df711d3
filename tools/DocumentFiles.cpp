#include "DocumentFiles.h"

#include "Progress.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <streambuf>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tool {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t largestDocument = std::size_t{64} << 20U;
constexpr std::string_view blanks = " \t\r\n";

std::string extensionOf(const fs::path& file) { return lowerCase(file.extension().string()); }

bool hasLinesOfDocuments(const fs::path& file) { return extensionOf(file) == ".jsonl"; }

bool isDocumentFile(const fs::path& file) { return extensionOf(file) == ".json" || hasLinesOfDocuments(file); }

std::string tooLarge() { return fmt::format("Larger than {} MiB.", largestDocument >> 20U); }

/// @return why a text cannot be JSON; empty if it may be.
std::string errorIn(std::string_view text) {
    if (text.size() > largestDocument) {
        return tooLarge();
    }
    if (text.find_first_not_of(blanks) == std::string_view::npos) {
        return "Empty.";
    }
    if (text.find('\0') != std::string_view::npos) {
        return "Binary, not text.";
    }
    if (text.substr(0, 3) == "\xEF\xBB\xBF") {
        return "Starts with a byte order mark, which JSON does not allow.";
    }
    if (const std::size_t position = findInvalidUtf8(text); position != std::string_view::npos) {
        return fmt::format("Invalid UTF-8 at offset {}.", position);
    }
    return {};
}

/// Collects the document files of paths.
class FileSearch {
public:
    explicit FileSearch(std::vector<std::string>& unreadable) : unreadable_(unreadable) {}

    void addPath(const fs::path& path) {
        std::error_code error;
        const fs::file_status status = fs::status(path, error);
        if (fs::is_directory(status)) {
            const std::size_t before = met_ + unreadable_.size();
            searched_.clear();
            addFolder(path);
            if (met_ + unreadable_.size() == before) {
                refuse(path, "contains no .json or .jsonl files");
            }
        } else if (fs::exists(status) && !isDocumentFile(path)) {
            refuse(path, "is not a .json file, a .jsonl file or a folder");
        } else {
            addFile(path);
        }
    }

    [[nodiscard]] const std::vector<fs::path>& files() const { return files_; }

private:
    void refuse(const fs::path& path, std::string_view reason) {
        unreadable_.push_back(fmt::format("{} {}.", printable(path.string()), reason));
    }

    void addFolder(const fs::path& folder) {
        std::error_code error;
        if (!searched_.insert(fs::canonical(folder, error)).second) {
            return;
        }
        std::vector<fs::path> entries;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            entries.push_back(entry->path());
        }
        if (error) {
            refuse(folder, fmt::format("cannot be read: {}", error.message()));
        }
        std::sort(entries.begin(), entries.end());
        for (const fs::path& entry : entries) {
            std::error_code ignored;
            if (fs::is_directory(fs::status(entry, ignored))) {
                addFolder(entry);
            } else if (isDocumentFile(entry)) {
                addFile(entry);
            }
        }
    }

    /// Refuses all but regular files, because reading from a pipe could block.
    void addFile(const fs::path& file) {
        std::error_code error;
        const fs::file_status status = fs::status(file, error);
        if (!fs::exists(status)) {
            refuse(file, fmt::format("cannot be read: {}", error ? error.message() : "No such file or directory"));
        } else if (!fs::is_regular_file(status)) {
            refuse(file, "is not a regular file");
        } else {
            ++met_;
            if (taken_.insert(fs::canonical(file, error)).second) {
                files_.push_back(file);
            }
        }
    }

    std::vector<std::string>& unreadable_;
    std::vector<fs::path> files_;
    /// Canonical paths of the files, so that each is read only once.
    std::set<fs::path> taken_;
    std::size_t met_ = 0;
    /// Canonical paths of the folders below the current path, because links may form cycles.
    std::set<fs::path> searched_;
};

/// Reads a line, or the whole rest without an end character. Keeps only enough of a text that is too large to detect
/// it.
bool readPiece(std::streambuf& buffer, std::optional<char> end, std::string& piece) {
    using Traits = std::streambuf::traits_type;
    piece.clear();
    auto next = buffer.sbumpc();
    if (Traits::eq_int_type(next, Traits::eof())) {
        return false;
    }
    for (; !Traits::eq_int_type(next, Traits::eof()); next = buffer.sbumpc()) {
        const char character = Traits::to_char_type(next);
        if (character == end) {
            break;
        }
        if (piece.size() <= largestDocument) {
            piece += character;
        }
    }
    return true;
}

void addDocument(std::vector<DocumentText>& documents, const std::string& file, std::size_t line, std::string text) {
    DocumentText& document = documents.emplace_back();
    document.origin.file = file;
    document.origin.line = line;
    document.error = errorIn(text);
    if (document.error.empty()) {
        document.text = std::move(text);
    }
}

void readLines(std::streambuf& buffer, const std::string& file, std::vector<DocumentText>& documents) {
    const std::size_t before = documents.size();
    std::string line;
    for (std::size_t number = 1; readPiece(buffer, '\n', line); ++number) {
        if (line.size() > largestDocument || line.find_first_not_of(blanks) != std::string::npos) {
            addDocument(documents, file, number, line);
        }
    }
    if (documents.size() == before) {
        addDocument(documents, file, 0, {});
    }
}

void readFile(const fs::path& file, std::vector<DocumentText>& documents) {
    std::ifstream stream;
    // The buffer throws on a failing disk by itself; the stream does so for a file that cannot be opened.
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream.open(file, std::ios::binary);
    if (hasLinesOfDocuments(file)) {
        readLines(*stream.rdbuf(), file.string(), documents);
    } else if (fs::file_size(file) > largestDocument) {
        DocumentText& document = documents.emplace_back();
        document.origin.file = file.string();
        document.error = tooLarge();
    } else {
        std::string text;
        readPiece(*stream.rdbuf(), std::nullopt, text);
        addDocument(documents, file.string(), 0, std::move(text));
    }
}

} // namespace

std::string formatOrigin(const Origin& origin) {
    std::string text = printable(origin.file);
    return origin.line == 0 ? text : fmt::format("{}:{}", text, origin.line);
}

DocumentFiles readDocumentFiles(const std::vector<std::string>& paths) {
    DocumentFiles result;
    FileSearch search(result.unreadable);
    for (const std::string& path : paths) {
        search.addPath(path);
    }
    Progress progress("Reading", search.files().size());
    for (const fs::path& file : search.files()) {
        try {
            readFile(file, result.documents);
        } catch (const std::system_error&) {
            result.unreadable.push_back(
                fmt::format("{} cannot be read: {}.", printable(file.string()), std::strerror(errno)));
        }
        progress.advance();
    }
    return result;
}

} // namespace Tool
