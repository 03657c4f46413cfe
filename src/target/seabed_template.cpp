#include "target/seabed_template.h"

namespace quillon {
namespace {

template <class Sections>
void EachSection(Sections&& sections, auto& object) {
    sections.Section("Reflectos", object.reflectors);  // sic: other programs of the system look for this head
    sections.Section("Beacons", object.beacons);
}

}  // namespace

void CTemplate::ReadSections(SectionFile& file) {
    EachSection(SectionReader(file), *this);
}

void CTemplate::WriteSections(CConfigFile& file) const {
    EachSection(SectionWriter(file), *this);
}

const OffsetPoints* CTemplate::OffsetsOf(std::int32_t type) const {
    if (type == TRACK_REFLECTOR) return &reflectors;
    return type == TRACK_BEACON ? &beacons : COutline::OffsetsOf(type);
}

std::vector<std::int32_t> CTemplate::OfferedTrackTypes() const {
    return {TRACK_REFERENCE, TRACK_ANTENNA, TRACK_OFFSET, TRACK_REFLECTOR, TRACK_BEACON};
}

}  // namespace quillon
