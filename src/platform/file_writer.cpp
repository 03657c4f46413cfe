#include "platform/file_writer.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <vector>

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{256} << 10;
constexpr std::size_t kFurtherBlock = std::size_t{4} << 20;
/// Links followed one after another before they count as a circle.
constexpr int kMostLinks = 40;
/// No writer takes that long from opening its file to committing it, seconds.
constexpr std::int64_t kOldSeconds = 60;

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
/// Else errno tells why not.
bool IsReplaceable(const fs::path& path) {
    errno = EINVAL;
    if (!path.has_filename()) return false;
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return errno == ENOENT;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return S_ISREG(status.st_mode) && ::access(path.c_str(), W_OK) == 0;
}

bool IsOld(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count() - status.st_mtim.tv_sec > kOldSeconds;
}

}  // namespace

void FlushFolderOf(FileCalls& calls, const fs::path& path) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const Descriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd) calls.Sync(fd.Get());
}

bool RemoveLeftover(const fs::path& fresh) {
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    const Descriptor leftover(Retry([&] { return ::open(fresh.c_str(), kFlags); }));
    if (leftover && !StampOf(leftover)) return false;
    const bool locked = leftover && Retry([&] { return ::flock(leftover.Get(), LOCK_EX | LOCK_NB); }) == 0;
    if (leftover && !locked && errno == EWOULDBLOCK) return false;
    return (locked || IsOld(fresh)) && ::unlink(fresh.c_str()) == 0;
}

std::string FaultText(int error) {
    switch (error) {
        case ENOSPC:
            return "the disk is full";
        case EDQUOT:
            return "your share of the disk is used up";
        case EROFS:
            return "the disk is read-only";
        case EFBIG:
            return "it would be too large";
        case EACCES:
        case EPERM:
            return "access is denied";
        case ENOENT:
            return "there is no such file or folder";
        case EISDIR:
            return "it is a folder";
        case EINVAL:
            return "it is no plain file";
        case EWOULDBLOCK:
            return "another program is writing it";
        case ECANCELED:
            return "it has changed on the disk since it was read";
        case ESTALE:
            return "another program took its new file away";
        default:
            return std::generic_category().message(error);
    }
}

std::unique_ptr<FileWriter> FileWriter::Open(FileCalls& calls, const fs::path& native, FILE_MODE mode,
                                             std::string& fault) {
    auto writer = std::unique_ptr<FileWriter>(new FileWriter(calls));
    writer->target = FollowLinks(native);
    writer->fresh = writer->target;
    writer->fresh += kNewSuffix;
    writer->mode = mode;
    if (IsReplaceable(writer->target) && writer->Lock()) return writer;
    fault = FaultText(errno);
    return nullptr;
}

FileWriter::~FileWriter() {
    if (fd && IsNamed()) ::unlink(fresh.c_str());
}

void FileWriter::Write(std::string_view text) {
    if (mode == FILE_MODE::BINARY) {
        bytes += text;
        return;
    }
    for (std::size_t feed; (feed = text.find('\n')) != std::string_view::npos; text.remove_prefix(feed + 1)) {
        bytes += text.substr(0, feed);
        bytes += "\r\n";
    }
    bytes += text;
}

void FileWriter::ExpectStamp(const std::optional<FileStamp>& stampBefore) {
    expected = stampBefore;
    expects = true;
}

std::optional<std::string> FileWriter::Before() const {
    const Descriptor file(::open(target.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return std::nullopt;
    std::string before;
    std::vector<char> block(kBlock);
    for (;;) {
        const ssize_t n = Retry([&] { return ::read(file.Get(), block.data(), block.size()); });
        if (n < 0) return std::nullopt;
        if (n == 0) return before;
        before.append(block.data(), static_cast<std::size_t>(n));
    }
}

bool FileWriter::Commit(std::string& fault) {
    return CommitWith(
        {}, [] { return true; }, fault);
}

bool FileWriter::CommitWith(std::span<const std::string_view> further, const std::function<bool()>& goOn,
                            std::string& fault) {
    KeepOwnerAndMode();
    if (!WriteWhole(further, goOn) || !Replace()) {
        fault = FaultText(errno);
        return false;
    }
    FlushFolderOf(calls, target);
    stamp = StampOf(fd);
    // The new file has its name now; the destructor must not take it away.
    fd.Reset();
    return true;
}

bool FileWriter::WriteOut(std::string_view rest) {
    while (!rest.empty()) {
        const ssize_t n = Retry([&] { return calls.Write(fd.Get(), rest.data(), rest.size()); });
        if (n <= 0) return false;
        rest.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

bool FileWriter::WriteWhole(std::span<const std::string_view> further, const std::function<bool()>& goOn) {
    if (Retry([&] { return calls.Truncate(fd.Get()); }) != 0 || !WriteOut(bytes)) return false;
    for (std::string_view piece : further) {
        for (; !piece.empty(); piece.remove_prefix(std::min(piece.size(), kFurtherBlock))) {
            errno = ECANCELED;
            if (!goOn() || !WriteOut(piece.substr(0, kFurtherBlock))) return false;
        }
    }
    errno = ECANCELED;
    return goOn() && Retry([&] { return calls.Sync(fd.Get()); }) == 0;
}

bool FileWriter::Replace() {
    struct stat old {};
    const bool stands = ::stat(target.c_str(), &old) == 0;
    if (expects && (stands ? std::optional(StampOf(old)) : std::nullopt) != expected) {
        errno = ECANCELED;
        return false;
    }
    if (!IsNamed()) {
        // What bears its name now is another writer's, and not whole.
        errno = ESTALE;
        return false;
    }
    return Retry([&] { return calls.Rename(fresh.c_str(), target.c_str()); }) == 0;
}

/// Best effort: who may not give a file away owns the new one.
void FileWriter::KeepOwnerAndMode() {
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0) return;
    const bool group = ::fchown(fd.Get(), static_cast<uid_t>(-1), old.st_gid) == 0;
    const bool owner = ::fchown(fd.Get(), old.st_uid, static_cast<gid_t>(-1)) == 0;
    // Another owner or group must not come by rights that were meant for the old one.
    if (!group || !owner) old.st_mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
    ::fchmod(fd.Get(), old.st_mode & 07777);
}

/// Whether the new file is still the one of its name: another writer may have renamed or removed it.
bool FileWriter::IsNamed() const {
    struct stat opened {
    }, named{};
    if (::fstat(fd.Get(), &opened) != 0 || ::stat(fresh.c_str(), &named) != 0) return false;
    return opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

/// The new file's lock is what refuses a second writer. A file left behind by a killed writer has no lock and is taken
/// over; one of another user, which can't be opened, is removed. Between opening and locking, the first writer may
/// have renamed or removed the file: then it is another one by name. A file system that knows no locks is written
/// without one. On failure errno tells why.
bool FileWriter::Lock() {
    // A link in the new file's place would lead the bytes astray.
    constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    for (;;) {
        fd.Reset(Retry([&] { return calls.Open(fresh.c_str(), kFlags, 0666); }));
        if (!fd) {
            const int error = errno;
            if (error == EACCES && RemoveLeftover(fresh)) continue;
            errno = error;
            return false;
        }
        const bool busy = Retry([&] { return calls.Lock(fd.Get()); }) != 0 && errno == EWOULDBLOCK;
        if (busy || !StampOf(fd)) {
            fd.Reset();
            errno = busy ? EWOULDBLOCK : EINVAL;
            return false;
        }
        if (IsNamed()) return true;
    }
}

}  // namespace quillon
