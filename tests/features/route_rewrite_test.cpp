#include "features/route_rewrite.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <set>

#include "features/route.h"
#include "platform/child_process.h"
#include "platform/file_calls.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPath = "C:\\Job\\Leg 7.csv";
constexpr std::string_view kOriginal = "C:\\Job\\Leg 7 (original).csv";
constexpr int kKilled = 9;
constexpr std::string_view kOrderFile = "C:\\MySettings\\Host\\Leg_7_DATA_ORDER.INI";

class RouteRewriteTest : public testing::Test {
protected:
    RouteRewriteTest() {
        drives.MakeFolder("C:\\Job");
        drives.MakeFolder("C:\\MyData\\Routes");
    }
    bool Read(int order, std::string_view bytes) {
        drives.Write(kPath, bytes);
        SaveDataOrder(drives, "Leg 7", order);
        return route.Read(kPath);
    }
    std::set<std::string> Names() {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(drives.Files().Native("C:\\Job"))) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    ScratchDrives drives;
    CRoute route{drives};
};

TEST_F(RouteRewriteTest, CountsEveryLoss) {
    struct Row {
        int from, to;
        std::string_view bytes;
        std::array<std::size_t, kLossKinds> counts;  ///< lines, text, names, positions, mark
    };
    const std::array<std::size_t, kLossKinds> none{};
    for (const Row& row : std::vector<Row>{
             {0, 0, "1.5, 2.25\r\n3,4\n\n5\t6\n 7 8 \n+9,1e2,,\n\r\n", none},
             {1, 2,
              "A, 1.5, 2\n\"B, C\",3,4\n D\xAB"
              "COMMA>\xBB ,5,6\n,7,8\n",
              none},
             {0, 1, "1,2\n3,4\n", none},
             {1, 0, "WPT 1,1,2\nWPT 2,3,4\n", none},
             {0, 0,
              "\xEF\xBB\xBF"
              "1,2\n",
              none},
             {1,
              1,
              "\xEF\xBB\xBF"
              "K\xC3\xBCste,1,2\n",
              {0, 0, 0, 0, 1}},
             {0, 0, "Transit\n1,2\n0,0\n1e400,5\n;\n", {4, 0, 0, 0, 0}},
             {0, 0, "E 1 N 2\n3,4,15.5\n5,6,,x\n7,8\r9,10\n1.2.3,4\n2024-03-05,6\n7m,8m\n", {0, 7, 0, 0, 0}},
             {0, 1, "Pilot, 1, 2\n", {0, 1, 0, 0, 0}},
             {1, 2, "\"A\"B,1,2\nC,x 1,2\nD,1,2,3\n", {0, 3, 0, 0, 0}},
             {1, 0, "Pilot,1,2\nWPT 2,3,4\n", {0, 0, 1, 0, 0}},
             {2, 1, "1,2,\" A \"\n", none},
             {0, 0, "1.0005,2\n3,4.1234\n5,6.123000\n0.0001,0.0001\n", {0, 0, 0, 3, 0}},
             {0, 0, "0.30000000000000004,2\n", {0, 0, 0, 1, 0}}}) {
        SCOPED_TRACE(row.bytes);
        ASSERT_TRUE(Read(row.from, row.bytes));
        route.dataOrder = row.to;
        const CRouteRewrite rewrite(route);
        EXPECT_EQ(rewrite.GetFault(), "");
        EXPECT_EQ(rewrite.Losses().counts, row.counts);
        EXPECT_EQ(rewrite.Losses().Any(), row.counts != none);
    }
    std::string endless(CStdioFile::kLongestLine + 5, 'x');
    ASSERT_TRUE(Read(0, "1,2\n3,4," + endless + "\n"));
    EXPECT_EQ(CRouteRewrite(route).Losses().named[0].text, "3,4," + std::string(56, 'x'));
}

TEST_F(RouteRewriteTest, KeepsTheFileAsItWasBesideIt) {
    constexpr std::string_view kClients = "Transit plan\r\n500000.12345,6000000\r\n500300,6000400\r\n";
    ASSERT_TRUE(Read(0, kClients));
    EXPECT_TRUE(route.SaveRoute());
    EXPECT_EQ(route.GetLastSave().original, kOriginal);
    EXPECT_EQ(route.GetLastSave().losses.Count(LOSS::LINE), 1u);
    EXPECT_EQ(route.GetLastSave().losses.named[1].line, 2u);
    EXPECT_EQ(drives.Read(kOriginal), kClients);
    const std::string_view saved = "500000.123, 6000000.000\r\n500300.000, 6000400.000\r\n";
    EXPECT_EQ(drives.Read(kPath), saved);

    // Nothing more to lose, so nothing more to keep.
    ASSERT_TRUE(route.Read(kPath));
    EXPECT_TRUE(route.SaveRoute());
    EXPECT_EQ(route.GetLastSave().original, "");
    // The same file again, then another: the first original is never overwritten.
    ASSERT_TRUE(Read(0, kClients));
    EXPECT_TRUE(route.SaveRoute());
    EXPECT_EQ(route.GetLastSave().original, kOriginal);
    ASSERT_TRUE(Read(0, "Issue B\n1,2\n"));
    EXPECT_TRUE(route.SaveRoute());
    EXPECT_EQ(drives.Read(kOriginal), kClients);
    EXPECT_EQ(drives.Read("C:\\Job\\Leg 7 (original 2).csv"), "Issue B\n1,2\n");
    EXPECT_EQ(Names(),
              (std::set<std::string>{"Leg 7.csv", "Leg 7.INI", "Leg 7 (original).csv", "Leg 7 (original 2).csv"}));
}

TEST_F(RouteRewriteTest, NeverOverwritesWhatItHasNotRead) {
    struct : CommitObserver {
        void OnCommitted(const FileCommit&) override {}
        void OnSaveFailed(const FailedSave& failed) override { told += failed.path + ": " + failed.reason; }
        std::string told;
    } observer;
    drives.Files().SetCommitObserver(&observer);
    const std::string why = "it has changed on the disk since it was read";
    ASSERT_TRUE(Read(0, "1,2\n3,4\n"));
    drives.Write(kPath, "1,2\n3,4\n5,6\n");
    EXPECT_FALSE(route.SaveRoute());
    EXPECT_EQ(route.GetLastSave().fault, why);
    EXPECT_EQ(observer.told, std::string(kPath) + ": " + why);
    // Also where it changes while the new one is being made.
    ASSERT_TRUE(route.Read(kPath));
    route.dataOrder = 1;
    CRouteRewrite rewrite(route);
    drives.Write(kPath, "7,8\n");
    EXPECT_FALSE(rewrite.Commit());
    EXPECT_EQ(drives.Read(kPath), "7,8\n");
    EXPECT_EQ(drives.Read(kOrderFile), "Data Order = 0\r\n") << "the order stands with its file";
    // Read again, it is the route's own.
    route.dataOrder = 0;
    ASSERT_TRUE(route.ReadPoints());
    EXPECT_TRUE(route.SaveRoute());
    EXPECT_EQ(drives.Read(kPath), "7.000, 8.000\r\n");
    drives.Files().SetCommitObserver(nullptr);
}

/// Ends the process before the `last`th call (from 1) that changes anything on the disk.
class KilledCalls : public FileCalls {
public:
    explicit KilledCalls(int lastCall) : last(lastCall) {}
    int Open(const char* path, int flags, mode_t mode) override { return Go(), FileCalls::Open(path, flags, mode); }
    int Truncate(int fd) override { return Go(), FileCalls::Truncate(fd); }
    ssize_t Write(int fd, const void* bytes, std::size_t size) override {
        return Go(), FileCalls::Write(fd, bytes, size);
    }
    int Rename(const char* from, const char* to) override { return Go(), FileCalls::Rename(from, to); }

private:
    void Go() {
        if (++count == last) ::_exit(kKilled);
    }
    int last;
    int count = 0;
};

/// A kill at any moment leaves a file and an order that belong together.
TEST_F(RouteRewriteTest, StandsUpToAKillBetweenTheFileAndItsOrder) {
    std::set<std::int32_t> orders;
    int last = 0;
    FileCalls never;
    for (bool killed = true; killed;) {
        ASSERT_TRUE(Read(1, "A, 1.0001, 2\r\nB, 3.000, 4.000\r\n"));
        fs::remove(drives.Files().Native(kOriginal));
        KilledCalls calls(++last);
        drives.Files().SetCalls(calls);
        killed = ChildProcess([&] {
                     route.dataOrder = 2;
                     return route.SaveRoute() ? 0 : 1;
                 }).Wait() == kKilled;
        const std::string bytes = drives.Read(kPath);
        drives.Files().SetCalls(never);
        ASSERT_TRUE(route.Read(kPath)) << bytes;
        ASSERT_EQ(route.GetSize(), 2) << bytes;
        ASSERT_TRUE(route[0].name == "A" && route[1].name == "B" && route[1].position == (tagXY{3, 4})) << bytes;
        EXPECT_EQ(drives.Read(kOrderFile), Format("Data Order = %d\r\n", route.dataOrder)) << "settled for good";
        EXPECT_EQ(route.dataOrder == 2, route[0].position.x == 1.0) << bytes;
        if (killed) orders.insert(route.dataOrder);
    }
    EXPECT_EQ(last, 21) << "a new step needs its place here";
    EXPECT_EQ(orders, (std::set<std::int32_t>{1, 2}));

    // Cut short before and behind the data file, by hand; looking alone settles nothing on the disk.
    const std::string noted =
        "Data Order = 1\r\nRewritten File = C:\\JOB\\leg 7.csv\r\nRewritten Order = 2\r\nRewritten Bytes = ";
    CheckOfBytes check;
    check.Add("1, 2, A\n");
    for (const auto& [bytes, order] : {std::pair{"1, 2, A\n", 2}, std::pair{"A, 1, 2\n", 1}}) {
        drives.Write(kPath, bytes);
        drives.Write(kOrderFile, noted + check.Text() + "\r\n");
        FileSystem looking(drives.Root(), "C:\\Programs\\Host.exe", FILE_ACCESS::READ_ONLY);
        EXPECT_EQ(LoadDataOrder(looking, kPath), order);
        EXPECT_EQ(LoadDataOrder(drives, "C:\\Elsewhere\\Leg 7.csv"), 1);
        EXPECT_EQ(drives.Read(kOrderFile), noted + check.Text() + "\r\n");
        EXPECT_EQ(LoadDataOrder(drives, kPath), order);
        EXPECT_EQ(drives.Read(kOrderFile), Format("Data Order = %d\r\n", order));
    }
}

}  // namespace
}  // namespace quillon
