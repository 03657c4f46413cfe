#pragma once

#include "background/dxf.h"
#include "foundation/settings_lines.h"

namespace quillon {

/// The settings of a drawing. They stand in a file of their own, and in those of vessels and templates.
template <class Lines>
void EachLine(Lines& lines, RecordOf<CDxf> auto& dxf) {
    lines.Bool("Use", dxf.use);
    lines.Bool("Show Text", dxf.showText);
    lines.Double("Scale", dxf.scale, 3);
}

}  // namespace quillon
