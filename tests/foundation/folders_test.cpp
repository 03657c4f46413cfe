#include "foundation/folders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// A machine: its drives beside C:, the folders and the files that blocks the way (a file where a folder is wanted).
struct Machine {
    const char* name;
    std::string drives;
    std::vector<std::string> folders;
    std::vector<std::string> blocked;
    bool found;
    std::string path;
};

void Furnish(ScratchDrives& drives, const Machine& machine) {
    for (const char drive : machine.drives) drives.AddDrive(drive);
    for (const std::string& folder : machine.folders) drives.MakeFolder(folder);
    for (const std::string& path : machine.blocked) drives.Write(path, "");
}

TEST(Folders, SearchTheDrivesForARootFolder) {
    for (const Machine& machine : {
             Machine{"nothing yet", "", {}, {}, true, "C:\\MySettings\\"},
             Machine{"on C:, though D: has it too",
                     "d",
                     {"C:\\MySettings", "D:\\MySettings"},
                     {},
                     true,
                     "C:\\MySettings\\"},
             Machine{"created on D: ahead of C:", "de", {}, {}, true, "D:\\MySettings\\"},
             // D: is asked and created on before E: is looked at.
             Machine{"created on D:, though E: has it", "de", {"E:\\MySettings"}, {}, true, "D:\\MySettings\\"},
             Machine{"on E:, no D:", "e", {}, {}, true, "E:\\MySettings\\"},
             Machine{"D: can't hold it", "de", {}, {"D:\\MySettings"}, true, "E:\\MySettings\\"},
             Machine{"no drive can hold it", "d", {}, {"C:\\MySettings", "D:\\MySettings"}, false, "C:\\MySettings\\"},
         }) {
        SCOPED_TRACE(machine.name);
        ScratchDrives drives;
        Furnish(drives, machine);
        std::string path;
        EXPECT_EQ(FindOrCreateRootFolder(drives, "MySettings", path), machine.found);
        EXPECT_EQ(path, machine.path);
        EXPECT_EQ(drives.Exists(path), machine.found);
    }
}

TEST(Folders, FindTheDataFolder) {
    for (const Machine& machine : {
             // The first call on a fresh machine gives the bare root.
             Machine{"nothing yet", "", {}, {}, true, "C:\\MyData\\"},
             Machine{"nothing yet, D: is a fixed disk", "d", {}, {}, true, "D:\\MyData\\"},
             Machine{"on C:", "d", {"C:\\MyData", "D:\\MyData\\Routes"}, {}, true, "C:\\MyData\\Routes\\"},
             Machine{"on D:", "de", {"D:\\MyData", "E:\\MyData"}, {}, true, "D:\\MyData\\Routes\\"},
             Machine{"on E:", "de", {"E:\\MyData"}, {}, true, "E:\\MyData\\Routes\\"},
             Machine{"C: can't hold the subfolder",
                     "d",
                     {"C:\\MyData", "D:\\MyData"},
                     {"C:\\MyData\\Routes"},
                     true,
                     "D:\\MyData\\Routes\\"},
             Machine{
                 "no drive can hold the subfolder", "", {"C:\\MyData"}, {"C:\\MyData\\Routes"}, true, "C:\\MyData\\"},
             Machine{"no drive can hold anything", "", {}, {"C:\\MyData"}, false, ""},
         }) {
        SCOPED_TRACE(machine.name);
        ScratchDrives drives;
        Furnish(drives, machine);
        std::string path;
        EXPECT_EQ(GetMyDataFolder(drives, "Routes", path), machine.found);
        EXPECT_EQ(path, machine.path);
        EXPECT_TRUE(drives.Exists(path) || !machine.found);
    }
}

TEST(Folders, FollowTheFileThatNamesTheDataFolder) {
    struct Row {
        const char* name;
        std::string ini;
        std::string path;
    };
    ScratchDrives native;  // a folder of this system, removed at the end
    const std::string srv = native.Root().string();
    for (const Row& row : {
             Row{"named", "D:\\Jobs\r\n", "D:\\Jobs\\Routes\\"},
             Row{"in blanks, ending in a separator, no end of line", "  D:\\Jobs\\2024\\  ",
                 "D:\\Jobs\\2024\\Routes\\"},
             Row{"a path of this system", srv + "/jobs\n", srv + "/jobs/Routes/"},
             // Everything else goes the way of the search.
             Row{"empty first line", "\r\nD:\\Jobs\r\n", "C:\\MyData\\Routes\\"},
             Row{"no file", "", "C:\\MyData\\Routes\\"},
             Row{"a drive that isn't there", "X:\\Jobs", "C:\\MyData\\Routes\\"},
             Row{"no drive", "Jobs", "C:\\MyData\\Routes\\"},
         }) {
        SCOPED_TRACE(row.name);
        ScratchDrives drives;
        drives.AddDrive('d');
        drives.MakeFolder("C:\\MyData");
        if (!row.ini.empty()) drives.Write("C:\\MyDrives\\MyData.INI", row.ini);
        EXPECT_EQ(GetDataFolder(drives, "Routes"), row.path);
        EXPECT_TRUE(drives.Exists(row.path));
        EXPECT_TRUE(drives.Exists("C:\\MyDrives\\"));
    }
}

}  // namespace
}  // namespace quillon
