#include "OutputFiles.h"

#include "Text.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tool {

namespace fs = std::filesystem;

namespace {

/// Synced together, which is much faster than one by one, with few enough open for any system.
constexpr std::size_t filesAtOnce = 64;

[[noreturn]] void refuse(const fs::path& file, std::string_view reason) {
    throw std::runtime_error(fmt::format("{} {}.", printable(file.string()), reason));
}

[[noreturn]] void raiseFileError(const fs::path& file, int error) {
    refuse(file, error == EEXIST ? "already exists; --force overwrites it"
                                 : fmt::format("cannot be written: {}", std::strerror(error)));
}

/// What is at a path itself, not behind a link; nothing if there is nothing.
std::optional<struct stat> statusAt(const fs::path& file) {
    struct stat status {};
    if (lstat(file.c_str(), &status) == 0) {
        return status;
    }
    if (errno != ENOENT) {
        raiseFileError(file, errno);
    }
    return std::nullopt;
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

bool hasText(const fs::path& file, std::string_view text) {
    // Neither blocks on a pipe nor reads through a link put there in the meantime.
    const Descriptor stream(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    std::string buffer(std::size_t{1} << 16U, '\0');
    while (stream.isOpen()) {
        const ssize_t size = read(stream.number(), buffer.data(), buffer.size());
        if (size <= 0) {
            return size == 0 && text.empty();
        }
        const std::string_view piece(buffer.data(), static_cast<std::size_t>(size));
        if (text.substr(0, piece.size()) != piece) {
            return false;
        }
        text.remove_prefix(piece.size());
    }
    return false;
}

/// @return whether a file needs writing.
bool isToBeWritten(const OutputFile& file, bool overwrite) {
    const auto status = statusAt(file.path);
    if (!status) {
        return true;
    }
    const bool isFile = S_ISREG(status->st_mode);
    if (isFile && status->st_size == static_cast<off_t>(file.text.size()) && hasText(file.path, file.text)) {
        return false;
    }
    if (!isFile && !S_ISLNK(status->st_mode)) {
        refuse(file.path, S_ISDIR(status->st_mode) ? "is a folder" : "is not a regular file");
    }
    if (!overwrite) {
        raiseFileError(file.path, EEXIST);
    }
    return true;
}

/// Keeps signals waiting, so that they leave no temporary file.
class SignalsLater {
public:
    SignalsLater() {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGXFSZ}) {
            sigaddset(&signals, signal);
        }
        sigprocmask(SIG_BLOCK, &signals, &former_);
    }
    ~SignalsLater() { sigprocmask(SIG_SETMASK, &former_, nullptr); }
    SignalsLater(const SignalsLater&) = delete;
    SignalsLater& operator=(const SignalsLater&) = delete;

private:
    sigset_t former_{};
};

/// A text in a temporary file beside its target, gone unless it takes the target's place.
class StagedFile {
public:
    explicit StagedFile(const OutputFile& file) : target_(file.path), stream_(create()) {
        for (std::string_view rest = file.text; !rest.empty();) {
            const ssize_t size = ::write(stream_.number(), rest.data(), rest.size());
            if (size < 0) {
                fail(errno);
            }
            rest.remove_prefix(static_cast<std::size_t>(size));
        }
        // Without a wait, so that the first sync() does most of the work of all.
        static_cast<void>(sync_file_range(stream_.number(), 0, 0, SYNC_FILE_RANGE_WRITE));
    }
    ~StagedFile() {
        if (!temporary_.empty()) {
            unlink(temporary_.c_str());
        }
    }
    StagedFile(StagedFile&& other) noexcept
        : target_(other.target_), temporary_(std::exchange(other.temporary_, {})), stream_(std::move(other.stream_)) {}
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;
    StagedFile& operator=(StagedFile&&) = delete;

    void sync() const {
        if (fsync(stream_.number()) != 0) {
            raiseFileError(target_, errno);
        }
    }

    void place(bool overwrite) {
        const auto former = overwrite ? statusAt(target_) : std::nullopt;
        if (former && S_ISREG(former->st_mode)) {
            // Some file systems have no permissions.
            static_cast<void>(fchmod(stream_.number(), former->st_mode & 0777U));
        }
        if (overwrite) {
            if (rename(temporary_.c_str(), target_.c_str()) != 0) {
                raiseFileError(target_, errno);
            }
            temporary_.clear();
        } else if (renameat2(AT_FDCWD, temporary_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
            temporary_.clear();
        } else if (errno != EINVAL || link(temporary_.c_str(), target_.c_str()) != 0) {
            raiseFileError(target_, errno);
        }
    }

private:
    [[nodiscard]] int create() {
        // Without an extension that would make it a document, should the computer fail.
        std::string name = (target_.parent_path() / ".parameters-XXXXXX").string();
        const int stream = mkostemp(name.data(), O_CLOEXEC);
        if (stream < 0) {
            raiseFileError(target_, errno);
        }
        temporary_ = name;
        const mode_t hidden = umask(0);
        umask(hidden);
        static_cast<void>(fchmod(stream, 0666U & ~hidden));
        return stream;
    }

    [[noreturn]] void fail(int error) {
        // The destructor does not run for a constructor that throws.
        unlink(temporary_.c_str());
        raiseFileError(target_, error);
    }

    const fs::path& target_;
    std::string temporary_;
    Descriptor stream_;
};

void writeAtOnce(const std::vector<const OutputFile*>& files, bool overwrite) {
    const SignalsLater signalsLater;
    std::vector<StagedFile> staged;
    staged.reserve(files.size());
    for (const OutputFile* file : files) {
        staged.emplace_back(*file);
    }
    for (const StagedFile& file : staged) {
        file.sync();
    }
    for (StagedFile& file : staged) {
        file.place(overwrite);
    }
}

void createFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw std::runtime_error(
            fmt::format("Cannot create folder {}: {}.", printable(folder.string()), error.message()));
    }
}

/// Makes new names last. Not every file system can, and the files themselves are safe.
void syncFolder(const fs::path& folder) {
    const Descriptor stream(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
    static_cast<void>(fsync(stream.number()));
}

} // namespace

void writeFiles(const std::vector<OutputFile>& files, bool overwrite) {
    std::set<fs::path> folders;
    for (const OutputFile& file : files) {
        if (folders.insert(file.path.parent_path()).second && file.path.has_parent_path()) {
            createFolder(file.path.parent_path());
        }
    }
    std::vector<const OutputFile*> rest;
    for (const OutputFile& file : files) {
        if (isToBeWritten(file, overwrite)) {
            rest.push_back(&file);
        }
    }
    for (auto next = rest.begin(); next != rest.end();) {
        const auto end = next + std::min<std::ptrdiff_t>(filesAtOnce, rest.end() - next);
        writeAtOnce({next, end}, overwrite);
        next = end;
    }
    for (const fs::path& folder : folders) {
        syncFolder(folder);
    }
}

} // namespace Tool
