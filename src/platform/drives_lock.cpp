#include "platform/drives_lock.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

#include "platform/file_writer.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr const char* kName = ".lock";
/// Longer than what any program writes.
constexpr std::size_t kMostBytes = 4096;

/// File systems over a network or another program, whose locks may end at this host.
constexpr std::array<std::uint32_t, 9> kFarFileSystems = {
    NFS_SUPER_MAGIC,         SMB_SUPER_MAGIC,  0xFF534D42u /* CIFS */,
    0xFE534D42u /* SMB 2 */, FUSE_SUPER_MAGIC, CODA_SUPER_MAGIC,
    AFS_SUPER_MAGIC,         CEPH_SUPER_MAGIC, V9FS_MAGIC};

std::string HostName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// One value a line, in the order of the holder's members. None for an empty file.
std::optional<DrivesHolder> ReadHolder(int fd) {
    std::array<char, kMostBytes> bytes;
    const ssize_t size = Retry([&] { return ::pread(fd, bytes.data(), bytes.size(), 0); });
    if (size <= 0) return std::nullopt;
    std::string_view text(bytes.data(), static_cast<std::size_t>(size));
    const auto next = [&text] {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        std::string value(line);
        std::replace_if(
            value.begin(), value.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
        return value;
    };
    DrivesHolder holder;
    holder.host = next();
    holder.process = Atoi(next());
    holder.program = next();
    holder.since = static_cast<std::int64_t>(Atof(next()));
    return holder;
}

bool IsRunning(std::int64_t process) {
    return process > 0 && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

/// For a lock over the whole file that belongs to the open file, so that two of one process exclude each other too.
struct flock WholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

}  // namespace

DrivesLock::DrivesLock(std::filesystem::path drives, std::string_view name)
    : folder(std::move(drives)), program(name) {}

DrivesLock::~DrivesLock() {
    Release();
}

DRIVES_HOLD DrivesLock::Look() {
    holder.reset();
    fault.clear();
    if (taken) return DRIVES_HOLD::FREE;
    file.Reset(::open((folder / kName).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (!file) return DRIVES_HOLD::FREE;
    struct flock lock = WholeFile();
    const bool known = ::fcntl(file.Get(), F_OFD_GETLK, &lock) == 0;
    holder = ReadHolder(file.Get());
    const DRIVES_HOLD hold = known && lock.l_type != F_UNLCK ? DRIVES_HOLD::HELD : Judge(known);
    file.Reset();
    return hold;
}

bool DrivesLock::Take(bool fromMaybe) {
    if (taken) return true;
    holder.reset();
    fault.clear();
    if (!Open()) return false;
    struct flock lock = WholeFile();
    const bool locked = Retry([&] { return ::fcntl(file.Get(), F_OFD_SETLK, &lock); }) == 0;
    const bool busy = !locked && (errno == EAGAIN || errno == EACCES);
    holder = ReadHolder(file.Get());
    taken = !busy && (Judge(locked) == DRIVES_HOLD::FREE || fromMaybe) && WriteHolder();
    if (!taken) file.Reset();
    return taken;
}

bool DrivesLock::Open() {
    constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    file.Reset(Retry([&] { return ::open((folder / kName).c_str(), kFlags, 0666); }));
    if (!file) {
        fault = FaultText(errno);
        return false;
    }
    // Of a folder that several users share, any of them may be the next to lock it.
    ::fchmod(file.Get(), 0666);
    return true;
}

/// What the file's words are worth where nobody has it locked. `certain` if that was found out.
DRIVES_HOLD DrivesLock::Judge(bool certain) {
    if (!holder) return DRIVES_HOLD::FREE;
    const bool here = holder->host == HostName();
    const bool gone = certain ? here || AreLocksCertain() : here && !IsRunning(holder->process);
    if (!gone) return DRIVES_HOLD::MAYBE_HELD;
    holder.reset();
    return DRIVES_HOLD::FREE;
}

bool DrivesLock::WriteHolder() {
    const std::string text = Format("%s\n%d\n%s\n%lld\n", HostName().c_str(), static_cast<int>(::getpid()),
                                    program.c_str(), static_cast<long long>(std::time(nullptr)));
    const bool written =
        ::ftruncate(file.Get(), 0) == 0 &&
        Retry([&] { return ::pwrite(file.Get(), text.data(), text.size(), 0); }) == static_cast<ssize_t>(text.size());
    if (!written) fault = FaultText(errno);
    return written;
}

void DrivesLock::Release() {
    if (!taken) return;
    // The words go first: without the lock they might be another's. The file stays, so that no one locks one by this
    // name while a second comes into being.
    if (::ftruncate(file.Get(), 0) != 0) fault = FaultText(errno);
    file.Reset();
    taken = false;
}

bool DrivesLock::AreLocksCertain() const {
    struct statfs status {};
    if (::statfs(folder.c_str(), &status) != 0) return false;
    const auto type = static_cast<std::uint32_t>(status.f_type);
    return std::find(kFarFileSystems.begin(), kFarFileSystems.end(), type) == kFarFileSystems.end();
}

std::string HolderText(const DrivesHolder& holder) {
    return Format("%s, process %lld on %s", holder.program.c_str(), static_cast<long long>(holder.process),
                  holder.host.c_str());
}

}  // namespace quillon
