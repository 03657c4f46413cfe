#pragma once

#include "features/pipeline.h"
#include "panes/alarm_rows.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the pipeline pane that react.
enum PIPELINE_ROW : UINT {
    PIPELINE_DISPLAY = 1,
    PIPELINE_ORDER = 2,
    PIPELINE_DIAMETER = 3,
    PIPELINE_COLOUR = 4,
    PIPELINE_THICKNESS = 5,
    PIPELINE_CORRIDOR = 6,
    PIPELINE_PORT_WIDTH = 7,
    PIPELINE_STARBOARD_WIDTH = 8,
    PIPELINE_CORRIDOR_FILL = 9,
    PIPELINE_CORRIDOR_COLOUR = 10,
    PIPELINE_CLEARANCE = 11,
    PIPELINE_TOLERANCE = 12,
    PIPELINE_PASSWORD = 13
};

/// Edits the job's pipelines; with the figures of the anchor cable alarm, if the host asks for them.
class CPipelinePane : public CFeaturePane {
public:
    static constexpr UINT kTitleId = 12094;
    static constexpr std::string_view kTitle = "Pipeline Properties";
    /// How long a right password keeps the two rows of the alarm open.
    static constexpr std::chrono::milliseconds kOpenTime{60000};

    explicit CPipelinePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CPipelineList& features, bool showAlarmRows);
    void OnPipelineCombo() { OnCombo(); }
    void OnTimer(UINT timer) override { alarm.OnTimer(timer); }

private:
    CPipeline& Member(int index) const { return static_cast<CPipelineList&>(List())[index]; }

    void BuildRows(int index) override;
    PointsTable MakeTable(int index) override;
    bool PointOfRow(int index, int row, tagXY& point) const override;
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;

    void ReadAnew(CPipeline& pipeline, int order);

    bool alarmRows = false;
    CAlarmRows alarm;
};

}  // namespace quillon
