#include "geodesy/ntv2.h"

#include "foundation/config_file.h"
#include "foundation/folders.h"

namespace quillon {

CNTv2::~CNTv2() {
    WriteSettings();
}

}  // namespace quillon
