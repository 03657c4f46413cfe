#include "host/job_targets.h"

#include <cmath>
#include <initializer_list>

#include "foundation/angle_units.h"
#include "foundation/paths.h"
#include "panes/outline_dlg.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kFollowsVessel = "Target Plot Follows Vessel";

std::string ActName(const COutlineList& list, const char* what) {
    return std::string(list.Label()) + ": " + what;
}

}  // namespace

void JobTargets::SetPanes(const std::vector<std::unique_ptr<CMyDockablePane>>& panes) {
    record.plotFollowsVessel = platform.GetProfile().GetInt(kSection, kFollowsVessel, 0) != 0;
    for (const auto& pane : panes) {
        if (auto* const window = dynamic_cast<CTargetPlotWindow*>(pane.get())) plotWindow = window;
        auto* const target = dynamic_cast<CTargetPane*>(pane.get());
        if (target) (target->GetDlgCtrlID() == CTargetPane::kVesselId ? vesselPane : templatePane) = target;
    }
    Follow();
    for (const auto& pane : panes) pane->RefreshRows();
}

CTargetPane* JobTargets::PaneOf(const COutlineList& list) const {
    return &list == &record.vessels ? vesselPane : templatePane;
}

void JobTargets::ShowCurrent(COutlineList& list) {
    if (CTargetPane* const pane = PaneOf(list)) pane->SetObject(list.GetCurrent());
    Follow();
    if (onChanged) onChanged();
}

void JobTargets::ShowRestored() {
    for (COutlineList* const list : std::initializer_list<COutlineList*>{&record.vessels, &record.templates}) {
        if (CTargetPane* const pane = PaneOf(*list)) pane->SetObject(list->GetCurrent());
        list->DropRetired();
    }
    Follow();
    if (onChanged) onChanged();
}

void JobTargets::Tell(const std::string& fault) {
    platform.WarningMessage(fault);
}

// ---- Acts ----

void JobTargets::AddNew(COutlineList& list) {
    const UserAct act(platform, ActName(list, "New"));
    COutlineDlg dialog(platform, list);
    if (dialog.DoModal() == IDOK) ShowCurrent(list);
}

void JobTargets::Open(COutlineList& list) {
    const UserAct act(platform, ActName(list, "Open"));
    const std::string label(list.Label()), extension(list.Extension());
    const FileQuestion question{
        .title = label + " File ....",
        .filter = label + " Files (*." + extension + ")|*." + extension + "|All Files (*.*)|*.*||",
        .multiple = false,
        .start = list.Folder()};
    std::vector<std::string> chosen;
    if (!platform.ChooseFiles(question, chosen) || chosen.empty()) return;
    std::string fault;
    if (list.Open(Trim(chosen.front()), fault) < 0) return Tell(fault);
    ShowCurrent(list);
}

void JobTargets::Remove(COutlineList& list) {
    const UserAct act(platform, ActName(list, "Remove"));
    if (!list.GetCurrent()) return;
    if (CTargetPane* const pane = PaneOf(list)) pane->SetObject(nullptr);
    list.RemoveAt(list.GetCurrentIndex());
    ShowCurrent(list);
}

void JobTargets::Choose(COutlineList& list, int index) {
    const UserAct act(platform, ActName(list, "Choose"));
    list.SetCurrent(index);
    ShowCurrent(list);
}

void JobTargets::ChooseOutline(COutlineList& list) {
    const UserAct act(platform, ActName(list, "Outline"));
    const COutline* const object = list.GetCurrent();
    if (!object) return;
    std::string path = object->outlineFile;
    if (!ChooseOutlineFile(platform, path)) return;
    std::string fault;
    if (!list.SetOutlineFile(list.GetCurrentIndex(), path, fault)) return Tell(fault);
    ShowCurrent(list);
}

void JobTargets::PlaceAt(COutlineList& list, std::optional<tagXY> place) {
    const UserAct act(platform, ActName(list, "Place"));
    if (!list.GetCurrent()) return;
    list.SetPlace(list.GetCurrentIndex(), place);
    ShowCurrent(list);
}

// ---- What follows ----

void JobTargets::Follow() {
    for (COutlineList* const list : std::initializer_list<COutlineList*>{&record.vessels, &record.templates}) {
        list->FollowSources();
        CTargetPane* const pane = PaneOf(*list);
        if (pane && pane->GetObject() != list->GetCurrent()) pane->SetObject(list->GetCurrent());
        list->DropRetired();
    }
    FollowVessel();
    if (plotWindow) plotWindow->GetView().SetMarks(Marks());
    record.targetPlot.dirty = false;
    if ((platform.GetProfile().GetInt(kSection, kFollowsVessel, 0) != 0) != record.plotFollowsVessel) {
        platform.GetProfile().SetInt(kSection, kFollowsVessel, record.plotFollowsVessel ? 1 : 0);
    }
}

std::optional<tagXY> JobTargets::GeographicOf(tagXY position) const {
    const auto there = record.geodesy.ToGeographic(position);
    if (!there) return std::nullopt;
    return tagXY{there->longitude * kRadiansPerDegree, there->latitude * kRadiansPerDegree};
}

/// A plot that follows the vessel has its centre where the vessel stands, and its heading up unless north is held up.
void JobTargets::FollowVessel() {
    const COutline* const vessel = record.vessels.GetCurrent();
    if (!record.plotFollowsVessel || !vessel) return;
    CTargetPlot& plot = record.targetPlot;
    if (const auto& place = record.vessels.PlaceOf(record.vessels.GetCurrentIndex())) {
        if (const auto centre = GeographicOf(*place)) {
            plot.SetLatitude(centre->y);
            plot.SetLongitude(centre->x);
        }
    }
    if (!plot.display.northUp) plot.SetOrientation(static_cast<std::int32_t>(std::lround(vessel->trueAlignment)));
}

std::vector<PlotMark> JobTargets::Marks() const {
    std::vector<PlotMark> marks;
    const auto add = [&](tagXY position, const std::string& name, COLORREF colour) {
        if (const auto there = GeographicOf(position)) marks.push_back({*there, name, colour});
    };
    for (const COutlineList* const list :
         std::initializer_list<const COutlineList*>{&record.templates, &record.vessels}) {
        for (int i = 0; i < list->GetCount(); ++i) {
            const COutline& object = (*list)[i];
            if (object.waypointValid) {
                add({object.waypoint.easting, object.waypoint.northing}, object.waypoint.name, object.waypointColour);
            }
            if (const auto& place = list->PlaceOf(i)) add(*place, object.name, object.outlinePen.colour);
        }
    }
    return marks;
}

}  // namespace quillon
