#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/controls.h"
#include "platform/errors.h"

namespace quillon {

/// The value of a property row. Which alternative it holds is the row's own and never changes.
using RowValue = std::variant<std::monostate, bool, std::int32_t, std::uint32_t, double, std::string>;

/// How a row is shown and edited: what a binding needs to choose an editor and a picture.
enum class ROW_KIND {
    HEADING,  ///< a group, or a heading without a value
    TEXT,
    CHECK,    ///< a bool
    OPTIONS,  ///< one of a list of texts
    NUMBER,
    INTEGER,
    ANGLE,
    COLOUR,
    FILL,
    THICKNESS,
    SYMBOL,
    SIZE,
    LABEL,
    POSITION,
    PASSWORD,
    DUAL_BUTTON
};

/// One of the values that a picker row offers.
struct RowChoice {
    RowValue value;
    std::string text;
    friend bool operator==(const RowChoice&, const RowChoice&) = default;
};

class CMFCPropertyGridCtrl;
class CMFCPropertyGridProperty;

/// The description shown under the list: the selected row's name and its text.
struct RowDescription {
    std::string name;
    std::string text;
    bool refusal = false;  ///< the text says why the last entry was not taken
};

/// A row of a property list, or a group of rows. Its id comes back with the change notification; 0 stands for a row
/// without a reaction.
///
/// The program sets values by `SetValue`, which notifies nobody but the view. What the operator does comes through
/// UserActions, which asks `Accept`.
class CMFCPropertyGridProperty {
public:
    /// A group.
    explicit CMFCPropertyGridProperty(std::string_view name);
    /// Text, bool, whole number or option list, by the type of `value`.
    CMFCPropertyGridProperty(std::string_view name, RowValue value, std::string_view description, UINT id);
    virtual ~CMFCPropertyGridProperty();
    CMFCPropertyGridProperty(const CMFCPropertyGridProperty&) = delete;
    CMFCPropertyGridProperty& operator=(const CMFCPropertyGridProperty&) = delete;

    virtual ROW_KIND GetKind() const;
    const std::string& GetName() const { return rowName; }
    const std::string& GetDescription() const { return rowDescription; }
    UINT GetData() const { return rowId; }
    bool IsGroup() const { return group; }

    const RowValue& GetValue() const { return rowValue; }
    /// Raises InvalidArgument if the value is of another type than the row's.
    void SetValue(RowValue newValue);
    /// The list that the row stands in; null as long as it stands in none.
    const CMFCPropertyGridCtrl* GetList() const { return owner; }

    /// The value as the row's type; InvalidArgument if it is another.
    template <class T>
    const T& Get() const {
        if (const T* held = std::get_if<T>(&rowValue)) return *held;
        throw InvalidArgument("property row of another type");
    }
    /// Differs from the value that the row was made with; such rows are shown in bold where the list marks them.
    bool IsModified() const { return rowValue != original; }

    /// What the value column shows.
    virtual std::string FormatProperty() const;
    /// The values offered; empty where the row is typed into or checked.
    virtual std::vector<RowChoice> GetChoices() const;
    /// Turns typed text into a value of this row. False if it is none, and the row keeps its value.
    virtual bool Parse(std::string_view text, RowValue& parsed) const;
    /// Whether the operator may set this value now.
    virtual bool Accept(const RowValue& candidate) const;
    /// Why typed text is no value of this row, in a sentence for the operator.
    virtual std::string WhyRefused(std::string_view text) const;
    /// The operator has set this value, which the row accepted. Keeps it.
    virtual void OnEdited(RowValue value);

    void AddOption(std::string_view option);
    void RemoveAllOptions();
    const std::string& GetOption(int index) const;
    int GetOptionCount() const { return static_cast<int>(options.size()); }

    void AllowEdit(bool allow = true) { typing = allow; }
    /// Whether text may be typed into the row, as against chosen.
    bool IsAllowEdit() const { return typing; }
    void Enable(bool enable = true);
    bool IsEnabled() const { return enabled; }
    void SetLock(bool lock);
    bool IsLocked() const { return locked; }
    void Show(bool show = true);
    bool IsVisible() const { return shown; }

    void EnableSpinControl(bool enable, int minimum, int maximum);
    bool HasSpinControl() const { return spin; }
    std::pair<int, int> GetSpinBounds() const { return {spinMinimum, spinMaximum}; }

    /// Returns the row added.
    CMFCPropertyGridProperty& AddSubItem(std::unique_ptr<CMFCPropertyGridProperty> row);
    int GetSubItemsCount() const { return static_cast<int>(subItems.size()); }
    CMFCPropertyGridProperty& GetSubItem(int index) const;

    template <class Row, class... Arguments>
    Row& Add(Arguments&&... arguments) {
        return static_cast<Row&>(AddSubItem(std::make_unique<Row>(std::forward<Arguments>(arguments)...)));
    }

protected:
    /// Tells the view that the row looks different.
    void Redraw();
    /// Tells the operator why an entry was of no use.
    void Refuse(std::string reason);
    /// Takes over what a row of its own kind shows.
    virtual void Follow(const CMFCPropertyGridProperty& fresh);

private:
    friend class CMFCPropertyGridCtrl;
    void SetOwner(CMFCPropertyGridCtrl* list);
    bool IsLike(const CMFCPropertyGridProperty& other) const;

    std::string rowName;
    RowValue rowValue;
    RowValue original;
    std::string rowDescription;
    UINT rowId = 0;
    bool group = false;
    bool typing = true;
    bool enabled = true;
    bool locked = false;
    bool shown = true;
    bool spin = false;
    int spinMinimum = 0;
    int spinMaximum = 0;
    std::vector<std::string> options;
    std::vector<std::unique_ptr<CMFCPropertyGridProperty>> subItems;
    CMFCPropertyGridCtrl* owner = nullptr;
};

/// Colours of a property list, in the order in which they are set.
struct PropertyColours {
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = 0;
    COLORREF groupBackground = RGB(235, 235, 235);
    COLORREF groupText = 0;
    COLORREF descriptionBackground = RGB(235, 235, 235);
    COLORREF descriptionText = 0;
    COLORREF line = RGB(235, 235, 235);
    friend bool operator==(const PropertyColours&, const PropertyColours&) = default;
};

/// A list of property rows in groups. A change by the operator is sent to the owner as AFX_WM_PROPERTY_CHANGED.
class CMFCPropertyGridCtrl : public CControl {
public:
    CMFCPropertyGridCtrl(CWnd& owner, UINT id);
    ~CMFCPropertyGridCtrl() override;

    void RemoveAll();
    /// Returns the row added.
    CMFCPropertyGridProperty& AddProperty(std::unique_ptr<CMFCPropertyGridProperty> row);
    template <class Row, class... Arguments>
    Row& Add(Arguments&&... arguments) {
        return static_cast<Row&>(AddProperty(std::make_unique<Row>(std::forward<Arguments>(arguments)...)));
    }
    /// Brings the list up to date with what its rows show: `build` fills the list, empty, as it should be. Where these
    /// are the same rows as before, those stay, with their locks, the selection and an edit that is open, and show the
    /// new values; else the new ones take their place.
    void Renew(const std::function<void()>& build);
    /// Adds a group of that name.
    CMFCPropertyGridProperty& AddGroup(std::string_view name);
    int GetPropertyCount() const { return static_cast<int>(rows.size()); }
    /// The `index`th group or row at the top; InvalidArgument beyond.
    CMFCPropertyGridProperty& GetProperty(int index) const;
    /// The row with that id (not 0), or null.
    CMFCPropertyGridProperty* FindItemByData(UINT data) const;

    void EnableHeaderCtrl(bool enable, std::string_view left, std::string_view right);
    bool IsHeaderEnabled() const { return header; }
    const std::string& GetHeader(int column) const { return column == 0 ? headerLeft : headerRight; }
    void SetVSDotNetLook(bool set);
    bool IsVSDotNetLook() const { return dotNetLook; }
    void EnableDescriptionArea(bool enable);
    bool IsDescriptionArea() const { return descriptionArea; }
    void MarkModifiedProperties(bool mark);
    bool IsMarkModified() const { return markModified; }
    void SetGroupNameFullWidth(bool set);
    bool IsGroupNameFullWidth() const { return groupNameFullWidth; }
    void SetCustomColors(const PropertyColours& newColours);
    const PropertyColours& GetCustomColors() const { return colours; }

    /// The row that the description area tells of; null for none.
    CMFCPropertyGridProperty* GetCurSel() const { return selected; }
    void SetCurSel(CMFCPropertyGridProperty* row);
    RowDescription GetDescription() const;
    /// The row didn't take what was typed: it becomes the selected one, and the description tells the reason until
    /// another row is selected or an entry is taken.
    void Refuse(CMFCPropertyGridProperty& row, std::string reason);
    void ClearRefusal();

private:
    friend class CMFCPropertyGridProperty;
    void Tell(CONTROL_CHANGE change);

    std::vector<std::unique_ptr<CMFCPropertyGridProperty>> rows;
    CMFCPropertyGridProperty* selected = nullptr;
    std::string refusal;
    PropertyColours colours;
    std::string headerLeft;
    std::string headerRight;
    bool header = true;
    bool dotNetLook = false;
    bool descriptionArea = false;
    bool markModified = false;
    bool groupNameFullWidth = false;
    bool quiet = false;  ///< the rows are being built aside
};

/// The property list of the panes: it also holds the night flag and the number of the colour scheme in force.
class CMyMFCPropertyGridCtrl : public CMFCPropertyGridCtrl {
public:
    using CMFCPropertyGridCtrl::CMFCPropertyGridCtrl;
    bool night = false;
    int colourScheme = 0;
};

}  // namespace quillon
