#include "target/barge.h"

#include "foundation/settings_lines.h"

namespace quillon {

template <class Lines>
void EachLine(Lines& lines, RecordOf<CBarge> auto& barge) {
    lines.Double("Draft", barge.draft, 3);
    lines.Double("Water Line To Zero", barge.waterLineToZero, 3);
}

namespace {

template <class Sections>
void EachSection(Sections&& sections, auto& barge) {
    sections.Section("Cranes", barge.cranes);
    sections.Section("Clump Weights", barge.clumpWeights);
    sections.Section("Legs", barge.legs);
    sections.Section("Ref Systems", barge.refSystems);
    sections.Section("Transducers", barge.transducers);
}

}  // namespace

void CBarge::ReadHead(CConfigFile& file) {
    ReadLines(file, *this);
}

void CBarge::WriteHead(CConfigFile& file) const {
    WriteLines(file, *this);
}

void CBarge::ReadSections(SectionFile& file) {
    EachSection(SectionReader(file), *this);
}

void CBarge::WriteSections(CConfigFile& file) const {
    EachSection(SectionWriter(file), *this);
}

const OffsetPoints* CBarge::OffsetsOf(std::int32_t type) const {
    switch (type) {
        case TRACK_LEG:
            return &legs;
        case TRACK_CRANE:
            return &cranes;
        case TRACK_TRANSDUCER:
            return &transducers;
        case TRACK_REF_SYSTEM:
            return &refSystems;
        case TRACK_CLUMP_WEIGHT:
            return &clumpWeights;
        default:
            return COutline::OffsetsOf(type);
    }
}

std::vector<std::int32_t> CBarge::OfferedTrackTypes() const {
    std::vector<std::int32_t> types = {TRACK_REFERENCE, TRACK_ANTENNA, TRACK_OFFSET,
                                       TRACK_LEG,       TRACK_CRANE,   TRACK_TRANSDUCER};
    if (!refSystems.empty()) types.push_back(TRACK_REF_SYSTEM);
    types.push_back(TRACK_CLUMP_WEIGHT);
    return types;
}

}  // namespace quillon
