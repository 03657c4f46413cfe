#pragma once

#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

// Where a job's files lie. Other programs of the system follow the same rules and find the same files.
//
// Results that are folders end in a separator. Nothing here shows a message: a failure is a false result, and what is
// opened under the path then fails quietly.

/// Creates every folder of the path that is missing. A drive path gives true if at least one of its folders below the
/// drive was created or found, a path of this system if the whole of it stands. False for a path of 3 characters or
/// fewer, and for one that starts neither at a drive nor at the root.
bool MakeDirectories(FileSystem& files, std::string_view path);

/// The folder `name` at the root of C:, D: or E:, where it is found first. Where it is on none, it is created on the
/// first fixed disk of D: and E:, else on C:. False if it can't be created; `path` then names the folder on C:.
bool FindOrCreateRootFolder(FileSystem& files, std::string_view name, std::string& path);

/// The folder "MyData" on C:, D: or E:, with `subfolder` (may be empty) below it. Where "MyData" is on none of them yet
/// it is created, and the result is "MyData" itself, without the subfolder. On failure `path` is emptied.
bool GetMyDataFolder(FileSystem& files, std::string_view subfolder, std::string& path);

/// The folder that the first line of C:\MyDrives\MyData.INI names, with `subfolder` (may be empty) below it; created at
/// need. False, with `path` emptied, if the file is missing or names none.
bool GetMyDrivesFolder(FileSystem& files, std::string_view subfolder, std::string& path);

/// The folder of one kind of data: what MyData.INI names, else below "MyData". Empty if neither can be had.
std::string GetDataFolder(FileSystem& files, std::string_view subfolder);

/// The settings folder of this program: its name below "MySettings".
bool GetSettingsFolder(FileSystem& files, std::string& path);

/// The full path of a settings file: blanks in its name become "_". An empty extension is "INI".
std::string GetSettingsPath(FileSystem& files, std::string_view name, std::string_view extension = {});

}  // namespace quillon
