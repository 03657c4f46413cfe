#include "display/feature_view.h"

#include <array>

#include "display/feature_listing.h"
#include "foundation/paths.h"
#include "frame/size_columns.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::array<std::string_view, 14> kTypeTexts = {
    "None",      "Waypoint", "Sail Line", "Route", "Design Route", "Pipeline",   "Boundary",
    "Structure", "Wreck",    "Point",     "Line",  "Polygon",      "Tidal Port", "Tidal Diamond"};

enum MENU { SAVE_CSV = 1, SAVE_EXCEL = 2, PRINT_LIST = 3, COORDINATE_LIST = 4 };
constexpr ExportMenuIds kExports = {SAVE_CSV, SAVE_EXCEL, PRINT_LIST};

/// The columns of a type with the records of the list's current file; no columns without the list.
template <class Record, class List>
PointsTable TableOfList(const List* list, int index, PointsTable (*make)(RecordSource<Record>)) {
    return list ? make(RecordsOfMember<Record>(*list, index)) : PointsTable();
}

}  // namespace

std::string_view FeatureTypeText(FEATURE_TYPES type) {
    const auto place = static_cast<std::size_t>(type);
    return place < kTypeTexts.size() ? kTypeTexts[place] : kTypeTexts[0];
}

CFeatureView::CFeatureView(CWnd& frame, UINT id) : CMyListView(frame, id) {
    SetMultipleSelection(false);
}

CFileListBase* CFeatureView::List() const {
    switch (type) {
        case FEATURE_TYPES::WAYPOINT:
            return waypoints;
        case FEATURE_TYPES::SAIL_LINE:
            return sailLines;
        case FEATURE_TYPES::ROUTE:
            return routes;
        case FEATURE_TYPES::DESIGN_ROUTE:
            return designRoutes;
        case FEATURE_TYPES::PIPELINE:
            return pipelines;
        case FEATURE_TYPES::BOUNDARY:
            return boundaries;
        case FEATURE_TYPES::STRUCTURE:
            return structures;
        case FEATURE_TYPES::NONE:
            break;
    }
    return nullptr;
}

int CFeatureView::Current() const {
    const CFileListBase* const list = List();
    return list && list->IsValidIndex(list->editState.editFileIndex) ? list->editState.editFileIndex : -1;
}

void CFeatureView::SetFeatureType(FEATURE_TYPES newType) {
    type = newType;
    Update();
}

void CFeatureView::Update() {
    const int file = Current();
    const auto table = [&] {
        switch (type) {
            case FEATURE_TYPES::WAYPOINT:
                return TableOfList(waypoints, file, ListWaypoints);
            case FEATURE_TYPES::SAIL_LINE:
                return TableOfList(sailLines, file, ListSailLines);
            case FEATURE_TYPES::ROUTE:
                return TableOfList(routes, file, ListRoute);
            case FEATURE_TYPES::DESIGN_ROUTE:
                return TableOfList(designRoutes, file, ListDesignRoute);
            case FEATURE_TYPES::PIPELINE:
                return TableOfList(pipelines, file, ListPipeline);
            case FEATURE_TYPES::BOUNDARY:
                return TableOfList(boundaries, file, ListBoundary);
            case FEATURE_TYPES::STRUCTURE:
                return TableOfList(structures, file, ListStructures);
            case FEATURE_TYPES::NONE:
                break;
        }
        return PointsTable();
    };
    ShowPoints(*this, table());
    const std::string name = file < 0 ? std::string() : NameOfPath(List()->GetPath(file));
    names.exportName = name;
    SetFrameTitle(Format("%s - %s", std::string(FeatureTypeText(type)).c_str(), name.c_str()));
}

// ---- Clicks ----

int CFeatureView::PointOfRow(int row) const {
    if (type == FEATURE_TYPES::ROUTE) return row % 2 == 0 ? row / 2 : -1;
    if (type != FEATURE_TYPES::DESIGN_ROUTE) return row;
    if (row == 0) return 0;
    const int file = Current();
    if (row == GetItemCount() - 1 && file >= 0) return designRoutes->GetPointCount(file) - 1;
    const std::string id = GetItemText(row, 0);
    return id.starts_with("IP") ? Atoi(std::string_view(id).substr(2)) : -1;
}

/// The rest of the edit state stays, and what isn't there is 0.
void CFeatureView::PointWaypointCursor(CFileListBase& list) const {
    FeatureEditState& cursor = list.editState;
    cursor.editFileIndex = 0;
    cursor.editPointIndex = 0;
    if (!list.IsValidIndex(selectedFile)) return;
    cursor.editFileIndex = selectedFile;
    if (selectedPoint < list.GetPointCount(selectedFile)) cursor.editPointIndex = selectedPoint;
}

void CFeatureView::OnNMClick(int row) {
    if (row < 0 || row >= GetItemCount()) return;
    CFileListBase* const list = List();
    if (!list) return;
    selectedPoint = -1;
    if (list->editState.editFileIndex >= list->GetCount()) list->editState.editFileIndex = -1;
    selectedFile = list->editState.editFileIndex;
    const int point = PointOfRow(row);
    if (point < 0) return;
    selectedPoint = point;
    if (type == FEATURE_TYPES::WAYPOINT) {
        PointWaypointCursor(*list);
    } else {
        list->SetEditCursor(selectedFile, point);
    }
    if (onCursorMoved) onCursorMoved();
}

void CFeatureView::OnNMRClick() {
    Platform& platform = GetOwner().GetPlatform();
    PopupMenu menu;
    AddExportEntries(menu, kExports);
    if (type == FEATURE_TYPES::DESIGN_ROUTE && designRoutes) {
        menu.AddSeparator();
        menu.AddItem(COORDINATE_LIST, "Co-ordinate Listing");
    }
    const int chosen = platform.TrackPopupMenu(menu);
    if (chosen == COORDINATE_LIST) {
        WriteCoordinateList();
    } else {
        RunExportEntry(platform, *this, names, kExports, chosen);
    }
}

void CFeatureView::WriteCoordinateList() {
    const int file = Current();
    if (file < 0) return;
    Platform& platform = GetOwner().GetPlatform();
    if ((*designRoutes)[file].WriteCoordinateList()) {
        platform.InformationBox("Coordinate List Created");
    } else {
        platform.WarningMessage("The coordinate list can't be written");
    }
}

}  // namespace quillon
