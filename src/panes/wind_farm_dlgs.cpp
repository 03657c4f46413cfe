#include "panes/wind_farm_dlgs.h"

#include <algorithm>

#include "foundation/angle_text.h"
#include "frame/points_table.h"
#include "frame/size_columns.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kOptionsSize{360, 210};
constexpr tagSIZE kFindSize{300, 340};
constexpr tagSIZE kTurbinesSize{900, 520};

// ---- The pictures of turbines ----

/// 16 by 16 pixels: "#" is ink.
constexpr std::string_view kTurbinePicture =
    "................"
    ".......##......."
    ".......##......."
    ".......##......."
    ".......##......."
    ".......##......."
    "......####......"
    ".....######....."
    "...####.####...."
    ".###...##..###.."
    "##.....##....##."
    ".......##......."
    ".......##......."
    ".......##......."
    "......####......"
    "................";
constexpr std::string_view kSubstationPicture =
    "................"
    "................"
    "..############.."
    "..#..........#.."
    "..#....##....#.."
    "..#...##.....#.."
    "..#..##......#.."
    "..#.######...#.."
    "..#....##....#.."
    "..#...##.....#.."
    "..#..##......#.."
    "..#..........#.."
    "..############.."
    "...#........#..."
    "...#........#..."
    "................";
constexpr int kPicture = 16;
constexpr COLORREF kMask = RGB(255, 255, 255);

std::vector<COLORREF> PixelsOf(std::string_view picture) {
    constexpr COLORREF kInk = RGB(0, 80, 160);
    std::vector<COLORREF> pixels;
    for (const char c : picture) pixels.push_back(c == '#' ? kInk : kMask);
    return pixels;
}

const CImageList& TurbinePictures() {
    static const CImageList pictures = [] {
        CImageList made({kPicture, kPicture}, kMask);
        made.Add(PixelsOf(kTurbinePicture));
        made.Add(PixelsOf(kSubstationPicture));
        return made;
    }();
    return pictures;
}

// ---- The columns of the turbines ----

struct TurbineColumn {
    const char* header;
    std::string (*text)(const TurbineDef& turbine);
};

std::string AngleCell(double radians, int type) {
    constexpr int kDecimals = 4;
    return FormatAngle(radians, type, ANGLE_DEGREES_MINUTES, kDecimals);
}

// clang-format off
constexpr TurbineColumn kColumns[] = {
    {"\nID",                            [](const TurbineDef& t) { return t.id; }},
    {"\nLatitude",                      [](const TurbineDef& t) { return AngleCell(t.latitude, ANGLE_LATITUDE); }},
    {"\nLongitude",                     [](const TurbineDef& t) { return AngleCell(t.longitude, ANGLE_LONGITUDE); }},
    {"MaxHeight\ninc blade\nMHWS",      [](const TurbineDef& t) { return TurbineFloatText(t.maxHeight); }},
    {"Navigation\nLights",              [](const TurbineDef& t) { return t.navigationLights; }},
    {"Radio\nRadar",                    [](const TurbineDef& t) { return t.radioRadar; }},
    {"Fog\nSignal",                     [](const TurbineDef& t) { return t.fogSignal; }},
    {"Blade\nRadius",                   [](const TurbineDef& t) { return TurbineFloatText(t.bladeRadius); }},
    {"Structure Height\ninc blade\nMHWS", [](const TurbineDef& t) { return TurbineFloatText(t.structureHeight); }},
};
// clang-format on

CWindFarmList& Required(CWindFarmList* list) {
    if (!list) throw InvalidArgument("no wind farms");
    return *list;
}

}  // namespace

// ---- What is shown ----

CWindFarmDlg::CWindFarmDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "Wind Farm", kOptionsSize, parent),
      turbines(*this, kTurbines, "Display Turbines"),
      labelTurbine(*this, kLabelTurbine, "Label Turbine"),
      boundary(*this, kBoundary, "Display Boundary"),
      labelName(*this, kLabelName, "Label Name"),
      turbineColour(*this, kTurbineColour),
      boundaryColour(*this, kBoundaryColour),
      okButton(*this, IDOK, "OK", GetNightMode()),
      cancelButton(*this, IDCANCEL, "Cancel", GetNightMode()) {
    const auto add = [this](CControl& control, const tagRECT& place) {
        control.MoveWindow(place);
        AddControl(control);
    };
    add(turbines, {14, 14, 180, 38});
    add(turbineColour, {190, 12, 346, 40});
    add(labelTurbine, {14, 44, 180, 68});
    add(boundary, {14, 86, 180, 110});
    add(boundaryColour, {190, 84, 346, 112});
    add(labelName, {14, 116, 180, 140});
    add(okButton, {130, 168, 230, 196});
    add(cancelButton, {246, 168, 346, 196});
}

void CWindFarmDlg::OnInitDialog() {
    const CWindFarmList& data = Required(list);
    turbines.SetCheck(data.displayTurbines);
    labelTurbine.SetCheck(data.labelTurbines);
    boundary.SetCheck(data.displayBoundary);
    labelName.SetCheck(data.labelWindFarm);
    turbineColour.SetColour(data.turbineColour);
    boundaryColour.SetColour(data.boundaryColour);
}

void CWindFarmDlg::OnOK() {
    CWindFarmList& data = Required(list);
    data.displayTurbines = turbines.IsChecked();
    data.labelTurbines = labelTurbine.IsChecked();
    data.displayBoundary = boundary.IsChecked();
    data.labelWindFarm = labelName.IsChecked();
    data.turbineColour = turbineColour.GetColour();
    data.boundaryColour = boundaryColour.GetColour();
    data.WriteSettings();
    CColourDialogEx::OnOK();
}

// ---- Find ----

CFindWindFarm::CFindWindFarm(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "Find Wind Farm", kFindSize, parent),
      names(*this, kNames),
      findButton(*this, IDOK, "Find", GetNightMode()),
      cancelButton(*this, IDCANCEL, "Cancel", GetNightMode()) {
    const auto add = [this](CControl& control, const tagRECT& place) {
        control.MoveWindow(place);
        AddControl(control);
    };
    add(names, {10, 10, 290, 290});
    add(findButton, {80, 302, 180, 330});
    add(cancelButton, {190, 302, 290, 330});
}

void CFindWindFarm::OnInitDialog() {
    names.ResetContent();
    for (const WindFarmDef& farm : Required(list).farms) names.AddString(farm.name);
}

bool CFindWindFarm::Find() {
    if (names.GetCurSel() < 0) return false;
    const WindFarmDef* const farm = Required(list).Find(names.GetLBText(names.GetCurSel()));
    if (!farm) return false;
    found = farm->position;
    foundName = farm->name;
    return true;
}

void CFindWindFarm::OnOK() {
    EndDialog(Find() ? IDOK : IDCANCEL);
}

void CFindWindFarm::OnDoubleClick(UINT control) {
    if (control == kNames && Find()) EndDialog(IDOK);
}

// ---- Turbines ----

CWindFarmTurbinesDlg::CWindFarmTurbinesDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "Wind Farm Name", kTurbinesSize, parent),
      table(*this, kTable, GetNightMode()),
      remarksText(*this, kRemarks + 1, "Remarks"),
      remarks(*this, kRemarks),
      closeButton(*this, IDOK, "Close", GetNightMode()) {
    for (CControl* const control : std::initializer_list<CControl*>{&table, &remarksText, &remarks, &closeButton}) {
        AddControl(*control);
    }
    OnSize(kTurbinesSize);
    remarks.SetReadOnly(true);
    table.SetImageList(&TurbinePictures());
    table.clicked = [this](int row) { OnRow(row); };
}

void CWindFarmTurbinesDlg::SetData(const char* farmName, const char* turbineId, CWindFarmList* data) {
    farm = farmName ? farmName : "";
    turbine = turbineId ? turbineId : "";
    list = data;
}

void CWindFarmTurbinesDlg::OnSize(tagSIZE size) {
    table.MoveWindow({10, 10, size.width - 10, size.height - 50});
    remarksText.MoveWindow({10, size.height - 36, 80, size.height - 12});
    remarks.MoveWindow({80, size.height - 38, size.width - 130, size.height - 10});
    closeButton.MoveWindow({size.width - 110, size.height - 38, size.width - 10, size.height - 10});
}

std::vector<const TurbineDef*> CWindFarmTurbinesDlg::TurbinesOfFarm() const {
    std::vector<const TurbineDef*> found;
    for (const TurbineDef& each : Required(list).turbines) {
        if (each.farm == farm) found.push_back(&each);
    }
    std::reverse(found.begin(), found.end());
    return found;
}

void CWindFarmTurbinesDlg::OnInitDialog() {
    rows = TurbinesOfFarm();
    PointsTable points;
    for (const TurbineColumn& column : kColumns) {
        points.columns.push_back({.header = column.header, .align = ALIGN::CENTRE});
    }
    const auto text = [this](int row, int column) {
        return kColumns[column].text(*rows.at(static_cast<std::size_t>(row)));
    };
    points.rows.count = static_cast<int>(rows.size());
    points.rows.cell = text;
    points.rows.image = [this](int row) { return rows.at(static_cast<std::size_t>(row))->image; };
    points.rows.widest = [this, text](int column) {
        const std::string room(column == 0 ? "MMM" : "");  // of the picture
        std::vector<std::string> texts;
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) texts.push_back(text(row, column) + room);
        return texts;
    };
    ShowPoints(table, points);
    if (!rows.empty()) SetWindowText(Format("%s Wind Farm (%s)", farm.c_str(), rows.front()->title.c_str()));
    const auto noted =
        std::find_if(rows.begin(), rows.end(), [this](const TurbineDef* each) { return each->id == turbine; });
    remarks.SetWindowText(noted == rows.end() ? std::string() : (*noted)->remarks);
    if (noted != rows.end()) table.SetSelection(static_cast<int>(noted - rows.begin()));
}

void CWindFarmTurbinesDlg::OnRow(int row) {
    if (row >= 0 && static_cast<std::size_t>(row) < rows.size()) {
        remarks.SetWindowText(rows[static_cast<std::size_t>(row)]->remarks);
    }
}

}  // namespace quillon
