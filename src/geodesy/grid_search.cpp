#include "geodesy/grid_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "geodesy/catalogue/areas.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/grid.h"
#include "platform/text.h"

namespace quillon {
namespace {

using namespace catalogue;

constexpr std::array<const char*, kGridTypes> kFamilies = {
    "UTM",
    "Transverse Mercator",
    "Gauss-Kruger",
    "South African Lo",
    "State Plane 1983",
    "Mercator",
    "Lambert",
    "Cassini-Soldner",
    "Guam",
    "Stereographic",
    "Polyconic",
    "Oblique Mercator",
    "State Plane 1927",
    "Norwegian axes, NGO 1948",
    "System 34",
};

std::span<const std::string_view> AreasOf(std::int32_t type) {
    switch (type) {
        case TRANSVERSE_MERCATOR:
            return kTransverseMercatorAreas;
        case MERCATOR:
            return kMercatorAreas;
        case LAMBERT:
            return kLambertAreas;
        case CASSINI:
            return kCassiniAreas;
        case GUAM:
            return kGuamAreas;
        case STEREOGRAPHIC:
            return kStereographicAreas;
        case POLYCONIC:
            return kPolyconicAreas;
        case OBLIQUE_MERCATOR:
            return kObliqueMercatorAreas;
        case DANISH_SYSTEM_34:
            return kSystem34Areas;
        default:
            return {};
    }
}

std::string LongitudeText(double degrees) {
    degrees = std::remainder(degrees, 360);
    return Format("%g\xB0 %c", std::fabs(degrees), degrees < 0 ? 'W' : 'E');
}

/// A strip of longitudes about a meridian.
std::string StripText(double meridian, double width) {
    return LongitudeText(meridian - width / 2) + " to " + LongitudeText(meridian + width / 2);
}

std::string AreaOf(std::int32_t type, std::int32_t zone, const GridRow& row) {
    const std::span<const std::string_view> named = AreasOf(type);
    if (static_cast<std::size_t>(zone) < named.size()) return std::string(named[static_cast<std::size_t>(zone)]);
    switch (type) {
        case UTM_GRID:
            return StripText(row.lon0, 6);
        case GAUSS_KRUGER:
            return row.falseEasting >= 2500000 && row.ellipsoid == 3 ? "Germany, " + StripText(row.lon0, 3)
                                                                     : StripText(row.lon0, 6);
        case SOUTH_AFRICAN_LO:
            return "South Africa, " + StripText(row.lon0, 2);
        case NORWEGIAN_AXES:
            return "Norway";
        default:
            return "USA";
    }
}

/// Capitals, with blanks in place of what parts words.
std::string Words(std::string_view text) {
    std::string words = " " + ToUpper(text) + " ";
    constexpr std::string_view kParting = "(),.-\xB0'\"";
    std::replace_if(
        words.begin(), words.end(), [&](char c) { return kParting.find(c) != std::string_view::npos; }, ' ');
    return words;
}

struct Index {
    std::vector<GridListing> listings;
    std::vector<std::string> words;

    Index() {
        for (std::int32_t type = 0; type < kGridTypes; ++type) {
            for (std::int32_t zone = 0; std::optional<GridRow> row = FindGridRow(zone, type, 0); ++zone) {
                Add(type, zone, *row);
            }
        }
    }
    void Add(std::int32_t type, std::int32_t zone, const GridRow& row) {
        GridListing listing{
            type, zone, row.ellipsoid, row.name, kFamilies[static_cast<std::size_t>(type)], AreaOf(type, zone, row)};
        if (!row.comment.empty()) listing.name += ", " + row.comment;
        std::string text = listing.name + ' ' + listing.family + ' ' + listing.area + Format(" %d/%d", type, zone);
        for (const SpellingDef& spelling : kSpellings) {
            if (listing.name.find(spelling.inCatalogue) != std::string::npos) text += ' ' + std::string(spelling.usual);
        }
        words.push_back(Words(text));
        listings.push_back(std::move(listing));
    }
};

const Index& TheIndex() {
    static const Index index;
    return index;
}

std::vector<std::string> SplitWords(std::string_view query) {
    std::vector<std::string> split;
    const std::string words = Words(query);
    for (std::size_t from = 0; (from = words.find_first_not_of(' ', from)) != std::string::npos;) {
        const std::size_t end = words.find(' ', from);
        split.push_back(words.substr(from, end - from));
        from = end;
    }
    return split;
}

/// 0 where a word is missing; 2 where all stand whole, else 1. A number must be one: "1" isn't found in "31".
int Rank(const std::string& words, const std::vector<std::string>& query) {
    int rank = 2;
    for (const std::string& word : query) {
        if (words.find(' ' + word + ' ') != std::string::npos) continue;
        const bool number = word.find_first_not_of("0123456789/") == std::string::npos;
        if (number || words.find(word) == std::string::npos) return 0;
        rank = 1;
    }
    return rank;
}

}  // namespace

std::span<const GridListing> AllGrids() {
    return TheIndex().listings;
}

std::vector<const GridListing*> FindGrids(std::string_view query) {
    const Index& index = TheIndex();
    const std::vector<std::string> words = SplitWords(query);
    std::vector<const GridListing*> found;
    for (const int rank : {2, 1}) {
        for (std::size_t i = 0; i < index.listings.size(); ++i) {
            if (Rank(index.words[i], words) == rank) found.push_back(&index.listings[i]);
        }
    }
    return found;
}

}  // namespace quillon
