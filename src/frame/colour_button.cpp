#include "frame/colour_button.h"

namespace quillon {
namespace {

struct ButtonColours {
    COLORREF face;
    COLORREF faceOn;
    COLORREF faceHot;
    COLORREF text;
};
constexpr ButtonColours kDay = {0xCC7B00, 0x800000, 0xFF0000, 0xFFFFFF};
constexpr ButtonColours kNight = {0x663D00, 0x400000, 0x995C00, 0xC0C0C0};

constexpr const ButtonColours& ColoursOf(bool night) {
    return night ? kNight : kDay;
}

}  // namespace

CColourButton::CColourButton(CWnd& buttonOwner, UINT buttonId, std::string_view text, bool nightColours)
    : CButton(buttonOwner, buttonId, text), night(nightColours) {}

COLORREF CColourButton::GetFaceColour() const {
    const ButtonColours& colours = ColoursOf(night);
    if (hot) return colours.faceHot;
    return on ? colours.faceOn : colours.face;
}

COLORREF CColourButton::GetTextColour() const {
    return ColoursOf(night).text;
}

void CColourButton::SetNight(bool set) {
    night = set;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CColourButton::SetOn(bool set) {
    on = set;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CColourButton::SetHot(bool over) {
    hot = over;
    Changed(CONTROL_CHANGE::COLOURS);
}

}  // namespace quillon
