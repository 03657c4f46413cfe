#include "background/dxf_reader.h"

#include <array>
#include <string>
#include <utility>

#include "background/dxf_text.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// The first bytes of a drawing in binary form, behind which no line can be found.
constexpr std::string_view kBinaryHead("AutoCAD Binary DXF\r\n\x1A\0", 22);
constexpr std::string_view kUsualCodePage = "ANSI_1252";

bool IsBinary(const CRandomFile& file) {
    std::array<char, kBinaryHead.size()> head{};
    const std::size_t count = file.ReadAt(0, head.data(), head.size());
    return std::string_view(head.data(), count) == kBinaryHead;
}

bool TakePoint(const DxfScanner& group, tagXYZ& point) {
    if (group.Code() == 10) point.x = group.Number();
    if (group.Code() == 20) point.y = group.Number();
    if (group.Code() == 30) point.z = group.Number();
    return group.Code() != 0 && group.Code() != 9;
}

// Which group fills which field of a table's record.

void TakeField(const DxfScanner& group, CDxfLayer& layer) {
    switch (group.Code()) {
        case 2:
            layer.name = group.Value();
            break;
        case 6:
            layer.linetypeName = group.Value();
            break;
        case 62:
            layer.colour = group.Whole();
            break;
        case 70:
            layer.flags = group.Whole();
            break;
        default:
            break;
    }
}

void TakeField(const DxfScanner& group, CDxfLinetype& linetype) {
    switch (group.Code()) {
        case 2:
            linetype.name = group.Value();
            break;
        case 3:
            linetype.description = group.Value();
            break;
        case 40:
            linetype.totalLength = group.Whole();
            break;
        case 49:
            linetype.dashes.push_back(group.Number());
            break;
        case 70:
            linetype.flags = group.Whole();
            break;
        case 73:
            linetype.elementCount = group.Whole();
            break;
        default:
            break;
    }
}

void TakeField(const DxfScanner& group, CDxfStyle& style) {
    switch (group.Code()) {
        case 2:
            style.name = group.Value();
            break;
        case 3:
            style.font = group.Value();
            break;
        case 40:
            style.height = group.Number();
            break;
        case 41:
            style.widthFactor = group.Number();
            break;
        case 42:
            style.lastHeight = group.Number();
            break;
        case 50:
            style.obliqueAngle = group.Number();
            break;
        case 70:
            style.flags = group.Whole();
            break;
        case 71:
            style.generation = group.Whole();
            break;
        default:
            break;
    }
}

void TakeField(const DxfScanner& group, CDxfDimStyle& style) {
    struct Real {
        int code;
        double CDxfDimStyle::*member;
    };
    struct Whole {
        int code;
        int CDxfDimStyle::*member;
    };
    using Style = CDxfDimStyle;
    constexpr std::array<Real, 6> kReals = {{{41, &Style::real41},
                                             {42, &Style::real42},
                                             {44, &Style::real44},
                                             {46, &Style::real46},
                                             {140, &Style::real140},
                                             {147, &Style::real147}}};
    constexpr std::array<Whole, 6> kWholes = {{{70, &Style::flags},
                                               {77, &Style::whole77},
                                               {176, &Style::whole176},
                                               {177, &Style::whole177},
                                               {178, &Style::whole178},
                                               {340, &Style::whole340}}};
    for (const Real& field : kReals) {
        if (field.code == group.Code()) style.*field.member = group.Number();
    }
    for (const Whole& field : kWholes) {
        if (field.code == group.Code()) style.*field.member = group.Whole();
    }
    if (group.Code() == 2) style.name = group.Value();
    if (group.Code() == 6) style.text6 = group.Value();
    if (group.Code() == 7) style.text7 = group.Value();
}

void TakeField(const DxfScanner& group, CDxfBlock& block) {
    switch (group.Code()) {
        case 2:
        case 3:
            block.name = group.Value();
            break;
        case 8:
            block.layerName = group.Value();
            break;
        case 10:
            block.base.x = group.Number();
            break;
        case 20:
            block.base.y = group.Number();
            break;
        case 30:
            block.base.z = group.Number();
            break;
        case 70:
            block.flags = group.Whole();
            break;
        default:
            break;
    }
}

/// Fills the record up to the next group 0, which is put back. False if the file ended before.
template <class Record>
bool ReadRecord(DxfScanner& scanner, Record& record) {
    while (scanner.Next()) {
        if (scanner.Code() == 0) {
            scanner.PutBack();
            return true;
        }
        TakeField(scanner, record);
    }
    return false;
}

}  // namespace

DxfReader::DxfReader(CDxf& target, CRandomFile source, LoadProgress* shared, KindReport* counts)
    : dxf(target),
      file(std::move(source)),
      progress(shared),
      report(counts ? *counts : ownReport),
      scanner(file, shared),
      entities(scanner, target.arena, target, report),
      binary(IsBinary(file)) {
    report.opened = true;
    if (progress) progress->Begin(file.GetLength());
}

bool DxfReader::ReadSection() {
    if (binary) return false;
    do {
        if (!scanner.Next()) return false;
    } while (scanner.Code() != 0 || scanner.Value() != "SECTION");
    if (!scanner.Next()) return false;
    dxf.hasSections = true;
    const std::string_view name = scanner.Value();
    if (name == "HEADER") {
        ReadHeader();
    } else if (name == "TABLES") {
        ReadTables();
    } else if (name == "BLOCKS") {
        ReadBlocks();
    } else if (name == "ENTITIES") {
        entities.Read(dxf.entities);
    } else {
        report.PassOver("section " + PlainName(name, false), scanner.Line());
    }
    return true;
}

void DxfReader::Finish() {
    if (binary) {
        report.PassOver("a drawing in binary form; only the text form is read");
    } else if (!dxf.hasSections) {
        report.PassOver("no SECTION in the file");
    }
    if (!dxf.codePage.empty() && !EqualNoCase(dxf.codePage, kUsualCodePage) && !dxf.IsUtf8()) {
        report.PassOver("letters above 127 of " + PlainName(dxf.codePage, false) + " read as Windows-1252");
    }
}

// ---- Header ----

void DxfReader::ReadHeader() {
    while (scanner.Next() && scanner.Value() != "ENDSEC") {
        const std::string_view name = scanner.Value();
        bool more = true;
        if (name == "$EXTMIN") {
            more = ReadHeaderPoint(dxf.extMin);
        } else if (name == "$EXTMAX") {
            more = ReadHeaderPoint(dxf.extMax);
        } else if (name == "$ACADVER" || name == "$DWGCODEPAGE") {
            std::string& text = name == "$ACADVER" ? dxf.version : dxf.codePage;
            more = scanner.Next();
            if (more && (scanner.Code() == 0 || scanner.Code() == 9)) {
                scanner.PutBack();
            } else if (more) {
                text = scanner.Value();
            }
        }
        if (!more) break;
    }
    dxf.centreX = (dxf.extMax.x + dxf.extMin.x) * 0.5;
    dxf.centreY = (dxf.extMax.y + dxf.extMin.y) * 0.5;
}

bool DxfReader::ReadHeaderPoint(tagXYZ& point) {
    while (scanner.Next()) {
        if (TakePoint(scanner, point)) continue;
        scanner.PutBack();
        return true;
    }
    return false;
}

// ---- Tables ----

void DxfReader::ReadTables() {
    while (scanner.Next() && scanner.Value() != "ENDSEC") {
        if (scanner.Value() == "TABLE" && !ReadTable()) return;
    }
}

bool DxfReader::ReadTable() {
    if (!scanner.Next()) return false;
    const std::string_view name = scanner.Value();
    if (name == "LAYER") return ReadTableRecords(dxf.layers, "LAYER");
    if (name == "LTYPE") return ReadTableRecords(dxf.linetypes, "LTYPE");
    if (name == "STYLE") return ReadTableRecords(dxf.styles, "STYLE");
    if (name == "DIMSTYLE") return ReadTableRecords(dxf.dimStyles, "DIMSTYLE");
    report.PassOver("table of a kind that isn't kept", scanner.Line());
    return SkipTable();
}

bool DxfReader::SkipTable() {
    while (scanner.Next()) {
        if (scanner.Value() == "ENDTAB") return true;
    }
    return false;
}

/// The records of a table, each begun by the group 0 that ended the one before.
template <class Record>
bool DxfReader::ReadTableRecords(std::deque<Record>& records, std::string_view keyword) {
    do {
        if (!scanner.Next()) return false;
    } while (scanner.Code() != 0);
    while (scanner.Value() == keyword) {
        Record record;
        if (!ReadRecord(scanner, record)) return false;
        records.push_back(std::move(record));
        scanner.Next();
    }
    return true;
}

// ---- Blocks ----

void DxfReader::ReadBlocks() {
    while (scanner.Next() && scanner.Value() != "ENDSEC") {
        if (scanner.Value() == "BLOCK" && !ReadBlock()) return;
    }
}

bool DxfReader::ReadBlock() {
    CDxfBlock block;
    if (!ReadRecord(scanner, block)) return false;
    scanner.Next();
    const bool empty = scanner.Value() == "ENDBLK";
    if (!empty) {
        scanner.PutBack();
        entities.Read(block.entities);
    }
    block.layer = entities.FindLayer(block.layerName);
    dxf.blocks.push_back(std::move(block));
    return true;
}

}  // namespace quillon
