#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "features/drawing_options.h"
#include "features/feature_common.h"
#include "features/file_list.h"
#include "features/leg.h"
#include "foundation/values.h"

namespace quillon {

/// One straight run from its start to its end of line. Metres of the job's grid.
struct SailLineDef {
    tagXY sol;
    tagXY eol;
    LegDef leg;

    tagXY Middle() const { return {(sol.x + eol.x) / 2, (sol.y + eol.y) / 2}; }
};

inline constexpr std::array<std::string_view, 1> kSailLineOrderTxt = {"SOL Eng, SOL Nng, EOL Eng, EOL Nng"};

/// A file of sail lines. The runs don't join, and none depends on another.
class CSailLine : public CArray<SailLineDef>, public CDrawingOptions, public CFeatureCommon {
public:
    using CFeatureCommon::CFeatureCommon;

    /// Reads the data order, the file by it, the flags and the drawing options. True if a line was taken.
    bool Read(std::string_view path);
    /// The same by another data order than the stored one.
    bool Read(std::string_view path, std::int32_t order);
    /// The lines alone, by the data order as it stands; any order but 0 gives none.
    bool ReadLines();
    /// The same from an opened file.
    bool ReadFrom(CStdioFile& file);
    /// Reads the lines anew; the data order and the display choices stay. A file that gives no line leaves a stub.
    /// False, with the lines as they were, if the file can't be opened.
    bool ReadAgain();
    void AddEmpty() { Add(SailLineDef()); }
    /// What stands in the list for a file of no use: its path and one empty record.
    void MakeStub(std::string_view path);

    void SaveDrawingOptions();
    /// Takes over what another feature of that name has stored, with all that hangs on it; false if nothing.
    bool FollowStored();
    /// Reads everything but the data anew, as at a start, with all that hangs on it; the data only where their order is
    /// another. False if all is what it was.
    bool ReadStored();
    void SaveOrder() const;

    std::int32_t dataOrder = 0;
};

class CSailLineList : public CFileList<CSailLine> {
public:
    using CFileList::CFileList;
    /// Keeps the third index where the point index is taken.
    void SetEditCursor(int fileIndex, int pointIndex) override;

protected:
    /// A file of no use still shows in the list.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return "SailLine"; }
};

}  // namespace quillon
