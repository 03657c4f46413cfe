#pragma once

#include <chrono>
#include <string_view>

#include "platform/property_rows.h"

namespace quillon {

/// The rows of the group "Anchor Cable Alarm" and their lock. Where a password is in force, Clearance and Tolerance are
/// locked; the right password opens them for a time, which begins anew with each right entry.
///
/// A member of the pane that shows the rows. The pane hands it the password row's changes and its own timers.
class CAlarmRows {
public:
    struct Ids {
        UINT clearance;
        UINT tolerance;
        UINT password;  ///< 0 for rows that no password locks
    };

    CAlarmRows(CMFCPropertyGridCtrl& list, const Ids& ids, std::chrono::milliseconds openTime);

    /// Adds the group with the two rows, in metres. A pane may add rows of its own before the password row.
    CMFCPropertyGridProperty& Build(double clearance, double tolerance, std::string_view toleranceDescription);
    void BuildPassword(CMFCPropertyGridProperty& group);

    /// The password row was answered.
    void OnPassword(const CMFCPropertyGridProperty& row);
    void OnTimer(UINT timer);

private:
    bool IsPasswordWanted() const;
    void Lock(bool lock);

    CMFCPropertyGridCtrl& list;
    Ids ids;
    std::chrono::milliseconds openTime;
};

}  // namespace quillon
