#include "background/dxf_entity_reader.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <string>

namespace quillon {
namespace {

/// Behind this group stands an object of another kind, with groups of the same numbers.
constexpr int kEmbeddedObject = 101;

/// The three groups of a point, of which the first is given.
bool TakePoint(const DxfScanner& group, int first, tagXYZ& point) {
    switch (group.Code() - first) {
        case 0:
            point.x = group.Number();
            return true;
        case 10:
            point.y = group.Number();
            return true;
        case 20:
            point.z = group.Number();
            return true;
        default:
            return false;
    }
}

/// The bearing of an angle that runs anticlockwise from east.
double BearingOf(double angle) {
    const double bearing = 90.0 - angle;
    return bearing < 0.0 ? bearing + 360.0 : bearing;
}

// Which group fills which field, kind by kind.

void TakeField(const DxfScanner& group, CDxfPoint& point) {
    TakePoint(group, 10, point.position);
}

void TakeField(const DxfScanner& group, CDxfLine& line) {
    if (!TakePoint(group, 10, line.start)) TakePoint(group, 11, line.end);
}

void TakeField(const DxfScanner& group, CDxfCircle& circle) {
    if (group.Code() == 40) {
        circle.radius = group.Number();
    } else {
        TakePoint(group, 10, circle.centre);
    }
}

void TakeField(const DxfScanner& group, CDxfArc& arc) {
    switch (group.Code()) {
        case 50:
            arc.startBearing = BearingOf(group.Number());
            break;
        case 51:
            arc.endBearing = BearingOf(group.Number());
            break;
        default:
            TakeField(group, static_cast<CDxfCircle&>(arc));
    }
}

void TakeField(const DxfScanner& group, CDxfEllipse& ellipse) {
    switch (group.Code()) {
        case 40:
            ellipse.ratio = group.Number();
            break;
        case 41:
            ellipse.start = group.Number();
            break;
        case 42:
            ellipse.end = group.Number();
            break;
        default:
            if (!TakePoint(group, 10, ellipse.centre)) TakePoint(group, 11, ellipse.majorEnd);
    }
}

void TakeField(const DxfScanner& group, CDxfPolyline& line) {
    if (group.Code() == 70) line.flags = group.Whole();
}

void TakeField(const DxfScanner& group, CDxfVertex& vertex) {
    switch (group.Code()) {
        case 42:
            vertex.bulge = group.Number();
            break;
        case 70:
            vertex.flags = group.Whole();
            break;
        default:
            TakePoint(group, 10, vertex.position);
    }
}

void TakeField(const DxfScanner& group, CDxfSolid& solid) {
    // The file names the corners in the order of a letter Z; an outline runs through the fourth before the third.
    constexpr std::array<int, 4> kFirstGroups = {10, 11, 13, 12};
    for (std::size_t i = 0; i < kFirstGroups.size(); ++i) {
        if (TakePoint(group, kFirstGroups[i], solid.corners[i])) return;
    }
}

void TakeField(const DxfScanner& group, CDxfText& text) {
    switch (group.Code()) {
        case 40:
            text.height = group.Number();
            break;
        case 41:
            text.widthFactor = group.Number();
            text.width = text.widthFactor / 1.513157895 * text.height;
            break;
        case 50:
            text.rotation = group.Number();
            break;
        case 51:
            text.obliqueAngle = group.Number();
            break;
        case 71:
            text.generation = group.Whole();
            break;
        case 72:
            text.horizontalJustify = group.Whole();
            break;
        case 73:
            text.verticalJustify = group.Whole();
            break;
        default:
            if (!TakePoint(group, 10, text.insertion)) TakePoint(group, 11, text.alignment);
    }
}

void TakeField(const DxfScanner& group, CDxfInsert& insert) {
    switch (group.Code()) {
        case 41:
            insert.scale.x = group.Number();
            break;
        case 42:
            insert.scale.y = group.Number();
            break;
        case 43:
            insert.scale.z = group.Number();
            break;
        case 50:
            insert.rotation = group.Number();
            break;
        default:
            TakePoint(group, 10, insert.position);
    }
}

void TakeField(const DxfScanner& group, CDxfHatch& hatch) {
    if (group.Code() == 70) hatch.solid = group.Whole() != 0;
}

/// The kinds whose geometry isn't held.
void TakeField(const DxfScanner& group, CDxfEntity& entity) {
    const int flagsGroup = entity.type == DXF_TYPE::VIEWPORT ? 69 : 70;
    if (group.Code() == flagsGroup && entity.type != DXF_TYPE::REGION) entity.flags = group.Whole();
}

}  // namespace

// ---- Kinds ----

struct DxfEntityReader::Kind {
    std::string_view keyword;
    DXF_TYPE type;
    bool (DxfEntityReader::*read)();
    std::string_view lost;  ///< what the entity is kept without; empty if nothing
};

const DxfEntityReader::Kind* DxfEntityReader::FindKind(std::string_view keyword) {
    using Reader = DxfEntityReader;
    static constexpr std::string_view kGeometry = " kept without its geometry";
    static constexpr std::array<Kind, 17> kKinds = {{
        {"LINE", DXF_TYPE::LINE, &Reader::ReadPlain<CDxfLine>, {}},
        {"LWPOLYLINE", DXF_TYPE::LWPOLYLINE, &Reader::ReadLwPolyline, {}},
        {"POLYLINE", DXF_TYPE::POLYLINE, &Reader::ReadPolyline, {}},
        {"CIRCLE", DXF_TYPE::CIRCLE, &Reader::ReadPlain<CDxfCircle>, {}},
        {"ARC", DXF_TYPE::ARC, &Reader::ReadPlain<CDxfArc>, {}},
        {"TEXT", DXF_TYPE::TEXT, &Reader::ReadText, {}},
        {"MTEXT", DXF_TYPE::TEXT, &Reader::ReadText, {}},
        {"POINT", DXF_TYPE::POINT, &Reader::ReadPlain<CDxfPoint>, {}},
        {"SOLID", DXF_TYPE::SOLID, &Reader::ReadPlain<CDxfSolid>, {}},
        {"INSERT", DXF_TYPE::INSERT, &Reader::ReadPlain<CDxfInsert>, " not expanded"},
        {"ELLIPSE", DXF_TYPE::ELLIPSE, &Reader::ReadPlain<CDxfEllipse>, {}},
        {"HATCH", DXF_TYPE::HATCH, &Reader::ReadPlain<CDxfHatch>, kGeometry},
        {"SPLINE", DXF_TYPE::SPLINE, &Reader::ReadPlain<CDxfEntity>, kGeometry},
        {"REGION", DXF_TYPE::REGION, &Reader::ReadPlain<CDxfEntity>, kGeometry},
        {"3DSOLID", DXF_TYPE::SOLID_3D, &Reader::ReadPlain<CDxfEntity>, kGeometry},
        {"VIEWPORT", DXF_TYPE::VIEWPORT, &Reader::ReadPlain<CDxfEntity>, kGeometry},
        {"ATTDEF", DXF_TYPE::ATTDEF, &Reader::ReadPlain<CDxfEntity>, kGeometry},
    }};
    const auto found =
        std::find_if(kKinds.begin(), kKinds.end(), [keyword](const Kind& k) { return k.keyword == keyword; });
    return found == kKinds.end() ? nullptr : &*found;
}

// ---- The loop over entities ----

DxfEntityReader::DxfEntityReader(DxfScanner& source, DxfArena& memory, const CDxf& tables, KindReport& counts)
    : scanner(source), arena(memory), dxf(tables), report(counts) {}

void DxfEntityReader::Read(std::vector<const CDxfEntity*>& entities) {
    list = &entities;
    while (scanner.Next()) {
        const std::string_view keyword = scanner.Value();
        if (const Kind* known = FindKind(keyword)) {
            if (!ReadKind(*known)) return;
            continue;
        }
        if (keyword == "VERTEX") {
            PassOver(keyword, " outside a polyline");
            continue;
        }
        const bool ends = keyword == "ENDSEC" || keyword == "ENDBLK";
        if (!ends && keyword != "SEQEND" && keyword != "EOF" && scanner.Code() == 0) PassOver(keyword);
        if (!SkipRecord() || ends) return;
    }
}

bool DxfEntityReader::ReadKind(const Kind& known) {
    kind = &known;
    common = {};
    const std::size_t line = scanner.Line();
    const std::size_t before = list->size();
    const bool complete = (this->*known.read)();
    if (list->size() > before) {
        if (!known.lost.empty()) report.PassOver(std::string(known.keyword) + std::string(known.lost), line);
    } else if (complete) {
        report.PassOver(std::string(known.keyword) + " without vertices", line);
    }
    return complete;
}

bool DxfEntityReader::SkipRecord() {
    while (scanner.Next()) {
        if (scanner.Code() == 0) {
            scanner.PutBack();
            return true;
        }
    }
    return false;
}

void DxfEntityReader::PassOver(std::string_view keyword, std::string_view why) {
    constexpr std::size_t kLongestKeyword = 40;
    report.PassOver(PlainName(keyword.substr(0, kLongestKeyword), false) + std::string(why), scanner.Line());
}

// ---- One entity ----

template <class Record>
bool DxfEntityReader::ReadFields(Record& record) {
    while (scanner.Next()) {
        const int code = scanner.Code();
        if (code == 0) {
            scanner.PutBack();
            return true;
        }
        if (code == kEmbeddedObject) return SkipRecord();
        if (code < kEmbeddedObject && !TakeCommon()) TakeField(scanner, record);
    }
    return false;
}

bool DxfEntityReader::TakeCommon() {
    switch (scanner.Code()) {
        case 5:
            common.handle = arena.Keep(scanner.Value());
            return true;
        case 6:
            common.linetypeName = NameOf(scanner.Value(), lastFields.linetypeName);
            return true;
        case 8:
            common.layerName = NameOf(scanner.Value(), lastFields.layerName);
            return true;
        case 39:
            common.thickness = scanner.Number();
            return true;
        case 48:
            common.linetypeScale = scanner.Number();
            return true;
        case 62:
            common.colour = scanner.Whole();
            return true;
        default:
            return false;
    }
}

template <class Record>
bool DxfEntityReader::ReadPlain() {
    Record record;
    record.type = kind->type;
    if (!ReadFields(record)) return false;
    Append(record);
    return true;
}

/// The record of a text with the pieces and the style beside it, which are gathered apart.
bool DxfEntityReader::ReadText() {
    CDxfText text;
    text.multiline = kind->keyword == "MTEXT";
    pieces.Clear();
    while (scanner.Next()) {
        const int code = scanner.Code();
        if (code == 0) scanner.PutBack();
        if (code == kEmbeddedObject && !SkipRecord()) return false;
        if (code == 0 || code == kEmbeddedObject) {
            text.text = arena.Keep(pieces.Get());
            Append(text);
            return true;
        }
        if (code == 1 || code == 3) {
            pieces.Append(scanner.Value());
        } else if (code == 7) {
            text.styleName = lastStyle = NameOf(scanner.Value(), lastStyle);
        } else if (code < kEmbeddedObject && !TakeCommon()) {
            TakeField(scanner, text);
        }
    }
    return false;
}

/// The easting of a vertex comes in a group of its own, ahead of its northing.
bool DxfEntityReader::ReadLwPolyline() {
    CDxfPolyline line;
    double easting = 0.0;
    positions.clear();
    while (scanner.Next()) {
        const int code = scanner.Code();
        if (code == 10) {
            easting = scanner.Number();
        } else if (code == 20) {
            positions.push_back({easting, scanner.Number()});
        } else if (code == 0) {
            scanner.PutBack();
            line.count = positions.size();
            line.positions = arena.Keep(positions);
            if (line.count > 0) Append(line);
            return true;
        } else if (code < kEmbeddedObject && !TakeCommon()) {
            TakeField(scanner, line);
        }
    }
    return false;
}

bool DxfEntityReader::ReadPolyline() {
    CDxfPolyline line;
    if (!ReadFields(line)) return false;
    const Common header = common;
    vertices.clear();
    const bool complete = ReadVertices();
    line.count = vertices.size();
    line.vertices = arena.Keep(vertices);
    common = header;
    if (line.count > 0) Append(line);
    return complete;
}

bool DxfEntityReader::ReadVertices() {
    while (scanner.Next()) {
        const std::string_view keyword = scanner.Value();
        if (keyword == "SEQEND") {
            scanner.PutBack();
            return true;
        }
        if (keyword == "VERTEX") {
            if (!ReadVertex()) return false;
        } else if (scanner.Code() == 0) {
            PassOver(keyword, " inside a polyline");
        }
    }
    return false;
}

bool DxfEntityReader::ReadVertex() {
    CDxfVertex vertex;
    vertex.type = DXF_TYPE::VERTEX;
    common = {};
    if (!ReadFields(vertex)) return false;
    Settle(vertex, common);
    vertices.push_back(vertex);
    return true;
}

// ---- What is kept ----

template <class Record>
void DxfEntityReader::Settle(Record& record, const Common& fields) {
    constexpr std::size_t kLongestHandle = std::numeric_limits<std::uint16_t>::max();
    record.attributes = AttributesOf(fields);
    record.handleText = fields.handle.data();
    record.handleLength = static_cast<std::uint16_t>(std::min(fields.handle.size(), kLongestHandle));
}

template <class Record>
void DxfEntityReader::Append(Record& record) {
    record.type = kind->type;
    Settle(record, common);
    list->push_back(arena.Keep(record));
    ++report.taken;
}

/// Most entities have the attributes of the one before.
const DxfAttributes* DxfEntityReader::AttributesOf(const Common& fields) {
    const std::size_t tables = dxf.layers.size() + dxf.linetypes.size();
    const bool same =
        lastAttributes && tables == lastTables && fields.layerName.data() == lastFields.layerName.data() &&
        fields.linetypeName.data() == lastFields.linetypeName.data() && fields.colour == lastFields.colour &&
        fields.thickness == lastFields.thickness && fields.linetypeScale == lastFields.linetypeScale;
    if (same) return lastAttributes;
    DxfAttributes wanted;
    wanted.layerName = fields.layerName;
    wanted.linetypeName = fields.linetypeName;
    wanted.colour = fields.colour;
    wanted.thickness = fields.thickness;
    wanted.linetypeScale = fields.linetypeScale;
    wanted.layer = FindLayer(fields.layerName);
    wanted.linetype = linetypes.Find(dxf.linetypes, fields.linetypeName);
    const DxfAttributes*& held = attributes.try_emplace(wanted, nullptr).first->second;
    if (!held) held = arena.Keep(wanted);
    lastFields = fields;
    lastTables = tables;
    lastAttributes = held;
    return held;
}

std::size_t DxfEntityReader::HashAttributes::operator()(const DxfAttributes& attributes) const {
    std::size_t hash = 0;
    const auto add = [&hash](std::size_t part) { hash = (hash ^ part) * 0x9E3779B97F4A7C15U + (hash >> 29); };
    // Equal names are one name in the arena, but an empty one lies anywhere.
    add(attributes.layerName.empty() ? 0 : std::hash<const void*>()(attributes.layerName.data()));
    add(attributes.linetypeName.empty() ? 0 : std::hash<const void*>()(attributes.linetypeName.data()));
    add(std::hash<int>()(attributes.colour));
    add(std::hash<double>()(attributes.thickness));
    add(std::hash<double>()(attributes.linetypeScale));
    add(std::hash<const void*>()(attributes.layer));
    add(std::hash<const void*>()(attributes.linetype));
    return hash;
}

/// The name in the arena. `last` is a name that it probably equals.
std::string_view DxfEntityReader::NameOf(std::string_view name, std::string_view last) {
    if (name == last) return last;
    const auto found = names.find(name);
    return found != names.end() ? *found : *names.insert(arena.Keep(name)).first;
}

const CDxfLayer* DxfEntityReader::FindLayer(std::string_view name) {
    return layers.Find(dxf.layers, name);
}

template <class Record>
const Record* DxfEntityReader::ByName<Record>::Find(const std::deque<Record>& records, std::string_view name) {
    for (; known < records.size(); ++known) places.try_emplace(records[known].name, &records[known]);
    const auto found = places.find(name);
    return found == places.end() ? nullptr : found->second;
}

}  // namespace quillon
