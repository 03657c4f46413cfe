#pragma once

#include "panes/outline_page.h"

namespace quillon {

/// The tab "Shadow": the outline drawn at the target, and which of its points is to come there.
class CShadowPage : public COutlinePage {
public:
    using COutlinePage::COutlinePage;
    std::string_view GetLabel() const override { return "Shadow"; }
    void Store(const CMFCPropertyGridProperty& row) override;

    void ShowAlignment();
    void ShowType();
    void ShowOffsets();
    void ShowOffset();
    void ShowTracked();

private:
    void BuildRows() override;
    Choices TypeChoices() const;
    Choices OffsetChoices() const;
    tagXY OffsetOfTracked() const;
    void StoreType(const CMFCPropertyGridProperty& row);
    void StoreColour(const CMFCPropertyGridProperty& row);
};

}  // namespace quillon
