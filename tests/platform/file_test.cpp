#include "platform/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

// ---- Paths ----

TEST(FileSystem, MapsDrivePaths) {
    ScratchDrives drives;
    const fs::path root = drives.Root();
    const struct {
        const char* path;
        fs::path native;
    } rows[] = {{"C:\\Job\\a.csv", root / "c/Job/a.csv"},
                {"c:/Job/a.csv", root / "c/Job/a.csv"},
                {"D:\\Job/a.csv", root / "d/Job/a.csv"},
                {"E:a.csv", root / "e/a.csv"},
                {"C:", root / "c"},
                {"C:\\", root / "c"},
                {"C:\\\\Job\\\\a.csv", root / "c/Job/a.csv"},
                {"C:\\Job\\", root / "c/Job/"},
                {"C:\\Job\\..\\a.csv", root / "c/a.csv"},
                {"C:\\..\\..\\..\\etc\\passwd", root / "c/etc/passwd"},
                {"C:..\\..\\d\\a.csv", root / "c/d/a.csv"},
                {"C:\\.\\a.csv", root / "c/a.csv"},
                {"C:\\K\xFCste\\\x80.csv", root / "c/K\xC3\xBCste/\xE2\x82\xAC.csv"},
                {"C:\\\xABU+1F6A2\xBB", root / "c/\xF0\x9F\x9A\xA2"},
                {"/srv/jobs/a.csv", "/srv/jobs/a.csv"},
                {"\\srv\\jobs\\a.csv", "/srv/jobs/a.csv"},
                {"/srv/../a.csv", "/srv/../a.csv"},
                {"jobs\\a.csv", "jobs/a.csv"},
                {"", ""},
                {":\\a", ":/a"},
                {"1:\\a", "1:/a"}};
    for (const auto& row : rows) EXPECT_EQ(drives.Files().Native(row.path).string(), row.native.string()) << row.path;
    EXPECT_EQ(drives.Files().Native(std::string_view("C:\\a\0b", 6)), root / "c/a");
}

TEST(FileSystem, GivesTheDrivePathBack) {
    ScratchDrives drives;
    const FileSystem& files = drives.Files();
    for (const std::string path :
         {"C:\\Job\\a.csv", "E:\\a", "C:\\", "D:\\", "C:\\K\xFCste\\\xABU+1F6A2\xBB.csv", "/srv/jobs/\xE4.csv"}) {
        EXPECT_EQ(files.LibraryPath(files.Native(path)), path);
    }
    const FileSystem trailing(drives.Root() / "");
    EXPECT_EQ(trailing.LibraryPath(drives.Root() / "c/a"), "C:\\a");
    EXPECT_EQ(files.LibraryPath(drives.Root() / "readme"), (drives.Root() / "readme").string());
    EXPECT_EQ(files.LibraryPath(drives.Root() / "../c/a"), (drives.Root() / "../c/a").string());
}

/// A job carried over from another system: its list names files in other capitals, and in another alphabet's bytes.
TEST(FileSystem, FindsFilesByNamesThatStandForTheirs) {
    ScratchDrives drives;
    const fs::path root = drives.Root();
    const auto make = [&](const std::string& below) {
        fs::create_directories((root / below).parent_path());
        std::ofstream(root / below) << below;
    };
    for (const char* file : {"c/Jobs/North/LEG 7.CSV", "c/Jobs/North/Twin.csv", "c/Jobs/North/TWIN.csv",
                             "c/jobs2/K\xC3\x9CSTE.csv", "c/jobs2/Caf\xE9.csv"}) {
        make(file);
    }
    const std::string raw = (root / "c/jobs2/").string();
    const struct {
        std::string path;
        std::string native;
    } rows[] = {{"C:\\jobs\\NORTH\\Leg 7.csv", "c/Jobs/North/LEG 7.CSV"},
                {"C:\\Jobs\\North\\twin.csv", "c/Jobs/North/TWIN.csv"},
                {"C:\\Jobs\\North\\Twin.csv", "c/Jobs/North/Twin.csv"},
                {"C:\\Jobs2\\k\xFCste.CSV", "c/jobs2/K\xC3\x9CSTE.csv"},
                {"C:\\jobs2\\caf\xE9.csv", "c/jobs2/Caf\xE9.csv"},
                {"C:\\JOBS\\None\\leg 7.csv", "c/Jobs/None/leg 7.csv"},
                {raw + "Caf\xE9.csv", "c/jobs2/Caf\xE9.csv"},
                {raw + "caf\xE9.csv", "c/jobs2/caf\xC3\xA9.csv"},
                {raw + "k\xFCste.csv", "c/jobs2/k\xC3\xBCste.csv"}};
    for (int round = 0; round < 2; ++round) {
        for (const auto& row : rows) {
            EXPECT_EQ(drives.Files().Native(row.path).string(), (root / row.native).string());
        }
    }
    // What comes or goes meanwhile is seen, and a save renews the file that is there.
    make("c/Jobs/None/Leg 7.csv");
    EXPECT_EQ(drives.Read("C:\\jobs\\none\\LEG 7.csv"), "c/Jobs/None/Leg 7.csv");
    CStdioFile file(drives.Files());
    ASSERT_TRUE(file.OpenForWriting("C:\\jobs\\none\\LEG 7.csv"));
    ASSERT_TRUE(file.Commit());
    EXPECT_EQ(drives.Read("C:\\Jobs\\None\\Leg 7.csv"), "");
    fs::remove(root / "c/Jobs/None/Leg 7.csv");
    EXPECT_FALSE(drives.Exists("C:\\jobs\\none\\LEG 7.csv"));
}

TEST(FileSystem, OpenedForReadingAloneChangesNothing) {
    ScratchDrives drives;
    drives.Write("C:\\a.csv", "1, 2\n");
    const FileSystem reader(drives.Root(), "Quillon", FILE_ACCESS::READ_ONLY);
    EXPECT_EQ(reader.CreateFolder("C:\\Job\\"), FOLDER_RESULT::THERE);
    EXPECT_FALSE(drives.Exists("C:\\Job"));

    FileSystem elsewhere(drives.Root() / "none", "Quillon", FILE_ACCESS::READ_ONLY);
    EXPECT_FALSE(std::filesystem::exists(drives.Root() / "none"));
    CStdioFile file(elsewhere);
    const std::string native = elsewhere.LibraryPath(drives.Root() / "c/a.csv");
    EXPECT_FALSE(file.OpenForWriting(native));
    EXPECT_TRUE(file.OpenForReading(native));
    EXPECT_EQ(drives.Read("C:\\a.csv"), "1, 2\n");
}

// ---- Reading lines ----

constexpr std::size_t kLongest = CStdioFile::kLongestLine;

/// What the lines of some bytes are, told the slow way.
std::vector<std::string> LinesOf(std::string_view bytes, FILE_MODE mode) {
    std::vector<std::string> lines;
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes == kMark) return {""};
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    while (!bytes.empty()) {
        const std::size_t feed = std::min(bytes.find('\n'), bytes.size());
        std::string line(bytes.substr(0, feed));
        bytes.remove_prefix(std::min(feed + 1, bytes.size()));
        if (line.size() > kLongest) {
            line.resize(kLongest);
        } else if (mode == FILE_MODE::TEXT && line.ends_with('\r')) {
            line.pop_back();
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

void ExpectLines(CStdioFile& file, std::string_view bytes, FILE_MODE mode, const std::string& what) {
    const std::vector<std::string> expected = LinesOf(bytes, mode);
    std::string_view line;
    std::size_t count = 0;
    while (file.ReadString(line)) {
        ASSERT_LT(count, expected.size()) << what;
        ASSERT_TRUE(line == expected[count])
            << what << ", line " << count << ": " << line.size() << " bytes, not " << expected[count].size();
        ++count;
    }
    EXPECT_EQ(count, expected.size()) << what;
    EXPECT_EQ(file.GetPosition(), bytes.size()) << what;
    EXPECT_EQ(file.GetLength(), bytes.size()) << what;
    EXPECT_FALSE(file.ReadString(line)) << what << ", behind the end";
}

void ExpectLinesBothWays(const std::string& bytes, const std::string& what) {
    ScratchDrives drives;
    drives.Write("C:\\a", bytes);
    for (const FILE_MODE mode : {FILE_MODE::TEXT, FILE_MODE::BINARY}) {
        CStdioFile file(drives.Files());
        ASSERT_TRUE(file.OpenForReading("C:\\a", mode));
        ExpectLines(file, bytes, mode, what + " from a file");
        file.OpenBytes(bytes, mode);
        ExpectLines(file, bytes, mode, what + " from memory");
    }
}

TEST(Reading, CutsEndlessLinesAndFindsTheNext) {
    for (const std::size_t length :
         {kLongest - 2, kLongest - 1, kLongest, kLongest + 1, kLongest + 2, 3 * kLongest + 7}) {
        for (const std::string end : {"\n", "\r\n", "\r", ""}) {
            const std::string what = std::to_string(length) + " and " + ::testing::PrintToString(end);
            const std::string tail = end.ends_with('\n') ? "next\r\nlast" : "";
            ExpectLinesBothWays(std::string(length, 'x') + end + tail, what);
            ExpectLinesBothWays("first\n" + std::string(length, '\r') + end + tail, what + ", all returns");
        }
    }
}

TEST(Reading, KeepsLinesWholeAcrossBlocks) {
    std::mt19937 random(8);
    for (const std::size_t longest : {60u, 5000u, 400000u}) {
        std::string bytes;
        while (bytes.size() < 1'500'000) {
            for (std::size_t n = random() % longest; n > 0; --n) bytes += static_cast<char>('a' + n % 26);
            bytes += random() % 3 == 0 ? "\n" : "\r\n";
        }
        ExpectLinesBothWays(bytes, "lines up to " + std::to_string(longest));
    }
}

TEST(Reading, GivesBytes) {
    ScratchDrives drives;
    std::string bytes(700'000, '\0');
    std::mt19937 random(3);
    for (char& c : bytes) c = static_cast<char>(random());
    drives.Write("C:\\a", bytes);

    CStdioFile file(drives.Files());
    std::string read;
    ASSERT_TRUE(file.OpenForReading("C:\\a", FILE_MODE::BINARY));
    std::string part(300'001, '\0');
    while (const std::size_t n = file.Read(part.data(), part.size())) read.append(part, 0, n);
    EXPECT_TRUE(read == bytes);

    for (const std::size_t limit : {bytes.size(), bytes.size() + 1, std::size_t{1} << 40}) {
        ASSERT_TRUE(file.OpenForReading("C:\\a", FILE_MODE::BINARY));
        EXPECT_TRUE(file.ReadAll(read, limit));
        EXPECT_TRUE(read == bytes);
    }
    ASSERT_TRUE(file.OpenForReading("C:\\a", FILE_MODE::BINARY));
    EXPECT_FALSE(file.ReadAll(read, bytes.size() - 1));
    ASSERT_TRUE(file.OpenForReading("C:\\a", FILE_MODE::BINARY));
    EXPECT_FALSE(file.ReadAll(read, 0));

    file.OpenBytes("head\nrest\r\n\0more");
    std::string_view line;
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_TRUE(file.ReadAll(read, 100));
    EXPECT_EQ(read, "rest\r\n");
    file.OpenBytes("");
    EXPECT_TRUE(file.ReadAll(read, 0));
}

TEST(Reading, TellsAFailureFromTheEnd) {
    ScratchDrives drives;
    CStdioFile file(drives.Files());
    // The memory of this process has nothing at address 0: it opens, and can't be read.
    if (!file.OpenForReading("/proc/self/mem", FILE_MODE::BINARY)) GTEST_SKIP() << "no file that fails to be read";
    std::string bytes;
    EXPECT_FALSE(file.ReadAll(bytes, 100));
}

TEST(Reading, RefusesWhatIsNoFile) {
    ScratchDrives drives;
    drives.MakeFolder("C:\\Folder");
    ASSERT_EQ(::mkfifo((drives.Root() / "c/pipe").c_str(), 0600), 0);
    CStdioFile file(drives.Files());
    for (const char* path : {"C:\\Folder", "C:\\pipe", "/dev/null", "/dev/zero", "C:\\none", "C:\\Folder\\none", ""}) {
        EXPECT_FALSE(file.OpenForReading(path)) << path;
        EXPECT_FALSE(file.IsReading());
    }
    std::string_view line;
    std::string bytes;
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_FALSE(file.ReadAll(bytes, 10));
    EXPECT_EQ(file.Read(bytes.data(), 0), 0u);
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_FALSE(file.Commit());
}

}  // namespace
}  // namespace quillon
