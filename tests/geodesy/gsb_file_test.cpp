#include "geodesy/gsb_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "geodesy/gsb_bytes.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class GsbFileTest : public testing::Test {
protected:
    std::shared_ptr<const GsbFile> Decode(std::string_view bytes) {
        CStdioFile file(drives);
        file.OpenBytes(bytes, FILE_MODE::BINARY);
        return ReadGsb(file);
    }

    ScratchDrives drives;
};

TEST_F(GsbFileTest, ReadsHeaderAndNodes) {
    const auto file = Decode(GsbBytes{}.Make());
    ASSERT_TRUE(file);
    EXPECT_EQ(file->header.Keyword(GS_COUNT), "GS_COUNT");
    EXPECT_EQ(file->header.Text(SUB_NAME), "TESTGRID");
    EXPECT_EQ(file->header.Text(PARENT), "");
    EXPECT_EQ(file->header.Real(MINOR_T), 6356752.314140356);
    EXPECT_EQ(file->header.Real(LONG_INC), 3);
    ASSERT_EQ(file->nodes.size(), 4u);
    EXPECT_EQ(file->nodes[3].latShift, 3);
    EXPECT_EQ(file->nodes[3].lonShift, 3.0F / 10);
    EXPECT_EQ(file->nodes[3].latAccuracy, 3.0F / 100);
    EXPECT_EQ(file->nodes[3].lonAccuracy, 3.0F / 1000);
}

// A count is a claim: what the file can't hold is never allocated, and half a grid isn't handed out as a whole one.
TEST_F(GsbFileTest, LoadsNothingThatTheFileCannotHold) {
    for (const std::int32_t claimed : {0, -1, 5, 1 << 27, INT32_MAX, INT32_MIN}) {
        EXPECT_FALSE(Decode(GsbBytes{.count = claimed, .nodes = 4}.Make())) << claimed;
    }
    EXPECT_TRUE(Decode(GsbBytes{.count = 3, .nodes = 4}.Make())) << "further sub-grids may follow";
    const std::string whole = GsbBytes{}.Make();
    for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_FALSE(Decode(whole.substr(0, size))) << size;
}

TEST_F(GsbFileTest, OwnersShareOneReading) {
    const std::string path = "C:\\a.gsb";
    drives.Write(path, GsbBytes{}.Make());
    const auto first = LoadGsb(drives, path);
    ASSERT_TRUE(first);
    EXPECT_EQ(LoadGsb(drives, path), first);

    drives.Write(path, GsbBytes{.count = 9}.Make());
    const auto second = LoadGsb(drives, path);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->nodes.size(), 9u) << "a changed file is read again";
    EXPECT_EQ(first->nodes.size(), 4u) << "and leaves those who hold the old one alone";

    std::filesystem::remove(drives.Files().Native(path));
    EXPECT_FALSE(LoadGsb(drives, path));
    EXPECT_FALSE(LoadGsb(drives, "C:\\")) << "a folder";
}

struct Sample {
    const char* name;
    std::size_t nodes;  ///< 0 where nothing may be loaded
};

// Files of other makers.
TEST_F(GsbFileTest, ReadsPublicSamples) {
    const std::filesystem::path folder = QUILLON_SHARED_DATA "/samples/ntv2";
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no samples here";
    for (const Sample& sample : {Sample{"test_hgrid_little_endian.gsb", 16}, Sample{"test_hgrid_big_endian.gsb", 0},
                                 Sample{"ntv2_0_downsampled.gsb", 1248}, Sample{"test_ntv2_le.gsb", 4},
                                 Sample{"truncated_header.gsb", 0}, Sample{"truncated_nodes.gsb", 0}}) {
        const auto file = LoadGsb(drives, (folder / sample.name).string());
        EXPECT_EQ(file ? file->nodes.size() : 0, sample.nodes) << sample.name;
        if (!file) continue;
        for (std::size_t i = 0; i < kGsbRecords.size(); ++i) {
            const std::string keyword = file->header.Keyword(static_cast<GSB_RECORD>(i));
            EXPECT_EQ(keyword.substr(0, 4), kGsbRecords[i].keyword.substr(0, 4)) << sample.name;
        }
    }
}

}  // namespace
}  // namespace quillon
