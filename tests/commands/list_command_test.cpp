#include <gtest/gtest.h>

#include "commands/cli_run.h"

namespace quillon {
namespace {

TEST(ListCommand, ListsOnTheTerminalAndIntoFiles) {
    ScratchDrives drives;
    drives.MakeFolder("C:\\Out");
    drives.Write("C:\\Job\\line.csv", "10,0,110,0\r\n0,50,0,150\r\n");
    drives.Write("C:\\Job\\cable.csv", "1000,1000,0\r\n2000,1000,100\r\n2000,2000,0\r\n");
    EXPECT_EQ(RunOn(drives, {"list", "sail-line", "C:\\Job\\line.csv"}).out,
              "Line  SOL Easting  SOL Northing  EOL Easting  EOL Northing    Range  Bearing\n"
              "   1       10.000         0.000      110.000         0.000  100.00m   090.00\n"
              "   2        0.000        50.000        0.000       150.000  100.00m   000.00\n");
    const CliOutcome design = RunOn(drives, {"list", "design-route", "C:\\Job\\cable.csv", "--csv", "C:\\Out\\d.csv",
                                             "--csv-quoted", "C:\\Out\\q.csv", "--xlsx", "C:\\Out\\d.xlsx"});
    EXPECT_EQ(design.out, "C:\\Out\\d.csv: 5 rows\nC:\\Out\\q.csv: 5 rows\nC:\\Out\\d.xlsx: 5 rows\n") << design.err;
    EXPECT_EQ(drives.Read("C:\\Out\\d.csv"),
              "ID,K.P.,Easting,Northing,Radius\r\nStart,0.000,1000.000,1000.000,\r\nTP 1,900.000,1900.000,1000.000,\r\n"
              "IP 1,,2000.000,1000.000,100\r\nTP 2,1057.080,2000.000,1100.000,\r\nEnd,1957.080,2000.000,2000.000,\r\n");
    EXPECT_EQ(drives.Read("C:\\Out\\q.csv"), drives.Read("C:\\Out\\d.csv"));
    EXPECT_EQ(RunOn(drives, {"list", "route", "C:\\Job\\cable.csv", "--csv", "C:\\None\\d.csv"}).code, CLI_USELESS);
    EXPECT_EQ(RunOn(drives, {"list", "route", "C:\\Job\\none.csv"}).code, CLI_USELESS);
}

}  // namespace
}  // namespace quillon
