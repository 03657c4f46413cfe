#pragma once

#include <string>
#include <string_view>

namespace quillon {

// The text side of paths: nothing here touches a file. A path is a drive path with backslashes (`C:\Job\a.csv`) or one
// of this system (`/srv/jobs/a.csv`); both `\` and `/` separate.
//
// A separator that is the path's first character doesn't count when it is a backslash: it stays with the name. A
// leading `/` is the root of this system and so a folder: the folder of "/a.csv" is "/".

struct tagPathParts {
    std::string folder;     ///< with its last separator; may be empty
    std::string name;       ///< without folder and extension
    std::string extension;  ///< without the dot
    friend bool operator==(const tagPathParts&, const tagPathParts&) = default;
};

/// Double quotes are removed from the path first. The extension follows the last dot behind the folder.
tagPathParts SplitPath(std::string_view path);

/// The path up to and including its last separator; empty if there is none.
std::string FolderOfPath(std::string_view path);

/// What lists and combos show for a file: its name without folder and extension, and without blanks around it unless
/// it is nothing but blanks.
std::string NameOfPath(std::string_view path);

/// The path with what follows its last dot replaced; without a dot the extension is added. The last dot of the whole
/// path counts, also one in a folder's name.
std::string ReplaceExtension(std::string_view path, std::string_view extension);

/// `folder` is empty or ends in a separator. An empty extension is "INI".
std::string MakePath(std::string_view folder, std::string_view name, std::string_view extension = {});

/// The separator that a path is continued with: `/` for a path of this system, else a backslash.
char SeparatorOf(std::string_view path);

/// Ends the path in a separator unless it does already.
void EndInSeparator(std::string& path);

}  // namespace quillon
