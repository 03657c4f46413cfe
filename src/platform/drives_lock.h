#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace quillon {

/// The program that holds a drives folder for writing, as its lock file names it.
struct DrivesHolder {
    std::string host;
    std::int64_t process = 0;
    std::string program;
    std::int64_t since = 0;  ///< seconds since 1970
};

enum class DRIVES_HOLD {
    FREE,
    HELD,
    /// The lock file names a holder that can't be asked: it may run on another host, over a file system whose locks
    /// don't reach from host to host, or have ended without a word.
    MAYBE_HELD
};

/// One program at a time may write below a drives folder: of two that keep the same lists, the later would wipe out
/// what the earlier has added. Who doesn't get the lock opens its FileSystem for reading only.
///
///     DrivesLock lock(drives, "Quillon");
///     if (!lock.Take()) files.SetAccess(FILE_ACCESS::READ_ONLY);    // lock.Holder() says who has it
///
/// The lock is a file in the folder, locked for as long as the object lives; the system ends the lock of a program that
/// was killed, and what it left in the file is passed over. Where the file can't be written nobody gets the lock.
class DrivesLock {
public:
    DrivesLock(std::filesystem::path drives, std::string_view program);
    virtual ~DrivesLock();
    DrivesLock(const DrivesLock&) = delete;
    DrivesLock& operator=(const DrivesLock&) = delete;

    /// Who holds the folder now; changes nothing.
    DRIVES_HOLD Look();
    /// False if another program has it. `fromMaybe` takes it where nobody can tell; that is the operator's to say.
    bool Take(bool fromMaybe = false);
    void Release();

    bool IsTaken() const { return taken; }
    /// Found by the last Look or Take that didn't find the folder free.
    const std::optional<DrivesHolder>& Holder() const { return holder; }
    /// Why the lock can't be had although nobody holds it; empty if that isn't so.
    const std::string& GetFault() const { return fault; }

protected:
    /// Whether a lock of the file system reaches every program that might write here.
    virtual bool AreLocksCertain() const;

private:
    bool Open();
    DRIVES_HOLD Judge(bool locked);
    bool WriteHolder();

    std::filesystem::path folder;
    std::string program;
    Descriptor file;
    bool taken = false;
    std::optional<DrivesHolder> holder;
    std::string fault;
};

/// "Quillon, process 4711 on bridge-2".
std::string HolderText(const DrivesHolder& holder);

}  // namespace quillon
