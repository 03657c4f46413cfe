#pragma once

namespace quillon {

/// Polynomial from UTM zone 32 to a system of the Danish System 34, lowest power first.
struct DanishSystemDef {
    const char* name;
    double E0;
    double N0;
    int degree;
    double re[8];
    double im[8];
};

// clang-format off
inline constexpr DanishSystemDef kDanishSystems[3] = {
    {"Jylland", 530000, 6231000, 3,
     {199371.14647, 1.0001365021, -1.648605326e-11, -1.8877421278e-17},
     {-265381.72775, 0.019995520454, 3.4452862838e-10, -9.6740792784e-17}},
    {"Seelland", 678000, 6131000, 3,
     {96432.190004, 0.99980074884, -7.207782018e-12, 6.2510854612e-17},
     {-119353.22229, 0.019555849611, 2.1675209626e-09, -2.521500272e-16}},
    {"", 500000, 6100000, 7,  // no grid of the catalogue leads here
     {42579.934018, 1.0004053319, -7.7039204168e-11, 4.7460391692e-15, 1.8259975589e-18, -2.072795996e-22,
      7.0257273976e-27, -8.0529957628e-32},
     {-42993.547686, -0.0014643915438, -4.7898338026e-10, 3.7432077762e-14, -4.8899686702e-18, 2.0540300545e-22,
      -2.9421011013e-27, 1.5387577766e-33}},
};
// clang-format on

}  // namespace quillon
