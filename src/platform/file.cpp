#include "platform/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/descriptor.h"
#include "platform/file_calls.h"
#include "platform/text.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{256} << 10;
constexpr const char* kNewSuffix = ".new~";
/// Links followed one after another before they count as a circle.
constexpr int kMostLinks = 40;

bool WriteWhole(FileCalls& calls, int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = Retry([&] { return calls.Write(fd, bytes.data(), bytes.size()); });
        if (n <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

std::optional<std::string> BytesOf(const fs::path& path) {
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd) return std::nullopt;
    std::string bytes;
    std::vector<char> block(kBlock);
    for (;;) {
        const ssize_t n = Retry([&] { return ::read(fd.Get(), block.data(), block.size()); });
        if (n < 0) return std::nullopt;
        if (n == 0) return bytes;
        bytes.append(block.data(), static_cast<std::size_t>(n));
    }
}

/// A rename is on the disk only when its folder is.
void FlushFolderOf(FileCalls& calls, const fs::path& path) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const Descriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd) calls.Sync(fd.Get());
}

/// The file that a path names in the end: links are followed, also to a file that isn't there yet. Empty for a circle.
fs::path FollowLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < kMostLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
        const fs::path next = fs::read_symlink(path, error);
        if (error) return {};
        path = path.parent_path() / next;
    }
    return {};
}

/// Whether a writer may put a file in the place of what stands there: nothing, or a regular file that may be written.
bool IsReplaceable(const fs::path& path) {
    if (!path.has_filename()) return false;
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return errno == ENOENT;
    return S_ISREG(status.st_mode) && ::access(path.c_str(), W_OK) == 0;
}

bool HasDrive(std::string_view path) {
    if (path.size() < 2 || path[1] != ':') return false;
    const char letter = ToUpper(path[0]);
    return letter >= 'A' && letter <= 'Z';
}

/// A path on a drive. The parts "." and ".." are taken by their names, before any link is followed, and the root of the
/// drive is its own parent.
fs::path NativeRest(const fs::path& base, std::string_view rest) {
    std::string utf8 = Utf8FromText(rest);
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    const fs::path relative = fs::path("/" + utf8).lexically_normal().relative_path();
    return relative.empty() ? base : base / relative;
}

}  // namespace

// ---- Calls of the system ----

int FileCalls::Open(const char* path, int flags, mode_t mode) {
    return ::open(path, flags, mode);
}
int FileCalls::Lock(int fd) {
    return ::flock(fd, LOCK_EX | LOCK_NB);
}
int FileCalls::Truncate(int fd) {
    return ::ftruncate(fd, 0);
}
ssize_t FileCalls::Write(int fd, const void* bytes, std::size_t size) {
    return ::write(fd, bytes, size);
}
int FileCalls::Sync(int fd) {
    return ::fsync(fd);
}
int FileCalls::Rename(const char* from, const char* to) {
    return ::rename(from, to);
}

namespace {

FileCalls& SystemCalls() {
    static FileCalls calls;
    return calls;
}

}  // namespace

fs::path DefaultDrivesFolder() {
    const auto setting = [](const char* name) {
        const char* value = std::getenv(name);
        return fs::path(value ? value : "");
    };
    fs::path data = setting("XDG_DATA_HOME");
    if (!data.is_absolute()) data = setting("HOME") / ".local" / "share";
    return data / "quillon" / "drives";
}

// ---- FileSystem ----

FileSystem::FileSystem(fs::path drivesFolder, std::string program, FILE_ACCESS fileAccess)
    : drives(std::move(drivesFolder)), commandLine(std::move(program)), access(fileAccess), calls(&SystemCalls()) {
    if (access == FILE_ACCESS::READ_ONLY) return;
    std::error_code ignored;
    fs::create_directories(drives / "c", ignored);
}

fs::path FileSystem::Native(std::string_view path) const {
    // A NUL would cut the path short on its way to the system.
    path = path.substr(0, path.find('\0'));
    if (HasDrive(path))
        return NativeRest(drives / std::string(1, static_cast<char>(ToUpper(path[0]) + 32)), path.substr(2));
    std::string utf8 = Utf8FromText(path);
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    return fs::path(utf8);
}

std::string FileSystem::LibraryPath(const fs::path& native) const {
    const fs::path below = native.lexically_relative(drives);
    std::string rest = below.generic_string();
    if (rest.size() == 1) rest += '/';
    if (rest.size() > 1 && rest[1] == '/' && rest[0] >= 'a' && rest[0] <= 'z') {
        std::string text = TextFromUtf8(rest.substr(1));
        std::replace(text.begin(), text.end(), '/', '\\');
        return std::string(1, ToUpper(rest[0])) + ":" + text;
    }
    return TextFromUtf8(native.generic_string());
}

bool FileSystem::Exists(std::string_view path) const {
    std::error_code ignored;
    return fs::exists(Native(path), ignored);
}

bool FileSystem::DriveIsFixed(char letter) const {
    std::error_code ignored;
    return fs::is_directory(Native(std::string(1, letter) + ":"), ignored);
}

FOLDER_RESULT FileSystem::CreateFolder(std::string_view path) const {
    if (access == FILE_ACCESS::READ_ONLY) return FOLDER_RESULT::THERE;
    std::error_code error;
    fs::path native = Native(path);
    if (native.filename().empty()) native = native.parent_path();
    if (fs::create_directory(native, error)) return FOLDER_RESULT::CREATED;
    return fs::is_directory(native, error) ? FOLDER_RESULT::THERE : FOLDER_RESULT::FAILED;
}

std::optional<FileStamp> FileSystem::Stamp(std::string_view path) const {
    struct stat status {};
    if (::stat(Native(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileStamp{static_cast<std::uint64_t>(status.st_size),
                     static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

// ---- Reading ----

class CStdioFile::Reader {
public:
    Reader(Descriptor file, std::uint64_t size, FILE_MODE fileMode)
        : fd(std::move(file)), length(size), mode(fileMode), block(kBlock) {}
    Reader(std::string_view bytes, FILE_MODE fileMode)
        : length(bytes.size()), mode(fileMode), rest(bytes), ended(true) {}

    bool Line(std::string_view& line) {
        for (std::size_t searched = 0;;) {
            const std::size_t feed = FindFeed(searched);
            if (feed != std::string_view::npos && feed <= kLongestLine) {
                line = rest.substr(0, feed);
                Take(feed + 1);
                break;
            }
            searched = rest.size();
            if (searched > kLongestLine) {
                line = rest.substr(0, kLongestLine);
                return EndLongLine(line);
            }
            if (ended || !Fill()) {
                if (rest.empty()) return false;
                line = rest;
                Take(rest.size());
                break;
            }
        }
        if (mode == FILE_MODE::TEXT && !line.empty() && line.back() == '\r') line.remove_suffix(1);
        return true;
    }

    std::size_t Bytes(char* out, std::size_t size) {
        std::size_t done = 0;
        while (done < size) {
            if (rest.empty() && (ended || !Fill())) break;
            const std::size_t n = std::min(size - done, rest.size());
            std::memcpy(out + done, rest.data(), n);
            Take(n);
            done += n;
        }
        return done;
    }

    std::uint64_t Length() const { return length; }
    std::uint64_t Position() const { return position; }
    bool HasFailed() const { return failed; }

private:
    std::size_t FindFeed(std::size_t from) const {
        if (from >= rest.size()) return std::string_view::npos;
        const void* found = std::memchr(rest.data() + from, '\n', rest.size() - from);
        return found ? static_cast<std::size_t>(static_cast<const char*>(found) - rest.data()) : std::string_view::npos;
    }
    void Take(std::size_t count) {
        rest.remove_prefix(count);
        position += count;
    }
    /// Reads another block behind what is left. False at the end of the file.
    bool Fill() {
        const std::size_t kept = rest.size();
        if (kept) std::memmove(block.data(), rest.data(), kept);
        if (block.size() - kept < kBlock / 2) block.resize(block.size() * 2);
        const ssize_t n = Retry([&] { return ::read(fd.Get(), block.data() + kept, block.size() - kept); });
        rest = std::string_view(block.data(), kept + (n > 0 ? static_cast<std::size_t>(n) : 0));
        failed = n < 0;
        ended = n <= 0;
        return !ended;
    }
    /// Keeps the head of an endless line aside and passes over its rest.
    bool EndLongLine(std::string_view& line) {
        longLine.assign(line);
        line = longLine;
        for (;;) {
            const std::size_t feed = FindFeed(0);
            if (feed != std::string_view::npos) {
                Take(feed + 1);
                return true;
            }
            Take(rest.size());
            if (ended || !Fill()) return true;
        }
    }

    Descriptor fd;
    std::uint64_t length = 0;
    std::uint64_t position = 0;
    FILE_MODE mode;
    std::vector<char> block;
    std::string longLine;
    std::string_view rest;
    bool ended = false;
    bool failed = false;
};

// ---- Writing ----

class CStdioFile::Writer {
public:
    /// Null if the file can't be written now.
    static std::unique_ptr<Writer> Open(FileCalls& calls, const fs::path& native, std::string path, FILE_MODE mode) {
        auto writer = std::unique_ptr<Writer>(new Writer(calls));
        writer->target = FollowLinks(native);
        writer->fresh = writer->target;
        writer->fresh += kNewSuffix;
        writer->path = std::move(path);
        writer->mode = mode;
        return IsReplaceable(writer->target) && writer->Lock() ? std::move(writer) : nullptr;
    }

    ~Writer() {
        if (fd) ::unlink(fresh.c_str());
    }

    void Write(std::string_view text) {
        if (mode == FILE_MODE::BINARY) {
            bytes += text;
        } else {
            for (std::size_t feed; (feed = text.find('\n')) != std::string_view::npos; text.remove_prefix(feed + 1)) {
                bytes += text.substr(0, feed);
                bytes += "\r\n";
            }
            bytes += text;
        }
    }

    bool Commit(CommitObserver* observer) {
        std::optional<std::string> before;
        if (observer) before = BytesOf(target);
        KeepOwnerAndMode();
        if (Retry([&] { return calls.Truncate(fd.Get()); }) != 0) return false;
        if (!WriteWhole(calls, fd.Get(), bytes)) return false;
        if (Retry([&] { return calls.Sync(fd.Get()); }) != 0) return false;
        if (Retry([&] { return calls.Rename(fresh.c_str(), target.c_str()); }) != 0) return false;
        FlushFolderOf(calls, target);
        // The new file has its name now; the destructor must not take it away.
        fd.Reset();
        if (observer) observer->OnCommitted({path, std::move(before), bytes});
        return true;
    }

private:
    explicit Writer(FileCalls& system) : calls(system) {}

    /// Best effort: who may not give a file away owns the new one.
    void KeepOwnerAndMode() {
        struct stat old {};
        if (::stat(target.c_str(), &old) != 0) return;
        const bool group = ::fchown(fd.Get(), static_cast<uid_t>(-1), old.st_gid) == 0;
        const bool owner = ::fchown(fd.Get(), old.st_uid, static_cast<gid_t>(-1)) == 0;
        // Another owner or group must not come by rights that were meant for the old one.
        if (!group || !owner) old.st_mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
        ::fchmod(fd.Get(), old.st_mode & 07777);
    }

    /// The new file's lock is what refuses a second writer. A file left behind by a killed writer has no lock and is
    /// taken over. Between opening and locking, the first writer may have renamed or removed the file: then it is
    /// another one by name. A file system that knows no locks is written without one.
    bool Lock() {
        for (;;) {
            // A link in the new file's place would lead the bytes astray.
            constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
            fd.Reset(Retry([&] { return calls.Open(fresh.c_str(), kFlags, 0666); }));
            if (!fd) return false;
            if (Retry([&] { return calls.Lock(fd.Get()); }) != 0 && errno == EWOULDBLOCK) {
                fd.Reset();
                return false;
            }
            struct stat opened {
            }, named{};
            if (::fstat(fd.Get(), &opened) != 0 || !S_ISREG(opened.st_mode)) {
                fd.Reset();
                return false;
            }
            const bool stands = ::stat(fresh.c_str(), &named) == 0;
            if (stands && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev) return true;
        }
    }

    FileCalls& calls;
    fs::path target;
    fs::path fresh;
    std::string path;
    std::string bytes;
    Descriptor fd;
    FILE_MODE mode = FILE_MODE::TEXT;
};

// ---- CStdioFile ----

CStdioFile::CStdioFile(FileSystem& system) : files(system) {}
CStdioFile::~CStdioFile() = default;

bool CStdioFile::OpenForReading(std::string_view path, FILE_MODE mode) {
    Close();
    Descriptor fd(::open(files.Native(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!fd || ::fstat(fd.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    reader = std::make_unique<Reader>(std::move(fd), static_cast<std::uint64_t>(status.st_size), mode);
    return true;
}

void CStdioFile::OpenBytes(std::string_view bytes, FILE_MODE mode) {
    Close();
    reader = std::make_unique<Reader>(bytes, mode);
}

bool CStdioFile::OpenForWriting(std::string_view path, FILE_MODE mode) {
    Close();
    if (files.Access() == FILE_ACCESS::READ_ONLY) return false;
    writer = Writer::Open(files.Calls(), files.Native(path), std::string(path), mode);
    return writer != nullptr;
}

bool CStdioFile::ReadString(std::string_view& line) {
    return reader && reader->Line(line);
}

std::size_t CStdioFile::Read(void* bytes, std::size_t size) {
    return reader ? reader->Bytes(static_cast<char*>(bytes), size) : 0;
}

bool CStdioFile::ReadAll(std::string& bytes, std::size_t limit) {
    if (!reader) return false;
    bytes.clear();
    const std::uint64_t left = reader->Length() - std::min(reader->Length(), reader->Position());
    bytes.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(left, limit)));
    std::vector<char> block(kBlock);
    while (bytes.size() <= limit) {
        const std::size_t n = reader->Bytes(block.data(), block.size());
        bytes.append(block.data(), n);
        if (n < block.size()) return bytes.size() <= limit && !reader->HasFailed();
    }
    return false;
}

std::uint64_t CStdioFile::GetLength() const {
    return reader ? reader->Length() : 0;
}
std::uint64_t CStdioFile::GetPosition() const {
    return reader ? reader->Position() : 0;
}

void CStdioFile::WriteString(std::string_view text) {
    if (writer) writer->Write(text);
}

bool CStdioFile::Commit() {
    const std::unique_ptr<Writer> ending = std::move(writer);
    return ending && ending->Commit(files.Observer());
}

void CStdioFile::Close() {
    reader.reset();
    writer.reset();
}

}  // namespace quillon
