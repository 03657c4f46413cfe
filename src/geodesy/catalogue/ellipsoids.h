#pragma once

#include <array>

namespace quillon {

/// A row of the ellipsoid catalogue. The three figures of a row are taken as they stand: some surveys define an
/// ellipsoid by its axes and others by its flattening, and neither is derived again here.
struct EllipsoidDef {
    int code;  ///< EPSG
    const char* name;
    const char* comment;
    double a;   ///< metres
    double b;   ///< metres
    double rf;  ///< inverse flattening, 1 for a sphere
};

// EPSG Geodetic Parameter Dataset (IOGP), ellipsoids 7001 to 7058 and 1024, under the names of this system.
// clang-format off
inline constexpr std::array<EllipsoidDef, 53> kEllipsoids{{
    // EPSG  name                              comment                    a                  b                   1/f
    {7001, "Airy 1830",                        "OSGB",                    6377563.39635,     6356256.91,         299.32497041446857},  // 0
    {7002, "Airy (modified 1849)",             "The Grid",                6377340.189,       6356034.447938534,  299.3249646       },  // 1
    {7003, "Reference 1967",                   "(Australian)",            6378160.0,         6356774.719195305,  298.25            },  // 2
    {7004, "Bessel 1841",                      "Original",                6377397.155,       6356078.962818189,  299.1528128       },  // 3
    {7005, "Bessel (modified)",                "NGO",                     6377492.0176,      6356173.508813586,  299.15281981      },  // 4
    {7006, "Bessel (Namibia)",                 "",                        6377483.865,       6356165.382966326,  299.1528128       },  // 5
    {7007, "Clarke 1858",                      "",                        6378293.645,       6356620.883718994,  294.3             },  // 6
    {7008, "Clarke 1866 Spheroid",             "",                        6378206.4,         6356583.8,          294.9786982138982 },  // 7
    {7009, "Clarke 1866 (Michigan)",           "",                        6378450.047548896, 6356826.621488444,  294.97869716467716},  // 8
    {7010, "Clarke 1880 (Benoit)",             "",                        6378300.789,       6356566.435,        293.4663155389811 },  // 9
    {7011, "Clarke 1880 (IGN)",                "",                        6378249.2,         6356515.0,          293.4660212936269 },  // 10
    {7012, "Clarke 1880 (RGS)",                "",                        6378249.145,       6356514.8695497755, 293.465           },  // 11
    {7013, "Clarke 1880 (Arc)",                "South African",           6378249.145,       6356514.966398753,  293.4663077       },  // 12
    {7014, "Clarke 1880 (SGA 1922)",           "",                        6378249.2,         6356514.996941779,  293.46598         },  // 13
    {7015, "Everest 1830 (1937 Adj)",          "",                        6377276.345,       6356075.41314024,   300.8017          },  // 14
    {7016, "Everest 1830 (1967 Def)",          "(East Malaysia)",         6377298.555679764, 6356097.549953267,  300.8016995962373 },  // 15
    {7018, "Everest 1830 (Modified)",          "(West Malaysia)",         6377304.063110002, 6356103.039102791,  300.8017          },  // 16
    {7019, "GRS80",                            "",                        6378137.0,         6356752.314140356,  298.257222101     },  // 17
    {7020, "Helmert 1906",                     "",                        6378200.0,         6356818.169627891,  298.3             },  // 18
    {7021, "National Spheroid",                "Indonesian",              6378160.0,         6356774.50408554,   298.247           },  // 19
    {7022, "International Spheroid",           "(Hayford 1910)",          6378388.0,         6356911.9461279465, 297.0             },  // 20
    {7024, "Krassowsky 1940",                  "",                        6378245.0,         6356863.018773047,  298.3             },  // 21
    {7025, "NWL 9D",                           "",                        6378145.0,         6356759.769488684,  298.25            },  // 22
    {7027, "Plessis 1817",                     "",                        6376523.0,         6355862.933255573,  308.64            },  // 23
    {7028, "Struve 1860",                      "",                        6378297.0,         6356655.847080379,  294.73            },  // 24
    {7029, "War Office",                       "",                        6378300.583,       6356752.270219594,  296.0             },  // 25
    {7030, "WGS84",                            "",                        6378137.0,         6356752.314245179,  298.257223563     },  // 26
    {7031, "GEM 10C",                          "",                        6378137.0,         6356752.314245179,  298.257223563     },  // 27
    {7032, "OSU86F",                           "Gravity Model",           6378136.2,         6356751.516927429,  298.257223563     },  // 28
    {7033, "OSU91A",                           "Gravity Model",           6378136.3,         6356751.616592146,  298.257223563     },  // 29
    {7034, "Clarke 1880 Spheroid",             "",                        6378249.2,         6356514.9243623605, 293.465           },  // 30
    {7035, "Authalic",                         "Sphere",                  6371000.0,         6371000.0,          1.0               },  // 31
    {7036, "GRS 1967",                         "",                        6378160.0,         6356774.516090714,  298.247167427     },  // 32
    {7041, "Average Terrestrial System",       "1977",                    6378135.0,         6356750.304921594,  298.257           },  // 33
    {7042, "Everest (1830 Definition)",        "(India)",                 6377299.370817111, 6356098.362380732,  300.8016995962437 },  // 34
    {7043, "NWL 10D",                          "(WGS 1972)",              6378135.0,         6356750.520016094,  298.26            },  // 35
    {7044, "Everest (NHO)",                    "(India & Pakistan)",      6377301.243,       6356100.230165384,  300.8017255       },  // 36
    {7045, "Everest 1830 (1975 Def)",          "India since metrication", 6377299.151,       6356098.145120132,  300.8017255       },  // 37
    {7046, "Bessel (GLM)",                     "Namibia",                 6377397.155,       6356078.962818189,  299.1528128       },  // 38
    {7047, "Clarke 1866 (code 7008)",          "Authalic Sphere",         6370997.0,         6370997.0,          1.0               },  // 39
    {7048, "GRS 1980 (code 7019)",             "Authalic Sphere",         6371007.0,         6371007.0,          1.0               },  // 40
    {7049, "IAG 1975",                         "",                        6371140.0,         6349778.757849773,  298.257           },  // 41
    {7050, "SAD 1969",                         "(South American)",        6378160.0,         6356774.719195305,  298.25            },  // 42
    {7051, "Danish Spheroid",                  "",                        6378160.0,         6356774.719195305,  298.25            },  // 43
    {7052, "Clarke 1866 (code 7008)",          "Authalic Sphere",         6370997.0,         6370997.0,          1.0               },  // 44
    {7053, "Hough 1960",                       "",                        6378270.0,         6356794.343434343,  297.0             },  // 45
    {7054, "PZ-90",                            "",                        6378136.0,         6356751.361745712,  298.257839303     },  // 46
    {7055, "Clarke 1880 (International Foot)", "",                        6378306.3696,      6356571.996,        293.4663076556355 },  // 47
    {7056, "Everest 1830 RSO 1969",            "",                        6377295.664,       6356094.667915204,  300.8017          },  // 48
    {7057, "International 1924",               "Authalic Sphere",         6371228.0,         6371228.0,          1.0               },  // 49
    {7058, "Hughes 1980",                      "",                        6378273.0,         6356889.449,        298.279411123064  },  // 50
    {7059, "Popular Visualisation Sphere",     "",                        6378137.0,         6378137.0,          1.0               },  // 51
    {1024, "CGCS2000",                         "China",                   6378137.0,         6356752.314140356,  298.257222101     },  // 52
}};
// clang-format on

consteval bool AllEllipsoidsSound() {
    for (const EllipsoidDef& row : kEllipsoids) {
        const bool sphere = row.rf == 1 && row.a == row.b;
        const double difference = row.b - row.a * (1 - 1 / row.rf);
        const bool flattened = row.rf > 293 && row.rf < 309 && difference < 0.001 && difference > -0.001;
        if (!(sphere || flattened) || row.a < 6.35e6 || row.a > 6.4e6 || row.name[0] == 0) return false;
    }
    return true;
}
static_assert(AllEllipsoidsSound());

}  // namespace quillon
