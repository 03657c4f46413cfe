#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "background/dxf.h"
#include "features/feature_common.h"
#include "features/file_list.h"
#include "foundation/values.h"

namespace quillon {

/// One structure: where it stands and the shape that it wears.
struct StructureDef {
    std::int32_t shapeNumber = 0;  ///< place in the list of shapes, from 1; 0 for none
    std::string name = {};
    std::string shape = {};  ///< bare name of the shape's drawing
    bool show = true;
    tagXY position = {};   ///< metres
    double height = 0.0;   ///< metres
    double heading = 0.0;  ///< degrees clockwise from grid north, 0 to 360
    double length = 0.0;   ///< wanted length of the longest side, metres
    friend bool operator==(const StructureDef&, const StructureDef&) = default;
};

/// The name that a structure goes by: an empty one, or one that begins with "Structure" in any capitals, is the
/// default name of its place.
std::string SettledStructureName(std::string_view name, std::ptrdiff_t index);

/// A file of structures, a block of eight lines each with a blank line between two.
class CStructure : public CArray<StructureDef>, public CFeatureCommon {
public:
    using CFeatureCommon::CFeatureCommon;

    /// With an empty path it is the default structure file of the data folder. True if a record was read.
    bool Read(std::string_view path);
    /// The records alone, from an opened file. A block that is cut short is dropped.
    bool ReadFrom(CStdioFile& file);
    /// Reads the file anew; see CFileListBase::ReadAgain.
    bool ReadAgain();
    /// What stands in the list for a file of no use: its path and one record.
    void MakeStub(std::string_view path, const StructureDef& record);
    /// Rewrites the data file. False, with the file as it was, if it can't be written.
    bool Write();
    /// Writes the data file if the structures aren't what it holds, and the flags likewise: a pane doesn't write a
    /// structure that was only added or renamed. What a file of no use shows isn't written.
    void KeepUnsaved();

private:
    std::vector<StructureDef> written;  ///< what the data file holds
};

/// The structure files of a job, and the drawings that serve as shapes.
class CStructureList : public CFileList<CStructure> {
public:
    using CFileList::CFileList;
    const std::string& GetPath(int index) const override { return (*this)[index].GetPath(); }
    int GetPointCount(int index) const override { return static_cast<int>((*this)[index].GetSize()); }

    /// The path of the cursor's file; empty if there is none.
    std::string CurrentFileName() const;

    /// Takes the drawings of a folder as shapes, in the order of their names regardless of capitals, so that shape
    /// numbers are the same on every machine. What can't be read is left out and named in the result.
    std::vector<std::string> LoadShapes(std::string_view folder);
    /// The folder of the shapes: "Structures" of the data folder.
    std::string ShapesFolder() const;
    const std::vector<std::unique_ptr<CDxf>>& Shapes() const { return shapes; }
    void AddShape(std::unique_ptr<CDxf> shape) { shapes.push_back(std::move(shape)); }

    /// The drawing that a structure wears: the one of its number if that has its name, else the first of its name, else
    /// the one of its number. Null if there is none.
    CDxf* ShapeOf(int fileIndex, int structureIndex) const;
    CDxf* ShapeOf(const StructureDef& structure) const;
    /// The extents of the shape by its drawing's header, in units of the drawing; 0, 0 where there is no shape or the
    /// header has none.
    tagXY ShapeSize(int fileIndex, int structureIndex) const;
    tagXY ShapeSize(const StructureDef& structure) const;
    /// Metres to a unit of the drawing, so that its longest side has the wanted length; 1.0 for a shape without
    /// extents.
    double ScaleFactor(int fileIndex, int structureIndex) const;
    double ScaleFactor(const StructureDef& structure) const;
    /// A record without a shape takes the first one, in its own length.
    void TakeDefaultShape(StructureDef& structure) const;

protected:
    /// A file of no use shows in the list with one structure.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return "Structure"; }

private:
    const StructureDef* RecordAt(int fileIndex, int structureIndex) const;

    std::vector<std::unique_ptr<CDxf>> shapes;
};

}  // namespace quillon
