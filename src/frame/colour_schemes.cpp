#include "frame/colour_schemes.h"

#include <array>

#include "platform/errors.h"

namespace quillon {
namespace {

struct ColourScheme {
    PropertyColours day;
    PropertyColours night;
};

// clang-format off
//   background  text      group     group text descr.    descr. text line
constexpr std::array<ColourScheme, kColourSchemeCount> kSchemes = {{
    {{0xFFFFFF, 0x000000, 0xEBEBEB, 0x555555, 0xEBEBEB, 0x000000, 0xEBEBEB},   // 0
     {0xFFFFFF, 0x000000, 0xEBEBEB, 0x555555, 0xEBEBEB, 0x000000, 0xEBEBEB}},
    {{0xD6D6D6, 0x000000, 0x555555, 0xEBEBEB, 0x555555, 0xEBEBEB, 0x555555},   // 1
     {0x000000, 0xC0C0C0, 0x555555, 0xEBEBEB, 0x555555, 0xC0C0C0, 0x555555}},
    {{0xCCFFCC, 0x000000, 0x008000, 0x80FF80, 0x008000, 0x80FF80, 0x000000},   // 2
     {0x000000, 0x008000, 0x004000, 0x008000, 0x004000, 0x008000, 0x008000}},
    {{0xFFCC99, 0x000000, 0x800000, 0xFF8080, 0x800000, 0xFF8080, 0x000000},   // 3
     {0x000000, 0x800000, 0x400000, 0x800000, 0x400000, 0x800000, 0x800000}},
    {{0xFF99CC, 0x000000, 0x800080, 0xFF80FF, 0x800080, 0xFF80FF, 0x000000},   // 4
     {0x000000, 0x800080, 0x400040, 0x800080, 0x400040, 0x800080, 0x800080}},
    {{0xF0F0FF, 0x000000, 0x000080, 0x8080FF, 0x000080, 0x8080FF, 0x000000},   // 5
     {0x000000, 0x000080, 0x000040, 0x000080, 0x000040, 0x000080, 0x000080}},
    {{0xE7FFFF, 0x000000, 0x008080, 0x00FFFF, 0x008080, 0x00FFFF, 0x000000},   // 6
     {0x000000, 0x008080, 0x004040, 0x008080, 0x004040, 0x008080, 0x008080}},
    {{0xD6D6D6, 0x000000, 0x400000, 0xEBEBEB, 0x555555, 0xEBEBEB, 0x555555},   // 7
     {0x000000, 0xC0C0C0, 0x800000, 0xEBEBEB, 0x555555, 0xC0C0C0, 0x555555}},
}};
// clang-format on

}  // namespace

const PropertyColours& SchemeColours(int scheme, bool night) {
    if (scheme < 0 || scheme >= kColourSchemeCount) throw InvalidArgument("no such colour scheme");
    const ColourScheme& colours = kSchemes[static_cast<std::size_t>(scheme)];
    return night ? colours.night : colours.day;
}

void ApplyColourScheme(CMyMFCPropertyGridCtrl& list, int scheme) {
    list.SetCustomColors(SchemeColours(scheme, list.night));
    list.colourScheme = scheme;
}

void BeginPropertyList(CMyMFCPropertyGridCtrl& list, int scheme) {
    list.EnableHeaderCtrl(false, "Property", "Value");
    list.SetVSDotNetLook(true);
    list.EnableDescriptionArea(true);
    ApplyColourScheme(list, scheme);
    list.MarkModifiedProperties(true);
    list.RemoveAll();
}

}  // namespace quillon
