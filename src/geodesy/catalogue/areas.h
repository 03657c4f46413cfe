#pragma once

#include <string_view>

namespace quillon::catalogue {

// Where the named grids are used, for who looks for one by country or sea. Families made by a rule, and the State Plane
// zones, which carry their state's name, have none here.

inline constexpr std::string_view kTransverseMercatorAreas[] = {
    "Great Britain",
    "Great Britain",
    "Ireland",
    "Ireland",
    "North Sea",
    "North Sea",  // 0 to 5
    "Netherlands, North Sea",
    "Netherlands, North Sea",
    "Germany, North Sea",
    "Germany",
    "Germany, Baltic",  // 6 to 10
    "Italy, west",
    "Italy, east",
    "Luxembourg",
    "Portugal",
    "Egypt, east",
    "Egypt, Red Sea",  // 11 to 16
    "Egypt, west",
    "Egypt, west",
    "Caspian Sea",
    "Nigeria",
    "Nigeria",
    "Nigeria",
    "Kuwait",
    "Kuwait",  // 17 to 24
    "Russia, Black Sea",
    "India, offshore",
    "India, Mumbai harbour",
    "New Zealand",
    "New Zealand",  // 25 to 29
    "Qatar",
    "Israel",
    "Israel",
    "Poland, Baltic",
    "Ivory Coast",
    "Ghana",
    "Ghana, offshore",  // 30 to 36
    "Caspian Sea",
    "Caspian Sea",  // 37, 38
};
inline constexpr std::string_view kMercatorAreas[] = {
    "world", "Portugal, Atlantic", "Indian Ocean", "New Zealand", "Singapore",
};
inline constexpr std::string_view kLambertAreas[] = {
    "Jamaica", "Tunisia, north", "Tunisia, south", "Syria", "Iraq", "Puerto Rico", "South China Sea", "Black Sea",
};
inline constexpr std::string_view kCassiniAreas[] = {"Qatar", "Singapore"};
inline constexpr std::string_view kGuamAreas[] = {"Guam"};
inline constexpr std::string_view kStereographicAreas[] = {"Syria, Lebanon", "Syria, Lebanon", "Netherlands"};
inline constexpr std::string_view kPolyconicAreas[] = {"Brazil"};
inline constexpr std::string_view kObliqueMercatorAreas[] = {
    "Borneo, Sabah, Sarawak, Brunei",
    "Malaysia, peninsula",
    "Alaska, panhandle",
    "Alaska, panhandle",
};
inline constexpr std::string_view kSystem34Areas[] = {"Denmark, Jutland", "Denmark, Zealand"};

/// Names that are spelt another way in the catalogue, or cut short, as they are searched for.
struct SpellingDef {
    std::string_view inCatalogue;
    std::string_view usual;
};
inline constexpr SpellingDef kSpellings[] = {
    {"Alabama Wast", "Alabama West"},  {"Indianna", "Indiana"},     {"Mass ", "Massachusetts"}, {"Oregan", "Oregon"},
    {"Pennysylvania", "Pennsylvania"}, {"Amersfoot", "Amersfoort"}, {"Zealnd", "Zealand"},
};

}  // namespace quillon::catalogue
