#include "panes/gpx_dlgs.h"

#include <algorithm>
#include <cmath>

#include "foundation/angle_text.h"
#include "foundation/calendar_time.h"
#include "frame/points_table.h"
#include "frame/size_columns.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kTracksSize{420, 400};
constexpr tagSIZE kPointsSize{860, 520};
constexpr double kNauticalMilesPerMetre = 0.0005399568034557236;
constexpr double kKnotsPerMetrePerSecond = 1.9438444924406046;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kSecondsPerHour = 3600.0;

// ---- Columns of a track ----

/// Where a column has a cell: legs leave every point but the last, totals are reached at every one but the first.
enum class ROWS { ALL, NOT_LAST, NOT_FIRST };

struct TrackColumn {
    const char* header;    ///< of a track with times
    const char* timeless;  ///< of one without; null where it has no such column
    ALIGN align;
    ROWS rows;
    std::string (*text)(const GpxPoint& point);
};

std::string AngleCell(double radians, int type) {
    constexpr int kDecimals = 4;
    return FormatAngle(radians, type, ANGLE_DEGREES_MINUTES, kDecimals);
}

std::string Miles(double metres) {
    return Format("%.3lf", metres * kNauticalMilesPerMetre);
}
std::string Knots(double metresPerSecond) {
    return Format("%.3lf", metresPerSecond * kKnotsPerMetrePerSecond);
}

// clang-format off
constexpr TrackColumn kColumns[] = {
    {"\nDate",                     nullptr,                 ALIGN::LEFT,   ROWS::ALL,       [](const GpxPoint& p) { return DateText(p.time); }},
    {"\nTime",                     nullptr,                 ALIGN::LEFT,   ROWS::ALL,       [](const GpxPoint& p) { return TimeText(p.time); }},
    {"\nLatitude",                 "Latitude",              ALIGN::LEFT,   ROWS::ALL,       [](const GpxPoint& p) { return AngleCell(p.latitude, ANGLE_LATITUDE); }},
    {"\nLongitude",                "Longitude",             ALIGN::LEFT,   ROWS::ALL,       [](const GpxPoint& p) { return AngleCell(p.longitude, ANGLE_LONGITUDE); }},
    {"Leg\nBearing\n(\xB0T)",      "Leg\nBearing\n(\xB0T)", ALIGN::CENTRE, ROWS::NOT_LAST,  [](const GpxPoint& p) { return Format("%05.1lf\xB0", p.legBearing); }},
    {"Leg\nDistance\n(Nm)",        "Leg\nDistance\n(Nm)",   ALIGN::CENTRE, ROWS::NOT_LAST,  [](const GpxPoint& p) { return Miles(p.legDistance); }},
    {"Leg\nSpeed\nKnots",          nullptr,                 ALIGN::CENTRE, ROWS::NOT_LAST,  [](const GpxPoint& p) { return Knots(p.legSpeed); }},
    {"Total\nDistance\nFrom Start", "Total\nDistance\n(Nm)", ALIGN::CENTRE, ROWS::NOT_FIRST, [](const GpxPoint& p) { return Miles(p.totalDistance); }},
    {"Total\nTime\nFrom Start",    nullptr,                 ALIGN::CENTRE, ROWS::NOT_FIRST, [](const GpxPoint& p) { return TotalTimeText(p.totalTime); }},
    {"Track\nAverage\nSpeed",      nullptr,                 ALIGN::CENTRE, ROWS::NOT_FIRST, [](const GpxPoint& p) { return Knots(p.averageSpeed); }},
};
// clang-format on

PointsTable TableOfTrack(const GpxTrack& track) {
    const bool timed = track.points.front().time != 0.0;
    PointsTable table;
    std::vector<const TrackColumn*> shown;
    for (const TrackColumn& column : kColumns) {
        const char* const header = timed ? column.header : column.timeless;
        if (!header) continue;
        table.columns.push_back({.header = header, .align = column.align});
        shown.push_back(&column);
    }
    table.rows.count = static_cast<int>(track.points.size());
    // The dialog is modal: nobody takes the track away meanwhile.
    table.rows.cell = [&track, shown](int row, int column) {
        const TrackColumn& which = *shown[static_cast<std::size_t>(column)];
        const auto place = static_cast<std::size_t>(row);
        const bool isEmpty = (which.rows == ROWS::NOT_FIRST && row == 0) ||
                             (which.rows == ROWS::NOT_LAST && place + 1 == track.points.size());
        return isEmpty ? std::string() : which.text(track.points[place]);
    };
    table.rows.widest = [cell = table.rows.cell, count = table.rows.count](int column) {
        // Cells of a column differ by a figure or two; totals are longest at the end.
        std::vector<std::string> texts;
        for (int row = 0; row < count; row += std::max(1, count / 256)) texts.push_back(cell(row, column));
        texts.push_back(cell(count - 1, column));
        return texts;
    };
    return table;
}

}  // namespace

std::string TotalTimeText(double seconds) {
    const auto days = static_cast<int>(std::clamp(std::floor(seconds / kSecondsPerDay), 0.0, 1e9));
    const double rest = seconds - days * kSecondsPerDay;
    std::string text = TimeText(rest);
    constexpr std::size_t kMinutesAndSeconds = 5;
    if (rest < kSecondsPerHour && text.size() > kMinutesAndSeconds) text.erase(0, text.size() - kMinutesAndSeconds);
    if (days == 0) return text;
    return Format(days == 1 ? "%d Day " : "%d Days ", days) + text;
}

// ---- Which tracks are shown ----

CGpxTracksDlg::CGpxTracksDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "GPX Tracks Display", kTracksSize, parent),
      list(*this, kTracks, GetNightMode()),
      selectButton(*this, kSelectAll, "Select ALL", GetNightMode()),
      closeButton(*this, IDOK, "Close", GetNightMode()),
      colourText(*this, kShowDots + 1, "Track Colour"),
      colour(*this, kColour),
      dots(*this, kShowDots, "Show Dots") {
    const auto add = [this](CControl& control, const tagRECT& place) {
        control.MoveWindow(place);
        AddControl(control);
    };
    add(list, {10, 10, 410, 300});
    add(selectButton, {10, 310, 130, 338});
    add(colourText, {150, 313, 250, 335});
    add(colour, {250, 310, 410, 338});
    add(dots, {150, 346, 300, 370});
    add(closeButton, {310, 362, 410, 390});
    list.clicked = [this](int row) { OnTrack(row); };
}

CGPX& CGpxTracksDlg::Data() const {
    if (!gpx) throw InvalidArgument("no GPX file");
    return *gpx;
}

void CGpxTracksDlg::OnInitDialog() {
    CGPX& data = Data();
    list.DeleteAllColumns();
    list.InsertColumn("Namme");
    list.InsertColumn("Points");
    const auto text = [&data](int row, int column) {
        const GpxTrack& track = data.tracks.at(static_cast<std::size_t>(row));
        return column == 0 ? track.name : Format("%zu", track.points.size());
    };
    const int count = static_cast<int>(data.tracks.size());
    list.SetRows({.count = count,
                  .cell = text,
                  .widest =
                      [text, count](int column) {
                          std::vector<std::string> texts;
                          for (int row = 0; row < count; ++row) texts.push_back(text(row, column) + "     ");
                          return texts;
                      },
                  .checked = [&data](int row) { return data.tracks.at(static_cast<std::size_t>(row)).show; }});
    SizeColumns(list, true);
    colour.SetColour(data.trackColour);
    dots.SetCheck(data.showDots);
    if (count > 0) ShowCaption();
}

void CGpxTracksDlg::ShowCaption() {
    selectButton.SetWindowText(Data().AreAllShown() ? "Clear ALL" : "Select ALL");
}

void CGpxTracksDlg::OnTrack(int row) {
    CGPX& data = Data();
    if (row < 0 || static_cast<std::size_t>(row) >= data.tracks.size()) return;
    GpxTrack& track = data.tracks[static_cast<std::size_t>(row)];
    track.show = !track.show;
    data.WriteShowFile();
    list.RedrawItems();
    ShowCaption();
}

void CGpxTracksDlg::OnSelectAll() {
    CGPX& data = Data();
    const bool show = !data.AreAllShown();
    for (GpxTrack& track : data.tracks) track.show = show;
    list.RedrawItems();
    // Without a track all count as shown, and then as cleared.
    selectButton.SetWindowText(show ? "Clear ALL" : "Select ALL");
}

void CGpxTracksDlg::OnCommand(UINT control) {
    switch (control) {
        case kSelectAll:
            return OnSelectAll();
        case kColour:
            Data().trackColour = colour.GetColour();
            return Data().WriteSettings();
        case kShowDots:
            Data().showDots = dots.IsChecked();
            return Data().WriteSettings();
        default:
            return CColourDialogEx::OnCommand(control);
    }
}

// ---- The points of a track ----

CGpxTracksDisplayDlg::CGpxTracksDisplayDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "GPX Track Points", kPointsSize, parent),
      trackText(*this, kPoints + 1, "Track"),
      tracks(*this, kTrack),
      table(*this, kPoints, GetNightMode()),
      closeButton(*this, IDOK, "Close", GetNightMode()) {
    for (CControl* const control : std::initializer_list<CControl*>{&trackText, &tracks, &table, &closeButton}) {
        AddControl(*control);
    }
    OnSize(kPointsSize);
}

void CGpxTracksDisplayDlg::OnSize(tagSIZE size) {
    trackText.MoveWindow({10, 13, 60, 35});
    tracks.MoveWindow({60, 10, std::min(360, size.width - 10), 36});
    table.MoveWindow({10, 46, size.width - 10, size.height - 48});
    closeButton.MoveWindow({size.width - 110, size.height - 38, size.width - 10, size.height - 10});
}

void CGpxTracksDisplayDlg::OnInitDialog() {
    if (!gpx) throw InvalidArgument("no GPX file");
    tracks.ResetContent();
    for (const GpxTrack& each : gpx->tracks) tracks.AddString(each.name);
    tracks.SetCurSel(0);
    track = 0;
    Display();
}

void CGpxTracksDisplayDlg::Display() {
    table.DeleteAllItems();
    table.DeleteAllColumns();
    if (track < 0 || static_cast<std::size_t>(track) >= gpx->tracks.size()) return;
    const GpxTrack& shown = gpx->tracks[static_cast<std::size_t>(track)];
    if (!shown.points.empty()) ShowPoints(table, TableOfTrack(shown));
}

void CGpxTracksDisplayDlg::OnCommand(UINT control) {
    if (control != kTrack) return CColourDialogEx::OnCommand(control);
    track = tracks.GetCurSel();
    Display();
}

}  // namespace quillon
