#include "background/load_dig.h"

#include "background/dig_load.h"
#include "foundation/paths.h"
#include "frame/messages.h"

namespace quillon {

CLoadDig::CLoadDig(Platform& owner, CWnd* parent) : CLoadDlg(owner, progress, UM_DIG_THREAD, kLoadDlgSize, parent) {}

void CLoadDig::SetDig(CDig* target, bool remake) {
    dig = target;
    remakes = remake;
}

std::string CLoadDig::Caption() const {
    return "Loading DIG " + NameOfPath(dig->fileName) + ".........";
}

bool CLoadDig::Work() {
    return remakes ? RemakeDigFile(*dig, progress) : LoadDigFile(*dig, progress);
}

CLoadDxf::CLoadDxf(Platform& owner, CWnd* parent) : CLoadDlg(owner, progress, UM_DXF_THREAD, kLoadDlgSize, parent) {}

std::string CLoadDxf::Caption() const {
    return "Loading DXF " + NameOfPath(dxf->fileName) + ".........";
}

bool CLoadDxf::Work() {
    return LoadDxfFile(*dxf, progress);
}

}  // namespace quillon
