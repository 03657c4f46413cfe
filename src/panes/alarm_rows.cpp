#include "panes/alarm_rows.h"

#include "panes/row_values.h"

namespace quillon {
namespace {

constexpr UINT kRelockTimer = 1;

}  // namespace

CAlarmRows::CAlarmRows(CMFCPropertyGridCtrl& propertyList, const Ids& rowIds, std::chrono::milliseconds time)
    : list(propertyList), ids(rowIds), openTime(time) {}

bool CAlarmRows::IsPasswordWanted() const {
    return ids.password != 0 && CMFCPropertyGridPasswordProperty::IsPasswordPresent(list.GetOwner().GetPlatform());
}

CMFCPropertyGridProperty& CAlarmRows::Build(double clearance, double tolerance, std::string_view toleranceDescription) {
    auto& alarm = list.AddGroup("Anchor Cable Alarm");
    alarm
        .Add<CMFCPropertyGridDouble>("Clearance", clearance, "%7.1lfm",
                                     "WARNING if cable gets close than this distance", ids.clearance)
        .SetRange(kMetresRange);
    alarm.Add<CMFCPropertyGridDouble>("Tolerance", tolerance, "%7.1lfm", toleranceDescription, ids.tolerance)
        .SetRange(kMetresRange);
    const bool lock = IsPasswordWanted();
    Lock(lock);
    if (!lock) list.GetOwner().KillTimer(kRelockTimer);
    return alarm;
}

void CAlarmRows::BuildPassword(CMFCPropertyGridProperty& group) {
    if (IsPasswordWanted()) {
        group.Add<CMFCPropertyGridPasswordProperty>(list.GetOwner().GetPlatform(), ids.password);
    }
}

void CAlarmRows::OnPassword(const CMFCPropertyGridProperty& row) {
    if (!static_cast<const CMFCPropertyGridPasswordProperty&>(row).IsPasswordOk()) return;
    Lock(false);
    list.GetOwner().SetTimer(kRelockTimer, openTime);
}

void CAlarmRows::OnTimer(UINT timer) {
    if (timer != kRelockTimer) return;
    Lock(IsPasswordWanted());
    list.GetOwner().KillTimer(kRelockTimer);
}

void CAlarmRows::Lock(bool lock) {
    for (const UINT id : {ids.clearance, ids.tolerance}) {
        if (CMFCPropertyGridProperty* const row = list.FindItemByData(id)) row->SetLock(lock);
    }
}

}  // namespace quillon
