#include "foundation/edit_double.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "foundation/typed_keys.h"

namespace quillon {
namespace {

class RecordingHost : public EditHost {
public:
    void PostEditUpdate() override { ++updates; }
    void PostFocus(bool in) override { log += in ? "in " : "out "; }
    void FocusParent() override { log += "parent "; }
    std::string ClipboardText() override { return clipboard; }
    void SetClipboardText(std::string_view text) override { clipboard = text; }

    int updates = 0;
    std::string log, clipboard;
};

void Play(CEditDouble& edit, std::string_view keys) {
    PlayKeys(
        keys, [&](char key) { edit.OnChar(key); },
        [&](std::string_view name) {
            if (name == "ALL") edit.SetSelection(0, edit.GetText().size());
            if (name == "CUT") edit.OnChar(kCtrlX);
            if (name == "COPY") edit.OnChar(kCtrlC);
            if (name == "PASTE") edit.OnChar(kCtrlV);
            if (name == "DEL") edit.OnDelete();
            if (name == "INS") edit.OnInsert();
            if (name == "IN") edit.OnSetFocus();
            if (name == "OUT") edit.OnKillFocus();
        },
        [&](std::size_t from, std::size_t to) { edit.SetSelection(from, to); });
}

const tagNumberStyle kFree{};
const tagNumberStyle kFixed{.fixedFormat = true};
const tagNumberStyle kFreeSigned{.forceSign = true};
const tagNumberStyle kFixedSigned{.forceSign = true, .fixedFormat = true};
const tagNumberStyle kWhole{.maxLength = 5, .decimals = 0, .intDigits = 4};
const tagNumberStyle kSmall{.maxLength = 9, .decimals = 3, .intDigits = 5};
const tagNumberStyle kUnsigned{.allowSign = false};

struct Scenario {
    tagNumberStyle style;
    double value;
    const char* keys;
    const char* expected;  // "|" is the caret, "[]" the selection
};

void Check(const Scenario& row, const char* clipboard = "") {
    RecordingHost host;
    host.clipboard = clipboard;
    CEditDouble edit(host);
    edit.style = row.style;
    edit.SetDouble(row.value);
    Play(edit, row.keys);
    EXPECT_EQ(ShowEdit(edit.GetEdit()), row.expected) << row.value << " typed " << row.keys;
}

TEST(EditDouble, FreeFormat) {
    const Scenario rows[] = {
        // Typed over everything, as after the focus came.
        {kFree, 5.25, "<IN>431200.5<OUT>", "431200.5|00"},
        {kFree, 5.25, "<IN>-12", "-12|"},
        {kFree, MISSING_VALUE, "<IN>12.3456", "12.345|"},
        {kFree, MISSING_VALUE, "7", "7|"},
        {kFree, 0.0, "<ALL>123456789", "12345678|"},
        {kFree, 0.0, "<ALL>-123456789", "-1234567|"},  // the sign takes a digit's room
        {kSmall, 0.0, "<ALL>123456", "12345|"},
        {kWhole, 0.0, "<ALL>12345.", "1234|"},
        {kFree, 0.0, "<ALL>x1e5,", "15|"},
        {kFree, 5.25, "<IN>x", "[5.250]"},
        // Inside the text digits are overtyped; ahead of the point they push it.
        {kFree, 123.456, "<1>9", "19|3.456"},
        {kFree, 123.456, "<3>9", "1239|.456"},
        {kFree, 123.456, "<4>9", "123.9|56"},
        {kFree, 123.456, "<7>9", "123.456|"},
        {kFree, 12345678.0, "<8>9", "12345678|.000"},
        // The point.
        {kFree, 0.0, "<ALL>.5", "0.5|"},
        {kFree, 0.0, "<ALL>-.5", "-0.5|"},
        {kFreeSigned, 0.0, "<ALL>.5", "+0.5|"},
        {kFree, 1234.567, "<2>.", "12.|456"},
        {kFree, 1234.567, "<4>.", "1234.|567"},
        {kFree, 1234.567, "<6>.", "1234.5|67"},
        {kFree, 123.456, "<0>.", "0.|234"},
        {kFree, -123.456, "<0>.", "-0.|234"},
        {kFree, 0.0, "<ALL>12345<2>.", "12.|345"},
        {kFree, 0.0, "<ALL>123456<1>.", "1.|234"},
        // Signs.
        {kFree, 5.25, "<0>-", "-|5.250"},
        {kFree, 5.25, "<0>+", "|5.250"},
        {kFree, 5.25, "<1>-", "5|.250"},
        {kFree, 12345678.0, "<0>-", "|12345678.000"},
        {kUnsigned, 5.25, "<0>-", "|5.250"},
        {kFreeSigned, 5.25, "<0>-", "-|5.250"},
        {kFreeSigned, -5.25, "<0>+", "+|5.250"},
        {kFreeSigned, -5.25, "<0>7", "+7|.250"},
        {kFreeSigned, 5.25, "<ALL>7", "+7|"},
        // Backspace, space, selections.
        {kFree, 123.456, "<BS>", "|123.456"},
        {kFree, 123.456, "<7><BS><BS>", "123.4|"},
        {kFree, 123.456, "<4><BS>", "123|456"},
        {kFree, 1.5, "<1><BS>", "|0.500"},
        {kFree, -1.5, "<1><BS>", "-|1.500"},
        {kFree, -1.5, "<2><BS>", "-|0.500"},
        {kFree, 123.456, "<1-3><BS>", "1|.456"},
        {kFree, 123.456, "<1-3>7", "17|.456"},
        {kFree, 123.456, "<0-3>7", "7|.456"},
        {kFree, 123456.789, "<6-7>7", "1234567|8"},
        {kFree, 123.456, "<2> ", "123.|456"},
        {kFree, 123.456, "<6>   ", "123.456|"},
        {kFree, -5.0, "<0-1><BS>", "|5.000"},
        // Without an effect on "n/a".
        {kFree, MISSING_VALUE, "<IN> <BS><DEL><CUT>x<OUT>", "[n/a]"},
    };
    for (const Scenario& row : rows) Check(row);
}

TEST(EditDouble, FixedFormat) {
    const Scenario rows[] = {
        {kFixed, 5.25, "", "|00000005.250"},
        {kFixed, 5.25, "<IN>12.5", "00000012.5|00"},
        {kFixed, 5.25, "12.", "00000012.|250"},
        {kFixed, -5.25, "<3>.", "-0000000.|250"},
        {kFixed, -1234567.0, "<3>.", "-0000012.|000"},
        {kFixed, 5.25, "<0>.", "00000000.|250"},
        {kFixed, 5.25, "<10>.", "00000005.|250"},
        {kFixed, 5.25, "123456789", "12345678.9|50"},
        {kFixed, 5.25, "<11>78", "00000005.257|"},
        {kFixed, 5.25, "<7>6", "00000006.|250"},
        {kFixed, 5.25, "<8>6", "00000005.6|50"},
        {kFixed, 5.25, "<9><BS>", "0000000|0.250"},
        {kFixed, 5.25, "<12><BS><BS>", "00000005.2|00"},
        {kFixed, -5.25, "<1><BS>", "|00000005.250"},
        {kFixedSigned, -5.25, "<1><BS>", "|+0000005.250"},
        {kFixedSigned, -5.25, "9", "+9|000005.250"},
        {kFixedSigned, 5.25, "-", "-|0000005.250"},
        {kFixed, 5.25, "-+", "-|0000005.250"},
        {kFixed, 5.25, "<1>-", "0|0000005.250"},
        {kFixed, 5.25, "<7> ", "00000005.|250"},
        {kFixed, 123.456, "<5-10><BS>", "00000|000.056"},
        {kFixed, 123.456, "<5-10>7", "000007|00.056"},
        {kFixed, MISSING_VALUE, "7", "7|0000000.000"},
        {{.maxLength = 4, .decimals = 0, .fixedFormat = true}, 12.0, "<0>9", "|0012"},  // 999 is the most it shows
        {{.maxLength = 5, .decimals = 3, .fixedFormat = true}, 1.0, "<0>-", "|1.000"},  // no room for a sign
    };
    for (const Scenario& row : rows) Check(row);
}

TEST(EditDouble, Cut) {
    const Scenario rows[] = {
        {kFree, 12345678.125, "<ALL><CUT>", "|0"},  // the full width
        {kFreeSigned, 1234567.125, "<ALL><CUT>", "|+0"},
        {kFixed, 5.25, "<ALL><CUT>", "|00000000.000"},
        {kFree, 123.456, "<ALL><CUT>", "|"},
        {kFree, 123.456, "<0-3><CUT>", "|0.456"},
        {kFree, -123.456, "<1-4><CUT>", "-|0.456"},
        {kFree, 123456.789, "<6-7><CUT>", "123456|78"},
        {kFree, 123.456, "<2><CUT>", "12|3.456"},
        {kFixed, 123.456, "<6-8><CUT>", "000001|00.456"},
        {kFixed, 123.456, "<6-8><DEL>", "000001|00.456"},
        {kFree, 123.456, "<DEL>", "|123.456"},
        {kFree, 123.456, "<1-3><DEL>", "1|.456"},
    };
    for (const Scenario& row : rows) Check(row);
    RecordingHost host;
    host.clipboard = "kept";
    CEditDouble edit(host);
    edit.SetDouble(123.456);
    Play(edit, "<2><CUT><COPY>");
    EXPECT_EQ(host.clipboard, "kept");
    Play(edit, "<0-3><CUT>");
    EXPECT_EQ(host.clipboard, "123");
    EXPECT_EQ(edit.GetValue(), 0.456);
    Play(edit, "<ALL><COPY>");
    EXPECT_EQ(host.clipboard, "0.456");
}

TEST(EditDouble, Paste) {
    struct Row {
        const char* clipboard;
        Scenario scenario;
    };
    const Row rows[] = {
        {"42.5", {kFree, 123.456, "<ALL><PASTE>", "42.500|"}},
        {" 42.5\r\n", {kFree, 123.456, "<ALL><INS>", "42.500|"}},
        {"9", {kFree, 123.456, "<1-3><PASTE>", "19.456|"}},
        {"42.5 m", {kFree, MISSING_VALUE, "<PASTE>", "42.500|"}},
        {"123456789012345", {kFree, 1.0, "<ALL><PASTE>", "99999999.999|"}},
        {"-7", {kFree, 1.0, "<ALL><PASTE>", "-7.000|"}},
        {"-7", {kUnsigned, 1.0, "<ALL><PASTE>", "[1.000]"}},
        {"1e3", {kFree, 1.0, "<ALL><PASTE>", "1000.000|"}},
        // What is no number leaves everything alone.
        {"hello", {kFree, 1.0, "<ALL><PASTE>", "[1.000]"}},
        {"", {kFree, 1.0, "<ALL><PASTE>", "[1.000]"}},
        {"-", {kFree, MISSING_VALUE, "<PASTE>", "|n/a"}},
        // Over the text, within its width.
        {"77", {kFixed, 123.456, "<1><PASTE>", "07700123.456|"}},
        {"7777", {kFixed, 123.456, "<9><PASTE>", "00000123.777|"}},
        {"7.5", {kFixed, 123.456, "<6><PASTE>", "00000017.546|"}},
        {"7.5", {kFixed, 123.456, "<ALL><PASTE>", "00000007.500|"}},
        {"7.5", {kFixed, MISSING_VALUE, "<PASTE>", "00000007.500|"}},
    };
    for (const Row& row : rows) Check(row.scenario, row.clipboard);
}

TEST(EditDouble, Bounds) {
    RecordingHost host;
    CEditDouble edit(host);
    edit.checkMax = edit.checkMin = true;
    edit.minimum = 1.0;
    edit.maximum = 50.0;
    edit.SetDouble(5.0);
    Play(edit, "<ALL>0");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "[5.000]");
    Play(edit, "<ALL>51");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "5|");
    Play(edit, "0.5");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "50.|");
    host.clipboard = "50.5";
    Play(edit, "<ALL><PASTE>");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "[50.]");
    EXPECT_EQ(edit.GetValue(), 50.0);
}

// The unit stays behind the number, whatever is typed.
TEST(EditDouble, Unit) {
    RecordingHost host;
    CEditDouble edit(host);
    edit.suffix = " m";
    edit.SetDouble(5.25);
    EXPECT_EQ(edit.GetText(), "5.250 m");
    Play(edit, "<IN>12");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "12| m");
    Play(edit, "<5>3");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "123| m");
    Play(edit, "<OUT>");
    EXPECT_EQ(edit.GetText(), "123.000 m");
    edit.SetDouble(MISSING_VALUE);
    Play(edit, "<IN>7");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "7| m");
}

TEST(EditDouble, TellsItsParentOfEveryChange) {
    RecordingHost host;
    CEditDouble edit(host);
    EXPECT_EQ(edit.GetText(), "n/a");
    EXPECT_EQ(edit.GetValue(), MISSING_VALUE);
    edit.SetDouble(1.23456);
    EXPECT_EQ(edit.GetText(), "1.235");
    EXPECT_EQ(edit.GetEditLimit(), 12);
    EXPECT_EQ(host.updates, 0);

    Play(edit, "<IN> <0> ");  // all taken out, which is a change
    EXPECT_EQ(host.updates, 1);
    edit.SetDouble(1.23456);
    Play(edit, "<0> x<BS>");  // the second takes the 1
    EXPECT_EQ(host.updates, 2);
    EXPECT_TRUE(edit.dirty);
    edit.SetDouble(2.0);
    EXPECT_FALSE(edit.dirty);
    Play(edit, "<ALL>12.50");  // 1, 12, 12., 12.5, 12.50: three new numbers
    EXPECT_EQ(host.updates, 5);
    EXPECT_EQ(edit.GetValue(), 12.5);

    edit.SetDouble(MISSING_VALUE);
    EXPECT_EQ(edit.GetText(), "n/a");
    Play(edit, "<ALL>0");  // nothing there is not the same as zero
    EXPECT_EQ(host.updates, 6);
}

TEST(EditDouble, FocusReadOnlyAndDisabled) {
    RecordingHost host;
    CEditDouble edit(host);
    edit.SetDouble(5.25);
    Play(edit, "<IN>");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "[5.250]");
    Play(edit, "7<OUT>");
    EXPECT_EQ(edit.GetText(), "7.000");
    EXPECT_EQ(host.log, "in out ");

    // Narrowed meanwhile: what no longer fits gives way to zero.
    edit.style.maxLength = 4;
    Play(edit, "<IN>");
    EXPECT_EQ(ShowEdit(edit.GetEdit()), "[0.000]");
    edit.style.maxLength = 12;

    edit.SetDouble(5.25);
    edit.readOnly = true;
    host.clipboard = "9";
    Play(edit, "<ALL>7<BS><CUT><PASTE><DEL><INS>");
    EXPECT_EQ(edit.GetText(), "5.250");
    Play(edit, "<COPY>");
    EXPECT_EQ(host.clipboard, "5.250");
    const auto menu = edit.ContextMenu();
    ASSERT_EQ(menu.size(), 3u);
    EXPECT_EQ(menu[0].id, 100);
    EXPECT_EQ(menu[1].text, "Copy");
    EXPECT_EQ(menu[2].id, 102);
    EXPECT_EQ(menu[0].enabled + 2 * menu[1].enabled + 4 * menu[2].enabled, 2);
    edit.readOnly = false;
    edit.OnCommand(EDIT_CUT);
    EXPECT_EQ(edit.GetText(), "");
    edit.OnCommand(EDIT_PASTE);
    EXPECT_EQ(edit.GetText(), "5.250");

    edit.Enable(false);
    EXPECT_EQ(edit.GetText(), "n/a");
    EXPECT_TRUE(edit.ContextMenu().empty());
    Play(edit, "7<IN><OUT>");
    edit.SetDouble(8.0);
    EXPECT_EQ(edit.GetText(), "n/a");
    edit.Enable(true);
    EXPECT_EQ(edit.GetText(), "8.000");
}

TEST(EditDouble, OverAListCell) {
    struct Row {
        char key;
        EDIT_END end;
    };
    for (const Row& row :
         {Row{kEscape, EDIT_END::CANCELLED}, Row{kEnter, EDIT_END::ENTERED}, Row{kTab, EDIT_END::TABBED}}) {
        RecordingHost host;
        CEditDouble edit(host);
        edit.SetDouble(1.0);
        EXPECT_FALSE(edit.OnChar(row.key));  // a dialogue's key, as long as it floats over no cell
        edit.inPlace = true;
        edit.readOnly = true;
        EXPECT_TRUE(edit.OnChar(row.key));
        EXPECT_EQ(edit.GetEnd(), row.end);
        EXPECT_EQ(host.log, "parent ");
        edit.OnSetFocus();
        EXPECT_EQ(edit.GetEnd(), EDIT_END::NONE);
    }
    RecordingHost host;
    CEditDouble edit(host);
    edit.inPlace = edit.enterAsTab = true;
    edit.OnChar(kEnter);
    EXPECT_EQ(edit.GetEnd(), EDIT_END::TABBED);
    EXPECT_EQ(InPlaceWidth(80, 200), 85);
    EXPECT_EQ(InPlaceWidth(198, 200), 200);
}

// Whatever is typed: the caret stays inside, the text within its width, and the number survives the loss of focus.
TEST(EditDouble, AnyKeysKeepTheNumber) {
    std::mt19937 random(5);
    constexpr std::string_view kKeys = "01234567890123456789....--++ \b\b\b\x03\x16\x18x";
    const tagNumberStyle styles[] = {kFree,
                                     kFixed,
                                     kFreeSigned,
                                     kFixedSigned,
                                     kWhole,
                                     kSmall,
                                     kUnsigned,
                                     {.maxLength = 4, .decimals = 0, .fixedFormat = true},
                                     {.maxLength = 3, .decimals = 3},
                                     {.maxLength = 6, .decimals = 4, .intDigits = 3},
                                     {.maxLength = 0}};
    for (int round = 0; round < 1100; ++round) {
        RecordingHost host;
        CEditDouble edit(host);
        edit.style = styles[static_cast<std::size_t>(round) % std::size(styles)];
        const auto longest = static_cast<std::size_t>(edit.style.maxLength);
        if (round % 3) edit.SetDouble(static_cast<double>(random() % 100000) / 100.0 - 400.0);
        const std::size_t shown = edit.GetText().size();
        for (int i = 0; i < 150; ++i) {
            if (random() % 6 == 0) edit.SetSelection(random() % 16, random() % 16);
            edit.OnChar(kKeys[random() % kKeys.size()]);
            if (random() % 20 == 0) edit.OnDelete();
            const tagEditText& now = edit.GetEdit();
            ASSERT_LE(now.from, now.to);
            ASSERT_LE(now.to, now.text.size());
            ASSERT_LE(now.text.size(), std::max(longest + 4, shown)) << now.text;
            if (edit.style.fixedFormat && now.text != "n/a") {
                ASSERT_EQ(now.text.size(), longest) << now.text;
            }
        }
        const double typed = edit.GetValue();
        const std::string text = edit.GetText();
        edit.OnKillFocus();
        if (edit.style.maxLength > 0 && text != "n/a") {
            ASSERT_NEAR(edit.GetValue(), typed, 1e-9) << text;
            ASSERT_NEAR(Atof(edit.GetText()), typed, 0.5001 * std::pow(10.0, -edit.style.decimals)) << text;
        }
    }
}

}  // namespace
}  // namespace quillon
