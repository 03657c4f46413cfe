#pragma once

#include <array>
#include <deque>
#include <string_view>

#include "background/dtm.h"
#include "background/load_dlg.h"

namespace quillon {

/// Reads the array from the cache.
class CLoadDtmDlg : public CLoadDlg {
public:
    CLoadDtmDlg(Platform& owner, CDtm& target, CWnd* parent = nullptr);

protected:
    std::string Caption() const override;
    bool Work() override;
    void OnTick() override { ShowBytes(); }
    bool EndsByFlag() const override { return true; }

private:
    CDtm& dtm;
    DtmProgress progress;
};

/// What the two windows of an import share: figures beside their names.
class CDtmFiguresDlg : public CLoadDlg {
protected:
    CDtmFiguresDlg(Platform& owner, CDtm& target, tagSIZE size, CWnd* parent);

    bool EndsByFlag() const override { return true; }

    /// A name and, right of it, its figure with the id given.
    void AddFigure(UINT id, std::string_view name, int column, int row);
    void ShowFigure(UINT id, std::string_view figure);

    CDtm& dtm;
    DtmProgress progress;

private:
    std::deque<CStatic> texts;
};

/// First pass over the text files.
class CImportDtm : public CDtmFiguresDlg {
public:
    CImportDtm(Platform& owner, CDtm& target, CWnd* parent = nullptr);

protected:
    std::string Caption() const override;
    bool Work() override;
    void OnTick() override;
};

/// Second pass.
class CDtmDepths : public CDtmFiguresDlg {
public:
    CDtmDepths(Platform& owner, CDtm& target, CWnd* parent = nullptr);

protected:
    std::string Caption() const override;
    bool Work() override;
    void OnTick() override;
};

/// Loads the depth array behind the windows above: from its cache if that is whole and the text files haven't changed,
/// else by both passes. False if the operator quits. What the samples gave, also when they gave no array, is told by
/// the model's report.
bool LoadDtm(Platform& platform, CDtm* dtm, CWnd* parent = nullptr);

}  // namespace quillon
