#pragma once

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quillon {

/// A block of tests/data/geodesy/grids.txt: positions of a row as another program has them. Degrees and metres.
struct GridFiguresBlock {
    struct Position {
        double lat, lon, easting, northing;
    };
    std::int32_t type = 0, zone = 0, subtype = 0;
    double tolerance = 0;
    std::string source;
    std::vector<Position> positions;
};

inline std::vector<GridFiguresBlock> ReadGridFigures() {
    std::ifstream figures(QUILLON_TEST_DATA "/geodesy/grids.txt");
    std::vector<GridFiguresBlock> blocks;
    for (std::string line; std::getline(figures, line);) {
        std::istringstream fields(line);
        std::string key;
        GridFiguresBlock::Position p;
        if (line.starts_with("row ")) {
            GridFiguresBlock& block = blocks.emplace_back();
            fields >> key >> block.type >> block.zone >> block.subtype;
        } else if (line.starts_with("tolerance ")) {
            fields >> key >> blocks.back().tolerance;
        } else if (line.starts_with("source ")) {
            blocks.back().source = line.substr(7);
        } else if (fields >> p.lat >> p.lon >> p.easting >> p.northing) {
            blocks.back().positions.push_back(p);
        }
    }
    return blocks;
}

}  // namespace quillon
