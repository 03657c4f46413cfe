// The two editors under any keys. First byte: which editor and its form; then pairs of an action and its argument.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "foundation/angle_edit.h"
#include "foundation/angle_text.h"
#include "foundation/edit_double.h"

namespace {

using namespace quillon;

/// The clipboard gets what is cut and copied, and now and then bytes of the input.
class FuzzHost : public EditHost {
public:
    void PostEditUpdate() override {}
    void PostFocus(bool) override {}
    void FocusParent() override {}
    std::string ClipboardText() override { return clipboard; }
    void SetClipboardText(std::string_view text) override { clipboard = text; }
    std::string clipboard;
};

void Require(bool holds) {
    if (!holds) std::abort();
}

void DriveAngle(std::uint8_t form, const std::uint8_t* data, std::size_t size) {
    const int type = form % 11, format = form / 11 % 6;
    const CAngleTyping typing(type, format);
    tagEditText edit{FormatAngle(0.3, type, format, size ? data[0] % 34 : 3)};
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const std::uint8_t argument = data[i + 1];
        switch (data[i] % 8) {
            case 0:
                edit.from = argument;
                break;
            case 1:
                edit.to = argument;
                break;
            case 2:
                edit.text.resize(edit.text.size() % 64, static_cast<char>(argument));  // pasted by the control
                edit.text += static_cast<char>(argument);
                break;
            default:
                if (typing.Type(edit, static_cast<char>(argument))) {
                    Require(edit.from == edit.to && edit.to <= edit.text.size());
                    Require(edit.text.find('.') == edit.text.rfind('.'));
                }
                break;
        }
    }
}

void DriveNumber(std::uint8_t form, const std::uint8_t* data, std::size_t size) {
    FuzzHost host;
    CEditDouble edit(host);
    edit.style.forceSign = form & 1;
    edit.style.allowSign = form & 2;
    edit.style.fixedFormat = form & 4;
    edit.checkMax = form & 8;
    edit.maximum = 500.0;
    if (form & 16) edit.suffix = " m";
    if (size > 2) {
        edit.style.maxLength = data[0] % 20;
        edit.style.decimals = data[1] % 12 - 1;
        edit.style.intDigits = data[2] % 12;
    }
    for (std::size_t i = 3; i + 1 < size; i += 2) {
        const std::uint8_t argument = data[i + 1];
        switch (data[i] % 16) {
            case 0:
                edit.SetSelection(argument % 16, argument / 16);
                break;
            case 1:
                argument % 2 ? edit.OnSetFocus() : edit.OnKillFocus();
                break;
            case 2:
                edit.OnDelete();
                break;
            case 3:
                host.clipboard += static_cast<char>(argument);
                break;
            case 4:
                edit.SetDouble(argument * 1.25 - 100.0);
                break;
            case 5:
                edit.Enable(argument & 1);
                break;
            default:
                edit.OnChar(static_cast<char>(argument));
                break;
        }
        const tagEditText& now = edit.GetEdit();
        Require(now.from <= now.to && now.to <= now.text.size());
        Require(now.text.size() <= 20 + 12 + 3);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    (data[0] & 1 ? DriveAngle : DriveNumber)(data[1], data + 2, size - 2);
    return 0;
}
