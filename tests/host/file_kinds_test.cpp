#include "host/file_kinds.h"

#include <gmock/gmock.h>

#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::IsEmpty;

TEST(FileKinds, ByNameAndContent) {
    ScratchDrives drives;
    HeadlessPlatform platform(drives.Root(), "C:\\Programs\\Host.exe");
    drives.Write("C:\\Held.csv", "1,2\r\n3,4\r\n");
    drives.Write("C:\\MySettings\\Host\\Route_List.FLS", "[Route]\r\nC:\\Held.csv\r\n");
    JobRecord job(platform.Files());
    job.Load();
    const struct {
        const char* path;
        std::string_view bytes;
        KIND first;
        bool isPlain;
        const char* why;
    } kRows[] = {
        {"C:\\A.dat", "STRUCTURE 1\nNAME A\n", KIND::STRUCTURE, true, "its blocks are no other kind's"},
        {"C:\\b.csv", "500000.5,6000000\r\n500001,6000001\r\n", KIND::BOUNDARY, false, "two numbers"},
        {"C:\\c.txt", "E 500000 N 6000000\n", KIND::BOUNDARY, false, "parted by blanks"},
        {"C:\\d.csv", "Name,East,North\r\nWreck 7,500000,6000000\r\n", KIND::WAYPOINT, false, "a heading and names"},
        {"C:\\e.csv", "1,2,3,4\r\n5,6,7,8\r\n", KIND::SAIL_LINE, false, "start and end"},
        {"C:\\Job\\Pipelines\\f.csv", "1,2\r\n", KIND::PIPELINE, false, "its folder says so"},
        {"C:\\held.csv", {}, KIND::ROUTE, true, "the job has it as a route"},
        {"C:\\letter.txt", "Dear all,\r\nsee you.\r\n", KIND::NONE, false, "no position in it"},
        {"C:\\photo.jpg", {"\0 1 2\n", 7}, KIND::NONE, false, "no text"},
        {"C:\\nowhere.csv", {}, KIND::NONE, false, "no file"},
    };
    for (const auto& row : kRows) {
        if (!row.bytes.empty()) drives.Write(row.path, row.bytes);
        const FileKinds found = KindsOfFile(job, platform.Files(), row.path);
        EXPECT_EQ(found.kinds.empty() ? KIND::NONE : found.kinds.front(), row.first) << row.why;
        EXPECT_EQ(found.IsPlain(), row.isPlain) << row.why;
        EXPECT_EQ(found.kinds.empty(), !found.reason.empty()) << row.why;
    }
    EXPECT_THAT(RefusalOf(job, platform.Files(), KIND::ROUTE, "C:\\Held.csv"), IsEmpty());
    EXPECT_EQ(RefusalOf(job, platform.Files(), KIND::WAYPOINT, "C:\\letter.txt"), "nothing in it is a Waypoint");
    EXPECT_EQ(RefusalOf(job, platform.Files(), KIND::WAYPOINT, "C:\\nowhere.csv"), "it can't be opened");
}

}  // namespace
}  // namespace quillon
