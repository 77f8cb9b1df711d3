#include "DocumentFiles.h"

#include "Progress.h"
#include "Text.h"

#include <fmt/core.h>
#include <sys/stat.h>

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
/// Read within seconds.
constexpr off_t largestFile = off_t{2} << 30U;
/// Deeper folders come from mistakes or attacks, and their paths grow with the square of the depth.
constexpr std::size_t deepestFolder = 100;
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

/// Tells files and folders apart, whatever paths and links lead to them.
using Identity = std::pair<dev_t, ino_t>;

Identity identityOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

/// Collects the document files of paths.
class FileSearch {
public:
    FileSearch(DocumentFiles& result, bool followsLinks) : result_(result), followsLinks_(followsLinks) {}

    void addPath(const std::string& path) {
        struct stat status {};
        if (stat(path.c_str(), &status) != 0) {
            refuse(path, fmt::format("cannot be read: {}", std::strerror(errno)));
        } else if (S_ISDIR(status.st_mode)) {
            const std::size_t before = met_ + result_.unreadable.size();
            searched_.clear();
            addFolder(path, identityOf(status), 1);
            if (met_ + result_.unreadable.size() == before) {
                refuse(path, "contains no .json or .jsonl files");
            }
        } else if (!isDocumentFile(path)) {
            refuse(path, "is not a .json file, a .jsonl file or a folder");
        } else {
            addFile(path, status);
        }
    }

    [[nodiscard]] const std::vector<fs::path>& files() const { return files_; }

private:
    void refuse(const fs::path& path, std::string_view reason) {
        result_.unreadable.push_back(fmt::format("{} {}.", printable(path.string()), reason));
    }

    void addFolder(const fs::path& folder, const Identity& identity, std::size_t depth) {
        if (!searched_.insert(identity).second) {
            return;
        }
        if (depth > deepestFolder) {
            refuse(folder, fmt::format("is skipped: more than {} folders deep", deepestFolder));
            return;
        }
        std::vector<fs::path> entries;
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            entries.push_back(entry->path());
        }
        if (error) {
            refuse(folder, fmt::format("cannot be read: {}", error.message()));
        }
        std::sort(entries.begin(), entries.end());
        for (const fs::path& entry : entries) {
            addEntry(entry, depth);
        }
    }

    void addEntry(const fs::path& entry, std::size_t depth) {
        struct stat status {};
        const bool isThere = lstat(entry.c_str(), &status) == 0;
        const bool isLink = isThere && S_ISLNK(status.st_mode);
        const bool isReadable = isLink ? stat(entry.c_str(), &status) == 0 : isThere;
        if (!(isReadable && S_ISDIR(status.st_mode)) && !isDocumentFile(entry)) {
            return;
        }
        if (isLink && !followsLinks_) {
            ++result_.skippedLinks;
        } else if (!isReadable) {
            refuse(entry, fmt::format("cannot be read: {}", std::strerror(errno)));
        } else if (S_ISDIR(status.st_mode)) {
            addFolder(entry, identityOf(status), depth + 1);
        } else {
            addFile(entry, status);
        }
    }

    /// Refuses all but regular files, because reading from a pipe could block.
    void addFile(const fs::path& file, const struct stat& status) {
        if (!S_ISREG(status.st_mode)) {
            refuse(file, "is not a regular file");
        } else if (status.st_size > largestFile) {
            refuse(file, fmt::format("is skipped: larger than {} GiB", largestFile >> 30U));
        } else {
            ++met_;
            if (taken_.insert(identityOf(status)).second) {
                files_.push_back(file);
            }
        }
    }

    DocumentFiles& result_;
    bool followsLinks_;
    std::vector<fs::path> files_;
    /// Those of files_, so that each is read only once.
    std::set<Identity> taken_;
    std::size_t met_ = 0;
    /// The folders met below the current path, because links may form cycles.
    std::set<Identity> searched_;
};

/// Reads a file piece by piece.
class PieceReader {
public:
    explicit PieceReader(std::streambuf& file) : file_(file) {}

    /// Reads up to an end character, or to the end of the file without one. Keeps only enough of a text that is too
    /// large to detect it.
    bool read(std::optional<char> end, std::string& piece) {
        piece.clear();
        bool hasAny = false;
        while (fill()) {
            hasAny = true;
            const std::size_t size = end ? rest_.find(*end) : std::string_view::npos;
            if (piece.size() <= largestDocument) {
                piece += rest_.substr(0, size);
            }
            if (size != std::string_view::npos) {
                rest_.remove_prefix(size + 1);
                break;
            }
            rest_ = {};
        }
        return hasAny;
    }

private:
    bool fill() {
        if (rest_.empty()) {
            const std::streamsize size = file_.sgetn(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
            rest_ = std::string_view(buffer_).substr(0, static_cast<std::size_t>(size));
        }
        return !rest_.empty();
    }

    std::streambuf& file_;
    std::string buffer_ = std::string(std::size_t{1} << 16U, '\0');
    std::string_view rest_;
};

void addDocument(std::vector<DocumentText>& documents, const std::string& file, std::size_t line, std::string text) {
    DocumentText& document = documents.emplace_back();
    document.origin.file = file;
    document.origin.line = line;
    document.error = errorIn(text);
    if (document.error.empty()) {
        document.text = std::move(text);
    }
}

void readLines(PieceReader& pieces, const std::string& file, std::vector<DocumentText>& documents) {
    const std::size_t before = documents.size();
    std::string line;
    for (std::size_t number = 1; pieces.read('\n', line); ++number) {
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
    PieceReader pieces(*stream.rdbuf());
    if (hasLinesOfDocuments(file)) {
        readLines(pieces, file.string(), documents);
    } else if (fs::file_size(file) > largestDocument) {
        DocumentText& document = documents.emplace_back();
        document.origin.file = file.string();
        document.error = tooLarge();
    } else {
        std::string text;
        pieces.read(std::nullopt, text);
        addDocument(documents, file.string(), 0, std::move(text));
    }
}

} // namespace

std::string formatOrigin(const Origin& origin) {
    std::string text = printable(origin.file);
    return origin.line == 0 ? text : fmt::format("{}:{}", text, origin.line);
}

DocumentFiles readDocumentFiles(const Sources& sources) {
    DocumentFiles result;
    FileSearch search(result, sources.followsLinks);
    for (const std::string& path : sources.paths) {
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
