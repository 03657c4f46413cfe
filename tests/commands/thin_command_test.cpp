#include <gtest/gtest.h>

#include "commands/cli_run.h"

namespace quillon {
namespace {

TEST(ThinCommand, WritesTheThinnedFile) {
    ScratchDrives drives;
    drives.Write("C:\\Job\\survey.csv", "KP,E,N,D\r\n0.1,10,20,5\r\n0.2,15,25,6\r\n0.3,10,30,7\r\n");
    struct Row {
        std::vector<std::string> options;
        const char* file;
        const char* bytes;
        const char* said;
        int code;
    };
    const Row rows[] = {
        {{"--skip", "1"},
         "survey_thinned.csv",
         "0.1,10,20,5\n0.2,15,25,6\n10.000,30.000, END",
         "C:\\Job\\survey_thinned.csv: 2 of 3 rows, and the end line\n",
         CLI_OK},
        {{"--skip", "1", "--kp", "-1", "--easting", "1", "--northing", "2", "--depth", "0", "--tolerance", "7.5",
          "--out", "C:\\Job\\x"},
         "x",
         "10,20,0.1\n10.000,30.000, END",
         "C:\\Job\\x: 1 of 3 rows, and the end line\n",
         CLI_OK},
        {{"--skip", "4", "--out", "C:\\Job\\x"},
         "x",
         "",
         "C:\\Job\\survey.csv: no row behind the lines that are skipped; C:\\Job\\x is written without an end line\n",
         CLI_USELESS},
        {{"--skip", "5", "--out", "C:\\Job\\y"},
         "y",
         "(none)",
         "C:\\Job\\survey.csv: ends within the lines to skip\n",
         CLI_USELESS},
        {{"--out", "C:\\Job\\survey.csv"},
         "y",
         "(none)",
         "C:\\Job\\survey.csv: is the file that is read\n",
         CLI_USELESS},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"thin", "C:\\Job\\survey.csv"};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        const CliOutcome run = RunOn(drives, arguments);
        EXPECT_EQ(drives.Read(std::string("C:\\Job\\") + row.file), row.bytes);
        EXPECT_EQ(run.code == CLI_OK ? run.out : run.err, row.said);
        EXPECT_EQ(run.code, row.code);
    }
    EXPECT_EQ(RunOn(drives, {"thin", "C:\\Job\\none.csv"}).code, CLI_USELESS);
    EXPECT_EQ(RunOn(drives, {"thin", "C:\\Job\\survey.csv", "--kp", "-2"}).code, CLI_USAGE);
}

}  // namespace
}  // namespace quillon
