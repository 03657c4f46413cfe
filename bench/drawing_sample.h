#pragma once

#include <cstddef>
#include <random>
#include <string>

#include "platform/text.h"

namespace quillon {

/// A drawing of `count` entities in the proportions of a plan: lines, polylines, arcs, circles, texts and solids on 40
/// layers, some 386 bytes each, as programs of this century write them. The same for the same count.
class DrawingSample {
public:
    explicit DrawingSample(std::size_t count) : total(count) {
        text.reserve(count * 392 + 8192);
        Head();
        for (std::size_t i = 0; i < count; ++i) Entity(i);
        text += "  0\nENDSEC\n  0\nEOF\n";
    }
    std::string text;

private:
    static constexpr double kSide = 100'000.0;  // metres

    void Group(int code, const char* value) { text += Format("%3d\n%s\n", code, value); }
    void Number(int code, double value) {
        text += Format("%3d\n", code);
        AppendFixed(text, value, 6);
        text += '\n';
    }
    double Random(double most) { return most * static_cast<double>(random()) / 4294967296.0; }

    void Head() {
        text +=
            "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1018\n  9\n$EXTMIN\n 10\n400000.0\n 20\n6000000.0\n"
            " 30\n0.0\n  9\n$EXTMAX\n 10\n500000.0\n 20\n6100000.0\n 30\n0.0\n  0\nENDSEC\n  0\nSECTION\n  2\n"
            "TABLES\n  0\nTABLE\n  2\nLAYER\n 70\n40\n";
        for (int i = 0; i < 40; ++i) {
            Group(0, "LAYER");
            Group(2, Layer(i).c_str());
            Group(70, "0");
            Group(62, Format("%d", 1 + i % 7).c_str());
            Group(6, "CONTINUOUS");
        }
        text += "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
    }
    static std::string Layer(int i) { return Format("LAYER_%02d", i); }

    void Begin(const char* keyword, const char* subclass, std::size_t i) {
        Group(0, keyword);
        Group(5, Format("%zX", i + 0x100).c_str());
        Group(330, "1F");
        Group(100, "AcDbEntity");
        Group(8, Layer(static_cast<int>(i / 50 % 40)).c_str());
        if (i % 10 == 0) Group(62, "3");
        Group(100, subclass);
    }
    void Point(int first, double x, double y, bool flat = false) {
        Number(first, x);
        Number(first + 10, y);
        if (!flat) Group(first + 20, "0.0");
    }
    void Entity(std::size_t i) {
        const double x = 400'000.0 + Random(kSide), y = 6'000'000.0 + Random(kSide);
        switch (i % 20) {
            case 0:
            case 1:
                Begin("CIRCLE", "AcDbCircle", i);
                Point(10, x, y);
                Number(40, 0.5 + Random(20.0));
                break;
            case 2:
            case 3:
                Begin("ARC", "AcDbCircle", i);
                Point(10, x, y);
                Number(40, 0.5 + Random(20.0));
                Group(100, "AcDbArc");
                Number(50, Random(360.0));
                Number(51, Random(360.0));
                break;
            case 4:
            case 5:
                Begin("TEXT", "AcDbText", i);
                Point(10, x, y);
                Number(40, 2.5);
                Group(1, Format("KP %.3f", Random(100.0)).c_str());
                Number(50, Random(360.0));
                Group(7, "STANDARD");
                break;
            case 6:
                Begin("SOLID", "AcDbTrace", i);
                for (int corner = 0; corner < 4; ++corner) Point(10 + corner, x + corner % 2, y + corner / 2);
                break;
            case 7:
            case 8:
            case 9:
            case 10:
            case 11:
            case 12:
                Polyline(i, x, y);
                break;
            default:
                Begin("LINE", "AcDbLine", i);
                Point(10, x, y);
                Point(11, x + Random(50.0), y + Random(50.0));
        }
    }
    void Polyline(std::size_t i, double x, double y) {
        constexpr int kVertices = 21;
        Begin("LWPOLYLINE", "AcDbPolyline", i);
        Group(90, Format("%d", kVertices).c_str());
        Group(70, "0");
        for (int v = 0; v < kVertices; ++v) Point(10, x += Random(5.0), y += Random(5.0), true);
    }

    std::size_t total;
    std::mt19937 random{20260501};
};

}  // namespace quillon
