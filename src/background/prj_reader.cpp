#include "background/prj_reader.h"

#include <algorithm>
#include <array>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// A text that is eaten from the front. A search that found nothing is not made again: no later one would.
class Eater {
public:
    explicit Eater(std::string_view whole) : text(whole) {}

    std::string_view Rest() const { return text; }
    /// What stands before the next of these characters; it is cut together with that character. False, and nothing is
    /// cut, if there is none.
    bool TakeUpTo(std::string_view any, std::string_view& before) {
        if (MissesAll(any)) return false;
        const std::size_t at = text.find_first_of(any);
        if (at == std::string_view::npos) {
            missing += any;
            return false;
        }
        before = text.substr(0, at);
        text.remove_prefix(at + 1);
        return true;
    }
    bool SkipTo(std::string_view any) {
        std::string_view before;
        return TakeUpTo(any, before);
    }

private:
    bool MissesAll(std::string_view any) const {
        return std::all_of(any.begin(), any.end(), [this](char c) { return missing.find(c) != std::string::npos; });
    }

    std::string_view text;
    std::string missing;
};

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string WithBlanks(std::string_view name) {
    return Replace(name, "_", " ");
}

void TakeParallel(CGrid& grid, double radians) {
    (grid.subtype == 0 ? grid.lat0 : grid.lat1) = radians;
    grid.InitConic();
}

/// A parameter that counts in degrees or as it is written, and what is derived anew.
struct Parameter {
    std::string_view name;
    double unit;
    void (*store)(CGrid& grid, double value);
};
constexpr std::array kParameters = {
    Parameter{"False_Easting", 1.0,
              [](CGrid& g, double v) {
                  g.FE = v;
                  g.Init();
              }},
    Parameter{"False_Northing", 1.0,
              [](CGrid& g, double v) {
                  g.FN = v;
                  g.Init();
              }},
    Parameter{"Latitude_of_Origin", kRadiansPerDegree,
              [](CGrid& g, double v) {
                  g.lat0 = v;
                  g.Init();
              }},
    Parameter{"Central_Meridian", kRadiansPerDegree,
              [](CGrid& g, double v) {
                  g.lon0 = v;
                  g.Init();
              }},
    Parameter{"Scale_Factor", 1.0,
              [](CGrid& g, double v) {
                  g.k0 = v;
                  g.Init();
              }},
    Parameter{"Standard_Parallel_1", kRadiansPerDegree, TakeParallel},
};

class Parser {
public:
    Parser(std::string_view line, const ProjectionTarget& projectionTarget, ShapeReport* lineReport)
        : text(line), target(projectionTarget), report(lineReport) {}

    void Run() {
        std::string_view keyword, rawName;
        while (text.TakeUpTo("[", keyword) && text.TakeUpTo(",", rawName)) {
            const std::string name = Replace(Replace(rawName, "\"", ""), "]", "");
            Act(keyword, name);
        }
    }

private:
    void Act(std::string_view keyword, const std::string& name) {
        if (Contains(keyword, "GEOGCS")) {
            target.transformationName = WithBlanks(name);
        } else if (Contains(keyword, "PROJCS")) {
            target.grid.name = WithBlanks(name);
        } else if (Contains(keyword, "DATUM")) {
            target.transformationName = WithBlanks(name.starts_with("D_") ? name.substr(2) : name);
        } else if (Contains(keyword, "SPHEROID")) {
            TakeSpheroid(name);
        } else if (Contains(keyword, "PRIMEM") || Contains(keyword, "UNIT")) {
            if (target.remarks && Contains(keyword, "UNIT")) target.remarks->unit = Atof(text.Rest());
            SkipToField();
        } else if (Contains(keyword, "AUTHORITY")) {
            text.SkipTo("]");
            text.SkipTo(",]");
        } else if (Contains(keyword, "PROJECTION")) {
            TakeProjection(name);
        } else if (Contains(keyword, "PARAMETER")) {
            TakeParameter(name);
        }
    }

    void SkipToField() {
        text.SkipTo("]");
        text.SkipTo(",");
    }

    void TakeSpheroid(const std::string& name) {
        CEllipsoid& ellipsoid = target.ellipsoid;
        ellipsoid.name = WithBlanks(name);
        std::string_view axis;
        if (!text.TakeUpTo(",", axis)) return;
        const double flattening = Atof(text.Rest());
        ellipsoid.SetAxes(Atof(axis), flattening);
        if (target.remarks) target.remarks->flatteningKept = ellipsoid.rf == flattening;
        text.SkipTo(",]");
        text.SkipTo(",");
    }

    void TakeProjection(const std::string& name) {
        CGrid& grid = target.grid;
        if (target.remarks) target.remarks->projection = name;
        if (grid.name.empty()) grid.name = name;
        if (Contains(name, "Transverse")) {
            SetType(TRANSVERSE_MERCATOR);
        } else if (Contains(name, "Mercator")) {
            SetType(MERCATOR);
        } else if (report) {
            report->NoteFile("the .prj names a projection that isn't known: " + name);
        }
        // A list of parameters follows; those that it leaves out are none.
        for (double CGrid::*const parameter : {&CGrid::FE, &CGrid::FN, &CGrid::lat0, &CGrid::lon0}) {
            grid.*parameter = 0;
            grid.Init();
        }
        grid.k0 = 1;
        grid.Init();
        TakeParallel(grid, 0);
        target.geographic = false;
    }

    void SetType(GRID_TYPE type) {
        target.grid.type = type;
        target.grid.subtype = 0;
    }

    /// The number of a name that isn't known stays in the text, as a part of the next keyword.
    void TakeParameter(const std::string& name) {
        const auto known = std::find_if(kParameters.begin(), kParameters.end(),
                                        [&](const Parameter& parameter) { return EqualNoCase(parameter.name, name); });
        std::string_view value;
        if (known == kParameters.end() || !text.TakeUpTo("]", value)) return;
        known->store(target.grid, Atof(value) * known->unit);
        text.SkipTo(",");
    }

    Eater text;
    const ProjectionTarget& target;
    ShapeReport* report;
};

bool BracketsPair(std::string_view line) {
    int depth = 0;
    for (const char c : line) {
        depth += c == '[' ? 1 : c == ']' ? -1 : 0;
        if (depth < 0) return false;
    }
    return depth == 0;
}

void ReportForm(std::string_view line, std::string_view behind, ShapeReport& report) {
    if (Contains(line, std::string_view("\0", 1))) {
        report.NoteFile("the .prj is no plain text");
    } else if (!Contains(line, "[")) {
        report.NoteFile("the .prj holds no projection");
    } else if (!BracketsPair(line)) {
        report.NoteFile("the brackets of the .prj don't pair");
    }
    if (!Trim(behind).empty()) report.NoteFile("the .prj goes on behind its first line, which alone counts");
}

}  // namespace

void ReadProjectionText(std::string_view bytes, const ProjectionTarget& target, ShapeReport* report) {
    target.geographic = true;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) {
        bytes.remove_prefix(kByteOrderMark.size());
        if (report) report->NoteFile("the .prj begins with a byte order mark");
    }
    const std::size_t feed = std::min(bytes.find('\n'), bytes.size());
    const std::string_view line = bytes.substr(0, feed);
    if (report) ReportForm(line, bytes.substr(feed), *report);
    Parser(line, target, report).Run();
}

}  // namespace quillon
