#pragma once

#include <string_view>

#include "background/dxf.h"
#include "background/dxf_entity_reader.h"
#include "background/dxf_scanner.h"
#include "background/kind_report.h"
#include "background/load_progress.h"
#include "platform/random_file.h"

namespace quillon {

/// Reads the sections of one drawing file into a CDxf.
class DxfReader {
public:
    /// `target` must outlive the reader, and so must `shared` and `counts`, which may be null.
    DxfReader(CDxf& target, CRandomFile source, LoadProgress* shared, KindReport* counts);

    /// Looks for the next section and reads it; false at the end of the file.
    bool ReadSection();
    /// Tells the report what only shows at the end.
    void Finish();

private:
    void ReadHeader();
    bool ReadHeaderPoint(tagXYZ& point);
    void ReadTables();
    bool ReadTable();
    bool SkipTable();
    template <class Record>
    bool ReadTableRecords(std::deque<Record>& records, std::string_view keyword);
    void ReadBlocks();
    bool ReadBlock();

    CDxf& dxf;
    CRandomFile file;
    LoadProgress* progress;
    KindReport ownReport;  ///< where nobody asks for one
    KindReport& report;
    DxfScanner scanner;
    DxfEntityReader entities;
    bool binary = false;
};

}  // namespace quillon
