// What a table shows, on its way out: as CSV, as a workbook, to a data source and on paper.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <set>

#include "display/csv_export.h"
#include "display/excel_sheet.h"
#include "display/print_list.h"
#include "display/workbook_export.h"
#include "platform/recorder_device.h"
#include "platform/text.h"
#include "support/comma_locale.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using Cells = std::vector<std::vector<std::string>>;

ListTable Table(std::vector<ListTable::Column> columns, const Cells& cells) {
    return {std::move(columns), static_cast<int>(cells.size()), [cells](int row, int column) {
                return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            }};
}

TEST(CsvExport, BothForms) {
    ScratchDrives drives;
    drives.MakeFolder("C:\\Out");
    const std::string longText(90, 'x');
    const ListTable table =
        Table({{"Name", ALIGN::LEFT}, {std::string(50, 'h'), ALIGN::RIGHT}}, {{"a, \"b\"\nc", "1.5"}, {longText, ""}});
    ASSERT_TRUE(WriteCsv(drives.Files(), "C:\\Out\\plain.CSV", table, CSV_FORM::PLAIN));
    EXPECT_EQ(drives.Read("C:\\Out\\plain.CSV"),
              "Name," + std::string(40, 'h') + "\r\na, \"b\" c,1.5\r\n" + longText.substr(0, 80) + ",\r\n");
    ASSERT_TRUE(WriteCsv(drives.Files(), "C:\\Out\\whole.CSV", table, CSV_FORM::QUOTED));
    EXPECT_EQ(drives.Read("C:\\Out\\whole.CSV"),
              "Name," + std::string(50, 'h') + "\r\n\"a, \"\"b\"\"\nc\",1.5\r\n" + longText + ",\r\n");
    EXPECT_FALSE(WriteCsv(drives.Files(), "C:\\None\\plain.CSV", table, CSV_FORM::PLAIN));
}

TEST(ExcelSheet, NumberColumnsNamesAndStatements) {
    const ListTable table =
        Table({{"Line\r\nNo", ALIGN::LEFT}, {"Name", ALIGN::LEFT}, {"", ALIGN::LEFT}, {"K", ALIGN::LEFT}},
              {{" 1 ", "O'Brien", "5", "1"}, {"-2.5", "", "6", "1"}, {"+3", "c\nd", "7", "1"}});
    CExcelColumn columns = ExcelColumnsOf(table);
    EXPECT_EQ(CreateTableStatement("Wells", columns),
              "CREATE TABLE \"Wells\" (\"Line No\" NUMBER, \"Name\" TEXT, \"C1\" NUMBER, \"K\" TEXT);")
        << "the fourth of three rows is a text, whatever it holds";
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i].value = ExportCell(table, 2, static_cast<int>(i));
    columns[1].value = "O'Brien";
    EXPECT_EQ(InsertStatement("Wells", columns), "INSERT INTO \"Wells\" VALUES ('+3', 'O''Brien', '7', '1');");
    EXPECT_EQ(ExportCell(table, 2, 1), "c d");
    const ListTable wide = Table(std::vector<ListTable::Column>(28), {});
    EXPECT_EQ(ExportColumnName(wide, 25) + " " + ExportColumnName(wide, 26), "Z1 A2");
    for (const char* number : {"1", " -2.50 ", "1.2.3", "+"}) EXPECT_TRUE(PassesNumberTest(number)) << number;
    for (const char* text : {"", "  ", "1e5", "12m", "1,5"}) EXPECT_FALSE(PassesNumberTest(text)) << text;
}

/// The first sheet of a workbook by a reader of zip and XML: one cell a line, "A1=text" or "B2:number".
std::string CellsOf(const std::filesystem::path& workbook) {
    const std::string script =
        "import sys,zipfile,xml.etree.ElementTree as E\n"
        "z=zipfile.ZipFile(sys.argv[1]);n='{http://schemas.openxmlformats.org/spreadsheetml/2006/main}'\n"
        "s=[''.join(t.text or '' for t in i.iter(n+'t')) for i in E.fromstring(z.read('xl/sharedStrings.xml'))]\n"
        "r=E.fromstring(z.read('xl/worksheets/sheet1.xml'))\n"
        "print('frozen' if r.find('.//'+n+'pane').get('state')=='frozen' else 'loose')\n"
        "for c in r.iter(n+'c'):\n"
        "  v=c.find(n+'v').text; print(c.get('r')+('='+s[int(v)] if c.get('t')=='s' else ':'+v))\n";
    const std::string command = "python3 -c \"" + script + "\" '" + workbook.string() + "'";
    std::string out;
    if (FILE* const pipe = ::popen(command.c_str(), "r")) {
        for (int c; (c = std::fgetc(pipe)) != EOF;) out += static_cast<char>(c);
        ::pclose(pipe);
    }
    return out;
}

TEST(WorkbookExport, OpensInAReaderThatIsNotTheWriterUnderAnyLocale) {
    if (std::system("python3 -c '' 2>/dev/null") != 0) GTEST_SKIP() << "no python3";
    ScratchDrives drives;
    const ListTable table =
        Table({{"Name", ALIGN::LEFT}, {"Easting", ALIGN::RIGHT}}, {{"Tie-in \xE9", "512345.678"}, {"<b>&", "-0.5"}});
    const std::string expected = "frozen\nA1=Name\nB1=Easting\nA2=Tie-in \xC3\xA9\nB2:512345.678\nA3=<b>&\nB3:-0.5\n";
    const auto written = [&] {
        EXPECT_TRUE(WriteWorkbook(drives.Files(), "C:\\t.xlsx", "Wells: [all]", table));
        return CellsOf(drives.Files().Native("C:\\t.xlsx"));
    };
    EXPECT_EQ(written(), expected);
    const CommaLocale locale;
    if (CommaLocale::IsSet()) {
        EXPECT_EQ(written(), expected) << "decimal comma";
    }
    EXPECT_FALSE(WriteWorkbook(drives.Files(), "C:\\None\\t.xlsx", "a", table));
}

/// Paper of 1000 by 800 pixels at 100 to the inch, on a recorder.
class PaperPrinter : public CPrinter {
public:
    tagSIZE PageSize() const override { return {1000, 800}; }
    int PixelsPerInchAcross() const override { return 100; }
    int PixelsPerInchDown() const override { return 100; }
    bool StartDoc(std::string_view name) override {
        log += "doc " + std::string(name) + "\n";
        return true;
    }
    bool StartPage() override {
        if (++started == failAt) return false;
        device.Take();
        return true;
    }
    bool EndPage() override {
        pages.push_back(device.Take());
        return true;
    }
    void EndDoc() override { log += "end\n"; }
    CDrawDevice& Device() override { return device; }

    std::string log;
    std::vector<std::string> pages;
    int started = 0;
    int failAt = -1;

private:
    RecorderDevice device;
};

/// Places of the texts of a page, by the text.
std::map<std::string, tagPOINT> TextsOf(const std::string& page) {
    std::map<std::string, tagPOINT> texts;
    for (std::size_t at = 0; (at = page.find("text ", at)) != std::string::npos; at += 5) {
        const std::string_view rest = std::string_view(page).substr(at + 5);
        const std::size_t open = rest.find('"'), close = rest.find('"', open + 1);
        texts[std::string(rest.substr(open + 1, close - open - 1))] = {Atoi(rest),
                                                                       Atoi(rest.substr(rest.find(',') + 1))};
    }
    return texts;
}

ListTable Rows(int count) {
    Cells cells;
    for (int i = 0; i < count; ++i) cells.push_back({Format("r%03d", i), Format("%d", i * 7)});
    return Table({{"Name", ALIGN::LEFT}, {"Value", ALIGN::RIGHT}}, cells);
}

// The recorder's letters are half as wide as the font is high, so the layout can be worked out by hand: type of 12
// points is 16 pixels at 100 to the inch, letters 8, a row 16 high. Margins: 800 / 20 + 1 = 41.
TEST(PrintTable, PagesAsWorkedOutByHand) {
    PaperPrinter printer;
    const ListTable table = Rows(100);
    ASSERT_TRUE(PrintTable(printer, {}, "Wells", table, true, {"Northfield", "1 Jan 2026"}));
    // Rows start at 41 + 8 + 32 and go on, 16 each, until y reaches 718 - 24.
    const int perPage = (694 - 81 + 15) / 16;
    ASSERT_EQ(printer.pages.size(), static_cast<std::size_t>((100 + perPage - 1) / perPage));
    std::set<std::string> seen;
    for (std::size_t page = 0; page < printer.pages.size(); ++page) {
        const auto texts = TextsOf(printer.pages[page]);
        EXPECT_EQ(texts.at("Name"), (tagPOINT{41 + 16, 49}));
        EXPECT_TRUE(texts.count(Format("Page %zu of %zu", page + 1, printer.pages.size())));
        EXPECT_TRUE(texts.count("Northfield"));
        for (int i = 0; i < perPage; ++i) {
            const int row = static_cast<int>(page) * perPage + i;
            if (row >= 100) break;
            EXPECT_EQ(texts.at(Format("r%03d", row)), (tagPOINT{57, 81 + 16 * i}));
            seen.insert(Format("r%03d", row));
        }
        // Right-aligned: the column starts behind the first, 4 letters and pads of two blanks either side.
        const std::string value = Format("%d", static_cast<int>(page) * perPage * 7);
        EXPECT_EQ(texts.at(value).x, 57 + 32 + 32 + (5 - static_cast<int>(value.size())) * 8);
        const int right = 41 + 32 + 40 + 4 * 16;
        EXPECT_NE(printer.pages[page].find(Format("line 41,41 %d,41 ", right)), std::string::npos)
            << "top of the frame";
    }
    EXPECT_EQ(seen.size(), 100u) << "no row lost between pages";
    EXPECT_EQ(printer.log, "doc Wells\nend\n");
}

TEST(PrintTable, RangesCopiesAndFaults) {
    const auto firstRows = [](const PrintJob& job, int failAt = -1, bool expected = true) {
        PaperPrinter printer;
        printer.failAt = failAt;
        EXPECT_EQ(PrintTable(printer, job, "d", Rows(100), false), expected);
        std::string pages;
        for (const std::string& page : printer.pages) {
            for (const auto& [text, place] : TextsOf(page)) {
                if (text.size() == 4 && text[0] == 'r' && place.y == 81) pages += text + ' ';
            }
        }
        return pages;
    };
    EXPECT_EQ(firstRows({}), "r000 r039 r078 ");
    EXPECT_EQ(firstRows({.firstPage = 2, .lastPage = 2}), "r039 ");
    EXPECT_EQ(firstRows({.copies = 2}), "r000 r000 r039 r039 r078 r078 ");
    EXPECT_EQ(firstRows({.copies = 2, .collate = true}), "r000 r039 r078 r000 r039 r078 ");
    EXPECT_EQ(firstRows({}, 2, false), "r000 ") << "a page that can't be started ends the printing";
    PaperPrinter printer;
    EXPECT_TRUE(PrintTable(printer, {}, "d", Rows(0), false));
    EXPECT_EQ(printer.log, "");
}

TEST(PrintTable, WideRowsGetSmallerType) {
    Cells cells = {{std::string(150, 'w')}};
    PaperPrinter printer;
    ASSERT_TRUE(PrintTable(printer, {}, "d", Table({{"Wide", ALIGN::LEFT}}, cells), false));
    // 154 letters must fit 918 pixels: at 8 points, 11 pixels high, a letter is 6 and they take 924; at 7 points, 9
    // pixels and 5, they take 770.
    EXPECT_NE(printer.pages[0].find("Tahoma 9"), std::string::npos) << printer.pages[0].substr(0, 400);
    cells = {{std::string(5000, 'w')}};
    ASSERT_TRUE(PrintTable(printer, {}, "d", Table({{"Wide", ALIGN::LEFT}}, cells), false)) << "stops at 3 points";
}

}  // namespace
}  // namespace quillon
