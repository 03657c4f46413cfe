#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/text.h"

namespace quillon {

/// A list of the columns of a file, counted from 1, with "Skip" ahead of them.
class CExcelColumnComboBox : public CComboBox {
public:
    using CComboBox::CComboBox;
    static constexpr int kColumns = 26;

    /// Shows a column of the file, from 0; a negative one as "Skip".
    void SetColumn(std::int32_t newColumn) {
        if (mustRefill) Refill();
        column = newColumn;
        SetCurSel(column < 0 ? 0 : column + 1);
    }
    /// The column that is chosen. "Skip" makes it negative in such a way that it can be told from which it came.
    std::int32_t TakeColumn() {
        const bool chosen = IsWindowEnabled() && GetCurSel() > 0;
        if (chosen) {
            column = GetCurSel() - 1;
        } else if (column >= 0) {
            column = -2 - column;
        }
        return column;
    }

private:
    void Refill() {
        ResetContent();
        AddString("Skip");
        for (int i = 1; i <= kColumns; ++i) AddString(Format("%d", i));
        mustRefill = false;
    }

    std::int32_t column = -1;
    bool mustRefill = true;
};

}  // namespace quillon
