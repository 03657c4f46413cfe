#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display/in_place_editors.h"
#include "frame/night_control.h"
#include "platform/controls.h"

namespace quillon {

/// Window styles of a grid list.
inline constexpr std::uint32_t LVS_EDITLABELS = 0x0200;    ///< a click on a cell opens its editor
inline constexpr std::uint32_t LVS_NOSORTHEADER = 0x8000;  ///< the captions are no buttons
inline constexpr std::uint32_t LVIF_TEXT = 0x0001;
inline constexpr std::uint32_t LVIF_IMAGE = 0x0002;
inline constexpr int LVN_ENDLABELEDIT = -106;

class CMyListCtrl;

/// What an editor says of its cell when it has ended; its address travels with UM_LIST_VALIDATE.
struct ListEndEdit {
    CMyListCtrl* list = nullptr;
    UINT controlId = 0;  ///< the editor's own
    int code = LVN_ENDLABELEDIT;
    std::uint32_t mask = LVIF_TEXT;
    int row = -1;
    int column = -1;
    std::string text = {};
    int image = 0;  ///< with LVIF_IMAGE
};

struct CellColours {
    COLORREF background = 0;
    COLORREF text = 0;
    friend bool operator==(const CellColours&, const CellColours&) = default;
};

/// A report-style table with colours of its own, whose cells can be edited one at a time by controls that float over
/// them. Which editor a cell gets hangs on lists of column numbers, which the owner fills. What an edit means is the
/// owner's affair: the control asks and tells it by the messages UM_LIST_..., each sent to the control itself and then
/// to its owner, and the new text stands in the cell until the rows are set anew.
///
/// At its end the control stores the width of each column in the settings file "List Control %d Column State".
///
///     table.ModifyStyle(LVS_EDITLABELS);
///     table.columns.numeric = {2, 3};
///     table.AddColumn(0, "Point", 0, 0, 0);
class CMyListCtrl : public CListCtrl, public NightControl {
public:
    CMyListCtrl(CWnd& owner, UINT id);
    ~CMyListCtrl() override;

    /// The columns that are edited in a way of their own; any other by a plain edit.
    struct EditColumns {
        std::vector<int> numeric, latitude, longitude, combo, button, readOnly;
    };
    EditColumns columns;

    std::uint32_t editStyle = 0x1C0;
    std::uint32_t buttonStyle = 0x50008000;
    std::uint32_t comboStyle = 0x508008C3;

    // Colours of rows and columns; 0 and false leave the table's own.
    bool itemDataColouring = false;  ///< a row's background is its item data
    COLORREF alternateRowColour = 0;
    COLORREF highlightBackground = 0;
    COLORREF highlightText = 0;
    COLORREF image1Colour = 0;     ///< of rows with the picture 1
    bool columnColouring = false;  ///< a column's background is the data of its header
    int highlightRow = -1;
    std::map<int, std::uint32_t> itemData;    ///< by row
    std::map<int, std::uint32_t> headerData;  ///< by column
    std::map<int, int> itemImage;             ///< by row

    int angleFormat = 0;  ///< of the angle editors

    void ModifyStyle(std::uint32_t add) { style |= add; }
    std::uint32_t GetStyle() const { return style; }

    /// Adds a column at the end, as wide as its title needs. `alignment`: 0 left, 1 right, 2 centre. The column's
    /// number, width and subitem are ignored.
    void AddColumn(int column, std::string_view title, int alignment, int width, int subitem);
    /// The most lines of a title, at least 1; a line feed at its very end begins none.
    int GetHeaderLines() const;

    /// 0 to 6; any other number changes nothing.
    void SetColourScheme(int number);
    int GetColourScheme() const { return scheme; }
    bool GetNightMode() const { return night; }
    void SetNightMode(bool on) override;

    CellColours ColoursOf(int row, int column) const;
    /// The background of the client area below the header, band by band; empty where it is all the table's own.
    struct Band {
        tagRECT place;
        COLORREF colour;
    };
    std::vector<Band> BackgroundBands() const;

    // Places, in pixels of the control. The header stands at the top.
    int GetHeaderHeight() const;
    int GetRowHeight() const;
    /// False beside the rows and behind the last column.
    bool HitTestCell(tagPOINT point, int& row, int& column) const;
    /// The cell's place, once the list has been scrolled sideways so that it can be seen.
    void CellRect(int column, int row, tagRECT& rect);
    /// False if there is no such row; otherwise it is in view.
    bool EnsureVisible(int row);
    int GetTopRow() const { return topRow; }
    int GetScroll() const { return scroll; }

    // Editors. Each is given back; the combo null where it wasn't opened.
    CInPlaceCombo* ShowInPlaceCombo(int row, int column, const std::vector<std::string>& choices,
                                    const CImageList* images, std::string_view text, int selection);
    CInPlaceButton* ShowInPlaceButton(int row, int column, std::string_view text);
    CInPlaceEdit* ShowInPlaceEdit(int row, int column, std::string_view text, std::string_view validCharacters);
    CInPlaceAngleEdit* ShowInPlaceAngleEdit(int row, int column, std::string_view text, int type, int format);
    /// Those with a window over this list.
    std::vector<CInPlaceEditor*> OpenEditors() const;

    // The operator's acts: for bindings and tests.

    void OnLButtonDown(tagPOINT point, bool shift = false, bool control = false);
    /// The list has scrolled to this row at its top and by so many pixels sideways. An open editor ends first.
    void OnScroll(int newTopRow, int newScroll);
    /// The keyboard comes to the list, away from its editors.
    void TakeFocus();

    // The editors'.

    /// An editor has ended.
    void OnEndLabelEdit(const ListEndEdit& end);
    void OnCommand(UINT control);
    void OnEditorChanged() { Changed(CONTROL_CHANGE::VALUE); }

protected:
    /// The messages that go to the control itself first.
    virtual LRESULT OnListMessage(const MSG&) { return 0; }

private:
    LRESULT SendToBoth(UINT message, WPARAM wParam, LPARAM lParam);
    bool EditSpecialColumn(int row, int column);
    void EditText(int row, int column);
    void EditCombo(int row, int column);
    COLORREF ColumnBackground(int column) const;
    int ColumnLeft(int column) const;
    void WriteColumnState() const;

    std::uint32_t style = 0;
    int buttonRow = -1;
    int buttonColumn = -1;
    int scheme = 1;
    bool night = false;
    int topRow = 0;
    int scroll = 0;
};

}  // namespace quillon
