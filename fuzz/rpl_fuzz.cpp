// The first byte chooses between an RLX file and the forms that the first line tells. Whatever follows: no point of a
// record is missing or not finite, no corner at 0, 0, and KPs never fall along the route.

#include "feature_fuzz.h"
#include "features/rpl.h"

namespace {

bool IsFinite(quillon::tagXY at) {
    return std::isfinite(at.x) && std::isfinite(at.y);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    quillon::CRPL rpl(fuzz::Files());
    quillon::CStdioFile file(fuzz::Files());
    file.OpenBytes({reinterpret_cast<const char*>(data) + 1, size - 1});
    rpl.ReadFrom(file, data[0] % 2 == 1);
    const quillon::ReadReport& report = rpl.GetReport();
    fuzz::Require(report.lines == report.taken + report.passedOver + report.headings);
    fuzz::Require(report.named.size() <= quillon::ReadReport::kMostNamed);
    fuzz::Require(report.remarks <= 2 * report.lines);
    double kp = 0.0;
    for (const quillon::RPLDef& record : rpl) {
        fuzz::Require(IsFinite(record.position) && (record.IsCurve() || fuzz::IsPosition(record.position)));
        // What is worked out may lie anywhere, 0, 0 among it.
        fuzz::Require(IsFinite(record.curveStart) && IsFinite(record.curveEnd) && IsFinite(record.centre));
        fuzz::Require(std::isfinite(record.range) && std::isfinite(record.arcLength));
        fuzz::Require(!rpl.HasCorridor() ||
                      (std::isfinite(record.portCorridorEnd.x) && std::isfinite(record.starboardCorridorStart.y)));
        fuzz::Require(!(record.radius < 0.0) && (record.radius > 0.0) == record.IsCurve());
        fuzz::Require(record.ExitKp() >= kp && std::isfinite(record.ExitKp()));
        kp = record.ExitKp();
    }
    return 0;
}
