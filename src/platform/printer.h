#pragma once

#include <string_view>

#include "platform/dc.h"
#include "platform/geometry.h"

namespace quillon {

/// What the operator chose to print.
struct PrintJob {
    int firstPage = -1;  ///< from 1; -1 for all
    int lastPage = -1;   ///< -1 for all
    int copies = 1;
    bool collate = false;  ///< whole copies one after the other; counts only with more than one
};

/// A printer or a document that is printed into. Pages are drawn on a device of its own, in its pixels, between
/// StartPage and EndPage. A step that fails gives false.
class CPrinter {
public:
    virtual ~CPrinter() = default;

    /// Pixels of the paper.
    virtual tagSIZE PageSize() const = 0;
    virtual int PixelsPerInchAcross() const = 0;
    virtual int PixelsPerInchDown() const = 0;

    virtual bool StartDoc(std::string_view name) = 0;
    virtual bool StartPage() = 0;
    virtual bool EndPage() = 0;
    virtual void EndDoc() = 0;
    /// What pages are drawn on; also texts are measured by it, before the first page too.
    virtual CDrawDevice& Device() = 0;
};

}  // namespace quillon
