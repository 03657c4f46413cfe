#include "display/print_list.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kLargestPoints = 12;
constexpr int kSmallestPoints = 3;
constexpr int kPointsPerInch = 72;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kOuterMillimetres = 0.3;
constexpr double kInnerMillimetres = 0.065;
constexpr int kHeadingWeight = 500;
constexpr int kRowWeight = 300;
constexpr std::string_view kPad = "  ";

int Pixels(int perInch, double millimetres) {
    return static_cast<int>(perInch * millimetres / kMillimetresPerInch);
}

unsigned AlignFlags(ALIGN align) {
    if (align == ALIGN::RIGHT) return DT_RIGHT;
    return align == ALIGN::CENTRE ? DT_CENTER : 0;
}

/// Places and sizes of everything on a page, in pixels of the printer.
struct PageLayout {
    int left = 0;
    int top = 0;
    int width = 0;  ///< that can be printed on
    int height = 0;
    int line = 0;  ///< height of a row
    int pad = 0;   ///< either side of a column
    CFont heading;
    CFont row;
    std::vector<int> columns;  ///< widths without pads

    int ColumnStep(std::size_t column) const { return columns[column] + 2 * pad; }
    int TableWidth() const {
        int sum = 0;
        for (std::size_t i = 0; i < columns.size(); ++i) sum += ColumnStep(i);
        return sum;
    }
};

class TablePrinter {
public:
    TablePrinter(CPrinter& target, const ListTable& printed, bool lines, const PrintMargins& texts)
        : printer(target), table(printed), gridLines(lines), margins(texts), dc(&target.Device()) {
        MeasurePage();
        FindWidestTexts();
        ChooseType();
        MakePens();
    }

    bool Print(const PrintJob& job) {
        const int copies = std::max(job.copies, 1);
        const bool collate = job.collate && copies > 1;
        CountPages();
        for (int copy = 0; copy < (collate ? copies : 1); ++copy) {
            if (!PrintPages(job, collate ? 1 : copies)) return false;
        }
        printer.EndDoc();
        return true;
    }

private:
    // ---- Measures ----

    void MeasurePage() {
        const tagSIZE page = printer.PageSize();
        const int side = std::min(page.width, page.height) / 20;
        layout.left = side + Pixels(printer.PixelsPerInchAcross(), kOuterMillimetres);
        layout.top = side + Pixels(printer.PixelsPerInchDown(), kOuterMillimetres);
        layout.width = page.width - 2 * layout.left;
        layout.height = page.height - 2 * layout.top;
    }

    CFont FontOf(int points, int weight) const {
        return {"Tahoma", printer.PixelsPerInchDown() * points / kPointsPerInch, weight, 0};
    }

    int TextWidth(const CFont& font, std::string_view text) {
        const CFont old = dc.SelectObject(font);
        const int width = dc.GetTextExtent(text).width;
        dc.SelectObject(old);
        return width;
    }

    /// The widest text of each column at the largest type. Of texts of one length the first counts unless a later one
    /// is wider, so only texts that may be the widest are measured.
    void FindWidestTexts() {
        const CFont font = FontOf(kLargestPoints, kHeadingWeight);
        for (int column = 0; column < table.ColumnCount(); ++column) {
            std::string widest = table.columns[static_cast<std::size_t>(column)].header;
            int most = TextWidth(font, widest);
            for (int row = 0; row < table.rows; ++row) {
                const std::string text = table.cell(row, column);
                const int width = TextWidth(font, text);
                if (width <= most) continue;
                most = width;
                widest = text;
            }
            widestTexts.push_back(widest);
        }
    }

    void ChooseType() {
        std::string sample;
        for (const std::string& text : widestTexts) sample.append(kPad).append(text).append(kPad);
        int points = kLargestPoints;
        while (points > kSmallestPoints && TextWidth(FontOf(points, kHeadingWeight), sample) > layout.width) --points;
        layout.heading = FontOf(points, kHeadingWeight);
        layout.row = FontOf(points, kRowWeight);
        const CFont old = dc.SelectObject(layout.heading);
        layout.line = std::max(dc.GetTextExtent(sample).height, 1);
        layout.pad = dc.GetTextExtent(kPad).width;
        for (const std::string& text : widestTexts) layout.columns.push_back(dc.GetTextExtent(text).width);
        dc.SelectObject(old);
    }

    void MakePens() {
        const int across = printer.PixelsPerInchAcross(), down = printer.PixelsPerInchDown();
        outerVertical = {PS_SOLID, Pixels(across, kOuterMillimetres), 0};
        outerHorizontal = {PS_SOLID, Pixels(down, kOuterMillimetres), 0};
        innerVertical = {PS_SOLID, Pixels(across, kInnerMillimetres), 0};
        innerHorizontal = {PS_SOLID, Pixels(down, kInnerMillimetres), 0};
    }

    // ---- Pages ----

    /// Height of the heading: from the top margin to the first row.
    int FirstRow() const { return layout.top + layout.line / 2 + 2 * layout.line; }
    bool IsFull(int y) const { return y >= layout.height - layout.line - layout.line / 2; }

    /// The rows of a page that starts with `first`; at least one, so that a page can't be empty for ever.
    int EndOfPage(int first) const {
        int y = FirstRow(), row = first;
        do {
            y += layout.line;
            ++row;
        } while (row < table.rows && !IsFull(y));
        return row;
    }

    void CountPages() {
        pageCount = 0;
        for (int row = 0; row < table.rows; row = EndOfPage(row)) ++pageCount;
    }

    bool PrintPages(const PrintJob& job, int copiesOfPage) {
        int page = 1;
        for (int row = 0; row < table.rows; row = EndOfPage(row), ++page) {
            if (job.lastPage > 0 && page > job.lastPage) break;
            if (page < job.firstPage) continue;
            for (int copy = 0; copy < copiesOfPage; ++copy) {
                if (!PrintPage(page, row)) return false;
            }
        }
        return true;
    }

    bool PrintPage(int page, int first) {
        if (!printer.StartPage()) {
            printer.EndDoc();
            return false;
        }
        dc.SetTextColor(0);
        dc.SetBkMode(TRANSPARENT);
        DrawMargins(page);
        DrawHeading();
        DrawFrame(DrawRows(first));
        return printer.EndPage();
    }

    void DrawCell(std::string_view text, int x, int y, std::size_t column) {
        tagRECT box = {x, y, x + layout.columns[column], y + layout.line};
        dc.DrawText(text, box, AlignFlags(table.columns[column].align));
    }

    void DrawHeading() {
        dc.SelectObject(layout.heading);
        int x = layout.left + layout.pad;
        const int y = layout.top + layout.line / 2;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            DrawCell(table.columns[i].header, x, y, i);
            x += layout.ColumnStep(i);
        }
        const int rule = y + layout.line + layout.line / 2;
        Line(outerHorizontal, layout.left, rule, x - layout.pad, rule);
    }

    /// The y behind the last row.
    int DrawRows(int first) {
        dc.SelectObject(layout.row);
        int y = FirstRow();
        const int end = EndOfPage(first);
        for (int row = first; row < end; ++row, y += layout.line) {
            int x = layout.left + layout.pad;
            for (std::size_t i = 0; i < table.columns.size(); ++i) {
                DrawCell(table.cell(row, static_cast<int>(i)), x, y, i);
                x += layout.ColumnStep(i);
            }
        }
        return y;
    }

    void DrawFrame(int behindRows) {
        const int bottom = behindRows + layout.line / 2;
        const int right = layout.left + layout.TableWidth();
        Line(outerVertical, layout.left, layout.top, layout.left, bottom);
        Line(outerVertical, right, layout.top, right, bottom);
        Line(outerHorizontal, layout.left, layout.top, right, layout.top);
        Line(outerHorizontal, layout.left, bottom, right, bottom);
        int x = layout.left;
        for (std::size_t i = 0; i + 1 < layout.columns.size(); ++i) {
            x += layout.ColumnStep(i);
            Line(innerVertical, x, layout.top, x, bottom);
        }
        if (!gridLines) return;
        int y = 3 * layout.line + layout.line / 24 + layout.top + layout.line / 2;
        do {
            Line(innerHorizontal, layout.left, y, right, y);
            y += layout.line;
        } while (bottom - y > layout.line);
    }

    void DrawMargins(int page) {
        dc.SelectObject(FontOf(kSmallestPoints * 2, kRowWeight));
        const int height = dc.GetTextExtent("0").height;
        const int y = std::max(0, layout.top - height - layout.line / 4);
        const int right = layout.left + layout.width;
        dc.TextOut(layout.left, y, margins.heading);
        dc.TextOut(right - dc.GetTextExtent(margins.date).width, y, margins.date);
        const std::string number = Format("Page %d of %d", page, pageCount);
        dc.TextOut(right - dc.GetTextExtent(number).width, printer.PageSize().height - layout.top + layout.line / 4,
                   number);
    }

    void Line(const CPen& pen, int x1, int y1, int x2, int y2) {
        const CPen old = dc.SelectObject(pen);
        dc.MoveTo(x1, y1);
        dc.LineTo(x2, y2);
        dc.SelectObject(old);
    }

    CPrinter& printer;
    const ListTable& table;
    bool gridLines;
    const PrintMargins& margins;
    CDC dc;
    PageLayout layout;
    std::vector<std::string> widestTexts;
    CPen outerVertical, outerHorizontal, innerVertical, innerHorizontal;
    int pageCount = 0;
};

}  // namespace

bool PrintTable(CPrinter& printer, const PrintJob& job, std::string_view document, const ListTable& table,
                bool gridLines, const PrintMargins& margins) {
    if (table.rows == 0) return true;
    if (!printer.StartDoc(document)) return false;
    return TablePrinter(printer, table, gridLines, margins).Print(job);
}

}  // namespace quillon
