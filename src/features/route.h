#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "features/corridor.h"
#include "features/data_order.h"
#include "features/drawing_options.h"
#include "features/feature_common.h"
#include "features/file_list.h"
#include "features/route_record.h"
#include "features/route_rewrite.h"
#include "foundation/values.h"

namespace quillon {

/// A route: points with the leg that leaves each, the distance so far, and the corners of the corridor either side.
class CRoute : public CRouteArray, public CDrawingOptions, public CCorridor, public CFeatureCommon {
public:
    using CFeatureCommon::CFeatureCommon;

    /// Reads the data order, then the file by it, with its flags, drawing options and corridor. True if a point was
    /// read.
    bool Read(std::string_view path);
    /// The same by another data order than the stored one.
    bool Read(std::string_view path, std::int32_t order);
    /// The points alone, by the data order as it stands.
    bool ReadPoints();
    /// The same from an opened file.
    bool ReadFrom(CStdioFile& file);
    /// Reads the points anew; the data order and the display choices stay. A file that gives no point leaves a stub.
    /// False, with the points as they were, if the file can't be opened.
    bool ReadAgain();
    /// What stands in the list for a file of no use: its path and one record of zeros.
    void MakeStub(std::string_view path);

    void SaveDrawingOptions();
    /// Takes over what another feature of that name has stored, with all that hangs on it; false if nothing.
    bool FollowStored();
    /// Reads everything but the data anew, as at a start, with all that hangs on it; the data only where their order is
    /// another. False if all is what it was.
    bool ReadStored();
    void SaveCorridorOptions();
    void SaveOrder() const { SaveDataOrder(GetFiles(), GetName(), dataOrder); }
    /// Rewrites the data file by the data order, with 3 decimals, and the data order and the flags with it. What the
    /// file holds and the new one can't (lines that were passed over, words beside the fields, further decimals) is
    /// gone from it; then the file as it was is kept beside it first. The data file is left as it was, and so is its
    /// order, if it can't be written, if it has changed on the disk since it was read, or if nothing in it could be
    /// read under this data order: then what it holds isn't ours to replace.
    const RouteSave& SaveRoute();
    /// What came of the last SaveRoute.
    const RouteSave& GetLastSave() const { return lastSave; }
    /// The data order that the points were read by.
    std::int32_t GetReadOrder() const { return readOrder; }

    /// In the data order without names, every point is named by its place: "WPT 1" and so on.
    void RenewNames();
    /// From the widths of the corridor. Nothing happens with fewer than 2 records.
    void ComputeCorridor();

    /// Writes the points of a design route, its arcs stepped so that a chord stays within a metre of the curve, beside
    /// the routes' drawing files. False for fewer than 2 records, or if the file can't be written.
    bool WriteCoordinateList() const;

    std::int32_t dataOrder = 0;
    std::int32_t firstWork = -2;
    std::int32_t secondWork = -1;

private:
    friend class CRouteRewrite;
    void FillLegs();
    void AddStubRecord();

    std::int32_t readOrder = 0;
    RouteSave lastSave;
};

/// A list of routes; also of design routes, whose records have their curve fields filled.
class CRouteList : public CFileList<CRoute> {
public:
    using CFileList::CFileList;

protected:
    /// A file of no use still shows in the list.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return "Route"; }
};

class CDesignRouteList : public CRouteList {
public:
    using CRouteList::CRouteList;
};

}  // namespace quillon
