#include "panes/target_tab_ctrl.h"

#include <algorithm>

#include "platform/platform.h"

namespace quillon {
namespace {

constexpr UINT kFirstPageId = 2;

/// Single precision, as every program of the system has the colours.
constexpr float kTowardsWhite = 0.6F;
constexpr float kTowardsBlack = 0.25F;

COLORREF GroundOn(COLORREF face, bool night) {
    const auto channel = [night](COLORREF c) {
        const int level = static_cast<int>(c & 0xFF);
        const auto share = [](int room, float part) { return static_cast<int>(static_cast<float>(room) * part); };
        return night ? level - share(level, kTowardsBlack) : level + share(255 - level, kTowardsWhite);
    };
    return RGB(channel(face), channel(face >> 8), channel(face >> 16));
}

}  // namespace

PropertyColours TabListColours(COLORREF face, bool night) {
    return {.background = GroundOn(face, night),
            .text = 0x000000,
            .groupBackground = 0x555555,
            .groupText = 0xEBEBEB,
            .descriptionBackground = 0x555555,
            .descriptionText = night ? 0xC0C0C0U : 0xEBEBEBU,
            .line = 0x555555};
}

CMFCTargetTabCtrl::CMFCTargetTabCtrl(CWnd& pane, UINT id, RowEffectTarget& target)
    : CMyMFCTabCtrl(pane, id), followUp(target) {
    changesGoTo = &pane;
    EnableAutoColor(true);
    EnableActiveTabBoldFont(true);
}

void CMFCTargetTabCtrl::Build(COutline* edited) {
    UINT id = kFirstPageId;
    if (!edited || edited->sailLineFiles) sailLine = std::make_unique<CSailLinePage>(*this, id++);
    waypoint = std::make_unique<CWaypointPage>(*this, id++);
    shadow = std::make_unique<CShadowPage>(*this, id);
    for (COutlinePage* const page : Pages()) AddTab(page->GetList(), page->GetLabel());
    SetObject(edited);
}

void CMFCTargetTabCtrl::SetObject(COutline* edited) {
    object = edited;
    for (COutlinePage* const page : Pages()) {
        page->SetObject(object);
        page->Init();
    }
}

void CMFCTargetTabCtrl::RenewRows() {
    for (COutlinePage* const page : Pages()) page->Renew();
}

std::vector<COutlinePage*> CMFCTargetTabCtrl::Pages() const {
    if (!waypoint) return {};
    std::vector<COutlinePage*> pages = {waypoint.get(), shadow.get()};
    if (sailLine) pages.insert(pages.begin(), sailLine.get());
    return pages;
}

COutlinePage* CMFCTargetTabCtrl::PageOf(const CMFCPropertyGridProperty& row) const {
    for (COutlinePage* const page : Pages()) {
        if (row.GetList() == &page->GetList()) return page;
    }
    return nullptr;
}

// ---- Looks ----

void CMFCTargetTabCtrl::ColourActiveList(bool night) {
    auto* const list = dynamic_cast<CMyMFCPropertyGridCtrl*>(GetActiveWnd());
    if (!list) return;
    list->night = night;
    list->SetCustomColors(TabListColours(GetPlatform().GetTabFaceColour(), night));
}

void CMFCTargetTabCtrl::AdjustLayout() {
    if (CControl* const list = GetActiveWnd()) {
        list->MoveWindow({0, GetTabsHeight(), GetRect().Width(), std::max(GetTabsHeight(), GetRect().Height())});
    }
}

// ---- Changes ----

LRESULT CMFCTargetTabCtrl::OnMessage(const MSG& message) {
    if (message.message != AFX_WM_PROPERTY_CHANGED) return CMyMFCTabCtrl::OnMessage(message);
    OnPropertyChanged(*reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam));
    return 0;
}

void CMFCTargetTabCtrl::OnPropertyChanged(CMFCPropertyGridProperty& row) {
    COutlinePage* const page = PageOf(row);
    if (!object || !page) return;
    page->Store(row);
    const TargetRow& follows = FindTargetRow(row.GetData());
    for (const TARGET_STEP step : follows.steps) DoStep(step);
    ApplyRowEffect(follows.effect, true, followUp);
}

void CMFCTargetTabCtrl::DoStep(TARGET_STEP step) {
    if (!object) return;
    switch (step) {
        case TARGET_STEP::NONE:
            return;
        case TARGET_STEP::BOX:
            return object->UpdateBox();
        case TARGET_STEP::SHOW_WAYPOINT:
            return waypoint->ShowWaypoint();
        case TARGET_STEP::SHOW_ALIGNMENT:
            waypoint->ShowAlignment();
            return shadow->ShowAlignment();
        case TARGET_STEP::SHOW_OFFSETS:
            return shadow->ShowOffsets();
        case TARGET_STEP::SHOW_OFFSET:
            return shadow->ShowOffset();
        case TARGET_STEP::TRACK:
            object->TrackedPosition();
            return shadow->ShowTracked();
        case TARGET_STEP::ZONES:
            object->UpdateZones();
            return waypoint->ShowZones();
        case TARGET_STEP::SHOW_ZONES:
            return waypoint->ShowZones();
        case TARGET_STEP::SHOW_SAIL_LINES:
            if (sailLine) sailLine->ShowChoices();
            return;
        case TARGET_STEP::SHOW_SAIL_LINE:
            if (sailLine) sailLine->ShowLine();
            return;
    }
}

}  // namespace quillon
