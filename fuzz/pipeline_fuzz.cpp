// The first byte chooses the data order, the direction of the KPs and how many labels lie between the least and the
// greatest of them; the rest is a pipeline file. Labels lie on the line, in the order of the KPs.

#include <algorithm>
#include <limits>

#include "feature_fuzz.h"
#include "features/pipeline.h"

namespace {

constexpr int kMostLabels = 32;

/// So that there are few labels: a million of them, which a few bytes can ask for, leave no time to look elsewhere.
double IntervalFor(const quillon::CPipeline& pipeline, int labels) {
    double least = std::numeric_limits<double>::infinity(), most = -least;
    for (const quillon::PipelineDef& point : pipeline) {
        least = std::min(least, point.kp);
        most = std::max(most, point.kp);
    }
    return (most - least) / labels;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    quillon::CPipeline pipeline(fuzz::Files());
    pipeline.dataOrder = data[0] % 4;
    pipeline.increasingKps = (data[0] & 0x80) == 0;
    pipeline.labelKps = false;
    fuzz::ReadBytes(pipeline, {reinterpret_cast<const char*>(data) + 1, size - 1});
    for (quillon::CPipeline::Index i = 0; i < pipeline.GetSize(); ++i) {
        fuzz::Require(fuzz::IsPosition(pipeline[i].Position()));
        fuzz::Require(i == 0 || !(pipeline[i].Position() == pipeline[i - 1].Position()));
    }
    pipeline.labelKps = true;
    pipeline.kpInterval = IntervalFor(pipeline, 1 + (data[0] >> 2) % kMostLabels);
    pipeline.ComputeKpListing();
    const quillon::CKPListingArray& labels = pipeline.GetKpListing();
    fuzz::Require(labels.GetSize() <= kMostLabels + 2);
    for (quillon::CKPListingArray::Index i = 0; i < labels.GetSize(); ++i) {
        fuzz::Require(labels[i].rotation >= 0 && labels[i].rotation < 360 && !labels[i].text.empty());
        if (i > 0) fuzz::Require((labels[i].kp > labels[i - 1].kp) == pipeline.increasingKps);
    }
    return 0;
}
