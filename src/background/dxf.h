#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "background/background_list.h"
#include "background/dxf_arena.h"
#include "background/dxf_tables.h"
#include "background/kind_report.h"
#include "background/load_progress.h"
#include "platform/array_stamp.h"
#include "platform/file.h"
#include "platform/palette.h"

namespace quillon {

class DxfReader;

/// One drawing in memory: its header extents, tables, blocks and entities, as they stand in the file. It serves as a
/// background of the chart, as the shape of a structure, and as the source of a DIG file.
///
///     CDxf dxf(files);
///     dxf.Read(path);
///     for (const CDxfEntity* entity : dxf.entities) {
///         if (entity->type == DXF_TYPE::LINE && IsDrawn(*entity)) Draw(entity->As<CDxfLine>(), ColourOf(*entity));
///     }
///
/// Entities are filled by the reader alone, in memory of the drawing's own; they hold until it is opened anew.
class CDxf {
public:
    explicit CDxf(FileSystem& fileSystem);
    ~CDxf();
    CDxf(const CDxf&) = delete;
    CDxf& operator=(const CDxf&) = delete;

    /// Reads a whole drawing and its settings. False if the file can't be opened, which leaves the drawing empty; what
    /// a cancelled load had read stays.
    bool Read(std::string_view path, LoadProgress* progress = nullptr, KindReport* report = nullptr);

    // The steps of it.

    /// Empties the drawing but for its settings, and opens the file. `progress` and `report` may be null, and must
    /// stand until `Close`.
    bool Open(std::string_view path, LoadProgress* progress = nullptr, KindReport* report = nullptr);
    /// The same with the bytes of a file, which must stand until `Close`.
    void OpenBytes(std::string_view bytes, LoadProgress* progress = nullptr, KindReport* report = nullptr);
    /// Reads one section. Sections come in any order; one that comes again adds to the lists. True while there may be
    /// more.
    bool ReadSection();
    void Close();

    /// The drawing's own settings file; the defaults if there is none.
    void LoadSettings();
    void SaveSettings() const;

    /// A text as it is to be read: without inline codes, in the library's alphabet. Line feeds part its lines.
    std::string ShownText(const CDxfText& text) const;
    /// A name of a layer, block, style ... in the library's alphabet.
    std::string ShownName(std::string_view name) const;

    /// Whether the header has extents, and the right way round. A third of real drawings have none.
    bool HasExtents() const;
    /// The extents of all that can become line work (the points that are looked at when it is clipped). False, with the
    /// extents left alone, if there is none.
    bool FindOwnExtents(tagXY& least, tagXY& most) const;

    std::size_t GetEntityCount() const;
    /// Another for other entities.
    std::uint64_t GetStamp() const { return stamp.Get(); }
    FileSystem& GetFiles() const { return files; }

    // Settings.
    bool use = true;       ///< the drawing is shown
    bool showText = true;  ///< with its texts
    double scale = 1.0;
    bool ownExtents = false;  ///< it becomes a DIG file by the extents of its geometry and not of its header

    // The file.
    std::string fileName;
    std::uint64_t fileLength = 0;
    std::string sizeText;
    bool readOnly = false;
    std::string dateText;
    std::string timeText;
    KindReport report;                   ///< of the last load in a job
    ReadReport summary;                  ///< its counts
    std::optional<FileStamp> readStamp;  ///< of the file at that load

    // How it is placed when it is drawn; degrees, clockwise.
    double offsetEasting = 0.0;
    double offsetNorthing = 0.0;
    double rotation = 0.0;
    double sinRotation = 0.0;
    double cosRotation = 1.0;

    // The drawing.
    bool hasSections = false;  ///< false for what is no text drawing at all
    std::string version;       ///< "AC1021" and the like; empty if the header doesn't tell
    std::string codePage;      ///< as the header names it
    tagXYZ extMin;
    tagXYZ extMax;
    double centreX = 0.0;  ///< middle of the header's extents
    double centreY = 0.0;
    std::vector<const CDxfEntity*> entities;
    std::deque<CDxfLayer> layers;
    std::deque<CDxfLinetype> linetypes;
    std::deque<CDxfStyle> styles;
    std::deque<CDxfDimStyle> dimStyles;
    std::deque<CDxfBlock> blocks;

private:
    friend class DxfReader;
    bool IsUtf8() const;
    void Reset();

    FileSystem& files;
    DxfArena arena;
    ArrayStamp stamp;
    std::unique_ptr<DxfReader> reader;
};

/// Place in the palette of the colour that an entity is drawn in: its own, its layer's, or white where neither is one.
int ColourIndexOf(const CDxfEntity& entity);
COLORREF ColourOf(const CDxfEntity& entity);
/// False for what stands on a layer that is off.
bool IsDrawn(const CDxfEntity& entity);

/// The drawings that the host shows.
class CDxfList : public CBackgroundList<CDxf> {
public:
    using CBackgroundList::CBackgroundList;

protected:
    std::string_view GetSettingsName() const override { return "DXF List"; }
    std::string_view GetSection() const override { return "DXF File"; }
};

}  // namespace quillon
