#pragma once

#include "target/outline.h"

namespace quillon {

/// The vessel.
class CBarge : public COutline {
public:
    static constexpr std::string_view kExtension = "VSL";
    static constexpr std::string_view kLabel = "Vessel";

    using COutline::COutline;

    const OffsetPoints* OffsetsOf(std::int32_t type) const override;
    /// Reference systems are offered only by a vessel that has some.
    std::vector<std::int32_t> OfferedTrackTypes() const override;
    std::string_view Extension() const override { return kExtension; }

    double draft = 0.0;            ///< metres
    double waterLineToZero = 0.0;  ///< from the water line up to the zero of the offsets, metres
    OffsetPoints cranes;
    OffsetPoints clumpWeights;
    OffsetPoints legs;
    OffsetPoints refSystems;
    OffsetPoints transducers;

protected:
    void ReadHead(CConfigFile& file) override;
    void WriteHead(CConfigFile& file) const override;
    void ReadSections(SectionFile& file) override;
    void WriteSections(CConfigFile& file) const override;
};

}  // namespace quillon
