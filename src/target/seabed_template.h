#pragma once

#include "target/outline.h"

namespace quillon {

/// A template that is set down on the sea bed.
class CTemplate : public COutline {
public:
    static constexpr std::string_view kExtension = "TPL";
    static constexpr std::string_view kLabel = "Template";

    using COutline::COutline;

    const OffsetPoints* OffsetsOf(std::int32_t type) const override;
    std::vector<std::int32_t> OfferedTrackTypes() const override;
    std::string_view Extension() const override { return kExtension; }

    OffsetPoints reflectors;
    OffsetPoints beacons;

protected:
    void ReadSections(SectionFile& file) override;
    void WriteSections(CConfigFile& file) const override;
};

}  // namespace quillon
