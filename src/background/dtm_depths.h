#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "platform/array_stamp.h"
#include "platform/big_array.h"

namespace quillon {

/// The cells of a depth model. They are filled once, by the load that makes them; from then on whoever draws them may
/// hold on to them with `Share`, also when the model has dropped them or got others.
class DtmDepths {
public:
    DtmDepths() = default;
    DtmDepths(BigArray<std::int32_t> filled)  // NOLINT(google-explicit-constructor)
        : cells(std::make_shared<BigArray<std::int32_t>>(std::move(filled))) {}

    explicit operator bool() const { return cells && *cells; }
    std::int32_t* Data() { return cells ? cells->Data() : nullptr; }
    const std::int32_t* Data() const { return cells ? std::as_const(*cells).Data() : nullptr; }
    std::size_t Size() const { return cells ? cells->Size() : 0; }
    const std::int32_t& operator[](std::size_t index) const { return std::as_const(*cells)[index]; }
    std::span<std::int32_t> Span() { return {Data(), Size()}; }
    std::span<const std::int32_t> Span() const { return {Data(), Size()}; }

    std::shared_ptr<const void> Share() const { return cells; }
    /// A number that no other cells of this run have.
    std::uint64_t GetStamp() const { return stamp.Get(); }

private:
    std::shared_ptr<BigArray<std::int32_t>> cells;
    ArrayStamp stamp;
};

}  // namespace quillon
