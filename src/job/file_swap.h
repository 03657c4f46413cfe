#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace quillon {

/// The bytes of a file at two times; none where there was no file.
struct FileChange {
    std::string path;
    std::optional<std::string> before;
    std::optional<std::string> after;
    /// Whether it matters that the file is as it was left: if not, it is replaced whatever stands in it.
    bool guarded = true;
};

enum class SWAP { TO_BEFORE, TO_AFTER };

struct SwapResult {
    bool done = false;
    std::string path;   ///< the file that stood in the way; empty if none did
    std::string fault;  ///< why, for people
};

/// Puts several files to their bytes of the other time: all of them or none.
///
/// Each is compared first: one that something else has changed, removed or made meanwhile stops it all before anything
/// is written. Where several are to be written, what is about to come is noted in a file of the drives folder, so that
/// after a kill the next start finishes it (FinishSwap). A step that fails undoes those before it. The observer of
/// commits and the watchers hear of every file written.
SwapResult SwapFiles(FileSystem& files, std::span<const FileChange> changes, SWAP direction);

/// For a start, before anything is read: finishes a swap that was cut short. Where another program has changed one of
/// its files since, those that were swapped are put back. Nothing happens in a FileSystem for reading only.
void FinishSwap(FileSystem& files);

/// What is noted of a swap: the bytes as they stand, `before`, and as they will be, `after`.
std::string EncodeSwap(std::span<const FileChange> changes);
/// None for bytes that are no whole note.
std::optional<std::vector<FileChange>> DecodeSwap(std::string_view bytes);

}  // namespace quillon
