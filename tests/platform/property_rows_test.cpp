#include "platform/property_rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr UINT kListId = 1201;

/// A window with a property list, which notes every change that reaches it as "list id, row name = value shown".
class PaneWindow : public CWnd {
public:
    explicit PaneWindow(Platform& owner) : CWnd(owner) {}
    LRESULT OnMessage(const MSG& message) override {
        if (message.message != AFX_WM_PROPERTY_CHANGED) return 0;
        const auto& row = *reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam);
        log.push_back(Format("%zu, %s = %s", message.wParam, row.GetName().c_str(), row.FormatProperty().c_str()));
        return 0;
    }
    std::vector<std::string> log;
    CMyMFCPropertyGridCtrl list{*this, kListId};
};

class PropertyRows : public ::testing::Test {
protected:
    template <class Row, class... Arguments>
    Row& Add(Arguments&&... arguments) {
        return group.Add<Row>(std::forward<Arguments>(arguments)...);
    }
    /// What the row shows after the text was typed; "(refused)" if nothing was stored and nobody told.
    std::string Type(CMFCPropertyGridProperty& row, std::string_view text) {
        const std::size_t told = pane.log.size();
        const RowValue before = row.GetValue();
        if (user::Type(pane.list, row, text)) {
            EXPECT_EQ(pane.log.size(), told + 1);
            EXPECT_EQ(pane.log.back(), Format("%u, %s = ", kListId, row.GetName().c_str()) + row.FormatProperty());
            return row.FormatProperty();
        }
        EXPECT_EQ(pane.log.size(), told);
        EXPECT_EQ(row.GetValue(), before);
        return "(refused)";
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    PaneWindow pane{platform};
    CMFCPropertyGridProperty& group = pane.list.AddGroup("Group");
};

TEST_F(PropertyRows, NumbersAreShownInTheirFormat) {
    const struct {
        const char* format;
        double value;
        const char* shown;
    } rows[] = {{"%7.1lfm", 12.34, "   12.3m"},
                {"%4.0lfm", 250.0, " 250m"},
                {"%7.3lf", -1.0005, " -1.000"},
                {"%.1lf", 1e9, "1000000000.0"},
                {"%7.1lfm", 1234567.89, "1234567.9m"},
                {"%06.2lf", -1.5, "-01.50"},
                {"%+.1lf", 2.0, "+2.0"},
                {"%-7.1lfm", 2.0, "2.0    m"},
                {"%lf", 0.5, "0.500000"},
                {"KP %.3lf km", 1.5, "KP 1.500 km"},
                {"%5.1lf%%", 12.5, " 12.5%"},
                {"%.0lf", -0.4, "-0"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Add<CMFCPropertyGridDouble>("n", row.value, row.format, "", 1).FormatProperty(), row.shown);
    }
}

TEST_F(PropertyRows, NumbersAreTypedWithOrWithoutTheirUnit) {
    auto& row = Add<CMFCPropertyGridDouble>("Clearance", 1.0, "%7.1lfm", "", 1);
    EXPECT_EQ(row.GetKind(), ROW_KIND::NUMBER);
    const struct {
        const char* text;
        const char* shown;
    } rows[] = {{"25", "   25.0m"},      {"  25.0m", "   25.0m"}, {"25 M ", "   25.0m"}, {"+.5", "    0.5m"},
                {"-3.25e1", "  -32.5m"}, {"1e-999", "    0.0m"},  {"", "(refused)"},     {"m", "(refused)"},
                {"--5", "(refused)"},    {"+-5", "(refused)"},    {"1,5", "(refused)"},  {"1.2.3", "(refused)"},
                {"5 ft", "(refused)"},   {"1e999", "(refused)"},  {"inf", "(refused)"},  {"nan(1)", "(refused)"},
                {"0x10", "(refused)"},   {"5e", "(refused)"},     {".", "(refused)"},    {"12 34", "(refused)"}};
    for (const auto& typed : rows) EXPECT_EQ(Type(row, typed.text), typed.shown) << typed.text;
    EXPECT_FALSE(user::Edit(pane.list, row, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(user::Edit(pane.list, row, std::int32_t{5}));
    EXPECT_TRUE(user::Edit(pane.list, row, 5.0));
}

TEST_F(PropertyRows, TheReasonOfARefusalStandsInTheDescription) {
    auto& width = Add<CMFCPropertyGridDouble>("Width", -3.0, "%7.1lfm", "Of the corridor", 1);
    width.SetRange({0, 100'000});
    auto& rings = Add<CMFCPropertyGridInteger>("Rings", 3, "", "", 2);
    rings.EnableSpinControl(true, 0, 10);
    auto& shown = Add<CMFCPropertyGridProperty>("Display", true, "", 3u);
    const struct {
        CMFCPropertyGridProperty& row;
        const char* text;
        const char* reason;
    } rows[] = {{width, "-0.1", "Type a number from 0m to 100000m."},
                {width, "1e6", "Type a number from 0m to 100000m."},
                {width, "1,5", "Type a point, not a comma, before the decimals."},
                {width, "wide", "That is no number."},
                {rings, "11", "Type a whole number from 0 to 10."},
                {shown, "maybe", "Choose one of the values offered."}};
    for (const auto& typed : rows) {
        EXPECT_EQ(Type(typed.row, typed.text), "(refused)") << typed.text;
        EXPECT_EQ(pane.list.GetDescription().name, typed.row.GetName());
        EXPECT_EQ(pane.list.GetDescription().text, typed.reason);
        EXPECT_TRUE(pane.list.GetDescription().refusal);
    }
    EXPECT_EQ(width.FormatProperty(), "   -3.0m") << "a stored value is shown as it is";
    pane.list.SetCurSel(&width);
    EXPECT_EQ(pane.list.GetDescription().text, "Of the corridor");
    Type(width, "-1");
    EXPECT_EQ(Type(width, "100000"), "100000.0m");
    EXPECT_EQ(pane.list.GetDescription().text, "Of the corridor");
}

TEST_F(PropertyRows, WholeNumbersKeepTheBoundsOfTheSpinControl) {
    auto& row = Add<CMFCPropertyGridInteger>("Rings", 3, "", "", 2);
    EXPECT_EQ(Type(row, "2147483647"), "2147483647");
    row.EnableSpinControl(true, -1, 10);
    EXPECT_EQ(row.GetSpinBounds(), std::pair(-1, 10));
    const struct {
        const char* text;
        const char* shown;
    } rows[] = {{" 10 ", "10"},       {"+0", "0"},         {"-1", "-1"},
                {"-2", "(refused)"},  {"11", "(refused)"}, {"2147483648", "(refused)"},
                {"5.5", "(refused)"}, {"", "(refused)"},   {"+-1", "(refused)"},
                {"x", "(refused)"}};
    for (const auto& typed : rows) EXPECT_EQ(Type(row, typed.text), typed.shown) << typed.text;
}

TEST_F(PropertyRows, ChecksTextsAndOptions) {
    auto& check = Add<CMFCPropertyGridBool>("Display", true, "", 1);
    EXPECT_EQ(check.GetKind(), ROW_KIND::CHECK);
    EXPECT_EQ(Type(check, "False"), "False");
    EXPECT_EQ(Type(check, "no"), "(refused)");

    auto& text = Add<CMFCPropertyGridProperty>("Name", std::string("a"), "", 1u);
    EXPECT_EQ(text.GetKind(), ROW_KIND::TEXT);
    EXPECT_EQ(Type(text, ""), "");
    text.AllowEdit(false);
    EXPECT_EQ(Type(text, "b"), "(refused)");

    auto& options = Add<CMFCPropertyGridProperty>("Data Order", std::string("Eng, Nng"), "", 1u);
    options.AddOption("Eng, Nng");
    options.AddOption("Nng, Eng");
    EXPECT_EQ(options.GetKind(), ROW_KIND::OPTIONS);
    EXPECT_EQ(Type(options, "Nng, Eng"), "Nng, Eng");
    EXPECT_EQ(Type(options, "free text"), "free text") << "an option list takes other texts until it is told not to";
    options.AllowEdit(false);
    EXPECT_EQ(Type(options, "other"), "(refused)");
    EXPECT_FALSE(user::Edit(pane.list, options, std::string("other")));
    EXPECT_EQ(Type(options, "Eng, Nng"), "Eng, Nng");
    EXPECT_EQ(options.GetOption(1), "Nng, Eng");
    EXPECT_THROW(options.GetOption(2), InvalidArgument);
}

TEST_F(PropertyRows, PickersOfferTheirValuesAndShowOthersAsTheyAre) {
    const struct {
        CPickerProperty& row;
        ROW_KIND kind;
        std::size_t offered;
        const char* pick;
        RowValue stored;
        RowValue outside;
        const char* outsideShown;
    } rows[] = {{Add<CMFCPropertyGridFillStyleProperty>(kFillNone, 0u, 4u), ROW_KIND::FILL, 8, "Solid",
                 std::int32_t{65535}, std::int32_t{17}, "17"},
                {Add<CMFCPropertyGridLineThicknessProperty>(1, 0u, 5u), ROW_KIND::THICKNESS, 8, "10", std::int32_t{10},
                 std::int32_t{7}, "7"},
                {Add<CMFCPropertyGridVectorSymbolProperty>("Symbol", 1, 13, "", 6u), ROW_KIND::SYMBOL, 13, "Symbol 12",
                 std::int32_t{12}, std::int32_t{13}, "13"},
                {Add<CMFCPropertyGridSymbolSizeProperty>(1, 7u), ROW_KIND::SIZE, 6, "Very Large", std::int32_t{5},
                 std::int32_t{-1}, "-1"},
                {Add<CMFCPropertyGridLabelModeProperty>(0, 8u), ROW_KIND::LABEL, 5, "Name + Position", std::int32_t{3},
                 std::int32_t{5}, "5"},
                {Add<CMFCPropertyGridLabelPositionProperty>(0, 9u), ROW_KIND::POSITION, 6, "Centre", std::int32_t{5},
                 std::int32_t{99}, "99"},
                {Add<CMFCPropertyGridPrimaryColourProperty>("Colour", 0u, 28, "", 3u), ROW_KIND::COLOUR, 28, "White",
                 std::uint32_t{RGB(192, 192, 192)}, std::uint32_t{RGB(1, 2, 3)}, "1, 2, 3"}};
    for (const auto& picker : rows) {
        SCOPED_TRACE(picker.pick);
        EXPECT_EQ(picker.row.GetKind(), picker.kind);
        EXPECT_EQ(picker.row.GetChoices().size(), picker.offered);
        EXPECT_EQ(Type(picker.row, picker.pick), picker.pick);
        EXPECT_EQ(picker.row.GetValue(), picker.stored);
        EXPECT_EQ(Type(picker.row, "no such choice"), "(refused)");
        EXPECT_FALSE(user::Edit(pane.list, picker.row, picker.outside));
        picker.row.SetValue(picker.outside);  // as stored in a file
        EXPECT_EQ(picker.row.FormatProperty(), picker.outsideShown);
    }
}

TEST_F(PropertyRows, ButtonsTellWhichWasPressed) {
    auto& row = Add<CMFCPropertyGridDualButton>("Copy", "Paste", "", 12u);
    EXPECT_EQ(row.GetCaption(0) + row.GetCaption(1), "CopyPaste");
    EXPECT_TRUE(user::Edit(pane.list, row, std::int32_t{1}));
    EXPECT_TRUE(user::Edit(pane.list, row, std::int32_t{1})) << "pressed once more";
    EXPECT_EQ(row.Get<std::int32_t>(), 1);
    EXPECT_FALSE(user::Edit(pane.list, row, std::int32_t{2}));
    EXPECT_EQ(Type(row, "1"), "(refused)");
    EXPECT_EQ(pane.log.size(), 2u);
    EXPECT_EQ(row.FormatProperty(), "");
}

TEST_F(PropertyRows, RefuseTheOperatorWhileLockedDisabledOrHidden) {
    auto& row = Add<CMFCPropertyGridInteger>("n", 1, "", "", 1u);
    const auto refused = [&] { return Type(row, "2") == "(refused)"; };
    row.SetLock(true);
    EXPECT_TRUE(refused());
    row.SetValue(std::int32_t{5});
    EXPECT_EQ(row.Get<std::int32_t>(), 5) << "the program may";
    row.SetLock(false);
    row.Enable(false);
    EXPECT_TRUE(refused());
    row.Enable();
    row.Show(false);
    EXPECT_TRUE(refused());
    row.Show();
    pane.list.EnableWindow(false);
    EXPECT_TRUE(refused());
    pane.list.EnableWindow(true);
    pane.list.ShowWindow(false);
    EXPECT_TRUE(refused());
    pane.list.ShowWindow(true);
    EXPECT_FALSE(refused());
    EXPECT_FALSE(user::Edit(pane.list, group, RowValue())) << "a group has no value";
    EXPECT_THROW(row.SetValue(true), InvalidArgument);
    EXPECT_THROW(row.Get<double>(), InvalidArgument);
}

TEST_F(PropertyRows, ThePasswordRowChecksAndKeepsNothing) {
    EXPECT_FALSE(CMFCPropertyGridPasswordProperty::IsPasswordPresent(platform));
    ASSERT_TRUE(platform.Passwords().Set("anchor"));
    EXPECT_TRUE(CMFCPropertyGridPasswordProperty::IsPasswordPresent(platform));
    auto& row = Add<CMFCPropertyGridPasswordProperty>(platform, 15u);
    EXPECT_EQ(row.GetKind(), ROW_KIND::PASSWORD);
    EXPECT_FALSE(row.IsPasswordOk());
    EXPECT_EQ(Type(row, "cable"), "");
    EXPECT_FALSE(row.IsPasswordOk());
    EXPECT_EQ(pane.list.GetDescription().text, "Wrong password.");
    EXPECT_EQ(Type(row, "anchor"), "");
    EXPECT_TRUE(row.IsPasswordOk());
    EXPECT_FALSE(pane.list.GetDescription().refusal);
    EXPECT_EQ(row.GetValue(), RowValue(std::string()));
    EXPECT_FALSE(row.IsModified());
    EXPECT_EQ(Type(row, ""), "(refused)");
    for (int i = 0; i < 3; ++i) Type(row, "cable");
    EXPECT_EQ(Type(row, "anchor"), "") << "told to the owner like any other entry";
    EXPECT_FALSE(row.IsPasswordOk()) << "too soon";
    EXPECT_EQ(pane.list.GetDescription().text, "Too many wrong passwords. Wait for 2 s.");
    platform.Advance(std::chrono::seconds(2));
    Type(row, "anchor");
    EXPECT_TRUE(row.IsPasswordOk());
}

TEST_F(PropertyRows, AHandlerMayRebuildTheList) {
    struct Rebuilding : CWnd {
        using CWnd::CWnd;
        LRESULT OnMessage(const MSG&) override {
            list.RemoveAll();
            return 0;
        }
        CMyMFCPropertyGridCtrl list{*this, 1};
    } window(platform);
    auto& row = window.list.AddGroup("g").Add<CMFCPropertyGridBool>("Display", true, "", 1u);
    window.list.SetCurSel(&row);
    EXPECT_TRUE(user::Type(window.list, row, "False"));
    EXPECT_EQ(window.list.GetPropertyCount(), 0);
    EXPECT_EQ(window.list.GetDescription().name, "");
}

}  // namespace
}  // namespace quillon
