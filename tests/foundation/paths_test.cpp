#include "foundation/paths.h"

#include <gtest/gtest.h>

#include <ostream>

namespace quillon {

std::ostream& operator<<(std::ostream& out, const tagPathParts& parts) {
    return out << '[' << parts.folder << "] [" << parts.name << "] [" << parts.extension << ']';
}

namespace {

TEST(Paths, SplitsAtTheLastSeparatorAndTheLastDot) {
    struct Row {
        const char* path;
        tagPathParts parts;
    };
    for (const Row& row : {
             Row{"C:\\Job\\Line A.csv", {"C:\\Job\\", "Line A", "csv"}},
             Row{"\"C:\\My Job\\a.b.csv\"", {"C:\\My Job\\", "a.b", "csv"}},
             Row{"C:\\Job.2024\\readme", {"C:\\Job.2024\\", "readme", ""}},
             Row{"C:\\Job\\", {"C:\\Job\\", "", ""}},
             Row{"a.", {"", "a", ""}},
             Row{".profile", {"", "", "profile"}},
             Row{"C:a.csv", {"", "C:a", "csv"}},
             // A leading backslash stays with the name; a leading slash is this system's root.
             Row{"\\a.csv", {"", "\\a", "csv"}},
             Row{"\\\\server\\a.csv", {"\\\\server\\", "a", "csv"}},
             Row{"/a.csv", {"/", "a", "csv"}},
             Row{"/srv/jobs.d/a", {"/srv/jobs.d/", "a", ""}},
             Row{"C:\\Job/sub\\a.csv", {"C:\\Job/sub\\", "a", "csv"}},
             Row{"", {"", "", ""}},
         }) {
        EXPECT_EQ(SplitPath(row.path), row.parts) << row.path;
    }
}

TEST(Paths, NamesFoldersAndFiles) {
    struct Row {
        const char* path;
        const char* folder;
        const char* name;
    };
    for (const Row& row : {
             Row{"C:\\Job\\ Line A .csv", "C:\\Job\\", "Line A"},
             Row{"C:\\Job\\a.b.csv", "C:\\Job\\", "a.b"},
             Row{"C:\\Job\\  .csv", "C:\\Job\\", "  "},  // nothing would be left
             Row{"\\a.csv", "", "\\a"},
             Row{"a", "", "a"},
             Row{"/srv/a.csv", "/srv/", "a"},
             Row{"/a.csv", "/", "a"},
         }) {
        EXPECT_EQ(FolderOfPath(row.path), row.folder);
        EXPECT_EQ(NameOfPath(row.path), row.name);
    }
}

}  // namespace
}  // namespace quillon
