#pragma once

#include "background/dig.h"
#include "background/dxf.h"
#include "background/load_dlg.h"

namespace quillon {

/// Loads a digitised file whose path is set, and converts it before if it is a drawing or a text that has changed.
class CLoadDig : public CLoadDlg {
public:
    explicit CLoadDig(Platform& owner, CWnd* parent = nullptr);

    /// Before DoModal. `remake`: it is converted in any case.
    void SetDig(CDig* target, bool remake = false);

protected:
    std::string Caption() const override;
    bool Work() override;
    void OnTick() override { ShowBytes(); }

private:
    CDig* dig = nullptr;
    bool remakes = false;
    LoadProgress progress;
};

/// Loads a drawing whose path is set, and makes the DIG file beside it.
class CLoadDxf : public CLoadDlg {
public:
    explicit CLoadDxf(Platform& owner, CWnd* parent = nullptr);

    /// Before DoModal.
    void SetDxf(CDxf* target) { dxf = target; }

protected:
    std::string Caption() const override;
    bool Work() override;
    void OnTick() override { ShowBytes(); }

private:
    CDxf* dxf = nullptr;
    LoadProgress progress;
};

}  // namespace quillon
