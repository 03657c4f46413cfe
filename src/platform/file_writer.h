#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/file.h"
#include "platform/file_calls.h"

namespace quillon {

/// What stands at the end of a new file's name until it takes the name of the file that it replaces.
inline constexpr std::string_view kNewSuffix = ".new~";

/// Takes away the new file of a writer that was killed. A living writer holds a lock on its own; where that can't be
/// tested, a file younger than a minute counts as one being written. False if it stays.
bool RemoveLeftover(const std::filesystem::path& fresh);

/// A rename or a removal is on the disk only when its folder is.
void FlushFolderOf(FileCalls& calls, const std::filesystem::path& path);

/// Why a call of the system failed, for people: "the disk is full".
std::string FaultText(int error);

/// The new file beside an old one, and how it takes the old one's place. See CStdioFile.
class FileWriter {
public:
    /// Null if the file can't be written now; `fault` then says why.
    static std::unique_ptr<FileWriter> Open(FileCalls& calls, const std::filesystem::path& native, FILE_MODE mode,
                                            std::string& fault);
    /// Takes the new file away unless it was committed.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    void Write(std::string_view text);
    /// See CStdioFile.
    void ExpectStamp(const std::optional<FileStamp>& stamp);
    /// False, with the old file as it was, if a step fails; `fault` then says why.
    bool Commit(std::string& fault);
    /// The same with further bytes behind those written. They are lent and go to the disk without a copy. `goOn` is
    /// asked before every few megabytes; when it says no, the old file stands.
    bool CommitWith(std::span<const std::string_view> further, const std::function<bool()>& goOn, std::string& fault);

    const std::string& Bytes() const { return bytes; }
    /// What stands in the file's place now; none if nothing does.
    std::optional<std::string> Before() const;
    /// Of the file committed.
    const std::optional<FileStamp>& Stamp() const { return stamp; }

private:
    explicit FileWriter(FileCalls& system) : calls(system) {}

    bool Lock();
    bool IsNamed() const;
    void KeepOwnerAndMode();
    bool WriteOut(std::string_view rest);
    bool WriteWhole(std::span<const std::string_view> further, const std::function<bool()>& goOn);
    bool Replace();

    FileCalls& calls;
    std::filesystem::path target;
    std::filesystem::path fresh;
    std::string bytes;
    Descriptor fd;
    FILE_MODE mode = FILE_MODE::TEXT;
    std::optional<FileStamp> stamp;
    std::optional<FileStamp> expected;
    bool expects = false;
};

}  // namespace quillon
