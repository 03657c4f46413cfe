// The first byte chooses the data order and the direction of the KPs; the rest is a pipeline file. Labels lie on the
// line, in the order of the KPs.

#include "feature_fuzz.h"
#include "features/pipeline.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    quillon::CPipeline pipeline(fuzz::Files());
    pipeline.dataOrder = data[0] % 4;
    pipeline.increasingKps = (data[0] & 0x80) == 0;
    pipeline.labelKps = true;
    pipeline.kpInterval = 100.0;
    fuzz::ReadBytes(pipeline, {reinterpret_cast<const char*>(data) + 1, size - 1});
    for (quillon::CPipeline::Index i = 0; i < pipeline.GetSize(); ++i) {
        fuzz::Require(fuzz::IsPosition(pipeline[i].Position()));
        fuzz::Require(i == 0 || !(pipeline[i].Position() == pipeline[i - 1].Position()));
    }
    const quillon::CKPListingArray& labels = pipeline.GetKpListing();
    fuzz::Require(labels.GetSize() <= 1'000'000);
    for (quillon::CKPListingArray::Index i = 0; i < labels.GetSize(); ++i) {
        fuzz::Require(labels[i].rotation >= 0 && labels[i].rotation < 360 && !labels[i].text.empty());
        if (i > 0) fuzz::Require((labels[i].kp > labels[i - 1].kp) == pipeline.increasingKps);
    }
    return 0;
}
