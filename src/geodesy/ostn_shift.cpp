#include "geodesy/ostn_shift.h"

#include <cmath>
#include <string>

#include "foundation/paths.h"

namespace quillon {

namespace {

constexpr const char* kForwardName = "OSTN15_NTv2_ETRStoOSGB.gsb";
constexpr const char* kReverseName = "OSTN15_NTv2_OSGBtoETRS.gsb";

COstnShift::Spheroid SpheroidOf(double a, double b) {
    // 49 degrees and its multiples in radians, at the precision that the system keeps them.
    constexpr double x1 = 0.855211333477207, x2 = 1.710422666954414, x4 = 3.420845333908828, x6 = 5.131268000863242;
    const double rf = a / (a - b);
    COstnShift::Spheroid s;
    s.a = a;
    s.e2 = 2 / rf - 1 / (rf * rf);
    s.oneMinusE2 = 1 - s.e2;
    const double e4 = s.e2 * s.e2, e6 = e4 * s.e2;
    s.A0 = 1 - s.e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    s.A2 = 3.0 / 8 * (s.e2 + e4 / 4 + 15 * e6 / 128);
    s.A4 = 15.0 / 256 * (e4 + 3 * e6 / 4);
    s.A6 = 35 * e6 / 3072;
    s.M49 = a * (s.A0 * x1 - s.A2 * std::sin(x2) + s.A4 * std::sin(x4) - s.A6 * std::sin(x6));
    return s;
}

/// Only the low 16 bits of the count of spacings are kept; no count at all is none.
std::int32_t Columns(const COstnShift::Window& window) {
    const double spacings = std::trunc((window.wLong - window.eLong) / window.longInc);
    if (!(std::abs(spacings) < 9e18)) return 1;
    return static_cast<std::int32_t>(static_cast<std::int64_t>(spacings) & 0xFFFF) + 1;
}

}  // namespace

void COstnShift::Clear() {
    *this = COstnShift();
}

void COstnShift::Load(FileSystem& files) {
    Clear();
    const std::string folder = SplitPath(files.CommandLine()).folder;
    const std::shared_ptr<const GsbFile> forward = LoadGsb(files, folder + kForwardName);
    if (!forward) return;
    const std::shared_ptr<const GsbFile> reverse = LoadGsb(files, folder + kReverseName);
    if (!reverse) return;

    forwardHeader = forward->header;
    forwardNodes = {forward, &forward->nodes};
    reverseHeader = reverse->header;
    reverseNodes = {reverse, &reverse->nodes};
    fromSpheroid = SpheroidOf(reverseHeader.Real(MAJOR_F), reverseHeader.Real(MINOR_F));
    toSpheroid = SpheroidOf(reverseHeader.Real(MAJOR_T), reverseHeader.Real(MINOR_T));
    window = {reverseHeader.Real(E_LONG), reverseHeader.Real(S_LAT),    reverseHeader.Real(W_LONG),
              reverseHeader.Real(N_LAT),  reverseHeader.Real(LONG_INC), reverseHeader.Real(LAT_INC)};
    columns = Columns(window);
}

}  // namespace quillon
