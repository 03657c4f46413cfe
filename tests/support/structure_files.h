#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"
#include "support/dxf_groups.h"
#include "support/scratch_drives.h"

namespace quillon {

/// A drawing in the folder of the shapes: a box from 0, 0 with its diagonal.
inline void WriteShape(ScratchDrives& drives, std::string_view name, double width, double height) {
    const std::string extents = Format("9 $EXTMIN|10 0|20 0|30 0|9 $EXTMAX|10 %.1lf|20 %.1lf|30 0", width, height);
    const std::string line = Format("0 LINE|8 0|10 0|20 0|11 %.1lf|21 %.1lf", width, height);
    drives.Write("C:\\MyData\\Structures\\" + std::string(name) + ".dxf",
                 Section("HEADER", extents) + Section("ENTITIES", line) + Groups("0 EOF"));
}

/// The block of a structure in its file.
inline std::string StructureBlock(int shapeNumber, std::string_view name, std::string_view shape,
                                  std::string_view position, double height, double heading, double length) {
    return Format("STRUCTURE %d\r\nNAME ", shapeNumber) + std::string(name) + "\r\nSHAPE " + std::string(shape) +
           "\r\nSHOW 1\r\n" + std::string(position) +
           Format("\r\nHEIGHT %.2lf\r\nHEADING %.1lf\r\nLENGTH %.2lf\r\n", height, heading, length);
}

}  // namespace quillon
