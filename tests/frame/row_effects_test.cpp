#include "frame/row_effects.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/colour_schemes.h"
#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

struct Recorder : RowEffectTarget {
    void SaveFile(std::uint8_t save) override { done += "save" + std::to_string(save) + " "; }
    void SetChanged() override { done += "changed "; }
    void Broadcast(const Posts& posts) override { done += "posts" + std::to_string(posts.end() - posts.begin()); }
    std::string done;
};

TEST(RowEffects, DoWhatTheirLineSays) {
    struct Case {
        RowEffect effect;
        bool differed;
        const char* done;
    };
    for (const Case& c : {Case{{1, ENDS, 2, true, {REDRAW}}, true, "save2 changed posts1"},
                          Case{{1, ENDS, 2, true, {REDRAW}}, false, ""},
                          Case{{1, SAVES, 2, true, {REDRAW}}, true, "save2 changed posts1"},
                          Case{{1, SAVES, 2, true, {REDRAW}}, false, "save2 "},
                          Case{{1, COUNTS, 2, true, {RECOMPUTE}}, false, "save2 changed posts1"},
                          Case{{1, COUNTS, 0, false, {RECOMPUTE, REDRAW}}, true, "posts2"},
                          Case{{1, COUNTS, 1, false, {}}, true, "save1 posts0"}}) {
        Recorder target;
        ApplyRowEffect(c.effect, c.differed, target);
        EXPECT_EQ(target.done, c.done);
    }
}

TEST(RowEffects, AreFoundById) {
    const std::vector<RowEffect> effects = {{0, ENDS, 0, false, {}}, {7, ENDS, 0, false, {}}};
    EXPECT_EQ(FindRowEffect(effects, 7), &effects[1]);
    EXPECT_EQ(FindRowEffect(effects, 8), nullptr);
    EXPECT_EQ(FindRowEffect(effects, 0), nullptr);  // rows without a reaction
}

TEST(ColourSchemes, ApplyByNumberAndNight) {
    EXPECT_EQ(SchemeColours(1, true),
              (PropertyColours{0x000000, 0xC0C0C0, 0x555555, 0xEBEBEB, 0x555555, 0xC0C0C0, 0x555555}));
    EXPECT_EQ(SchemeColours(3, false),
              (PropertyColours{0xFFCC99, 0x000000, 0x800000, 0xFF8080, 0x800000, 0xFF8080, 0x000000}));
    EXPECT_EQ(SchemeColours(7, true),
              (PropertyColours{0x000000, 0xC0C0C0, 0x800000, 0xEBEBEB, 0x555555, 0xC0C0C0, 0x555555}));
    for (int scheme = 0; scheme < kColourSchemeCount; ++scheme) {
        EXPECT_EQ(SchemeColours(scheme, false) == SchemeColours(scheme, true), scheme == 0) << scheme;
        for (int other = 0; other < scheme; ++other)
            EXPECT_NE(SchemeColours(scheme, false), SchemeColours(other, false));
    }
    EXPECT_THROW(SchemeColours(8, false), InvalidArgument);
    EXPECT_THROW(SchemeColours(-1, false), InvalidArgument);
    ScratchDrives drives;
    HeadlessPlatform platform(drives.Root());
    CWnd owner(platform);
    CMyMFCPropertyGridCtrl list(owner, 1);
    list.night = true;
    ApplyColourScheme(list, 5);
    EXPECT_EQ(list.GetCustomColors(), SchemeColours(5, true));
    EXPECT_EQ(list.colourScheme, 5);
}

}  // namespace
}  // namespace quillon
