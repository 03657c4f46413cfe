#pragma once

#include "target/outline.h"

namespace quillon {

/// A template that is set down on the sea bed.
class CTemplate : public COutline {
public:
    using COutline::COutline;

    const OffsetPoints* OffsetsOf(std::int32_t type) const override;
    std::vector<std::int32_t> OfferedTrackTypes() const override;
    std::string_view Extension() const override { return "TPL"; }

    OffsetPoints reflectors;
    OffsetPoints beacons;

protected:
    void ReadSections(SectionFile& file) override;
    void WriteSections(CConfigFile& file) const override;
};

}  // namespace quillon
