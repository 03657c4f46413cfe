#include "drawing/my_dc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/recorder_device.h"

namespace quillon {
namespace {

constexpr COLORREF kFirst = RGB(0xFF, 0, 0);
constexpr COLORREF kSecond = RGB(0, 0, 0xFF);

/// What a symbol of 16 pixels draws round pixel 0,0 in red and blue, the pens shortened: " P" and " S" stand for a pen
/// of 2 pixels in the first and the second colour, "P!", "S!" and "W!" for a fill in the first, the second, white.
std::string Drawn(int symbol, int size = 16) {
    RecorderDevice device;
    CMyDC dc(&device);
    dc.DrawVectorSymbol(symbol, kFirst, kSecond, size, 0, 0);
    std::string text = device.Take();
    const auto shorten = [&text](std::string_view from, std::string_view to) {
        for (std::size_t at; (at = text.find(from)) != std::string::npos;) text.replace(at, from.size(), to);
    };
    shorten(" pen 2 #FF0000", " P");
    shorten(" pen 2 #0000FF", " S");
    shorten(" brush #FF0000", " P!");
    shorten(" brush #0000FF", " S!");
    shorten(" brush #FFFFFF", " W!");
    return text;
}

struct SymbolRow {
    int symbol;
    const char* calls;
};

// Half of 16 is 8, a quarter 4, a third 5, two thirds 10, three eighths 6.
constexpr SymbolRow kSymbols[] = {
    {1, "fill -8,-8 8,8 P!\n"},
    {2, "line -8,0 8,0 P\nline 0,-8 0,8 P\n"},
    {3, "line -8,8 8,-8 P\nline -8,-8 8,8 P\n"},
    {4, "line -8,0 8,0 P\nline 0,-8 0,8 P\nline -8,8 8,-8 P\nline -8,-8 8,8 P\n"},
    {5, "polygon -8,-8 8,-8 8,8 -8,8 S P!\nline -2,0 2,0 S\nline 0,-2 0,2 S\n"},
    {6, "polygon -8,-8 8,-8 8,8 -8,8 P\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
    {7, "ellipse -8,-8 8,8 S P!\nline -2,0 2,0 S\nline 0,-2 0,2 S\n"},
    {8, "ellipse -8,-8 8,8 P\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
    {9, "polygon 0,-8 8,8 -8,8 S P!\nline -2,0 2,0 S\nline 0,-2 0,2 S\n"},
    {10, "polygon 0,-8 8,8 -8,8 P\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
    {11, "polygon 0,-8 8,0 0,8 -8,0 S P!\nline -2,0 2,0 S\nline 0,-2 0,2 S\n"},
    {12, "polygon 0,-8 8,0 0,8 -8,0 P\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
    {13, "line 0,-8 0,8 P\n"},
    {14, "line -8,0 8,0 P\n"},
    // sin and cos of 315, 325 ... 45 and of 135 ... 225 degrees times 8, cut to whole pixels
    {15,
     "ellipse -8,-8 8,8 P W!\n"
     "polygon -5,5 -4,6 -3,7 -2,7 0,7 0,7 2,7 3,7 4,6 5,5 0,0 -5,5 P P!\n"
     "polygon 5,-5 4,-6 3,-7 2,-7 0,-7 0,-7 -2,-7 -3,-7 -4,-6 -5,-5 0,0 5,-5 P P!\n"},
    {16, "polygon 0,-8 8,0 0,8 -8,0 P W!\npolygon 0,0 -8,0 0,-8 P P!\npolygon 0,0 8,0 0,8 P P!\n"},
    {17, "line -8,0 8,0 P\nline 0,-8 0,8 P\npolygon -4,-4 4,-4 4,4 -4,4 S\n"},
    {18, "line -8,0 8,0 P\nline 0,-8 0,8 P\nellipse -4,-4 4,4 S\n"},
    {19, "line -8,0 8,0 P\nline -4,-4 -4,4 P\nline 4,-4 4,4 P\nline 0,-6 0,6 P\n"},
    {20, "line -8,0 8,0 P\nline 0,-8 0,16 P\nline -8,8 0,16 8,8 P\n"},
    {21, "line -8,-8 8,-8 8,8 -8,8 -8,-8 8,8 P\nline -8,8 8,-8 P\n"},
    {22, "polygon -4,0 4,0 4,-16 -4,-16 P P!\nline 0,0 0,4 S\n"},
    {23, "ellipse -8,-8 8,8 P\nline 0,-8 -16,-8 -16,8 0,8 S\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
    {24, "line 0,0 0,-10 P\nline -8,-5 0,-10 P\nline 8,-5 0,-10 P\nline -1,-16 0,-10 S\n"},
    {25,
     "rectangle -8,-8 -4,0 P P!\nrectangle 4,-8 8,0 P P!\n"
     "line -8,-8 8,-8 S\nline -8,-8 0,-16 S\nline 8,-8 0,-16 S\nline -2,0 2,0 P\nline 0,-2 0,2 P\n"},
};

TEST(MyDcSymbols, EachHasItsShape) {
    static_assert(std::size(kSymbols) == kVectorSymbolCount);
    for (const SymbolRow& row : kSymbols) EXPECT_EQ(Drawn(row.symbol), row.calls) << "symbol " << row.symbol;
    for (const int none : {-1, 0, 26, 999}) EXPECT_EQ(Drawn(none), "") << "symbol " << none;
}

TEST(MyDcSymbols, StandAtTheirPixelAndLeaveTheToolsInUse) {
    RecorderDevice device;
    CMyDC dc(&device);
    dc.SelectObject(CPen{PS_DASH, 3, 0});
    dc.DrawVectorSymbol(20, kFirst, kSecond, 8, 100, 200);
    dc.Polyline(std::vector<tagPOINT>{{0, 0}, {1, 1}});
    EXPECT_EQ(device.Take(),
              "line 96,200 104,200 pen 2 #FF0000\nline 100,196 100,208 pen 2 #FF0000\n"
              "line 96,204 100,208 104,204 pen 2 #FF0000\nline 0,0 1,1 pen dash 3 #000000\n");
}

TEST(MyDcSymbols, ColoursGiveWayToTheGroundAndToPaper) {
    RecorderDevice device;
    CMyDC dc(&device);
    const auto square = [&](COLORREF first, COLORREF second) {
        dc.DrawVectorSymbol(5, first, second, 4, 0, 0);
        const std::string call = device.Calls().front();
        device.Take();
        return call.substr(call.find(" pen"));
    };
    EXPECT_EQ(square(0, RGB(1, 2, 3)), " pen 2 #010203 brush #FFFFFF");  // black on black
    dc.background = RGB(0x10, 0x20, 0x30);
    EXPECT_EQ(square(0, RGB(0x10, 0x20, 0x30)), " pen 2 #EFDFCF brush #000000");
    dc.blackOnly = true;
    EXPECT_EQ(square(RGB(0x10, 0x20, 0x30), kFirst), " pen 2 #000000 brush #000000");
    // half filled: white, but black under a white symbol
    dc.blackOnly = false;
    dc.DrawVectorSymbol(16, RGB(255, 255, 255), 0, 4, 0, 0);
    EXPECT_EQ(device.Calls().front(), "polygon 0,-2 2,0 0,2 -2,0 pen 2 #FFFFFF brush #000000");
}

struct LabelRow {
    LABEL_POSITION position;
    const char* text;
    const char* calls;
};

// The letters of the record are 6 pixels wide and a line 13 high: "Wreck" is 30 by 13, its halves 15 and 6.
constexpr LabelRow kLabels[] = {
    {0, "Wreck", ""},
    {1, "Wreck", "fill 81,172 119,185 G\nframe 80,171 120,186\ntext 85,172 \"Wreck\"\n"},
    {2, "Wreck", "fill 81,215 119,228 G\nframe 80,214 120,229\ntext 85,215 \"Wreck\"\n"},
    {3, "Wreck", "fill 55,194 83,206 G\nframe 54,193 84,207\ntext 54,193 \"Wreck\"\n"},
    {4, "Wreck", "fill 117,194 145,206 G\nframe 116,193 146,207\ntext 116,193 \"Wreck\"\n"},
    {5, "Wreck", "fill 81,194 119,206 G\nframe 80,193 120,207\ntext 85,193 \"Wreck\"\n"},
    {9, "Wreck", "fill 81,194 119,206 G\nframe 80,193 120,207\ntext 85,193 \"Wreck\"\n"},
    // the mark of a mnemonic becomes a word, with single blanks
    {5, "A & B", "fill 75,194 125,206 G\nframe 74,193 126,207\ntext 79,193 \"A and B\"\n"},
    {5, "A&B", "fill 75,194 125,206 G\nframe 74,193 126,207\ntext 79,193 \"A and B\"\n"},
    // two lines, each in the middle
    {2, "Wreck\nNo", "fill 81,215 119,241 G\nframe 80,214 120,242\ntext 85,215 \"Wreck\"\ntext 94,228 \"No\"\n"},
};

/// The calls of a label with the four sides of the frame as one and the colours left out; " G" is the label's ground.
std::string DrawnLabel(CMyDC& dc, RecorderDevice& device, const LabelRow& row) {
    dc.DrawLabel(row.text, 15, row.position, 100, 200);
    std::vector<std::string> calls = device.Calls();
    device.Take();
    std::string text;
    for (const std::string& call : calls) {
        if (call.ends_with(" brush #FFFFE7")) {
            text += call.substr(0, call.find(" brush")) + " G\n";
        } else if (call.starts_with("text")) {
            EXPECT_TRUE(call.ends_with(" Tahoma -11 #000000")) << call;
            text += call.substr(0, call.find(" Tahoma")) + "\n";
        }
    }
    if (calls.empty()) return text;
    const tagRECT box = dc.LabelBox(row.text, 15, row.position, 100, 200);
    const std::string frame = "frame " + std::to_string(box.left) + "," + std::to_string(box.top) + " " +
                              std::to_string(box.right) + "," + std::to_string(box.bottom) + "\n";
    const std::string top = "fill " + std::to_string(box.left) + "," + std::to_string(box.top) + " " +
                            std::to_string(box.right) + "," + std::to_string(box.top + 1) + " brush #000000";
    EXPECT_NE(std::find(calls.begin(), calls.end(), top), calls.end()) << "no upper side of the frame";
    return text.insert(text.find('\n') + 1, frame);
}

TEST(MyDcLabels, StandBesideTheirPixelByPosition) {
    RecorderDevice device;
    CMyDC dc(&device);
    for (const LabelRow& row : kLabels) {
        EXPECT_EQ(DrawnLabel(dc, device, row), row.calls) << row.text << " at " << row.position;
    }
    dc.labelAir = 5;
    const LabelRow left{3, "Wreck", "fill 45,194 83,206 G\nframe 44,193 84,207\ntext 49,193 \"Wreck\"\n"};
    const LabelRow right{4, "Wreck", "fill 117,194 155,206 G\nframe 116,193 156,207\ntext 121,193 \"Wreck\"\n"};
    for (const LabelRow& row : {left, right}) EXPECT_EQ(DrawnLabel(dc, device, row), row.calls) << "with air";
    EXPECT_EQ(DrawnLabel(dc, device, kLabels[1]), kLabels[1].calls) << "which those above have already";
}

TEST(MyDcLabels, OnPaperHaveNoGround) {
    RecorderDevice device;
    CMyDC dc(&device);
    dc.blackOnly = true;
    dc.DrawLabel("A", 5, 5, 0, 0);
    EXPECT_EQ(device.Take(),
              "fill -8,-7 8,-6 brush #000000\nfill -8,6 8,7 brush #000000\n"
              "fill -8,-6 -7,6 brush #000000\nfill 7,-6 8,6 brush #000000\n"
              "text -3,-7 \"A\" Tahoma -11 #000000\n");
}

}  // namespace
}  // namespace quillon
