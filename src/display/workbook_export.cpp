#include "display/workbook_export.h"

#include <locale.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "platform/text.h"

namespace quillon {
namespace {

/// Of a sheet, without the row of headers.
constexpr int kMostRows = LXW_ROW_MAX - 1;
constexpr std::size_t kLongestSheetName = 31;
constexpr double kWidestColumn = 60;  // characters
constexpr double kColumnPadding = 2;  // characters

/// The thread's numbers have a decimal point while this lives: the workbook library prints by the locale.
class PointLocale {
public:
    PointLocale() : locale(::newlocale(LC_ALL_MASK, "C", nullptr)), before(::uselocale(locale)) {}
    ~PointLocale() {
        ::uselocale(before);
        ::freelocale(locale);
    }
    PointLocale(const PointLocale&) = delete;
    PointLocale& operator=(const PointLocale&) = delete;

private:
    locale_t locale;
    locale_t before;
};

/// A file in the system's folder for temporary ones; gone with this object.
class ScratchFile {
public:
    ScratchFile() : path((std::filesystem::temp_directory_path() / "quillon-XXXXXX").string()) {
        const int descriptor = ::mkstemp(path.data());
        if (descriptor >= 0) ::close(descriptor);
    }
    ~ScratchFile() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& Path() const { return path; }
    bool Read(std::string& bytes) const {
        std::ifstream in(path, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), {});
        return !in.bad() && !bytes.empty();
    }

private:
    std::string path;
};

/// A sheet's name may not hold these.
std::string SheetName(std::string_view wanted, int number) {
    std::string name(wanted.empty() ? std::string_view("Table") : wanted);
    for (char& c : name) {
        if (std::string_view("[]:*?/\\'").find(c) != std::string_view::npos || c == '\0') c = ' ';
    }
    const std::string suffix = number == 1 ? "" : Format(" (%d)", number);
    return name.substr(0, kLongestSheetName - suffix.size()) + suffix;
}

class SheetWriter {
public:
    SheetWriter(lxw_workbook* opened, const ListTable& exported)
        : book(opened), table(exported), header(workbook_add_format(book)) {
        format_set_bold(header);
        for (int i = 0; i < table.ColumnCount(); ++i) isNumber.push_back(IsNumberColumn(table, i));
    }

    void Write(std::string_view name) {
        int number = 0;
        for (int first = 0; first == 0 || first < table.rows; first += kMostRows) {
            WriteSheet(SheetName(name, ++number), first, std::min(table.rows, first + kMostRows));
        }
    }

private:
    void WriteSheet(const std::string& name, int first, int end) {
        lxw_worksheet* const sheet = workbook_add_worksheet(book, Utf8FromText(name).c_str());
        if (!sheet) return;
        worksheet_freeze_panes(sheet, 1, 0);
        for (int column = 0; column < table.ColumnCount(); ++column) WriteColumn(sheet, column, first, end);
    }

    void WriteColumn(lxw_worksheet* sheet, int column, int first, int end) {
        const auto place = static_cast<lxw_col_t>(column);
        const std::string title = ExportColumnName(table, column);
        std::size_t widest = title.size();
        worksheet_write_string(sheet, 0, place, Utf8FromText(title).c_str(), header);
        for (int row = first; row < end; ++row) {
            const std::string text = ExportCell(table, row, column);
            const auto line = static_cast<lxw_row_t>(row - first + 1);
            widest = std::max(widest, text.size());
            if (isNumber[static_cast<std::size_t>(column)]) {
                worksheet_write_number(sheet, line, place, Atof(text), nullptr);
            } else {
                worksheet_write_string(sheet, line, place, Utf8FromText(text).c_str(), nullptr);
            }
        }
        const double width = std::min(static_cast<double>(widest) + kColumnPadding, kWidestColumn);
        worksheet_set_column(sheet, place, place, width, nullptr);
    }

    lxw_workbook* book;
    const ListTable& table;
    lxw_format* header;
    std::vector<bool> isNumber;
};

}  // namespace

bool WriteWorkbook(FileSystem& files, std::string_view path, std::string_view sheet, const ListTable& table) {
    const PointLocale point;
    // The library writes to a file of its own, so that the one on the disk is replaced whole or not at all.
    const ScratchFile scratch;
    lxw_workbook* const book = workbook_new(scratch.Path().c_str());
    if (!book) return false;
    SheetWriter(book, table).Write(sheet);
    std::string bytes;
    if (workbook_close(book) != LXW_NO_ERROR || !scratch.Read(bytes)) return false;
    CStdioFile file(files);
    if (!file.OpenForWriting(path, FILE_MODE::BINARY)) return false;
    file.SetIsResult();
    file.WriteString(bytes);
    return file.Commit();
}

}  // namespace quillon
