#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include "geodesy/gsb_file.h"

namespace quillon {

/// The bytes of a small grid-shift file: what a test cares for is set, node i holds i and i / 10, i / 100, i / 1000.
struct GsbBytes {
    double majorF = 6377563.396, minorF = 6356256.909;
    double majorT = 6378137.0, minorT = 6356752.314140356;
    double sLat = 180000, nLat = 180300, eLong = -7200, wLong = -6900;
    double latInc = 300, longInc = 3;
    std::int32_t count = 4;   ///< as the header claims
    std::int32_t nodes = -1;  ///< as the file holds; as claimed by default

    std::string Make() const {
        std::string bytes;
        for (const GsbRecordDef& record : kGsbRecords) {
            std::string keyword(record.keyword);
            keyword.resize(8, ' ');
            bytes += keyword + std::string(8, record.value == GSB_VALUE::TEXT ? ' ' : '\0');
        }
        Put(bytes, NUM_OREC, std::int32_t{11});
        Put(bytes, NUM_SREC, std::int32_t{11});
        Put(bytes, NUM_FILE, std::int32_t{1});
        bytes.replace(GS_TYPE * 16 + 8, 8, "SECONDS ");
        bytes.replace(SUB_NAME * 16 + 8, 8, "TESTGRID");
        Put(bytes, MAJOR_F, majorF);
        Put(bytes, MINOR_F, minorF);
        Put(bytes, MAJOR_T, majorT);
        Put(bytes, MINOR_T, minorT);
        Put(bytes, S_LAT, sLat);
        Put(bytes, N_LAT, nLat);
        Put(bytes, E_LONG, eLong);
        Put(bytes, W_LONG, wLong);
        Put(bytes, LAT_INC, latInc);
        Put(bytes, LONG_INC, longInc);
        Put(bytes, GS_COUNT, count);
        for (int i = 0; i < (nodes < 0 ? count : nodes); ++i) {
            const float node[] = {float(i), float(i) / 10, float(i) / 100, float(i) / 1000};
            bytes.append(reinterpret_cast<const char*>(node), sizeof node);
        }
        return bytes;
    }

private:
    template <class T>
    static void Put(std::string& bytes, GSB_RECORD record, T value) {
        std::memcpy(bytes.data() + record * 16 + 8, &value, sizeof value);
    }
};

}  // namespace quillon
