#include "features/rpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <filesystem>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr double kPi = std::numbers::pi;

using Point = std::complex<double>;  // easting + i northing

Point At(tagXY xy) {
    return {xy.x, xy.y};
}

/// One turn of a route that somebody steered: straight on, then round by an angle, positive clockwise.
struct Manoeuvre {
    double straight = 0;
    double radius = 0;
    double sweep = 0;  ///< radians, with sign
};

/// A route as it is steered, by turning a heading: no bearing, no crossing and no formula of the reader's. What the
/// reader works out must lead along it.
struct Steered {
    struct Curve {
        Point start, end, centre, corner;
        double startKm = 0, endKm = 0;
        double radius = 0, sweep = 0;
    };
    Point begin{450000, 6250000};
    std::vector<Curve> curves;
    std::vector<std::string> rlx;
    Point end;
    double km = 0;

    Steered(const std::vector<Manoeuvre>& way, double lastStraight) {
        Point here = begin, heading = std::polar(1.0, 0.3);
        const auto row = [&](Point to, double radius) {
            rlx.push_back(Line({here.real(), here.imag(), to.real(), to.imag(), 0, 0, radius}));
        };
        const auto straight = [&](double metres) {
            if (metres == 0) return;
            row(here + heading * metres, 0);
            here += heading * metres;
            km += metres / 1000;
        };
        for (const Manoeuvre& turn : way) {
            straight(turn.straight);
            const double side = turn.sweep > 0 ? 1 : -1;
            Curve curve;
            curve.start = here;
            curve.startKm = km;
            curve.radius = turn.radius;
            curve.sweep = turn.sweep;
            curve.centre = here + heading * Point(0, -side) * turn.radius;
            curve.corner = here + heading * turn.radius * std::tan(std::fabs(turn.sweep) / 2);
            const Point exit = curve.centre + (here - curve.centre) * std::polar(1.0, -turn.sweep);
            row(exit, side * turn.radius);
            heading *= std::polar(1.0, -turn.sweep);
            here = exit;
            km += turn.radius * std::fabs(turn.sweep) / 1000;
            curve.end = here;
            curve.endKm = km;
            curves.push_back(curve);
        }
        straight(lastStraight);
        end = here;
    }

    static std::string Line(const std::vector<double>& numbers) {
        std::string line;
        for (const double number : numbers) line += (line.empty() ? "" : ", ") + Format("%.9f", number);
        return line + "\r\n";
    }
    static std::string Pair(Point at) { return Line({at.real(), at.imag()}); }

    std::string Radii() const {
        std::string text = Line({begin.real(), begin.imag(), 0});
        for (const Curve& c : curves) text += Line({c.corner.real(), c.corner.imag(), c.radius});
        return text + Line({end.real(), end.imag(), 0});
    }
    std::string Tangents() const {
        std::string text = Pair(begin);
        for (const Curve& c : curves) text += Pair(c.start) + Pair(c.end);
        return text + Pair(end);
    }
    std::string Listing() const {
        std::string text = "IP, 0, " + Format("%.9f, %.9f, \r\n", begin.real(), begin.imag());
        for (const Curve& c : curves) {
            text += Format("TP, 1, %.9f, %.9f,\r\n", c.start.real(), c.start.imag());
            text += Format("IP, 1, %.9f, %.9f, \r\n", c.corner.real(), c.corner.imag());
            text += Format("cp, 1, %.9f, %.9f, %.9f\r\n", c.centre.real(), c.centre.imag(), c.radius);
        }
        return text + Format("IP, 9, %.9f, %.9f, \r\n", end.real(), end.imag());
    }
    std::string Rlx() const {
        std::string text = "Start E,Start N,End E,End N,Bearing,Length,Radius\r\nmetres\r\n";
        for (const std::string& row : rlx) text += row;
        return text;
    }
};

class RplTest : public testing::Test {
protected:
    bool Load(const std::string& text, const char* path = "C:\\Job\\Export cable.csv") {
        drives.Write(path, text);
        return rpl.Load(path);
    }
    /// Every record, but for what only some forms keep.
    void ExpectLeadsAlong(const Steered& way, double metres) {
        ASSERT_EQ(rpl.GetSize(), static_cast<CRPL::Index>(way.curves.size()) + 2);
        EXPECT_LT(std::abs(At(rpl[0].position) - way.begin), metres);
        for (std::size_t i = 0; i < way.curves.size(); ++i) {
            const RPLDef& record = rpl[static_cast<CRPL::Index>(i) + 1];
            const Steered::Curve& curve = way.curves[i];
            SCOPED_TRACE(i);
            EXPECT_LT(std::abs(At(record.curveStart) - curve.start), metres);
            EXPECT_LT(std::abs(At(record.curveEnd) - curve.end), metres);
            EXPECT_LT(std::abs(At(record.centre) - curve.centre), metres);
            EXPECT_LT(std::abs(At(record.position) - curve.corner), metres);
            EXPECT_NEAR(record.radius, curve.radius, metres);
            EXPECT_NEAR(record.arcLength, curve.radius * std::fabs(curve.sweep), metres);
            EXPECT_NEAR(record.curveStartKp * 1000, curve.startKm * 1000, metres);
            EXPECT_NEAR(record.curveEndKp * 1000, curve.endKm * 1000, metres);
            EXPECT_EQ(record.direction, curve.sweep > 0 ? 1 : -1);
            const Point radial = curve.end - curve.centre;
            EXPECT_NEAR(std::remainder(record.endRadial - std::atan2(radial.real(), radial.imag()), 2 * kPi), 0,
                        metres / curve.radius);
            if (rpl.GetForm() == RPL_FORM::TANGENT) continue;
            EXPECT_NEAR(record.sweep, std::fabs(curve.sweep), metres / curve.radius);
            EXPECT_NEAR(record.interiorAngle, kPi - std::fabs(curve.sweep), metres / curve.radius);
        }
        const RPLDef& last = rpl[rpl.GetUpperBound()];
        EXPECT_LT(std::abs(At(last.position) - way.end), metres);
        EXPECT_NEAR(last.kp * 1000, way.km * 1000, metres);
        EXPECT_EQ(rpl.GetLengthKm(), last.kp);
        EXPECT_EQ(report.remarks, 0u);
    }

    ScratchDrives drives;
    CRPL rpl{drives};
    const ReadReport& report = rpl.GetReport();
};

// Turns to both sides by next to nothing and by nearly half round, wide and tight, some of them touching.
TEST_F(RplTest, AllFormsLeadAlongTheSteeredRoute) {
    std::mt19937_64 random(37);
    std::uniform_real_distribution<double> share(0, 1);
    for (int route = 0; route < 40; ++route) {
        std::vector<Manoeuvre> way;
        for (int i = 0; i < 12; ++i) {
            const bool touching = i > 0 && share(random) < 0.2;
            const double sweep = (0.02 + 2.7 * share(random)) * (share(random) < 0.5 ? -1 : 1);
            way.push_back({touching ? 0 : 20 + 900 * share(random), 50 + 1500 * share(random), sweep});
        }
        const Steered steered(way, route % 4 == 0 ? 0.0005 : 300);
        SCOPED_TRACE(route);
        ASSERT_TRUE(Load(steered.Radii()));
        ExpectLeadsAlong(steered, 1e-4);
        ASSERT_TRUE(Load(steered.Listing()));
        ExpectLeadsAlong(steered, 1e-4);
        ASSERT_TRUE(Load(steered.Rlx(), "C:\\Job\\Export cable.RlX"));
        ExpectLeadsAlong(steered, 1e-3);
        if (route % 4 == 0) continue;  // half a millimetre at the end gives tangents no direction
        ASSERT_TRUE(Load(steered.Tangents()));
        ExpectLeadsAlong(steered, 1e-3);
    }
}

TEST_F(RplTest, AQuarterTurn) {
    drives.Write("C:\\MySettings\\Host\\Export_cable_RPL.INI",
                 "Use = 1\r\nDisplay = 1\r\nPort = 20\r\nStarboard = 30\r\n");
    ASSERT_TRUE(Load("100,100,0\n100,1100,100\n1100,1100,0\n"));
    const RPLDef& curve = rpl[1];
    EXPECT_EQ(curve.direction, 1);
    EXPECT_DOUBLE_EQ(curve.sweep, kPi / 2);
    EXPECT_LT(std::abs(At(curve.curveStart) - Point(100, 1000)), 1e-9);
    EXPECT_LT(std::abs(At(curve.curveEnd) - Point(200, 1100)), 1e-9);
    EXPECT_LT(std::abs(At(curve.centre) - Point(200, 1000)), 1e-9);
    EXPECT_NEAR(curve.arcLength, 157.08, 0.005);
    EXPECT_NEAR(curve.curveStartKp, 0.9, 1e-12);
    EXPECT_NEAR(curve.curveEndKp, 1.05708, 1e-6);
    EXPECT_NEAR(rpl[2].kp, 1.95708, 1e-6);
    EXPECT_EQ(curve.kp, 0);
    EXPECT_EQ(rpl[0].range, 900);
    EXPECT_NEAR(rpl[1].range, 900, 1e-9);
    // The edges: arcs about the centre, the ends square.
    EXPECT_LT(std::abs(At(curve.portCorridorStart) - Point(80, 1000)), 1e-9);
    EXPECT_LT(std::abs(At(curve.portCorridorEnd) - Point(200, 1120)), 1e-9);
    EXPECT_LT(std::abs(At(curve.starboardCorridorStart) - Point(130, 1000)), 1e-9);
    EXPECT_LT(std::abs(At(curve.starboardCorridorEnd) - Point(200, 1070)), 1e-9);
    EXPECT_LT(std::abs(At(rpl[0].portCorridorStart) - Point(80, 100)), 1e-9);
    EXPECT_LT(std::abs(At(rpl[2].starboardCorridorEnd) - Point(1100, 1070)), 1e-9);
    // To port the edges change places; a plain corner has the mitre.
    ASSERT_TRUE(Load("1100,100,0\n1100,1100,100\n100,1100,0\n"));
    EXPECT_EQ(rpl[1].direction, -1);
    EXPECT_LT(std::abs(At(rpl[1].starboardCorridorStart) - Point(1130, 1000)), 1e-9);
    ASSERT_TRUE(Load("100,100,0\n100,1100,\n1100,1100,0\n"));
    EXPECT_EQ(rpl[1].kp, 1);
    EXPECT_EQ(rpl[2].kp, 2);
    EXPECT_LT(std::abs(At(rpl[1].portCorridorStart) - Point(80, 1120)), 1e-9);
    ASSERT_TRUE(Load("100,100\n100,1000\n200,1100\n1100,1100\n"));
    EXPECT_FALSE(rpl.HasCorridor());
    EXPECT_EQ(rpl[1].portCorridorStart, tagXY{});
}

struct FormCase {
    const char* why;
    const char* path;
    const char* text;
    bool loads;
    int records;
};

TEST_F(RplTest, FormsAndTheirLines) {
    for (const FormCase& c : {
             FormCase{"a field too many", "C:\\Job\\a.csv", "100,100,0,0\n100,1100,0\n", false, 0},
             FormCase{"six fields", "C:\\Job\\a.csv", "1,2,3,4,5,6\n1,2,3\n", false, 0},
             FormCase{"empty", "C:\\Job\\a.csv", "", false, 0},
             FormCase{"an empty first line", "C:\\Job\\a.csv", "\n1,2,3\n", false, 0},
             FormCase{"words alone", "C:\\Job\\a.csv", "East,North,Radius\n", true, 0},
             FormCase{"a heading is dropped", "C:\\Job\\a.csv", "East,North,Radius\n1,2,3\n5,6,7\n0,0,1\n8,,1\n", true,
                      2},
             FormCase{"one point", "C:\\Job\\a.csv", "1,2,3\n", true, 1},
             FormCase{"one tangent point is start and end", "C:\\Job\\a.csv", "1,2\n", true, 2},
             FormCase{"two tangent points", "C:\\Job\\a.csv", "1,2\n3,4\n", true, 2},
             FormCase{"whole pairs", "C:\\Job\\a.csv", "100,100\n100,1000\n200,1100\n1000,1100\n1100,1100\n", true, 3},
             FormCase{"RLX without rows", "C:\\Job\\a.rlx", "a\nb\n", false, 0},
             FormCase{"an RLX row is a start and an end", "C:\\Job\\a.rlx", "a\nb\n1,2,3,4,0,0,0\n", true, 2},
             FormCase{"a listing without codes", "C:\\Job\\a.csv", "IP,0,1,2,\nIP,1,5,6,\n", true, 2},
             FormCase{"a centre ahead of its corner", "C:\\Job\\a.csv",
                      "IP,0,100,100,\nCP,1,9,9,50\nIP,1,100,1100,\nIP,2,1100,1100,\n", true, 3},
             FormCase{"a corner that no radius came for", "C:\\Job\\a.csv",
                      "IP,0,100,100,\nIP,1,100,1100,\nIP,2,1100,1100,\n", true, 2},
         }) {
        EXPECT_EQ(Load(c.text, c.path), c.loads) << c.why;
        EXPECT_EQ(rpl.GetSize(), c.records) << c.why;
        EXPECT_EQ(report.lines, report.taken + report.passedOver + report.headings) << c.why;
    }
    // Of the last two: the radius went to the corner behind it; the lost corner is named.
    EXPECT_EQ(report.named.at(0).number, 2u);
    EXPECT_EQ(report.named.at(0).reason, PASSED_OVER::NO_RADIUS);
    ASSERT_TRUE(Load("IP,0,100,100,\nTP,1,9,9,50\nIP,1,100,1100,\nCP,1,9,9,\nIP,2,1100,1100,\n"));
    EXPECT_EQ(rpl[1].radius, 50);
    EXPECT_FALSE(rpl.Load("C:\\Job\\none.csv"));
    EXPECT_TRUE(rpl.IsEmpty());
    ASSERT_TRUE(Load("100,100\n100,400\n"));
    EXPECT_EQ(rpl[1].kp, 0) << "two tangent points make no leg";
}

// A curve of an RLX file begins in the bearing in which the curve before it ended, not in that of the straight between.
TEST_F(RplTest, RlxCurvesFollowOnFromCurves) {
    ASSERT_TRUE(
        Load("a\nb\n100,100,100,1000,,,0\n100,1000,200,1100,,,100\n200,1100,1000,1101,,,0\n"
             "1000,1101,1100,1001,,,100\n1100,1001,1100,100,,,0\n",
             "C:\\Job\\a.rlx"));
    ASSERT_EQ(rpl.GetSize(), 4);
    EXPECT_NEAR(rpl[2].startRadial, 0, 1e-12) << "east, as the first curve ended";
    EXPECT_NEAR(rpl[2].sweep, kPi / 2, 1e-9);
    EXPECT_NEAR(rpl[2].range, std::hypot(800, 1), 1e-9) << "the leg ahead of it";
    EXPECT_NEAR(rpl[3].kp, 0.9 + 0.1 * kPi / 2 + std::hypot(800, 1) / 1000 + 0.1 * kPi / 2 + 0.901, 1e-9);
}

struct OpenCase {
    const char* why;
    const char* path;
    const char* text;
    std::vector<std::size_t> lines;  ///< that the report remarks on
    std::vector<int> directions;     ///< of the records
};

// What no designer means: a curve that can't be becomes a plain corner, and its line is named. No point of any record
// lies at 0, 0 or is no number.
TEST_F(RplTest, CurvesThatCannotBeBecomePlainCorners) {
    const char* const rpl3 = "C:\\Job\\a.csv";
    const char* const rlx = "C:\\Job\\a.rlx";
    for (const OpenCase& c : {
             OpenCase{"negative radius", rpl3, "100,100,0\n100,1100,-100\n1100,1100,0\n", {2}, {0, 0, 0}},
             OpenCase{"radii at the ends", rpl3, "100,100,50\n100,1100,100\n1100,1100,50\n", {1, 3}, {0, 1, 0}},
             OpenCase{"two points", rpl3, "100,100,50\n100,1100,50\n", {1, 2}, {0, 0}},
             OpenCase{"straight back", rpl3, "100,100,0\n100,1100,100\n100,200,0\n", {2}, {0, 0, 0}},
             OpenCase{"straight through", rpl3, "100,100,0\n100,1100,100\n100,2100,0\n", {}, {0, -1, 0}},
             OpenCase{"twice the same place", rpl3, "100,100,0\n100,100,100\n900,200,0\n", {2}, {0, 0, 0}},
             OpenCase{"too big for its legs", rpl3, "100,100,0\n100,1100,1001\n1100,1100,0\n", {2}, {0, 0, 0}},
             OpenCase{"just fits", rpl3, "100,100,0\n100,1100,1000\n1100,1100,0\n", {}, {0, 1, 0}},
             OpenCase{"neighbours that touch",
                      rpl3,
                      "100,100,0\n100,1100,500\n1100,1100,500\n1100,100,0\n",
                      {},
                      {0, 1, 1, 0}},
             OpenCase{"neighbours that overlap",
                      rpl3,
                      "100,100,0\n100,1100,500\n1100,1100,501\n1100,100,0\n",
                      {3},
                      {0, 1, 0, 0}},
             OpenCase{"huge", rpl3, "100,100,0\n100,1100,1e300\n1100,1100,0\n1e300,5,0\n5,5,1\n", {2, 5}, {0, 0, 0, 0}},
             OpenCase{"parallel tangents", rpl3, "100,100\n100,500\n100,900\n100,1500\n", {2}, {0, 0, 0}},
             OpenCase{"half round", rpl3, "100,100\n100,500\n300,500\n300,100\n", {2}, {0, 0, 0}},
             OpenCase{"tangents that meet behind", rpl3, "100,100\n100,500\n0,400\n500,400\n", {2}, {0, 0, 0}},
             OpenCase{"twice the same tangent point", rpl3, "100,100\n100,500\n100,500\n500,500\n", {2}, {0, 0, 0}},
             OpenCase{"no arc between them", rpl3, "100,100\n100,500\n700,600\n900,600\n", {2}, {0, 1, 0}},
             OpenCase{
                 "curves at both ends", rlx, "a\nb\n100,100,100,1000,,,9\n100,1000,200,1100,,,100\n", {3, 4}, {0, 0}},
             OpenCase{"numbers missing in a curve",
                      rlx,
                      "a\nb\n100,100,100,1000,,,0\n100,1000,?,1100,,,100\n200,1100,1100,1100,,,0\n",
                      {4},
                      {0, 0, 0}},
             OpenCase{"no radius",
                      rlx,
                      "a\nb\n100,100,100,1000,,,0\n100,1000,200,1100,,,\n200,1100,1100,1100,,,0\n",
                      {4},
                      {0, 0, 0}},
             OpenCase{"a start at 0, 0",
                      rlx,
                      "a\nb\n100,100,100,1000,,,0\n0,0,200,1100,,,100\n200,1100,1100,1100,,,0\n",
                      {4},
                      {0, 0, 0}},
             OpenCase{
                 "a row of nothing", rlx, "a\nb\n100,100,100,1000,,,0\n,,,,,,\n100,1000,1100,1100,,,0\n\n", {}, {0, 0}},
             OpenCase{"a chord wider than the circle",
                      rlx,
                      "a\nb\n100,100,100,1000,,,0\n100,1000,900,1100,,,100\n900,1100,1100,1100,,,0\n",
                      {4},
                      {0, 0, 0}},
             OpenCase{"half round is a curve",
                      rlx,
                      "a\nb\n100,100,100,1000,,,0\n100,1000,300,1000,,,100\n300,1000,300,100,,,0\n",
                      {},
                      {0, 1, 0}},
         }) {
        SCOPED_TRACE(c.why);
        ASSERT_TRUE(Load(c.text, c.path));
        std::vector<std::size_t> lines;
        for (const ReadReport::RemarkedLine& line : report.remarked) lines.push_back(line.number);
        std::sort(lines.begin(), lines.end());
        EXPECT_EQ(lines, c.lines);
        EXPECT_EQ(report.remarks, c.lines.size());
        std::vector<int> directions;
        double kp = 0;
        for (const RPLDef& record : rpl) {
            directions.push_back(record.direction);
            EXPECT_EQ(record.IsCurve(), record.radius > 0);
            for (const tagXY at : {record.position, record.curveStart, record.curveEnd, record.centre}) {
                EXPECT_TRUE(std::isfinite(at.x) && std::isfinite(at.y) && (at.x != 0 || at.y != 0));
            }
            EXPECT_GE(record.ExitKp(), kp);
            kp = record.ExitKp();
        }
        EXPECT_EQ(directions, c.directions);
    }
}

// A leg of no length between curves that touch, or behind the last one, has the bearing in which the curve ends: the
// corridor at the end stands square to it.
TEST_F(RplTest, TheEndBehindACurveStandsSquareToIt) {
    ASSERT_TRUE(Load("100,100,0\n100,1100,1000\n1100,1100,0\n"));
    EXPECT_NEAR(rpl[1].bearing, kPi / 2, 1e-9);
    EXPECT_LT(std::abs(At(rpl[2].portCorridorEnd) - Point(1100, 1200)), 1e-6);
}

// Files of other makers: one route in four forms, with millimetres in its files. A tenth of a millimetre on tangents of
// ten metres moves a centre by centimetres; the route itself is the same to a millimetre.
TEST_F(RplTest, FourFilesOfOneTrack) {
    const std::filesystem::path folder = QUILLON_SHARED_DATA "/samples/survey";
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no samples here";
    CRPL radii(drives);
    ASSERT_TRUE(radii.Load((folder / "ship_track_radius.rpl").string()));
    ASSERT_EQ(radii.GetSize(), 24);
    EXPECT_NEAR(radii.GetLengthKm(), 823.7395, 5e-6);
    for (const char* name : {"ship_track_listing.csv", "ship_track_tangent.rpl", "ship_track.RLX"}) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(rpl.Load((folder / name).string()));
        EXPECT_EQ(report.remarks, 0u);
        ASSERT_EQ(rpl.GetSize(), radii.GetSize());
        for (CRPL::Index i = 0; i < rpl.GetSize(); ++i) {
            const RPLDef& one = radii[i];
            const RPLDef& other = rpl[i];
            EXPECT_LT(std::abs(At(one.curveStart) - At(other.curveStart)), 1e-3) << i;
            EXPECT_LT(std::abs(At(one.curveEnd) - At(other.curveEnd)), 1e-3) << i;
            EXPECT_TRUE(!one.IsCurve() || std::fabs(one.curveStartKp - other.curveStartKp) < 1e-6) << i;
            EXPECT_NEAR(one.ExitKp(), other.ExitKp(), 1e-6) << i;
            EXPECT_NEAR(one.arcLength, other.arcLength, 1e-3) << i;
            EXPECT_EQ(one.direction, other.direction) << i;
        }
    }
}

}  // namespace
}  // namespace quillon
