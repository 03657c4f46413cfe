#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/align.h"
#include "platform/geometry.h"
#include "platform/image_list.h"
#include "platform/palette.h"
#include "platform/window.h"

namespace quillon {

class CControl;

enum class CONTROL_CHANGE {
    LAYOUT,     ///< rectangle, shown, enabled
    CONTENT,    ///< items, rows, columns, captions
    VALUE,      ///< the value or look of one property row
    SELECTION,  ///< what is selected
    COLOURS,
    FOCUS  ///< it gives the keyboard back to its window
};

/// What shows a control: a binding of the host's toolkit, or a test. It must outlive its observing or stop it.
class ControlObserver {
public:
    virtual ~ControlObserver() = default;
    virtual void OnControlChanged(CControl& control, CONTROL_CHANGE change) = 0;
    /// The control is about to go; the observer must forget it.
    virtual void OnControlGone(CControl& control) = 0;
};

/// The state of a control. It draws nothing; one observer is told when it changes. Its owner is a window and outlives
/// it.
class CControl {
public:
    CControl(CWnd& owner, UINT id);
    virtual ~CControl();
    CControl(const CControl&) = delete;
    CControl& operator=(const CControl&) = delete;

    CWnd& GetOwner() const { return owner; }
    UINT GetDlgCtrlID() const { return id; }

    const tagRECT& GetRect() const { return rect; }
    void MoveWindow(const tagRECT& place);
    bool IsWindowVisible() const { return visible; }
    void ShowWindow(bool show);
    bool IsWindowEnabled() const { return enabled; }
    void EnableWindow(bool enable);

    void SetObserver(ControlObserver* newObserver) { observer = newObserver; }

protected:
    void Changed(CONTROL_CHANGE change);

private:
    CWnd& owner;
    UINT id;
    tagRECT rect;
    bool visible = true;
    bool enabled = true;
    ControlObserver* observer = nullptr;
};

/// A push button; a press reaches the owner's `OnCommand` with the button's id.
class CButton : public CControl {
public:
    CButton(CWnd& buttonOwner, UINT buttonId, std::string_view text) : CControl(buttonOwner, buttonId), caption(text) {}
    const std::string& GetWindowText() const { return caption; }
    void SetWindowText(std::string_view text);

private:
    std::string caption;
};

/// Texts of which one is chosen; a choice by the operator reaches the owner's `OnCommand`. -1 is no selection.
class CItemList : public CControl {
public:
    using CControl::CControl;

    void ResetContent();
    int AddString(std::string_view text);
    int GetCount() const { return static_cast<int>(items.size()); }
    const std::string& GetLBText(int index) const;
    /// The first item of exactly that text, or -1.
    int FindStringExact(std::string_view text) const;
    int GetCurSel() const { return selection; }
    /// An index that is no item's clears the selection.
    void SetCurSel(int index);

private:
    std::vector<std::string> items;
    int selection = -1;
};

/// A drop-down list.
class CComboBox : public CItemList {
public:
    using CItemList::CItemList;
};

/// A drop-down list with a picture before each text: the picture of the item's own index. The pictures are lent, and
/// outlive the control.
class CComboBoxEx : public CComboBox {
public:
    using CComboBox::CComboBox;
    void SetImageList(const CImageList* pictures);
    const CImageList* GetImageList() const { return images; }

private:
    const CImageList* images = nullptr;
};

/// What fills a table. Rows are made when they are asked for, so that a table over a million points costs nothing to
/// open. Every answer must stand up to a row that has gone in the meantime.
struct TableRows {
    int count = 0;
    std::function<std::string(int row, int column)> cell;
    /// Texts among which the widest of a column is sure to be; the columns are sized by these.
    std::function<std::vector<std::string>(int column)> widest;
    /// The tick before a row. Without it there are no boxes; what a click does to a tick is the owner's affair.
    std::function<bool(int row)> checked = {};
    /// The picture before a row, of the table's image list; -1 for none.
    std::function<int(int row)> image = {};
};

/// A report-style table with full-row selection and grid lines. A click on a row reaches `OnItemClick`.
class CListCtrl : public CControl {
public:
    struct Column {
        std::string header;
        int width = 0;
        ALIGN align = ALIGN::LEFT;  ///< of its cells and its header
    };

    using CControl::CControl;

    void DeleteAllItems();
    void DeleteAllColumns();
    void InsertColumn(std::string_view header, ALIGN align = ALIGN::LEFT);
    int GetColumnCount() const { return static_cast<int>(columns.size()); }
    const Column& GetColumn(int column) const;
    void SetColumnWidth(int column, int width);

    void SetRows(TableRows rows);
    int GetItemCount() const { return rows.count; }
    /// An index out of range raises InvalidArgument.
    std::string GetItemText(int row, int column) const;
    /// A text of the cell's own, which stands there until the rows are set anew.
    void SetItemText(int row, int column, std::string_view text);
    std::vector<std::string> GetWidestTexts(int column) const;

    /// Whether a row has a box with a tick, or a picture.
    bool HasChecks() const { return rows.checked != nullptr; }
    bool IsChecked(int row) const { return rows.checked && rows.checked(row); }
    int GetImage(int row) const { return rows.image ? rows.image(row) : -1; }
    /// The pictures are lent and outlive the control.
    void SetImageList(const CImageList* pictures);
    const CImageList* GetImageList() const { return images; }
    /// A tick or a cell shows something else in the same rows.
    void RedrawItems() { Changed(CONTROL_CHANGE::VALUE); }

    /// The row that is selected, of several the one selected last; -1 for none.
    int GetSelection() const { return selection; }
    void SetSelection(int row);
    /// Several rows at once, where the table takes that.
    void SetMultipleSelection(bool allow) { multiple = allow; }
    bool IsMultipleSelection() const { return multiple; }
    /// All selected rows from the top down.
    const std::vector<int>& GetSelectedRows() const { return selected; }
    void SetSelectedRows(std::vector<int> chosen, int last);

    COLORREF GetBkColor() const { return background; }
    COLORREF GetTextColor() const { return text; }
    void SetColours(COLORREF newBackground, COLORREF newText);
    COLORREF GetHeaderBkColor() const { return headerBackground; }
    COLORREF GetHeaderTextColor() const { return headerText; }
    void SetHeaderColours(COLORREF newBackground, COLORREF newText);

    virtual void OnItemClick(int row);
    /// A right click on a row, which is among the selected ones, or beside the rows (-1). Opens the platform's menu of
    /// tables.
    virtual void OnRightClick(int row);

private:
    std::vector<Column> columns;
    TableRows rows;
    std::map<std::pair<int, int>, std::string> ownTexts;  // by row and column
    const CImageList* images = nullptr;
    int selection = -1;
    std::vector<int> selected;
    bool multiple = false;
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = 0;
    COLORREF headerBackground = RGB(240, 240, 240);
    COLORREF headerText = 0;
};

}  // namespace quillon
