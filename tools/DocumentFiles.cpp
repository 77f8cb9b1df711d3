#include "DocumentFiles.h"

#include "JsonText.h"
#include "Progress.h"
#include "Text.h"

#include <fmt/core.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
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
std::string extensionOf(const fs::path& file) { return lowerCase(file.extension().string()); }

bool hasLinesOfDocuments(const fs::path& file) { return extensionOf(file) == ".jsonl"; }

bool isDocumentFile(const fs::path& file) { return extensionOf(file) == ".json" || hasLinesOfDocuments(file); }

constexpr std::string_view unreadablePath = "unreadable-path";
constexpr std::string_view emptyDocument = "empty-document";
constexpr std::string_view tooLarge = "too-large";
constexpr std::string_view wrongEncoding = "wrong-encoding";

/// Why a text cannot be JSON, if it cannot be.
std::optional<ReadingFault> faultIn(std::string_view text) {
    if (text.size() > largestDocument) {
        return ReadingFault{tooLarge, fmt::format("Larger than {} MiB.", largestDocument >> 20U)};
    }
    if (text.find_first_not_of(blanks) == std::string_view::npos) {
        return ReadingFault{emptyDocument, "Empty."};
    }
    if (beginsWith(text, "\xEF\xBB\xBF")) {
        return ReadingFault{wrongEncoding, "Starts with a byte order mark, which JSON does not allow."};
    }
    constexpr std::string_view beginsAscii("{\0", 2);
    constexpr std::string_view endsAscii("\0{", 2);
    if (beginsWith(text, "\xFF\xFE") || beginsWith(text, "\xFE\xFF") || beginsWith(text, beginsAscii) ||
        beginsWith(text, endsAscii)) {
        return ReadingFault{wrongEncoding, "Encoded in UTF-16, where JSON is in UTF-8."};
    }
    if (const std::size_t position = text.find('\0'); position != std::string_view::npos) {
        return ReadingFault{wrongEncoding, "Binary, not text.", position};
    }
    if (const std::size_t position = findInvalidUtf8(text); position != std::string_view::npos) {
        return ReadingFault{wrongEncoding, fmt::format("Invalid UTF-8 at offset {}.", position), position};
    }
    return std::nullopt;
}

/// Tells files and folders apart, whatever paths and links lead to them.
using Identity = std::pair<dev_t, ino_t>;

Identity identityOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

struct FoundFile {
    fs::path path;
    fs::path place;
};

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
            searchedPath_ = path;
            searched_.clear();
            addFolder(path, identityOf(status), 1);
            if (met_ + result_.unreadable.size() == before) {
                refuse(path, "contains no .json or .jsonl files");
            }
        } else if (!isDocumentFile(path)) {
            refuse(path, "is not a .json file, a .jsonl file or a folder");
        } else {
            searchedPath_ = fs::path(path).parent_path();
            addFile(path, status);
        }
    }

    [[nodiscard]] const std::vector<FoundFile>& files() const { return files_; }

private:
    void refuse(const fs::path& path, std::string_view reason) {
        result_.unreadable.push_back({path.string(), fmt::format("{}.", reason)});
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
                files_.push_back({file, file.lexically_relative(searchedPath_)});
            }
        }
    }

    DocumentFiles& result_;
    bool followsLinks_;
    std::vector<FoundFile> files_;
    /// What file names are relative to.
    fs::path searchedPath_;
    /// Those of files_, so that each is read only once.
    std::set<Identity> taken_;
    std::size_t met_ = 0;
    /// The folders met below the current path, because links may form cycles.
    std::set<Identity> searched_;
};

/// Whether a text has a document a line: its first one is complete.
bool hasLinesOfDocuments(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && isCompleteJson(text.substr(0, end)) &&
           text.find_first_not_of(blanks, end) != std::string_view::npos;
}

/// Adds the documents of files, in the order of the files.
class DocumentReading {
public:
    DocumentReading(DocumentFiles& result, bool isContext) : result_(result), isContext_(isContext) {}

    void readFile(const fs::path& file, const fs::path& place) {
        std::ifstream stream;
        // The buffer throws on a failing disk by itself; the stream does so for a file that cannot be opened.
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream.open(file, std::ios::binary);
        const auto size = static_cast<std::size_t>(fs::file_size(file));
        SourceFile& source = result_.files.emplace_back(SourceFile{file.string(), {}, place.string()});
        if (hasLinesOfDocuments(file)) {
            source.text.resize(size);
            source.text.resize(static_cast<std::size_t>(
                stream.rdbuf()->sgetn(source.text.data(), static_cast<std::streamsize>(size))));
            addLines(source);
        } else {
            // Of one that is too large, enough to tell.
            source.text.resize(std::min(size, largestDocument + 1));
            source.text.resize(static_cast<std::size_t>(
                stream.rdbuf()->sgetn(source.text.data(), static_cast<std::streamsize>(source.text.size()))));
            add(source, 0, source.text);
        }
    }

    void readStandardInput() {
        SourceFile& source = result_.files.emplace_back(SourceFile{"-", {}, "stdin.json"});
        source.text.assign(std::istreambuf_iterator<char>(std::cin), {});
        if (hasLinesOfDocuments(std::string_view(source.text))) {
            source.place += 'l';
            addLines(source);
        } else {
            add(source, 0, source.text);
        }
    }

private:
    void addLines(const SourceFile& source) {
        const std::size_t before = result_.documents.size();
        const std::string_view text = source.text;
        std::size_t begin = 0;
        for (std::size_t number = 1; begin < text.size(); ++number) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            const std::string_view line = text.substr(begin, end - begin);
            if (line.size() > largestDocument || line.find_first_not_of(blanks) != std::string_view::npos) {
                add(source, number, line);
            }
            begin = end + 1;
        }
        if (result_.documents.size() == before) {
            add(source, 0, {});
        }
    }

    void add(const SourceFile& source, std::size_t line, std::string_view text) {
        result_.documents.push_back({{&source, line}, text, faultIn(text), isContext_});
    }

    DocumentFiles& result_;
    bool isContext_;
};

/// Drops documents of the context that those from a position on define anew.
void dropReplaced(std::vector<DocumentText>& documents, std::size_t first) {
    std::set<std::string> defined;
    for (std::size_t i = first; i < documents.size(); ++i) {
        defined.insert(typeIdOf(documents[i].text));
    }
    const auto isReplaced = [&](const DocumentText& document) {
        return document.isContext && defined.count(typeIdOf(document.text)) != 0;
    };
    documents.erase(std::remove_if(documents.begin(), documents.end(), isReplaced), documents.end());
}

} // namespace

std::string formatOrigin(const Origin& origin) {
    std::string text = printable(origin.file->name);
    return origin.line == 0 ? text : fmt::format("{}:{}", text, origin.line);
}

const std::vector<ReadingRule>& readingRules() {
    static const std::vector<ReadingRule> rules = {
        {unreadablePath, "A path leads to nothing that can be read."},
        {emptyDocument, "A document has no text."},
        {tooLarge, "A document is larger than 64 MiB."},
        {wrongEncoding, "A text is not in UTF-8, or starts with a byte order mark."},
    };
    return rules;
}

DocumentFiles readDocumentFiles(const Sources& sources) {
    DocumentFiles result;
    // What is reported on is taken first, so that it is not taken as context.
    FileSearch search(result, sources.followsLinks);
    bool readsStandardInput = false;
    for (const std::string& path : sources.paths) {
        if (path == "-") {
            readsStandardInput = true;
        } else {
            search.addPath(path);
        }
    }
    const std::size_t reported = search.files().size();
    for (const std::string& path : sources.context) {
        search.addPath(path);
    }
    Progress progress("Reading", search.files().size());
    const auto read = [&](std::size_t first, std::size_t last, bool isContext) {
        DocumentReading reading(result, isContext);
        for (std::size_t i = first; i < last; ++i) {
            const auto& [file, place] = search.files()[i];
            try {
                reading.readFile(file, place);
            } catch (const std::system_error&) {
                result.unreadable.push_back({file.string(), fmt::format("cannot be read: {}.", std::strerror(errno))});
            }
            progress.advance();
        }
    };
    read(reported, search.files().size(), true);
    read(0, reported, false);
    if (readsStandardInput) {
        const std::size_t before = result.documents.size();
        DocumentReading(result, false).readStandardInput();
        dropReplaced(result.documents, before);
    }
    return result;
}

} // namespace Tool
