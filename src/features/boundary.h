#pragma once

#include <string>
#include <string_view>

#include "features/drawing_options.h"
#include "features/feature_common.h"
#include "features/file_list.h"
#include "foundation/values.h"

namespace quillon {

/// A boundary: the points of one text file in their order, taken as drawn. No closing point is added, nothing is
/// reordered. Eastings and northings in metres of the job's grid.
///
/// The file has one point a line, easting then northing, in any form that the field scanner takes.
class CBoundary : public CXYArray, public CDrawingOptions, public CFeatureCommon {
public:
    using CFeatureCommon::CFeatureCommon;

    /// Reads the file with its flags and drawing options. True if at least one point was taken; a file that can't be
    /// read gives no points and the defaults.
    bool Read(std::string_view path);
    /// The points alone, from an opened file. True if one was taken.
    bool ReadFrom(CStdioFile& file);
    /// Reads the points anew; the display choices stay. A file that gives no point leaves a stub. False, with the
    /// points as they were, if the file can't be opened.
    bool ReadAgain();
    /// What stands in the list for a file of no use: its path and one point at 0, 0.
    void MakeStub(std::string_view path);
    void SaveDrawingOptions();
    /// Takes over what another feature of that name has stored, with all that hangs on it; false if nothing.
    bool FollowStored();
    /// Reads everything but the data anew, as at a start. False if all is what it was.
    bool ReadStored();

    /// The points for the filled drawing; empty with fewer than 3 points.
    const CXYArray& GetPolygon() const;
    void RebuildPolygon() { hasPolygon = GetSize() >= 3; }

private:
    void AddStubPoint();

    bool hasPolygon = false;
};

class CBoundaryList : public CFileList<CBoundary> {
public:
    using CFileList::CFileList;

protected:
    /// A file of no use still shows in the list.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return "Boundary"; }
};

}  // namespace quillon
