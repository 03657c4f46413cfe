#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "geodesy/gsb_file.h"
#include "platform/array.h"
#include "platform/file.h"

namespace quillon {

/// One sub-grid of an NTv2 data set.
struct DataSetDef {
    std::string subName;
    std::string parent;
    std::string created;
    std::string updated;
    double sLat = 0, nLat = 0, eLong = 0, wLong = 0;  ///< seconds of arc, longitudes positive west
    double latInc = 0, longInc = 0;
    CArray<GridShiftRecordDef> nodes;
};

/// Container of NTv2 data sets. On destruction it leaves its reference point in the settings file "NTv2".
class CNTv2 : public CArray<std::unique_ptr<DataSetDef>> {
public:
    /// A point in both systems, degrees. Nothing in this system sets it or reads the file back.
    struct ReferencePoint {
        double nad27Latitude = 0;
        double nad27Longitude = 0;
        double nad83Latitude = 0;
        double nad83Longitude = 0;
        friend bool operator==(const ReferencePoint&, const ReferencePoint&) = default;
    };

    std::string systemFrom;
    std::string systemTo;
    std::string version;
    ReferencePoint reference;
    std::uint16_t flag = 0;

    explicit CNTv2(FileSystem& fileSystem) : files(fileSystem) {}
    CNTv2(const CNTv2&) = delete;
    CNTv2& operator=(const CNTv2&) = delete;
    ~CNTv2();

private:
    bool SettingsStand() const;
    void WriteSettings() const;

    FileSystem& files;
};

}  // namespace quillon
