#include "display/csv_export.h"

#include <algorithm>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kLongestHeader = 40;
constexpr std::size_t kLongestCell = 80;
constexpr std::size_t kBlock = std::size_t{1} << 16;

void AppendField(std::string& line, std::string_view text, CSV_FORM form, std::size_t longest) {
    if (form == CSV_FORM::PLAIN) {
        line += text.substr(0, longest);
        return;
    }
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        line += text;
        return;
    }
    line += '"' + Replace(text, "\"", "\"\"") + '"';
}

/// Gathers lines, so that the file gets large blocks.
class CsvWriter {
public:
    CsvWriter(CStdioFile& opened, CSV_FORM chosen) : file(opened), form(chosen) {}

    template <class Field>
    void Line(int fields, std::size_t longest, Field field) {
        line.clear();
        for (int i = 0; i < fields; ++i) {
            if (i > 0) line += ',';
            AppendField(line, field(i), form, longest);
        }
        // A line feed inside would end the line for readers of the plain form.
        if (form == CSV_FORM::PLAIN) std::replace(line.begin(), line.end(), '\n', ' ');
        block.append(line).append("\r\n");
        if (block.size() >= kBlock) PutOut();
    }
    void PutOut() {
        file.WriteString(block);
        block.clear();
    }

private:
    CStdioFile& file;
    CSV_FORM form;
    std::string line;
    std::string block;
};

}  // namespace

bool WriteCsv(FileSystem& files, std::string_view path, const ListTable& table, CSV_FORM form) {
    CStdioFile file(files);
    // Line ends are written as they are: the text of a quoted cell may hold one of its own.
    if (!file.OpenForWriting(path, FILE_MODE::BINARY)) return false;
    file.SetIsResult();
    CsvWriter writer(file, form);
    const int columns = table.ColumnCount();
    writer.Line(columns, kLongestHeader, [&](int i) { return table.columns[static_cast<std::size_t>(i)].header; });
    for (int row = 0; row < table.rows; ++row) {
        writer.Line(columns, kLongestCell, [&](int i) { return table.cell(row, i); });
    }
    writer.PutOut();
    return file.Commit();
}

}  // namespace quillon
