#pragma once

#include <cstddef>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "background/dxf.h"
#include "background/dxf_arena.h"
#include "background/dxf_entity.h"
#include "background/dxf_scanner.h"
#include "background/dxf_text.h"
#include "background/kind_report.h"

namespace quillon {

/// Makes entities of the groups of a drawing, and keeps them in the drawing's arena.
class DxfEntityReader {
public:
    /// All must outlive the reader. Layers and linetypes are found in the drawing's tables as they stand when an entity
    /// is complete.
    DxfEntityReader(DxfScanner& source, DxfArena& memory, const CDxf& tables, KindReport& counts);

    /// Reads entities up to the end of their section or block.
    void Read(std::vector<const CDxfEntity*>& entities);
    const CDxfLayer* FindLayer(std::string_view name);

private:
    /// Common fields of the entity that is being read. Names are in the arena.
    struct Common {
        std::string_view layerName;
        std::string_view linetypeName;
        std::string_view handle;
        int colour = 0;
        double thickness = 0.0;
        double linetypeScale = 1.0;
    };
    struct HashAttributes {
        std::size_t operator()(const DxfAttributes& attributes) const;
    };
    template <class Record>
    class ByName {
    public:
        /// The first record of the name; null for none. `records` only grows between calls.
        const Record* Find(const std::deque<Record>& records, std::string_view name);

    private:
        std::unordered_map<std::string_view, const Record*> places;
        std::size_t known = 0;
    };
    struct Kind;

    static const Kind* FindKind(std::string_view keyword);
    bool ReadKind(const Kind& kind);
    /// Each reads one entity and appends it; false if the file ended in it.
    template <class Record>
    bool ReadPlain();
    bool ReadText();
    bool ReadPolyline();
    bool ReadLwPolyline();

    template <class Record>
    bool ReadFields(Record& record);
    bool TakeCommon();
    bool ReadVertices();
    bool ReadVertex();
    bool SkipRecord();

    template <class Record>
    void Settle(Record& record, const Common& fields);
    template <class Record>
    void Append(Record& record);
    const DxfAttributes* AttributesOf(const Common& fields);
    std::string_view NameOf(std::string_view name, std::string_view last);
    void PassOver(std::string_view keyword, std::string_view why = {});

    DxfScanner& scanner;
    DxfArena& arena;
    const CDxf& dxf;
    KindReport& report;
    std::vector<const CDxfEntity*>* list = nullptr;
    const Kind* kind = nullptr;

    Common common;
    Common lastFields;  ///< of lastAttributes
    const DxfAttributes* lastAttributes = nullptr;
    std::size_t lastTables = 0;  ///< layers and linetypes when lastAttributes was found
    std::unordered_set<std::string_view> names;
    std::unordered_map<DxfAttributes, const DxfAttributes*, HashAttributes> attributes;
    ByName<CDxfLayer> layers;
    ByName<CDxfLinetype> linetypes;

    DxfTextPieces pieces;
    std::string_view lastStyle;
    std::vector<CDxfVertex> vertices;
    std::vector<tagXY> positions;
};

}  // namespace quillon
