#include "window/reference_menu.h"

#include "features/wind_farm_import.h"
#include "features/wind_farm_store.h"
#include "foundation/angle_units.h"
#include "panes/gpx_dlgs.h"
#include "panes/wind_farm_dlgs.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr const char* kGpxFilter = "GPX Files (*.gpx)|*.gpx|All Files (*.*)|*.*||";
constexpr const char* kWindFarmFilter =
    "Wind Farms (*.csv, *.geojson, *.json, *.shp)|*.csv;*.geojson;*.json;*.shp|All Files (*.*)|*.*||";

/// What a reader left out, for the operator.
std::string ReportText(const GpxReport& report) {
    std::string text;
    if (!report.fault.empty()) text += "\nThe file breaks off: " + report.fault;
    if (report.passedOver > 0) {
        text +=
            Format("\n%zu points have no position; the first is on line %zu", report.passedOver, report.firstPassed);
    }
    if (report.badTimes > 0) text += Format("\n%zu times can't be read", report.badTimes);
    return text;
}

}  // namespace

ReferenceMenu::ReferenceMenu(QMenu& menu, Job& shownJob, ChartWidget& shownChart, const MakeAction& make)
    : job(shownJob), chart(shownChart) {
    const auto add = [&](const char* text, const char* key, const char* tip, void (ReferenceMenu::*act)()) {
        QAction* const action = make(text, QKeySequence(key), tip);
        QObject::connect(action, &QAction::triggered, &menu, [this, act] { (this->*act)(); });
        menu.addAction(action);
    };
    add("Open &GPX File...", "Ctrl+Alt+G", "Show the tracks and waypoints of a GPX file under the job",
        &ReferenceMenu::OpenGpx);
    add("&Tracks...", "Ctrl+Alt+T", "Which tracks are shown, and how", &ReferenceMenu::ShowTracks);
    add("Track &Points...", "Ctrl+Alt+P", "The points of a track with its legs", &ReferenceMenu::ShowTrackPoints);
    add("&Close GPX File", "", "Show no GPX file any more", &ReferenceMenu::CloseGpx);
    menu.addSeparator();
    add("&Import Wind Farms...", "", "Put the turbines and sites of a file into the database",
        &ReferenceMenu::ImportWindFarms);
    add("&Wind Farms...", "Ctrl+Alt+W", "What is shown of wind farms, and in which colours",
        &ReferenceMenu::ChooseWindFarmDisplay);
    add("Tur&bines...", "", "The turbines of a wind farm", &ReferenceMenu::ShowTurbines);
    add("&Find Wind Farm...", "Ctrl+Alt+F", "Bring a wind farm into the middle of the chart",
        &ReferenceMenu::FindWindFarm);
}

void ReferenceMenu::Changed() {
    if (onChanged) onChanged();
}

void ReferenceMenu::TellOfGrid() {
    if (!Record().geodesy.IsChosen()) {
        GetPlatform().InformationBox(
            "The job has no grid yet. What is given in latitude and longitude shows on the chart "
            "once a grid is chosen.");
    }
}

// ---- GPX ----

void ReferenceMenu::OpenGpx() {
    std::vector<std::string> chosen;
    const FileQuestion question = {"GPX File", kGpxFilter, false, Record().gpx.path};
    if (!GetPlatform().ChooseFiles(question, chosen) || chosen.empty()) return;
    CGPX& gpx = Record().gpx;
    const std::string before = gpx.path;
    if (!gpx.Load(chosen.front())) {
        GetPlatform().WarningMessage(chosen.front() + "\n" + gpx.GetReport().fault);
        if (before.empty()) gpx.Clear();
        if (!before.empty()) gpx.Load(before);
        return;
    }
    gpx.WriteSettings();
    const std::string left = ReportText(gpx.GetReport());
    if (!left.empty()) GetPlatform().WarningMessage(chosen.front() + left);
    TellOfGrid();
    Changed();
}

void ReferenceMenu::CloseGpx() {
    Record().gpx.Clear();
    Record().gpx.WriteSettings();
    Changed();
}

void ReferenceMenu::ShowTracks() {
    CGpxTracksDlg dialog(GetPlatform());
    dialog.SetData(&Record().gpx);
    dialog.DoModal();
    Changed();
}

void ReferenceMenu::ShowTrackPoints() {
    CGpxTracksDisplayDlg dialog(GetPlatform());
    dialog.SetData(&Record().gpx);
    dialog.DoModal();
}

// ---- Wind farms ----

void ReferenceMenu::ImportWindFarms() {
    std::vector<std::string> chosen;
    if (!GetPlatform().ChooseFiles({"Wind Farm File", kWindFarmFilter}, chosen) || chosen.empty()) return;
    FileSystem& files = GetPlatform().Files();
    const WindFarmImport import = ReadWindFarmFile(files, chosen.front(), {});
    std::string fault = import.fault;
    if (!fault.empty() || !StoreWindFarms(files, import.turbines, import.farms, fault)) {
        return GetPlatform().WarningMessage(chosen.front() + "\n" + fault);
    }
    std::string told = Format("%zu turbines and %zu wind farms", import.turbines.size(), import.farms.size());
    if (import.passedOver > 0) {
        told += Format("\n%zu without a position were left out; the first is number %zu", import.passedOver,
                       import.firstPassed);
    }
    GetPlatform().InformationBox(told);
    job.ReadWindFarmDatabase();
    TellOfGrid();
    Changed();
}

void ReferenceMenu::ChooseWindFarmDisplay() {
    CWindFarmDlg dialog(GetPlatform());
    dialog.SetData(&Record().windFarms);
    if (dialog.DoModal() == IDOK) Changed();
}

void ReferenceMenu::ShowTurbines() {
    CWindFarmList& list = Record().windFarms;
    const WindFarmDef* farm = list.farms.empty() ? nullptr : &list.farms.front();
    if (list.farms.size() > 1) {
        CFindWindFarm find(GetPlatform());
        find.SetData(&list);
        if (find.DoModal() != IDOK) return;
        farm = list.Find(find.GetFoundName());
    }
    if (!farm) return GetPlatform().InformationBox("There is no wind farm in the database.");
    CWindFarmTurbinesDlg dialog(GetPlatform());
    dialog.SetData(farm->name.c_str(), "", &list);
    dialog.DoModal();
}

void ReferenceMenu::FindWindFarm() {
    CFindWindFarm dialog(GetPlatform());
    dialog.SetData(&Record().windFarms);
    if (dialog.DoModal() != IDOK) return;
    TellOfGrid();
    const tagXY found = dialog.GetFound();
    const std::optional<tagXY> at =
        Record().geodesy.FromGeographic({found.y * kDegreesPerRadian, found.x * kDegreesPerRadian});
    if (at) {
        chart.SetView(*at, chart.View().MetresPerPixel());
    } else if (Record().geodesy.IsChosen()) {
        GetPlatform().InformationBox("The wind farm lies outside the grid of the job.");
    }
}

}  // namespace quillon
