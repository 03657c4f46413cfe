#include "frame/select_feature_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

TEST(SelectFeatureFiles, GivesWhatWasChosen) {
    using Texts = std::vector<std::string>;
    struct Case {
        const char* what;
        bool agreed;
        Texts chosen, files;
        bool warned;
    };
    for (const Case& c :
         std::vector<Case>{{"two", true, {" C:\\a b.csv ", "C:\\c.txt"}, {"C:\\a b.csv", "C:\\c.txt"}, false},
                           {"one is blank", true, {"  ", "C:\\c.txt"}, {"C:\\c.txt"}, false},
                           {"all are blank", true, {"  ", ""}, {}, true},
                           {"none", true, {}, {}, true},
                           {"cancel", false, {}, {}, false}}) {
        ScratchDrives drives;
        HeadlessPlatform platform(drives.Root());
        CWnd parent(platform);
        c.agreed ? platform.AnswerFiles(c.chosen) : platform.AnswerCancel();
        Texts files = {"left over"};
        EXPECT_EQ(SelectFeatureFiles(parent, "Route", files), !c.files.empty()) << c.what;
        EXPECT_EQ(files, c.files) << c.what;
        Texts calls = {"files: Route Files ...."};
        if (c.warned) calls.push_back("warning: Requires a file name");
        EXPECT_EQ(platform.Calls(), calls) << c.what;
        EXPECT_EQ(platform.FileQuestions().at(0).filter, kFeatureFileFilter);
        EXPECT_TRUE(platform.FileQuestions().at(0).multiple);
    }
}

}  // namespace
}  // namespace quillon
