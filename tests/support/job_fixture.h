#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "job/job_record.h"
#include "platform/headless.h"
#include "platform/property_rows.h"
#include "platform/user_actions.h"
#include "support/message_log.h"
#include "support/scratch_drives.h"

namespace quillon {

/// A job on drives of its own, with a host that listens. `Restart` begins a new run over the same drives.
class JobFixture : public testing::Test {
protected:
    using Texts = std::vector<std::string>;

    JobFixture() { Restart(); }

    /// Drop the panes first: they point at the job.
    void Restart() {
        log.reset();
        job.reset();
        platform = std::make_unique<HeadlessPlatform>(drives.Root(), "Host");
        log = std::make_unique<MessageLog>(*platform);
        job = std::make_unique<JobRecord>(platform->Files());
        job->Load();
        LoadShapeFiles(job->shapes);
    }

    /// What was posted since the last look.
    Texts Messages() {
        platform->Messages().Pump();
        Texts lines;
        lines.swap(log->lines);
        return lines;
    }
    static Texts RedrawPair(const std::string& point = {}) {
        const std::string tail = point.empty() ? "" : " " + point;
        return {"UM_REDRAW_CHART" + tail, "UM_REDRAW_VECTOR_DISPLAY" + tail};
    }
    static Texts RedrawAndRecompute() {
        return {"UM_REDRAW_CHART", "UM_REDRAW_VECTOR_DISPLAY", "UM_RECOMPUTE_CATENARY_DATA"};
    }
    static Texts Recompute() { return {"UM_RECOMPUTE_CATENARY_DATA"}; }

    /// The lines of a file, each of which must end in carriage return and line feed. "(none)" without a file.
    Texts Lines(std::string_view path) {
        std::string bytes = drives.Read(path);
        if (bytes == "(none)") return {bytes};
        Texts lines;
        for (std::size_t end; (end = bytes.find("\r\n")) != std::string::npos; bytes.erase(0, end + 2)) {
            lines.push_back(bytes.substr(0, end));
        }
        EXPECT_EQ(bytes, "") << path << " ends in a line without CR LF";
        return lines;
    }

    /// What the operator does to a row; false if the row refuses it.
    template <class Pane>
    static bool PickRow(Pane& pane, UINT id, std::string_view text) {
        CMFCPropertyGridProperty* const row = pane.GetPropertyList().FindItemByData(id);
        if (!row) ADD_FAILURE() << "no row " << id;
        return row && user::Type(pane.GetPropertyList(), *row, text);
    }
    template <class Pane>
    static std::string RowText(Pane& pane, UINT id) {
        const CMFCPropertyGridProperty* const row = pane.GetPropertyList().FindItemByData(id);
        return row ? row->FormatProperty() : "(no row)";
    }
    template <class Pane>
    static Texts TableRow(Pane& pane, int row) {
        Texts cells;
        for (int column = 0; column < pane.GetTable().GetColumnCount(); ++column) {
            cells.push_back(pane.GetTable().GetItemText(row, column));
        }
        return cells;
    }

    ScratchDrives drives;
    std::unique_ptr<HeadlessPlatform> platform;
    std::unique_ptr<MessageLog> log;
    std::unique_ptr<JobRecord> job;
};

}  // namespace quillon
