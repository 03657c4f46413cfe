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

#include "platform/big_array.h"
#include "platform/descriptor.h"
#include "platform/file_calls.h"
#include "platform/file_writer.h"
#include "platform/text.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{256} << 10;
/// What some programs put ahead of the first line of a text in UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool HasDrive(std::string_view path) {
    if (path.size() < 2 || path[1] != ':') return false;
    const char letter = ToUpper(path[0]);
    return letter >= 'A' && letter <= 'Z';
}

std::string WithSlashes(std::string_view path) {
    std::string utf8 = Utf8FromText(path);
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    return utf8;
}

/// A path on a drive, from its root. The parts "." and ".." are taken by their names, before any link is followed, and
/// the root of the drive is its own parent.
fs::path BelowDrive(std::string_view rest) {
    return fs::path("/" + WithSlashes(rest)).lexically_normal().relative_path();
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
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
int FileCalls::Remove(const char* path) {
    return ::unlink(path);
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
    if (HasDrive(path)) {
        const fs::path drive = drives / std::string(1, static_cast<char>(ToUpper(path[0]) + 32));
        const fs::path rest = BelowDrive(path.substr(2));
        return rest.empty() ? drive : lookup.Find(drive, rest, NAME_MATCH::ANY_CAPITALS);
    }
    const fs::path native(WithSlashes(path));
    if (IsAscii(path)) return native;
    return lookup.Find(native.root_path(), native.relative_path(), NAME_MATCH::SAME_TEXT);
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
    return StampOf(status);
}

void FileSystem::TellWritten(const std::string& path) const {
    for (FileWatcher* const watcher : watchers) watcher->OnFileWritten(path);
}

void FileSystem::TellSaveFailed(const FailedSave& failed) const {
    if (commitObserver) commitObserver->OnSaveFailed(failed);
}

bool FileSystem::Remove(std::string_view path, std::string& fault) const {
    const fs::path native = Native(path);
    errno = EROFS;
    if (access == FILE_ACCESS::READ_ONLY || Retry([&] { return calls->Remove(native.c_str()); }) != 0) {
        fault = FaultText(errno);
        return false;
    }
    FlushFolderOf(*calls, native);
    return true;
}

std::size_t FileSystem::ClearLeftovers(std::string_view folder) const {
    if (access == FILE_ACCESS::READ_ONLY) return 0;
    std::vector<fs::path> leftovers;
    std::error_code failed;
    for (fs::directory_iterator entry(Native(folder), failed), end; !failed && entry != end; entry.increment(failed)) {
        if (entry->path().native().ends_with(kNewSuffix)) leftovers.push_back(entry->path());
    }
    return static_cast<std::size_t>(std::count_if(leftovers.begin(), leftovers.end(), RemoveLeftover));
}

// ---- Reading ----

class CStdioFile::Reader {
public:
    Reader(Descriptor file, std::uint64_t size, FILE_MODE fileMode)
        : fd(std::move(file)), length(size), mode(fileMode) {}
    Reader(std::string_view bytes, FILE_MODE fileMode)
        : length(bytes.size()), mode(fileMode), rest(bytes), ended(true) {}

    bool Line(std::string_view& line) {
        const bool first = position == 0;
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
        if (first && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
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
        if (kept) std::memmove(block.Data(), rest.data(), kept);
        if (block.Size() - kept < kBlock / 2 && !Grow(kept)) return false;
        const ssize_t n = Retry([&] { return ::read(fd.Get(), block.Data() + kept, block.Size() - kept); });
        rest = std::string_view(block.Data(), kept + (n > 0 ? static_cast<std::size_t>(n) : 0));
        failed = n < 0;
        ended = n <= 0;
        return !ended;
    }
    /// Twice the room, or the first; `kept` bytes stay. Without memory the reading ends here.
    bool Grow(std::size_t kept) {
        BigArray<char> wider(block ? 2 * block.Size() : kBlock);
        failed = !wider;
        ended = ended || failed;
        if (failed) return false;
        if (kept) std::memcpy(wider.Data(), block.Data(), kept);
        block = std::move(wider);
        return true;
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
    BigArray<char> block;  ///< on a page, where the system copies fastest; made at the first reading
    std::string longLine;
    std::string_view rest;
    bool ended = false;
    bool failed = false;
};

// ---- CStdioFile ----

CStdioFile::CStdioFile(FileSystem& system) : files(system) {}
CStdioFile::~CStdioFile() = default;

bool CStdioFile::OpenForReading(std::string_view path, FILE_MODE mode) {
    Close();
    Descriptor fd(::open(files.Native(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!fd || ::fstat(fd.Get(), &status) != 0) {
        fault = FaultText(errno);
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        fault = FaultText(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
        return false;
    }
    stamp = StampOf(status);
    reader = std::make_unique<Reader>(std::move(fd), stamp->size, mode);
    return true;
}

void CStdioFile::OpenBytes(std::string_view bytes, FILE_MODE mode) {
    Close();
    reader = std::make_unique<Reader>(bytes, mode);
}

bool CStdioFile::OpenForWriting(std::string_view path, FILE_MODE mode) {
    Close();
    writtenPath = path;
    if (files.Access() == FILE_ACCESS::READ_ONLY) {
        fault = "the job is open for reading only";
    } else {
        writer = FileWriter::Open(files.Calls(), files.Native(path), mode, fault);
    }
    if (!writer) files.TellSaveFailed({writtenPath, fault});
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

void CStdioFile::ExpectStamp(const std::optional<FileStamp>& expected) {
    if (writer) writer->ExpectStamp(expected);
}

bool CStdioFile::Commit() {
    const std::unique_ptr<FileWriter> ending = std::move(writer);
    if (!ending) return false;
    CommitObserver* const observer = files.Observer();
    std::optional<std::string> before = observer && !isResult ? ending->Before() : std::nullopt;
    if (!ending->Commit(fault)) {
        files.TellSaveFailed({writtenPath, fault});
        return false;
    }
    stamp = ending->Stamp();
    if (observer) observer->OnCommitted({writtenPath, std::move(before), ending->Bytes(), isResult});
    files.TellWritten(writtenPath);
    return true;
}

void CStdioFile::Close() {
    reader.reset();
    writer.reset();
    stamp.reset();
    fault.clear();
    isResult = false;
}

}  // namespace quillon
