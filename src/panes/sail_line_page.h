#pragma once

#include "panes/outline_page.h"

namespace quillon {

/// The tab "Sail Line": which line the object follows.
class CSailLinePage : public COutlinePage {
public:
    using COutlinePage::COutlinePage;
    std::string_view GetLabel() const override { return "Sail Line"; }
    void Store(const CMFCPropertyGridProperty& row) override;

    void ShowChoices();
    void ShowLine();

private:
    void BuildRows() override;
    Choices LineChoices() const;
};

}  // namespace quillon
