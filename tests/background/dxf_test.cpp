#include "background/dxf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "background/dxf_palette.h"
#include "background/dxf_scanner.h"
#include "background/dxf_text.h"
#include "support/dxf_groups.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using testing::ElementsAre;

class DxfTest : public testing::Test {
protected:
    bool Read(const std::string& bytes) {
        report = {};
        dxf.OpenBytes(bytes, nullptr, &report);
        while (dxf.ReadSection()) {
        }
        dxf.Close();
        return report.taken > 0;
    }
    bool ReadEntities(std::string_view groups) { return Read(Section("ENTITIES", groups)); }
    template <class Record>
    const Record& Only() {
        if (dxf.entities.size() != 1) throw std::out_of_range("not one entity");
        return dxf.entities.front()->As<Record>();
    }
    std::string Keywords(const std::vector<const CDxfEntity*>& entities) {
        std::string text;
        for (const CDxfEntity* entity : entities) text.append(text.empty() ? "" : " ").append(DxfKeyword(*entity));
        return text;
    }
    std::string Keywords() { return Keywords(dxf.entities); }

    ScratchDrives drives;
    CDxf dxf{drives};
    KindReport report;
};

TEST_F(DxfTest, FillsTheFieldsOfEachKindFromTheirGroups) {
    ReadEntities("0 POINT|5 1F|8 Pipes|6 DASHED|62 5|39 2.5|48 0.5|10 1|20 2|30 3");
    EXPECT_EQ(Only<CDxfPoint>().position, (tagXYZ{1, 2, 3}));
    const DxfAttributes& attributes = *Only<CDxfEntity>().attributes;
    EXPECT_EQ(Only<CDxfEntity>().GetHandle(), "1F");
    EXPECT_EQ(attributes.layerName, "Pipes");
    EXPECT_EQ(attributes.linetypeName, "DASHED");
    EXPECT_THAT((std::vector<double>{double(attributes.colour), attributes.thickness, attributes.linetypeScale}),
                ElementsAre(5, 2.5, 0.5));
    ReadEntities("0 LINE|10 1|20 2|30 3|11 4|21 5|31 6|12 9");
    EXPECT_EQ(Only<CDxfLine>().start, (tagXYZ{1, 2, 3}));
    EXPECT_EQ(Only<CDxfLine>().end, (tagXYZ{4, 5, 6}));
    EXPECT_EQ(Only<CDxfEntity>().attributes->linetypeScale, 1.0);
    ReadEntities("0 CIRCLE|10 1|20 2|40 7.5");
    EXPECT_EQ(Only<CDxfCircle>().centre, (tagXYZ{1, 2, 0}));
    EXPECT_EQ(Only<CDxfCircle>().radius, 7.5);
    // Angles anticlockwise from east become bearings; without them the arc is a whole circle.
    ReadEntities("0 ARC|40 2|50 30|51 120");
    EXPECT_EQ(Only<CDxfArc>().startBearing, 60.0);
    EXPECT_EQ(Only<CDxfArc>().endBearing, 330.0);
    ReadEntities("0 ARC|40 2");
    EXPECT_EQ(Only<CDxfArc>().startBearing, 0.0);
    EXPECT_EQ(Only<CDxfArc>().endBearing, 360.0);
    ReadEntities("0 SOLID|10 1|20 1|11 2|21 2|12 3|22 3|13 4|23 4");
    EXPECT_THAT(Only<CDxfSolid>().corners,
                ElementsAre(tagXYZ{1, 1, 0}, tagXYZ{2, 2, 0}, tagXYZ{4, 4, 0}, tagXYZ{3, 3, 0}));
    ReadEntities("0 TEXT|1 KP 5|7 NARROW|10 1|20 2|11 3|21 4|40 2|41 3.02631579|50 45|51 15|71 2|72 1|73 3");
    const auto& text = Only<CDxfText>();
    EXPECT_EQ(text.text, "KP 5");
    EXPECT_EQ(text.styleName, "NARROW");
    EXPECT_EQ(text.alignment, (tagXYZ{3, 4, 0}));
    EXPECT_DOUBLE_EQ(text.width, 4.0);
    EXPECT_THAT((std::vector<double>{text.rotation, text.obliqueAngle, double(text.generation),
                                     double(text.horizontalJustify), double(text.verticalJustify)}),
                ElementsAre(45, 15, 2, 1, 3));
    // Height behind the width factor comes too late for the width.
    ReadEntities("0 TEXT|41 1|40 2");
    EXPECT_EQ(Only<CDxfText>().width, 0.0);
    ReadEntities("0 INSERT|2 BLOCK|10 1|20 2|42 -1|50 90");
    EXPECT_EQ(Only<CDxfInsert>().scale, (tagXYZ{1, -1, 1}));
    EXPECT_EQ(Only<CDxfInsert>().rotation, 90.0);
    ReadEntities("0 HATCH|70 1|70 0|70 1");
    EXPECT_TRUE(Only<CDxfHatch>().solid);
    ReadEntities("0 VIEWPORT|70 4|69 7|0 REGION|70 3|0 3DSOLID|70 1|0 ATTDEF|70 8|0 SPLINE|70 11");
    std::vector<int> codes, flags;
    for (const CDxfEntity* entity : dxf.entities) {
        codes.push_back(static_cast<int>(entity->type));
        flags.push_back(entity->flags);
    }
    EXPECT_THAT(codes, ElementsAre(68, 72, 64, 65, 66));
    EXPECT_THAT(flags, ElementsAre(7, 0, 1, 8, 11));
    // What stands behind the head of another object in it is not the text's.
    ReadEntities("0 MTEXT|10 5|1 a|101 Embedded Object|10 1|1 b|0 POINT");
    EXPECT_EQ(dxf.entities[0]->As<CDxfText>().insertion.x, 5.0);
    EXPECT_EQ(Keywords(), "MTEXT POINT");
}

TEST_F(DxfTest, OutlinesAnEllipseFromItsMajorAxis) {
    // Axes of 5 and 2 m, the major one 3-4-5 up; a quarter of the way round stands the minor axis to its left.
    ReadEntities("0 ELLIPSE|10 100|20 200|11 3|21 4|40 0.4|41 1|42 2");
    const auto outline = Only<CDxfEllipse>().Outline();
    const auto near = [&](std::size_t i, double x, double y) {
        EXPECT_NEAR(outline[i].x, x, 1e-9) << i;
        EXPECT_NEAR(outline[i].y, y, 1e-9) << i;
    };
    near(0, 103, 204);
    near(9, 100 - 1.6, 200 + 1.2);
    near(18, 97, 196);
    near(36, 103, 204);
}

TEST_F(DxfTest, GathersVerticesOfBothKindsOfPolyline) {
    ReadEntities(
        "0 POLYLINE|8 A|70 1|10 99|0 VERTEX|8 B|10 1|20 2|30 3|42 0.5|70 16|0 SEQEND|8 C|"
        "0 POLYLINE|0 SEQEND|0 LWPOLYLINE|90 2|70 1|10 1|20 2|42 1|10 3|20 4|0 LWPOLYLINE|70 1|10 5");
    ASSERT_EQ(Keywords(), "POLYLINE LWPOLYLINE");
    const auto& heavy = dxf.entities[0]->As<CDxfPolyline>();
    ASSERT_EQ(heavy.GetVertices().size(), 1u);
    const CDxfVertex& vertex = heavy.GetVertices()[0];
    EXPECT_EQ(vertex.position, (tagXYZ{1, 2, 3}));
    EXPECT_EQ(vertex.attributes->layerName, "B");
    EXPECT_EQ(heavy.attributes->layerName, "A");
    EXPECT_EQ(vertex.bulge, 0.5);
    EXPECT_EQ(vertex.flags, 16);
    EXPECT_TRUE(heavy.IsClosed());
    const auto& light = dxf.entities[1]->As<CDxfPolyline>();
    ASSERT_EQ(light.count, 2u);
    EXPECT_EQ(light.GetPosition(1), (tagXY{3, 4}));
    EXPECT_TRUE(light.IsClosed());
    EXPECT_EQ(report.CountOf("POLYLINE without vertices"), 1u);
    EXPECT_EQ(report.CountOf("LWPOLYLINE without vertices"), 1u);
}

TEST_F(DxfTest, FindsLayersByTheNamesReadSoFar) {
    const std::string tables =
        Section("TABLES",
                "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 DASHED|3 __ __|70 64|73 2|40 12.7|49 10|49 -2|"
                "0 ENDTAB|0 TABLE|2 APPID|2 LAYER|0 ENDTAB|0 TABLE|2 LAYER|"
                "0 LAYER|2 Pipes|70 4|62 3|6 DASHED|0 LAYER|2 Off|62 -7|0 LAYER|2 Pipes|62 9|0 "
                "ENDTAB|0 TABLE|2 STYLE|0 STYLE|2 S|3 font.shx|40 1|41 2|42 3|50 4|71 6|0 ENDTAB|"
                "0 TABLE|2 DIMSTYLE|0 DIMSTYLE|2 D|6 x|41 1|147 2|340 7|0 ENDTAB");
    const std::string lines = Section("ENTITIES", "0 LINE|8 Pipes|6 DASHED|0 LINE|8 pipes|0 LINE|8 Off|0 LINE|62 300");
    Read(lines + tables + lines + tables);
    EXPECT_EQ(dxf.layers.size(), 6u);
    ASSERT_EQ(dxf.linetypes.size(), 2u);
    EXPECT_EQ(dxf.linetypes[0].totalLength, 12.0);
    EXPECT_THAT(dxf.linetypes[0].dashes, ElementsAre(10, -2));
    EXPECT_EQ(dxf.styles[0].lastHeight, 3.0);
    EXPECT_EQ(dxf.dimStyles[0].real147, 2.0);
    EXPECT_EQ(dxf.dimStyles[0].whole340, 7);
    ASSERT_EQ(dxf.entities.size(), 8u);
    EXPECT_EQ(dxf.entities[0]->attributes->layer, nullptr);
    EXPECT_EQ(dxf.entities[4]->attributes->layer, &dxf.layers[0]);
    EXPECT_EQ(dxf.entities[4]->attributes->linetype, &dxf.linetypes[0]);
    EXPECT_EQ(dxf.entities[5]->attributes->layer, nullptr);
    EXPECT_EQ(ColourOf(*dxf.entities[4]), kDxfPalette[3]);
    EXPECT_EQ(ColourOf(*dxf.entities[0]), 0xFFFFFFu);
    EXPECT_EQ(ColourOf(*dxf.entities[7]), 0xFFFFFFu);
    EXPECT_TRUE(IsDrawn(*dxf.entities[4]));
    EXPECT_FALSE(IsDrawn(*dxf.entities[6]));
}

TEST_F(DxfTest, ReadsSectionsInAnyOrderAndLineEnd) {
    const std::string_view ends[] = {"\n", "\r\n"};
    for (const std::string_view end : ends) {
        Read("999" + std::string(end) + "a remark" + std::string(end) + Section("ENTITIES", "0 POINT|10 5", end) +
             Section("THUMBNAILIMAGE", "90 4|310 00", end) +
             Section("BLOCKS", "0 BLOCK|8 0|2 *U1|10 7|3 A|0 LINE|0 CIRCLE|0 ENDBLK|8 0|0 BLOCK|2 EMPTY|0 ENDBLK|5 9",
                     end) +
             Section("HEADER",
                     "9 $EXTMIN|10 1|20 2|30 3|9 $EXTMIN|10 -1|20 -2|9 $LIMMIN|10 77|9 $EXTMAX|10 5|20 8|"
                     "9 $ACADVER|1 AC1021",
                     end) +
             Section("ENTITIES", "0 LINE", end));
        EXPECT_EQ(Keywords(), "POINT LINE");
        EXPECT_EQ(dxf.entities[0]->As<CDxfPoint>().position.x, 5.0);
        ASSERT_EQ(dxf.blocks.size(), 2u);
        EXPECT_EQ(dxf.blocks[0].name, "A");
        EXPECT_EQ(dxf.blocks[0].base.x, 7.0);
        EXPECT_EQ(Keywords(dxf.blocks[0].entities), "LINE CIRCLE");
        EXPECT_TRUE(dxf.blocks[1].entities.empty());
        EXPECT_EQ(dxf.extMin, (tagXYZ{-1, -2, 3}));
        EXPECT_EQ(dxf.centreX, 2.0);
        EXPECT_EQ(dxf.centreY, 3.0);
        EXPECT_EQ(dxf.version, "AC1021");
        EXPECT_EQ(report.CountOf("section THUMBNAILIMAGE"), 1u);
    }
}

/// A keyword counts under any group in the loop over entities, but not inside a record; a code that is no number is 0.
TEST_F(DxfTest, TakesMalformedInputForWhatItIs) {
    struct Row {
        std::string bytes;
        const char* keywords;
    };
    const Row rows[] = {
        {Groups("5 SECTION|2 ENTITIES|0 LINE"), ""},
        {Groups("0 SECTION|2 entities|0 LINE"), ""},
        {Section("ENTITIES", "0 VERTEX|10 LINE|20 5|0 POINT"), "LINE POINT"},
        {Section("ENTITIES", "0 LINE|8 CIRCLE|1 ARC"), "LINE"},
        {"0\nSECTION\n2\nENTITIES\nx\nLINE\nnine\nARC\n0\nENDSEC\n", "LINE ARC"},
        {Section("ENTITIES", "0  LINE|0 POINT"), "POINT"},
        {Groups("0 SECTION|2 ENTITIES|0 LINE|0 POLYLINE|0 VERTEX|10 5|0 VERTEX|10 6"), "LINE POLYLINE"},
        {Groups("0 SECTION|2 ENTITIES|0 POLYLINE|0 VERTEX|10 5|0 LINE|0 SEQEND|0 EOF"), "POLYLINE"},
        {"\xEF\xBB\xBF" + Section("ENTITIES", "0 LINE"), "LINE"},
    };
    for (const Row& row : rows) {
        Read(row.bytes);
        EXPECT_EQ(Keywords(), row.keywords) << row.bytes;
    }
    ReadEntities("0 LINE|10 1e999|20 x|11  7|21 +2.5e1");
    EXPECT_EQ(Only<CDxfLine>().start, tagXYZ());
    EXPECT_EQ(Only<CDxfLine>().end, (tagXYZ{7, 25, 0}));
}

TEST_F(DxfTest, KeepsWhatIsCompleteWhereverTheFileIsCut) {
    const std::string whole =
        Section("BLOCKS", "0 BLOCK|2 A|0 LINE|5 1|0 ENDBLK") +
        Section("ENTITIES",
                "0 LINE|5 2|10 1.25|0 POLYLINE|5 3|0 VERTEX|10 1|0 VERTEX|10 2|0 SEQEND|0 MTEXT|5 4|3 a|1 b");
    std::size_t before = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Read(whole.substr(0, length));
        EXPECT_GE(report.taken, before) << length;
        before = report.taken;
        for (const CDxfEntity* entity : dxf.entities) EXPECT_EQ(entity->GetHandle().size(), 1u);
    }
    EXPECT_EQ(before, 4u);
}

TEST_F(DxfTest, ReportsWhatItPassedOverByKindAndCount) {
    ReadEntities("0 3DFACE|10 1|0 LINE|0 3DFACE|0 INSERT|2 A|0 ATTRIB|0 SEQEND|0 VERTEX|0 SPLINE|0 \x1B[2J");
    std::vector<std::string> told;
    for (const KindReport::Kind& kind : report.GetKinds()) {
        told.push_back(Format("%zu at %zu: ", kind.count, kind.line) + kind.reason);
    }
    EXPECT_THAT(told, ElementsAre("2 at 5: 3DFACE", "1 at 13: INSERT not expanded", "1 at 17: ATTRIB",
                                  "1 at 21: VERTEX outside a polyline", "1 at 23: SPLINE kept without its geometry",
                                  "1 at 25: [2J"));
    EXPECT_EQ(report.taken, 3u);
    EXPECT_FALSE(Read(std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION", 30)));
    EXPECT_EQ(report.CountOf("a drawing in binary form; only the text form is read"), 1u);
    EXPECT_FALSE(Read("Easting, Northing\n1, 2\n"));
    EXPECT_EQ(report.CountOf("no SECTION in the file"), 1u);
    std::string many;
    for (int i = 0; i < 300; ++i) many += Format("0 KIND%d|", i);
    ReadEntities(many);
    EXPECT_EQ(report.GetKinds().size(), KindReport::kMostKinds + 1);
    EXPECT_EQ(report.CountOf(KindReport::kOtherKinds), 200u);
}

TEST_F(DxfTest, TidiesTextPieceByPiece) {
    struct Row {
        std::vector<std::string> pieces;
        const char* tidied;
    };
    const Row rows[] = {
        {{"30%%D %%P2 %%d %%%D"}, "30\xB0 \xB1\x32 %%d %\xB0"},
        {{"{\\fArial;Manifold}"}, "Manifold"},
        {{"{\\fArial;a;b}"}, "a;b"},
        {{"{\\fArial Manifold}"}, "{\\fArial Manifold}"},
        {{"{\\fArial", ";Mani", "fold}"}, "Manifold"},
        {{"\\C1;{x}"}, "\\C1;{x}"},
        {{"5%", "%", "D"}, "5\xB0"},
        {{"{\\C1}", "%%", "D;x}"}, "x"},
        {{"{\\a;{\\b;c}", "d}"}, "cd"},
    };
    for (const Row& row : rows) {
        DxfTextPieces pieces;
        for (const std::string& piece : row.pieces) pieces.Append(piece);
        EXPECT_EQ(pieces.Get(), row.tidied);
    }
    ReadEntities("0 MTEXT|3 {\\fArial;KP |3 5%%|1 P1}");
    EXPECT_EQ(Only<CDxfText>().text, "KP5\xB1\x31");
}

TEST_F(DxfTest, ShowsTextWithoutCodesInTheLettersThatItMeans) {
    struct Row {
        const char* text;
        const char* line;   ///< of a TEXT
        const char* lines;  ///< of a MTEXT
    };
    const Row rows[] = {
        {"%%uKITCHEN%%U %%c20 %%065%%%", "KITCHEN \xD8\x32\x30 A%", "KITCHEN \xD8\x32\x30 A%"},
        {"Sm\\U+00F8rbukk \\U+0416 \\U+D83D\\U+DEA2 \\U+12", "Sm\xF8rbukk \xABU+0416\xBB \xABU+1F6A2\xBB \\U+12",
         "Sm\xF8rbukk \xABU+0416\xBB \xABU+1F6A2\xBB \\U+12"},
        {"{\\fArial|b0;A}\\P\\C1;B\\~C", "{\\fArial|b0;A}\\P\\C1;B\\~C", "A\nB\xA0\x43"},
        {"\\H0.7x;\\S1/2; \\S+1^ -2; \\S3#4;", "\\H0.7x;\\S1/2; \\S+1^-2; \\S3#4;", "1/2 +1/-2 3/4"},
        {"\\Lunder\\l \\\\ \\{x\\} a^Ib^ c", "\\Lunder\\l \\\\ \\{x\\} a b^c", "under \\ {x} a b^c"},
        {"\\pxi-3,l4;item\\pq*;", "\\pxi-3,l4;item\\pq*;", "item"},
        {"end\\", "end\\", "end\\"},
        {"\\fnever", "\\fnever", "\\fnever"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(PlainText(row.text, false), row.line) << row.text;
        EXPECT_EQ(PlainMText(row.text, false), row.lines) << row.text;
    }
    // Drawings are UTF-8 from 2007 on; the degree sign put in for "%%D" is a byte of its own.
    for (const auto& [version, shown] : {std::pair{"AC1021", "\xF8 5\xB0"}, {"AC1018", "\xC3\xB8 5\xB0"}}) {
        Read(Section("HEADER", std::string("9 $ACADVER|1 ") + version) + Section("ENTITIES", "0 TEXT|1 \xC3\xB8 5%%D"));
        EXPECT_EQ(dxf.ShownText(Only<CDxfText>()), shown) << version;
    }
    EXPECT_EQ(dxf.ShownName("\\U+00E9 %%u\x01"), "\xE9 %%u");
}

/// Against lines cut by hand, over blocks, in lines longer than a block, and with the last line cut.
TEST(DxfScannerTest, GivesTheSameGroupsAsAPlainLoop) {
    std::string bytes;
    for (int i = 0; i < 60000; ++i) {
        bytes += Format("%*d%s", i % 5, i % 1100, i % 3 ? "\n" : "\r\n");
        bytes += std::string(static_cast<std::size_t>(i % 41), static_cast<char>('a' + i % 26));
        if (i % 20000 == 7) bytes.append(700000, 'x');
        bytes += i % 7 ? "\n" : " \r\n";
    }
    bytes += "10";
    for (const std::string& end : {std::string(), std::string("\n"), std::string("\n5 ")}) {
        const std::string whole = bytes + end;
        CRandomFile file;
        file.OpenBytes(whole);
        DxfScanner scanner(file, nullptr);
        std::size_t at = 0, pairs = 0;
        const auto line = [&] {
            const std::size_t feed = std::min(whole.find('\n', at), whole.size());
            std::string text = whole.substr(at, feed - at);
            at = feed + 1;
            return text;
        };
        while (scanner.Next()) {
            ASSERT_EQ(scanner.Line(), 2 * pairs + 1);
            if (++pairs % 100 == 0) {
                scanner.PutBack();
                scanner.Next();
            }
            const std::string code = line(), value = line();
            ASSERT_EQ(scanner.Code(), std::stoi(code));
            ASSERT_EQ(scanner.Value(), value.substr(0, value.find_last_not_of(" \r") + 1));
        }
        EXPECT_EQ(pairs, end.size() > 1 ? 60001u : 60000u);
    }
}

TEST_F(DxfTest, KeepsItsSettingsByPosition) {
    constexpr std::string_view kPath = "C:\\Job\\Platform A.dxf";
    constexpr std::string_view kSettings = "C:\\MySettings\\Host\\Platform_A.DXI";
    drives.Write(kPath, Section("ENTITIES", "0 LINE"));
    struct Row {
        const char* bytes;
        bool use, showText;
        double scale;
        bool ownExtents;
    };
    const Row rows[] = {
        {nullptr, true, true, 1.0, false},
        {"Use = 0\r\nShow Text = 0\r\nScale = 2.500\r\n", false, false, 2.5, false},
        {"Use = 1\r\nShow Text = 0\r\nScale = -1\r\nOwn Extents = 1\r\n", true, false, 1.0, true},
        {"Use\r\n", true, true, 0.0, false},
    };
    for (const Row& row : rows) {
        if (row.bytes) drives.Write(kSettings, row.bytes);
        ASSERT_TRUE(dxf.Read(kPath));
        EXPECT_EQ(std::tuple(dxf.use, dxf.showText, dxf.scale, dxf.ownExtents),
                  std::tuple(row.use, row.showText, row.scale, row.ownExtents));
    }
    dxf.SaveSettings();
    EXPECT_EQ(drives.Read(kSettings), "Use = 1\r\nShow Text = 1\r\nScale = 0.000\r\n");
    dxf.ownExtents = true;
    dxf.SaveSettings();
    EXPECT_TRUE(dxf.Read(kPath) && dxf.ownExtents && dxf.sizeText == Format("%zub", drives.Read(kPath).size()));
    EXPECT_FALSE(dxf.Read("C:\\Job\\gone.dxf"));
    EXPECT_TRUE(dxf.entities.empty() && dxf.sizeText.empty());
}

TEST_F(DxfTest, ListRefusesWhatItHoldsAndKeepsItsPaths) {
    CDxfList list(drives);
    EXPECT_NE(list.Add("C:\\Job\\a.dxf"), nullptr);
    EXPECT_EQ(list.Add("C:\\JOB\\A.DXF"), nullptr);
    EXPECT_EQ(list.Add("C:\\Job\\"), nullptr);
    EXPECT_NE(list.Add("/srv/b.dxf"), nullptr);
    EXPECT_TRUE(list.Save());
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\DXF_List.INI"), "[DXF File]\r\nC:\\Job\\a.dxf\r\n/srv/b.dxf\r\n");
    CDxfList again(drives);
    again.LoadPaths();
    ASSERT_EQ(again.GetCount(), 2);
    EXPECT_EQ(again.Remove(0)->fileName, "C:\\Job\\a.dxf");
    EXPECT_EQ(again[0].fileName, "/srv/b.dxf");
    EXPECT_THROW(again[1], InvalidArgument);
}

}  // namespace
}  // namespace quillon
