#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "features/corridor.h"
#include "features/drawing_options.h"
#include "features/feature_common.h"
#include "features/file_list.h"
#include "foundation/read_report.h"
#include "foundation/values.h"

namespace quillon {

/// One point of a route. Metres, radians clockwise from grid north. The curve fields belong to design routes; a plain
/// route leaves them 0.
struct RouteDef {
    tagXY position;
    double range = 0.0;  ///< of the leg to the next point; 0 in the last point
    double bearing = 0.0;
    double sine = 0.0;
    double cosine = 0.0;
    double reverseBearing = 0.0;
    double kp = 0.0;       ///< metres along the route up to this point
    double kpScale = 0.0;  ///< kilometres per metre on this leg: 0.001, or 1 for a leg of no length
    double radius = 0.0;   ///< of the curve; 0 at a plain corner
    tagXY centre;
    tagXY curveStart;
    tagXY curveEnd;
    double curveStartKp = 0.0;
    double curveEndKp = 0.0;
    double startRadial = 0.0;
    double endRadial = 0.0;
    double interiorAngle = 0.0;
    double sweep = 0.0;
    double arcLength = 0.0;
    std::int32_t direction = 0;  ///< 1 clockwise, -1 anti-clockwise, 0 no curve
    tagXY portCorridorStart;
    tagXY portCorridorEnd;
    tagXY starboardCorridorStart;
    tagXY starboardCorridorEnd;
    std::string name;
};

class CRouteArray : public CArray<RouteDef> {};

inline constexpr std::array<std::string_view, 3> kRouteOrderTxt = {"Easting, Northing", "Name, Easting, Northing",
                                                                   "Easting, Northing, Name"};

/// The data order of a route or sail line file, kept in the settings folder under the data file's name. A missing file
/// means 0.
std::int32_t LoadDataOrder(FileSystem& files, std::string_view name);
void SaveDataOrder(FileSystem& files, std::string_view name, std::int32_t order);

/// A route: points with the leg that leaves each, the distance so far, and the corners of the corridor either side.
class CRoute : public CRouteArray, public CDrawingOptions, public CCorridor, public CFeatureCommon {
public:
    using CFeatureCommon::CFeatureCommon;

    /// Reads the data order, then the file by it, with its flags, drawing options and corridor. True if a point was
    /// read.
    bool Read(std::string_view path, ReadReport* report = nullptr);
    /// The points alone, by the data order as it stands.
    bool ReadPoints(ReadReport* report = nullptr);
    /// The same from an opened file.
    bool ReadFrom(CStdioFile& file, ReadReport* report = nullptr);
    /// Reads the points anew; the data order and the display choices stay. A file that gives no point leaves a stub.
    /// False, with the points as they were, if the file can't be opened.
    bool ReadAgain(ReadReport* report = nullptr);
    /// What stands in the list for a file of no use: its path and one record of zeros.
    void MakeStub(std::string_view path);

    void SaveDrawingOptions() const;
    void SaveCorridorOptions() const { SaveCorridor(GetFiles(), GetName()); }
    void SaveOrder() const { SaveDataOrder(GetFiles(), GetName(), dataOrder); }
    /// Rewrites the data file by the data order, with 3 decimals, and the data order and the flags with it. Lines that
    /// were passed over when it was read are gone from it. False if the data file was left as it was: it can't be
    /// written, or nothing in it could be read under this data order, and then what it holds isn't ours to replace.
    bool SaveRoute() const;

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
    void FillLegs();
    void AddStubRecord();
};

/// A list of routes; also of design routes, whose records have their curve fields filled.
class CRouteList : public CFileList<CRoute> {
public:
    using CFileList::CFileList;
    const std::string& GetPath(int index) const override { return (*this)[index].GetPath(); }
    int GetPointCount(int index) const override { return static_cast<int>((*this)[index].GetSize()); }

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
