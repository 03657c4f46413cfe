#include "display/grid_list_ctrl.h"

#include <gtest/gtest.h>

#include <array>

#include "foundation/folders.h"
#include "frame/messages.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

std::string NameOf(UINT message) {
    const std::string name(RegisteredMessageName(message));
    return name.substr(0, name.find('-'));
}

/// The owner of a list: it notes what it is sent, and answers as a test has told it.
class Owner : public CWnd {
public:
    using CWnd::CWnd;
    LRESULT OnMessage(const MSG& message) override {
        std::string line = NameOf(message.message);
        if (message.message == UM_LIST_VALIDATE) {
            const auto& end = *reinterpret_cast<const ListEndEdit*>(message.lParam);
            line +=
                Format(" %zu %d,%d '", message.wParam, end.row, end.column) + end.text + Format("' mask %u", end.mask);
        } else {
            line += Format(" %zx", message.wParam);
        }
        log.push_back(line);
        if (message.message == UM_LIST_START_EDIT && refuse) *reinterpret_cast<bool*>(message.lParam) = false;
        if (message.message == UM_LIST_SET_ITEMS) *reinterpret_cast<Texts*>(message.lParam) = choices;
        return 0;
    }
    Texts Taken() { return std::exchange(log, {}); }

    Texts log;
    Texts choices;
    bool refuse = false;
};

/// Columns of 100 pixels: plain, numeric, latitude, choices, a button, one that is never edited.
class GridListTest : public ::testing::Test {
protected:
    GridListTest() : platform(drives.Root(), "Host"), owner(platform) {
        drives.MakeFolder("C:\\MySettings");
        list = MakeList(12020);
    }
    std::unique_ptr<CMyListCtrl> MakeList(UINT id) {
        auto made = std::make_unique<CMyListCtrl>(owner, id);
        made->ModifyStyle(LVS_EDITLABELS);
        made->columns = {
            .numeric = {1}, .latitude = {2}, .longitude = {}, .combo = {3}, .button = {4}, .readOnly = {5}};
        for (int i = 0; i < 6; ++i) {
            made->AddColumn(i, Format("C%d", i), 0, 0, 0);
            made->SetColumnWidth(i, 100);
        }
        made->SetRows(
            {.count = 4, .cell = [](int row, int column) { return Format("%d.%d", row, column); }, .widest = {}});
        made->MoveWindow({0, 0, 600, 400});
        return made;
    }
    void Click(int row, int column, bool shift = false, bool control = false) {
        const int y = list->GetHeaderHeight() + row * list->GetRowHeight() + 1;
        list->OnLButtonDown({column * 100 + 5, y}, shift, control);
    }
    template <class Editor>
    Editor* Open() {
        const auto open = list->OpenEditors();
        return open.size() == 1 ? dynamic_cast<Editor*>(open.front()) : nullptr;
    }
    void Type(std::string_view keys) {
        for (const char key : keys) Open<CInPlaceText>()->OnChar(key);
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    Owner owner;
    std::unique_ptr<CMyListCtrl> list;
};

TEST_F(GridListTest, ClickTypeAndReturn) {
    Click(2, 0);
    ASSERT_NE(Open<CInPlaceEdit>(), nullptr);
    EXPECT_EQ(Open<CInPlaceEdit>()->GetEdit().Selected(), "2.0");
    EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_START_EDIT 20000"}));
    Type("new");
    EXPECT_EQ(list->GetItemText(2, 0), "2.0");
    Open<CInPlaceEdit>()->OnReturn();
    EXPECT_EQ(list->GetItemText(2, 0), "new");
    EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_VALIDATE 12020 2,0 'new' mask 1"}));
    platform.Messages().Pump();
    EXPECT_TRUE(list->OpenEditors().empty());

    // Escape writes the old text back, and that is told too.
    Click(2, 0);
    Type("other");
    Open<CInPlaceEdit>()->OnEscape();
    EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_START_EDIT 20000", "UM_LIST_VALIDATE 12020 2,0 'new' mask 1"}));
    list->SetRows({.count = 4, .cell = [](int, int) { return std::string("read anew"); }, .widest = {}});
    EXPECT_EQ(list->GetItemText(2, 0), "read anew");
}

// The first editor's text goes into its own cell; its window stays until its close arrives, so none opens meanwhile.
TEST_F(GridListTest, AClickElsewhereEndsTheEdit) {
    Click(0, 0);
    Type("x");
    owner.Taken();
    Click(1, 1);
    EXPECT_EQ(list->GetItemText(0, 0), "x");
    EXPECT_EQ(list->GetItemText(1, 1), "1.1");
    EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_VALIDATE 12020 0,0 'x' mask 1", "UM_LIST_START_EDIT 10001"}));
    platform.Messages().Pump();
    EXPECT_TRUE(list->OpenEditors().empty());
    // Scrolling ends an edit as well.
    Click(1, 0);
    list->OnScroll(1, 0);
    EXPECT_EQ(owner.Taken().back(), "UM_LIST_VALIDATE 12020 1,0 '1.0' mask 1");
}

TEST_F(GridListTest, ClicksThatOpenNothing) {
    struct Row {
        const char* what;
        int row, column;
        bool shift, control;
        int selected;
        Texts sent;
    };
    owner.choices = {};
    owner.refuse = true;
    const std::vector<Row> rows = {
        {"right of the last column", 0, 6, false, false, -1, {}},
        {"below the last row", 4, 0, false, false, -1, {}},
        {"Shift only selects", 1, 0, true, false, 1, {}},
        {"Ctrl too", 1, 0, false, true, 1, {}},
        {"refused", 2, 0, false, false, 2, {"UM_LIST_START_EDIT 20000"}},
        {"read-only", 2, 5, false, false, 2, {}},
        {"no choices", 3, 3, false, false, 3, {"UM_LIST_SET_ITEMS 30003", "UM_LIST_IMAGE_LIST 30003"}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        list->SetSelection(-1);
        Click(row.row, row.column, row.shift, row.control);
        EXPECT_EQ(list->GetSelection(), row.selected);
        EXPECT_EQ(owner.Taken(), row.sent);
        EXPECT_TRUE(list->OpenEditors().empty());
    }
}

TEST_F(GridListTest, WhatCanBeTypedAndPasted) {
    Click(0, 1);
    Type("4x2");
    EXPECT_EQ(Open<CInPlaceEdit>()->GetEdit().text, "42");
    EXPECT_EQ(platform.Calls(), Texts({"beep"}));
    for (const auto& [clipboard, text] :
         std::vector<std::pair<const char*, const char*>>{{"12a", "42"}, {"-7.5", "42-7.5"}, {"", "42-7.5"}}) {
        platform.SetClipboardText(clipboard);
        Open<CInPlaceEdit>()->OnChar(kCtrlV);
        EXPECT_EQ(Open<CInPlaceEdit>()->GetEdit().text, text);
    }
    Open<CInPlaceEdit>()->OnReturn();
    platform.Messages().Pump();

    Click(0, 0);
    platform.SetClipboardText("7");
    Type(std::string("ab") + kCtrlV);
    EXPECT_EQ(Open<CInPlaceEdit>()->GetEdit().text, "ab") << "nothing can be pasted into a plain edit";
    Open<CInPlaceEdit>()->OnReturn();
    platform.Messages().Pump();

    list->angleFormat = 1;
    list->SetItemText(0, 2, "52\xB0 30'.0000000N");
    Click(0, 2);
    Type("41s");
    EXPECT_EQ(Open<CInPlaceAngleEdit>()->GetEdit().text, "41\xB0 00'.0000000S");
}

TEST_F(GridListTest, ChoicesAndTheButton) {
    for (const auto& [count, cells] : {std::pair{9, 19}, std::pair{10, 11}}) {
        owner.choices.clear();
        for (int i = 0; i < count; ++i) owner.choices.push_back(Format("%d.3 choice", i));
        Click(2, 3);
        CInPlaceCombo* const combo = Open<CInPlaceCombo>();
        ASSERT_NE(combo, nullptr);
        EXPECT_EQ(combo->GetCurSel(), 2) << "the first that begins with the cell's text";
        EXPECT_EQ(combo->GetRect().Height(), (1 + cells) * list->GetRowHeight());
        owner.Taken();
        combo->OnSelect(1);
        EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_VALIDATE 12020 2,3 '1.3 choice' mask 1"}));
        platform.Messages().Pump();
        list->SetItemText(2, 3, "2.3");
    }
    Click(1, 4);
    ASSERT_NE(Open<CInPlaceButton>(), nullptr);
    const int height = list->GetRowHeight();
    EXPECT_EQ(Open<CInPlaceButton>()->GetRect().left, 500 - height) << "a square at the right end";
    Open<CInPlaceButton>()->OnPress();
    EXPECT_EQ(owner.Taken(), Texts({"UM_LIST_BUTTON_PRESS 1"}));
}

TEST_F(GridListTest, TheEndOfOneListDeletesTheEditorsOfAll) {
    const auto other = MakeList(7);
    Click(0, 0);
    EXPECT_EQ(list->OpenEditors().size(), 1u);
    list.reset();
    list = MakeList(8);
    Click(3, 0);
    EXPECT_NE(Open<CInPlaceEdit>(), nullptr);
    list->SetColumnWidth(1, 77);
    list.reset();
    EXPECT_EQ(drives.Read(GetSettingsPath(platform.Files(), "List Control 8 Column State")),
              "1 = 100\r\n2 = 77\r\n3 = 100\r\n4 = 100\r\n5 = 100\r\n6 = 100\r\n");
    list = MakeList(9);
}

TEST_F(GridListTest, ColoursOfCells) {
    struct Row {
        const char* what;
        std::function<void()> set;
        CellColours at11;
    };
    const std::vector<Row> rows = {
        {"table", [] {}, {0xD6D6D6, 0}},
        {"odd row", [&] { list->alternateRowColour = 0x010101; }, {0x010101, 0}},
        {"picture", [&] { list->itemImage[1] = 1, list->image1Colour = 0x020202; }, {0x020202, 0}},
        {"item data", [&] { list->itemDataColouring = true, list->itemData[1] = 0x808080; }, {0x808080, 0xFFFFFF}},
        {"highlight", [&] { list->highlightRow = 1, list->highlightBackground = 3, list->highlightText = 4; }, {3, 4}},
        {"column's number", [&] { list->columnColouring = true, list->headerData[1] = 1; }, {0xD6D6D6, 0}},
        {"column", [&] { list->headerData[1] = 0x050505; }, {0x050505, 0}}};
    for (const Row& row : rows) {
        row.set();
        EXPECT_EQ(list->ColoursOf(1, 1), row.at11) << row.what;
    }
    list->SetNightMode(true);
    list->SetColourScheme(5);
    list->SetColourScheme(7);
    EXPECT_EQ(list->GetColourScheme(), 5);
    EXPECT_EQ(list->GetHeaderBkColor(), 0x000040u);
    list->AddColumn(0, "two\nlines\n", 0, 0, 0);
    EXPECT_EQ(list->GetHeaderLines(), 2);
}

}  // namespace
}  // namespace quillon
