#include "background/dxf.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <system_error>

#include "background/dxf_lines.h"
#include "background/dxf_palette.h"
#include "background/dxf_reader.h"
#include "background/dxf_text.h"
#include "background/file_stamp.h"
#include "foundation/folders.h"
#include "foundation/paths.h"

namespace quillon {
namespace {

constexpr std::string_view kFirstUtf8Version = "AC1021";
constexpr std::string_view kSettingsExtension = "DXI";

/// A box that grows.
struct Extents {
    tagXY least{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    tagXY most{-least.x, -least.y};

    void Add(double x, double y) {
        least = {std::min(least.x, x), std::min(least.y, y)};
        most = {std::max(most.x, x), std::max(most.y, y)};
    }
    void Add(const tagXYZ& at) { Add(at.x, at.y); }
    void Add(const CDxfEntity& entity) {
        switch (entity.type) {
            case DXF_TYPE::LINE:
                Add(entity.As<CDxfLine>().start);
                Add(entity.As<CDxfLine>().end);
                break;
            case DXF_TYPE::CIRCLE:
            case DXF_TYPE::ARC:
                Add(entity.As<CDxfCircle>().centre);
                break;
            case DXF_TYPE::POLYLINE:
            case DXF_TYPE::LWPOLYLINE:
                Add(entity.As<CDxfPolyline>());
                break;
            case DXF_TYPE::SOLID:
                Add(entity.As<CDxfSolid>().corners[0]);
                break;
            default:
                break;
        }
    }
    void Add(const CDxfPolyline& line) {
        for (std::size_t i = 0; i < line.count; ++i) Add(line.GetPosition(i).x, line.GetPosition(i).y);
    }
};

}  // namespace

CDxf::CDxf(FileSystem& fileSystem) : files(fileSystem) {}
CDxf::~CDxf() = default;

void CDxf::Reset() {
    reader.reset();
    stamp.Renew();
    entities = {};
    blocks.clear();
    layers.clear();
    linetypes.clear();
    styles.clear();
    dimStyles.clear();
    arena.Clear();
    extMin = extMax = {};
    centreX = centreY = 0.0;
    hasSections = false;
    version.clear();
    codePage.clear();
    sizeText.clear();
    dateText.clear();
    timeText.clear();
    readOnly = false;
    fileLength = 0;
    offsetEasting = offsetNorthing = rotation = sinRotation = 0.0;
    cosRotation = 1.0;
}

// ---- Reading ----

bool CDxf::Open(std::string_view path, LoadProgress* progress, KindReport* report) {
    Reset();
    fileName = path;
    const auto stamp = files.Stamp(path);
    if (!stamp) return false;
    const DosStamp dos = DosStampOf(*stamp);
    sizeText = SizeText(stamp->size);
    dateText = DateText(dos);
    timeText = TimeText(dos);
    std::error_code ignored;
    const auto rights = std::filesystem::status(files.Native(path), ignored).permissions();
    readOnly = (rights & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
    CRandomFile file;
    if (!file.OpenForReading(files, path)) return false;
    fileLength = file.GetLength();
    reader = std::make_unique<DxfReader>(*this, std::move(file), progress, report);
    return true;
}

void CDxf::OpenBytes(std::string_view bytes, LoadProgress* progress, KindReport* report) {
    Reset();
    CRandomFile file;
    file.OpenBytes(bytes);
    fileLength = bytes.size();
    reader = std::make_unique<DxfReader>(*this, std::move(file), progress, report);
}

bool CDxf::ReadSection() {
    return reader && reader->ReadSection();
}

void CDxf::Close() {
    if (reader) reader->Finish();
    reader.reset();
}

bool CDxf::Read(std::string_view path, LoadProgress* progress, KindReport* report) {
    if (!Open(path, progress, report)) return false;
    while (ReadSection()) {
    }
    Close();
    LoadSettings();
    return true;
}

std::size_t CDxf::GetEntityCount() const {
    std::size_t count = entities.size();
    for (const CDxfBlock& block : blocks) count += block.entities.size();
    return count;
}

bool CDxf::HasExtents() const {
    const bool upright = extMax.x >= extMin.x && extMax.y >= extMin.y;
    const bool zero = extMin.x == 0.0 && extMin.y == 0.0 && extMax.x == 0.0 && extMax.y == 0.0;
    return upright && !zero;
}

bool CDxf::FindOwnExtents(tagXY& least, tagXY& most) const {
    Extents extents;
    for (const CDxfBlock& block : blocks) {
        for (const CDxfEntity* entity : block.entities) extents.Add(*entity);
    }
    for (const CDxfEntity* entity : entities) extents.Add(*entity);
    if (extents.least.x > extents.most.x) return false;
    least = extents.least;
    most = extents.most;
    return true;
}

// ---- Settings ----

void CDxf::LoadSettings() {
    use = showText = true;
    ownExtents = false;
    scale = 0.0;  // of a file that is cut short
    CConfigFile file(files);
    if (file.OpenForRead(NameOfPath(fileName), kSettingsExtension)) {
        ReadLines(file, *this);
        ownExtents = file.ReadBool(false);
    } else {
        scale = 1.0;
    }
    if (scale < 0.0 || IsMissing(scale)) scale = 1.0;
}

void CDxf::SaveSettings() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(NameOfPath(fileName), kSettingsExtension)) return;
    WriteLines(file, *this);
    // Other programs of the system know three lines; a fourth stands only where an operator chose so.
    if (ownExtents) file.WriteBool("Own Extents", ownExtents);
    file.Commit();
}

// ---- What is shown ----

bool CDxf::IsUtf8() const {
    return version.size() == kFirstUtf8Version.size() && version >= kFirstUtf8Version;
}

std::string CDxf::ShownText(const CDxfText& text) const {
    return text.multiline ? PlainMText(text.text, IsUtf8()) : PlainText(text.text, IsUtf8());
}

std::string CDxf::ShownName(std::string_view name) const {
    return PlainName(name, IsUtf8());
}

int ColourIndexOf(const CDxfEntity& entity) {
    constexpr int kByBlock = 0, kByLayer = 256;
    const DxfAttributes& attributes = *entity.attributes;
    const bool byLayer = attributes.colour == kByBlock || attributes.colour == kByLayer;
    if (!byLayer) return attributes.colour > 0 && attributes.colour < kByLayer ? attributes.colour : kDxfWhite;
    if (!attributes.layer) return kDxfWhite;
    const int colour = attributes.layer->colour;
    return colour >= 0 && colour < kByLayer ? colour : kDxfWhite;
}

COLORREF ColourOf(const CDxfEntity& entity) {
    return kDxfPalette[static_cast<std::size_t>(ColourIndexOf(entity))];
}

bool IsDrawn(const CDxfEntity& entity) {
    return entity.attributes->visible && !(entity.attributes->layer && entity.attributes->layer->IsOff());
}

}  // namespace quillon
