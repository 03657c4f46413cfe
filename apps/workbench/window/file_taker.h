#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/file_kinds.h"
#include "host/job.h"
#include "toolkit/qt_platform.h"
#include "window/pane_docks.h"

namespace quillon {

/// Takes files that come without a word about what they are, dropped on the chart or named at the start: each goes the
/// way of its kind's pane, as if the operator had chosen it there. Where a file could be of several kinds the operator
/// is asked, once for all files alike; what can't be taken is told by name and reason.
class FileTaker : public QObject {
public:
    /// Files dropped on `target` are taken.
    FileTaker(Job& job, QtPlatform& platform, PaneDocks& docks, QWidget& target);

    /// Library paths.
    void Take(const std::vector<std::string>& paths);

    /// Which of the kinds some files are, the likeliest first; nothing to leave them. At first a dialog.
    std::function<std::optional<KIND>(const std::vector<std::string>& paths, const std::vector<KIND>& kinds)> ask;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Group {
        std::vector<KIND> kinds;
        std::vector<std::string> paths;
    };
    std::optional<KIND> AskByDialog(const std::vector<std::string>& paths, const std::vector<KIND>& kinds) const;
    void Add(KIND kind, const std::vector<std::string>& paths);
    void Tell();

    Job& job;
    QtPlatform& platform;
    PaneDocks& docks;
    QWidget& target;
    std::vector<std::string> refused;  ///< lines for people
};

}  // namespace quillon
