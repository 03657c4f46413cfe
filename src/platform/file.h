#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/name_lookup.h"

namespace quillon {

/// What a commit did to a file. The views hold during the call only.
struct FileCommit {
    std::string path;                   ///< as the writer was given it
    std::optional<std::string> before;  ///< the bytes replaced; none if there was no file
    std::string_view after;
    /// Made for others, such as a table exported, and no part of a job; `before` isn't told.
    bool isResult = false;
};

/// A save that failed; the old file stands.
struct FailedSave {
    std::string path;    ///< as the writer was given it
    std::string reason;  ///< for people: "the disk is full"
};

/// Told of every file that the library rewrites, after it has been replaced, and of every one that it could not write.
/// On the thread of the writer.
class CommitObserver {
public:
    virtual ~CommitObserver() = default;
    virtual void OnCommitted(const FileCommit& commit) = 0;
    virtual void OnSaveFailed(const FailedSave&) {}
};

/// Told of every file that was replaced, by its path as the writer was given it. On the thread of the writer: who is
/// told looks at the path alone, unless it is one that only its own thread writes.
class FileWatcher {
public:
    virtual ~FileWatcher() = default;
    virtual void OnFileWritten(const std::string& path) = 0;
};

struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t modifiedNs = 0;  ///< of the file system's clock, since its epoch
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class FileCalls;
class FileWriter;

enum class FOLDER_RESULT { CREATED, THERE, FAILED };

enum class FILE_ACCESS {
    READ_WRITE,
    /// Nothing is created and no file can be written. A folder that would be created counts as there, so that paths
    /// come out as they would, and opening below it fails.
    READ_ONLY
};

/// Where the drives are if nobody says otherwise: "quillon/drives" in the user's data folder.
std::filesystem::path DefaultDrivesFolder();

/// The one place where a library path becomes a native one.
///
/// Library paths are Windows-1252 text, either with a drive letter (`C:\Job\a.csv`, both `\` and `/` separate) or a
/// path of this system (`/srv/jobs/a.csv`). `C:`, `D:` and `E:` are the folders c, d and e below the drives folder; c
/// always exists, the others exist if their folder does. A path without a drive and without a leading separator is
/// taken from the current folder, as every program of this system takes it. On a drive, ".." goes up to the root of the
/// drive and no further.
///
/// A file on a drive that isn't there is looked for under a name that differs in capitals only, and any file under a
/// name that is no UTF-8.
class FileSystem {
public:
    /// `commandLine` names the program; the settings folder is called after it.
    explicit FileSystem(std::filesystem::path drives, std::string commandLine = "Quillon",
                        FILE_ACCESS access = FILE_ACCESS::READ_WRITE);
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;

    std::filesystem::path Native(std::string_view path) const;
    /// A drive path where the native one lies below the drives folder, else the native path as text.
    std::string LibraryPath(const std::filesystem::path& native) const;

    const std::filesystem::path& Drives() const { return drives; }
    const std::string& CommandLine() const { return commandLine; }
    FILE_ACCESS Access() const { return access; }
    /// For a folder that another program turns out to hold; see DrivesLock.
    void SetAccess(FILE_ACCESS newAccess) { access = newAccess; }

    bool Exists(std::string_view path) const;
    bool DriveIsFixed(char letter) const;
    FOLDER_RESULT CreateFolder(std::string_view path) const;
    std::optional<FileStamp> Stamp(std::string_view path) const;
    /// Removes a file for good, also over a loss of power. Nobody is told. False, with the reason in `fault`, if it
    /// stays.
    bool Remove(std::string_view path, std::string& fault) const;
    /// Removes the new files that killed writers left in a folder; the count removed. For a start.
    std::size_t ClearLeftovers(std::string_view folder) const;

    void SetCommitObserver(CommitObserver* observer) { commitObserver = observer; }
    CommitObserver* Observer() const { return commitObserver; }
    /// Watchers are told after the observer, in the order of their coming. They come and go while no other thread
    /// writes.
    void AddWatcher(FileWatcher& watcher) { watchers.push_back(&watcher); }
    void RemoveWatcher(FileWatcher& watcher) { std::erase(watchers, &watcher); }
    void TellWritten(const std::string& path) const;
    /// For a save that is given up before its file is opened for writing.
    void TellSaveFailed(const FailedSave& failed) const;

    /// For tests of what a failing system leaves behind. They must outlive the writing.
    void SetCalls(FileCalls& replacement) { calls = &replacement; }
    FileCalls& Calls() const { return *calls; }

private:
    std::filesystem::path drives;
    std::string commandLine;
    FILE_ACCESS access;
    CommitObserver* commitObserver = nullptr;
    std::vector<FileWatcher*> watchers;
    FileCalls* calls;
    mutable NameLookup lookup;
};

enum class FILE_MODE {
    TEXT,   ///< lines end in carriage return and line feed when written; read, either form ends one
    BINARY  ///< bytes as they are; a carriage return before the line feed stays in the line
};

/// A file, read in large blocks a line at a time, or written whole.
///
/// Writing replaces a file in one step: the bytes go to a new file beside it, which `Commit` flushes to the disk and
/// renames over the old one. Whatever happens before the rename (a kill, a full disk, an object dropped without
/// `Commit`), the old file stands. While one writer has a file open, every other one is refused, in this process or
/// another. Only a regular file can be replaced: a folder, a pipe or a device is refused. A link stays a link; what it
/// points to is replaced.
///
/// Reading takes no lock: a reader sees the old file or the new one, whole. No operation raises; a failure is a false
/// result.
class CStdioFile {
public:
    explicit CStdioFile(FileSystem& files);
    virtual ~CStdioFile();
    CStdioFile(const CStdioFile&) = delete;
    CStdioFile& operator=(const CStdioFile&) = delete;

    /// False if it can't be opened or isn't a regular file.
    bool OpenForReading(std::string_view path, FILE_MODE mode = FILE_MODE::TEXT);
    /// Reads `bytes` in place of a file; they must outlive the reading.
    void OpenBytes(std::string_view bytes, FILE_MODE mode = FILE_MODE::TEXT);
    /// False if the folder is missing or can't be written, the file is write-protected, or another writer has it open.
    bool OpenForWriting(std::string_view path, FILE_MODE mode = FILE_MODE::TEXT);

    bool IsReading() const { return reader != nullptr; }
    bool IsWriting() const { return writer != nullptr; }

    /// The next line without its line feed; false at the end. The view holds until the next read. Of a line longer than
    /// kLongestLine bytes the rest is passed over, so that memory stays bounded for any input. A byte order mark (of
    /// UTF-8) is no part of the first line.
    bool ReadString(std::string_view& line);
    static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

    /// Up to `size` bytes; the count read.
    std::size_t Read(void* bytes, std::size_t size);
    /// Everything from here to the end, at most `limit` bytes; false if there is more or reading fails.
    bool ReadAll(std::string& bytes, std::size_t limit);
    /// Bytes in the file when it was opened.
    std::uint64_t GetLength() const;
    /// Bytes taken by the lines so far.
    std::uint64_t GetPosition() const;
    /// Of the file when it was opened for reading, or of the one just committed; none for bytes in memory.
    const std::optional<FileStamp>& GetStamp() const { return stamp; }
    /// Why opening or committing failed, for people; empty if it didn't.
    const std::string& GetFault() const { return fault; }

    void WriteString(std::string_view text);
    /// The commit fails unless what it replaces is the file with that stamp (none: there is no file).
    void ExpectStamp(const std::optional<FileStamp>& expected);

    /// Says, behind OpenForWriting, that the file is made for others and no part of a job.
    void SetIsResult() { isResult = true; }

    /// Replaces the file with what was written and closes. False leaves the old file as it was.
    bool Commit();
    /// Ends reading; drops what was written without a commit.
    void Close();

protected:
    FileSystem& files;

private:
    class Reader;
    std::unique_ptr<Reader> reader;
    std::unique_ptr<FileWriter> writer;
    std::string writtenPath;
    std::string fault;
    std::optional<FileStamp> stamp;
    bool isResult = false;
};

}  // namespace quillon
