#include "job/file_swap.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/cache_file.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kNoteName = ".swap";
constexpr std::string_view kHead = "QUILLON SWAP 1\n";
constexpr std::string_view kFileMark = "FILE ";
constexpr std::string_view kEnd = "END\n";
constexpr std::string_view kChanged = "another program has changed it since";
constexpr std::string_view kUnreadable = "it can't be read";
/// Far above what a history holds.
constexpr std::size_t kLargestFile = std::size_t{1} << 30;

using Bytes = std::optional<std::string>;

struct Standing {
    Bytes bytes;
    std::optional<FileStamp> stamp;
    bool read = false;  ///< read, or known not to be there
};

Standing ReadStanding(FileSystem& files, const std::string& path) {
    Standing standing;
    CStdioFile file(files);
    if (!file.OpenForReading(path, FILE_MODE::BINARY)) {
        standing.read = !files.Exists(path);
        return standing;
    }
    standing.stamp = file.GetStamp();
    standing.read = file.ReadAll(standing.bytes.emplace(), kLargestFile);
    return standing;
}

/// Puts a file to `wanted`; it must still be the one that `standing` was read from.
bool Put(FileSystem& files, const std::string& path, const Standing& standing, const Bytes& wanted,
         std::string& fault) {
    if (standing.bytes == wanted) return true;
    if (!wanted) return files.Remove(path, fault);
    CStdioFile file(files);
    bool written = file.OpenForWriting(path, FILE_MODE::BINARY);
    file.ExpectStamp(standing.stamp);
    file.WriteString(*wanted);
    written = written && file.Commit();
    fault = file.GetFault();
    return written;
}

std::string NotePath(const FileSystem& files) {
    return files.LibraryPath(files.Drives() / kNoteName);
}

// ---- The note ----

void AddLength(std::string& line, const Bytes& bytes) {
    line += bytes ? ' ' + std::to_string(bytes->size()) : " -";
}

/// Takes what the note is put together from, one piece after the other.
class NoteReader {
public:
    explicit NoteReader(std::string_view note) : rest(note) {}

    bool Take(std::string_view text) {
        if (!rest.starts_with(text)) return false;
        rest.remove_prefix(text.size());
        return true;
    }
    bool TakeLength(std::size_t& length) {
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), length);
        if (error != std::errc() || (rest.front() == '0' && end - rest.data() > 1)) return false;
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
        return true;
    }
    /// A blank, then a length or a dash for none.
    bool TakeLength(std::optional<std::size_t>& length) {
        if (!Take(" ")) return false;
        length.reset();
        return Take("-") || TakeLength(length.emplace());
    }
    bool TakeBytes(std::size_t length, std::string& bytes) {
        if (length > rest.size()) return false;
        bytes = rest.substr(0, length);
        rest.remove_prefix(length);
        return true;
    }
    bool TakeBytes(std::optional<std::size_t> length, Bytes& bytes) {
        bytes.reset();
        return !length || TakeBytes(*length, bytes.emplace());
    }
    bool IsAtEnd() const { return rest.empty(); }

private:
    std::string_view rest;
};

bool TakeChange(NoteReader& note, FileChange& change) {
    std::size_t path = 0;
    std::optional<std::size_t> before, after;
    return note.Take(kFileMark) && note.TakeLength(path) && note.TakeLength(before) && note.TakeLength(after) &&
           note.Take("\n") && note.TakeBytes(path, change.path) && note.TakeBytes(before, change.before) &&
           note.TakeBytes(after, change.after) && note.Take("\n");
}

// ---- Putting all files ----

/// The files of a swap as they stand, and as they are to be.
class Swap {
public:
    explicit Swap(FileSystem& fileSystem) : files(fileSystem) {}

    /// False if the file stands neither as expected nor as wanted.
    bool Add(const std::string& path, const Bytes& expected, const Bytes& wanted, bool guarded) {
        Standing standing = ReadStanding(files, path);
        const bool fits = standing.read && (!guarded || standing.bytes == expected || standing.bytes == wanted);
        if (!fits) {
            result.path = path;
            result.fault = standing.read ? kChanged : kUnreadable;
        } else if (standing.bytes != wanted) {
            steps.push_back({path, std::move(standing), wanted});
        }
        return fits;
    }

    const SwapResult& Run() {
        const bool noted = steps.size() > 1;
        if (noted && !WriteNote()) return result;
        // What can't be put back now is the next start's to finish, by the note.
        const bool whole = DoAll() || PutBack();
        std::string ignored;
        if (noted && whole) files.Remove(NotePath(files), ignored);
        return result;
    }
    /// Without a note, and without a way back.
    bool DoAll() {
        result.done = std::all_of(steps.begin(), steps.end(), [this](const Step& step) { return Do(step); });
        return result.done;
    }
    const SwapResult& Result() const { return result; }

private:
    struct Step {
        std::string path;
        Standing standing;
        Bytes wanted;
    };

    bool Do(const Step& step) {
        if (Put(files, step.path, step.standing, step.wanted, result.fault)) return true;
        result.path = step.path;
        return false;
    }
    bool PutBack() {
        std::string ignored;
        bool all = true;
        for (const Step& step : steps) {
            const Standing now = ReadStanding(files, step.path);
            const bool swapped = now.read && now.bytes == step.wanted;
            all &= now.read && (!swapped || Put(files, step.path, now, step.standing.bytes, ignored));
        }
        return all;
    }
    bool WriteNote() {
        std::vector<FileChange> changes;
        for (const Step& step : steps) changes.push_back({step.path, step.standing.bytes, step.wanted});
        const std::string note = EncodeSwap(changes);
        result.path = NotePath(files);
        const std::string_view whole = note;
        if (!WriteCache(
                files, result.path, {&whole, 1}, [] { return true; }, &result.fault))
            return false;
        result.path.clear();
        return true;
    }

    FileSystem& files;
    std::vector<Step> steps;
    SwapResult result;
};

/// Puts back what a swap has done of which a file has been changed by something else.
void PutBackDone(FileSystem& files, const std::vector<FileChange>& changes) {
    std::string ignored;
    for (const FileChange& change : changes) {
        const Standing now = ReadStanding(files, change.path);
        if (now.read && now.bytes == change.after) Put(files, change.path, now, change.before, ignored);
    }
}

}  // namespace

SwapResult SwapFiles(FileSystem& files, std::span<const FileChange> changes, SWAP direction) {
    Swap swap(files);
    for (const FileChange& change : changes) {
        const bool back = direction == SWAP::TO_BEFORE;
        const Bytes& expected = back ? change.after : change.before;
        const Bytes& wanted = back ? change.before : change.after;
        if (!swap.Add(change.path, expected, wanted, change.guarded)) return swap.Result();
    }
    return swap.Run();
}

void FinishSwap(FileSystem& files) {
    if (files.Access() == FILE_ACCESS::READ_ONLY) return;
    const Standing note = ReadStanding(files, NotePath(files));
    if (!note.bytes) return;
    std::string ignored;
    if (const auto changes = DecodeSwap(*note.bytes)) {
        Swap swap(files);
        const bool fits = std::all_of(changes->begin(), changes->end(), [&](const FileChange& change) {
            return swap.Add(change.path, change.before, change.after, true);
        });
        if (!fits) PutBackDone(files, *changes);
        if (fits && !swap.DoAll()) return;
    }
    files.Remove(NotePath(files), ignored);
}

std::string EncodeSwap(std::span<const FileChange> changes) {
    std::string note(kHead);
    for (const FileChange& change : changes) {
        note += kFileMark;
        note += std::to_string(change.path.size());
        AddLength(note, change.before);
        AddLength(note, change.after);
        note += '\n' + change.path + change.before.value_or("") + change.after.value_or("") + '\n';
    }
    return note.append(kEnd);
}

std::optional<std::vector<FileChange>> DecodeSwap(std::string_view bytes) {
    NoteReader note(bytes);
    std::vector<FileChange> changes;
    if (!note.Take(kHead)) return std::nullopt;
    while (!note.Take(kEnd)) {
        if (!TakeChange(note, changes.emplace_back())) return std::nullopt;
    }
    return note.IsAtEnd() ? std::optional(std::move(changes)) : std::nullopt;
}

}  // namespace quillon
