#pragma once

#include <optional>

#include "platform/display_options.h"
#include "platform/property_grid.h"

namespace quillon {

class PasswordLock;

// The kinds of rows that panes are made of. The pickers have labels of their own.

/// A heading without a value.
class CMFCPropertyGridTitleProperty : public CMFCPropertyGridProperty {
public:
    explicit CMFCPropertyGridTitleProperty(std::string_view name) : CMFCPropertyGridProperty(name) {}
};

/// A check box.
class CMFCPropertyGridBool : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridBool(std::string_view name, bool value, std::string_view description, UINT id)
        : CMFCPropertyGridProperty(name, value, description, id) {}
};

/// The numbers that a row takes, bounds included.
struct NumberRange {
    double minimum;
    double maximum;
};

/// A number shown in a printf format such as "%7.1lfm". What is typed may carry the unit or not; any other text, and
/// numbers that are not finite, are refused: "1,5" must not become 1.
class CMFCPropertyGridDouble : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridDouble(std::string_view name, double value, std::string_view format, std::string_view description,
                           UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::NUMBER; }
    std::string FormatProperty() const override;
    bool Parse(std::string_view text, RowValue& parsed) const override;
    bool Accept(const RowValue& candidate) const override;
    std::string WhyRefused(std::string_view text) const override;
    /// Without a range every finite number is taken. A stored value beyond it is shown as it is.
    void SetRange(const NumberRange& taken) { range = taken; }

private:
    std::string numberFormat;
    std::optional<NumberRange> range;
};

/// A whole number, with bounds where it has a spin control. The edit mask, its template and the valid characters are
/// absent in all uses and have no arguments here.
class CMFCPropertyGridInteger : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridInteger(std::string_view name, std::int32_t value, std::string_view text,
                            std::string_view description, UINT id);
};

/// An angle in whole degrees.
class CMFCPropertyGridAngleInteger : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridAngleInteger(std::string_view name, std::int32_t value, std::string_view description, UINT id);
    std::string FormatProperty() const override;
    /// With or without the degree sign.
    bool Parse(std::string_view text, RowValue& parsed) const override;
};

/// A row that offers a fixed set of values and draws them in a colour.
class CPickerProperty : public CMFCPropertyGridProperty {
public:
    std::string FormatProperty() const override;
    bool Parse(std::string_view text, RowValue& parsed) const override;
    bool Accept(const RowValue& candidate) const override;
    /// The colour in which the offered values are drawn.
    virtual COLORREF GetColour() const { return drawnIn; }
    void SetColour(COLORREF newColour);

protected:
    void Follow(const CMFCPropertyGridProperty& fresh) override;
    CPickerProperty(std::string_view name, RowValue value, COLORREF colour, std::string_view description, UINT id);

private:
    COLORREF drawnIn;
};

/// One of the first `count` colours of the palette. A stored colour that the palette lacks is shown as its three parts.
class CMFCPropertyGridPrimaryColourProperty : public CPickerProperty {
public:
    CMFCPropertyGridPrimaryColourProperty(std::string_view name, COLORREF value, int count,
                                          std::string_view description, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::COLOUR; }
    std::vector<RowChoice> GetChoices() const override;
    std::string FormatProperty() const override;
    COLORREF GetColour() const override { return Get<std::uint32_t>(); }

private:
    int offered;
};

class CMFCPropertyGridFillStyleProperty : public CPickerProperty {
public:
    CMFCPropertyGridFillStyleProperty(FILL_STYLE value, COLORREF colour, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::FILL; }
    std::vector<RowChoice> GetChoices() const override;
};

class CMFCPropertyGridLineThicknessProperty : public CPickerProperty {
public:
    CMFCPropertyGridLineThicknessProperty(LINE_THICKNESS value, COLORREF colour, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::THICKNESS; }
    std::vector<RowChoice> GetChoices() const override;
};

/// One of `count` symbols, numbered from 0 (none).
class CMFCPropertyGridVectorSymbolProperty : public CPickerProperty {
public:
    CMFCPropertyGridVectorSymbolProperty(std::string_view name, VECTOR_SYMBOL value, int count,
                                         std::string_view description, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::SYMBOL; }
    std::vector<RowChoice> GetChoices() const override;

private:
    int offered;
};

class CMFCPropertyGridSymbolSizeProperty : public CPickerProperty {
public:
    CMFCPropertyGridSymbolSizeProperty(SYMBOL_SIZE value, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::SIZE; }
    std::vector<RowChoice> GetChoices() const override;
};

class CMFCPropertyGridLabelModeProperty : public CPickerProperty {
public:
    CMFCPropertyGridLabelModeProperty(SYMBOL_LABEL_MODE value, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::LABEL; }
    std::vector<RowChoice> GetChoices() const override;
};

class CMFCPropertyGridLabelPositionProperty : public CPickerProperty {
public:
    CMFCPropertyGridLabelPositionProperty(LABEL_POSITION value, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::POSITION; }
    std::vector<RowChoice> GetChoices() const override;
};

/// A row into which the password is typed. The row checks it, and neither shows nor keeps it; every entry is told to
/// the owner, who asks whether it was the right one. The description tells the operator of a wrong one, and how long to
/// wait after too many.
class CMFCPropertyGridPasswordProperty : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridPasswordProperty(Platform& platform, UINT id);
    static bool IsPasswordPresent(Platform& platform);
    ROW_KIND GetKind() const override { return ROW_KIND::PASSWORD; }
    /// Whether the last entry was right.
    bool IsPasswordOk() const { return right; }
    /// An empty text is no entry.
    bool Accept(const RowValue& candidate) const override;
    void OnEdited(RowValue value) override;

private:
    PasswordLock& passwords;
    bool right = false;
};

/// A row of two buttons; the value of a change is the button pressed, 0 or 1.
class CMFCPropertyGridDualButton : public CMFCPropertyGridProperty {
public:
    CMFCPropertyGridDualButton(std::string_view first, std::string_view second, std::string_view description, UINT id);
    ROW_KIND GetKind() const override { return ROW_KIND::DUAL_BUTTON; }
    const std::string& GetCaption(int button) const { return button == 0 ? firstCaption : secondCaption; }
    std::string FormatProperty() const override { return {}; }
    bool Accept(const RowValue& candidate) const override;

private:
    std::string firstCaption;
    std::string secondCaption;
};

}  // namespace quillon
