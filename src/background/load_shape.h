#pragma once

#include "background/load_dlg.h"
#include "background/shape_file_list.h"

namespace quillon {

/// Loads a shape file whose path is set. A file that can't be opened ends it as Quit does.
class CLoadShape : public CLoadDlg {
public:
    CLoadShape(Platform& owner, CShape& target, CWnd* parent = nullptr);

    /// Of the last load.
    const ShapeReport& GetReport() const { return shape.report; }

protected:
    std::string Caption() const override;
    bool Work() override { return LoadShape(shape, progress, &shape.report); }
    void OnTick() override;
    bool EndsByFlag() const override { return true; }

private:
    CShape& shape;
    LoadProgress progress;
};

/// For LoadShapeFile and its kin: each load behind a window over the parent.
ShapeLoad LoadShapeInWindow(Platform& owner, CWnd* parent = nullptr);

}  // namespace quillon
