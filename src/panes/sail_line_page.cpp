#include "panes/sail_line_page.h"

#include "foundation/angle_units.h"
#include "foundation/paths.h"
#include "panes/target_rows.h"
#include "platform/text.h"

namespace quillon {
namespace {

enum GROUP { GROUP_SAIL_LINE, GROUP_COORDINATES, GROUP_PARAMETERS };

}  // namespace

Choices CSailLinePage::LineChoices() const {
    const CSailLineList* const files = Object().sailLineFiles;
    const int file = Object().sailLineFileIndex;
    const int count = files && files->IsValidIndex(file) ? files->GetPointCount(file) : 0;
    Choices choices{.texts = {}, .chosen = Object().sailLineValid ? Object().sailLineIndex : -1};
    for (int i = 1; i <= count; ++i) choices.texts.push_back(Format("Line %d", i));
    return choices;
}

void CSailLinePage::BuildRows() {
    const COutline& outline = Object();
    auto& choice = GetList().AddGroup("Sail Line");
    AddChoices(choice, "File Name", FileChoices(outline.sailLineFiles, outline.sailLineFileIndex),
               "Select the SailLine File", SAIL_FILE);
    AddChoices(choice, "SailLine", LineChoices(), "Select the SailLine", SAIL_LINE);
    const SailLineDef& line = outline.sailLine;
    auto& ends = GetList().AddGroup("Co-ordinates");
    AddShown(ends, "SOL Easting", line.sol.x, "%10.2lfE");
    AddShown(ends, "SOL Northing", line.sol.y, "%10.2lfN");
    AddShown(ends, "EOL Easting", line.eol.x, "%10.2lfE");
    AddShown(ends, "EOL Northing", line.eol.y, "%10.2lfN");
    auto& parameters = GetList().AddGroup("Parameters");
    AddShown(parameters, "Length", line.leg.range, "%10.2lf");
    AddShownAngle(parameters, "Bearing", line.leg.bearing * kDegreesPerRadian);
    AddColour(GetList().AddGroup("Active Line"), "Colour", outline.sailLineColour,
              "Specifies the pen colour of the Line", SAIL_COLOUR);
}

void CSailLinePage::ShowChoices() {
    SetChoicesOf(SAIL_FILE, FileChoices(Object().sailLineFiles, Object().sailLineFileIndex));
    SetChoicesOf(SAIL_LINE, LineChoices());
}

void CSailLinePage::ShowLine() {
    const SailLineDef& line = Object().sailLine;
    SetRow({GROUP_COORDINATES, 0}, line.sol.x);
    SetRow({GROUP_COORDINATES, 1}, line.sol.y);
    SetRow({GROUP_COORDINATES, 2}, line.eol.x);
    SetRow({GROUP_COORDINATES, 3}, line.eol.y);
    SetRow({GROUP_PARAMETERS, 0}, line.leg.range);
    SetRow({GROUP_PARAMETERS, 1}, line.leg.bearing * kDegreesPerRadian);
}

void CSailLinePage::Store(const CMFCPropertyGridProperty& row) {
    COutline& outline = Object();
    switch (row.GetData()) {
        case SAIL_FILE:
            if (const int chosen = ChosenOption(row); chosen >= 0) outline.SetSailLine(chosen, 0);
            return;
        case SAIL_LINE:
            if (const int chosen = ChosenOption(row); chosen >= 0) {
                outline.SetSailLine(outline.sailLineFileIndex, chosen);
            }
            return;
        case SAIL_COLOUR:
            Take(outline.sailLineColour, row);
            return;
        default:
            return;
    }
}

}  // namespace quillon
