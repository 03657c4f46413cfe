#include "background/shape_library.h"

#include <shapefil.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/big_array.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;
/// Large pieces go to their place without a stop in the block; the cancel flag is looked at between them.
constexpr std::size_t kPiece = std::size_t{4} << 20;

/// One file that the library has open.
struct Stream {
    CRandomFile file;
    const LoadProgress* progress = nullptr;
    std::uint64_t position = 0;
    BigArray<char> block;
    std::uint64_t blockAt = 0;
    std::size_t blockSize = 0;

    std::size_t Read(char* out, std::size_t size) {
        std::size_t done = 0;
        while (done < size) {
            const std::size_t n = ReadSome(out + done, size - done);
            if (n == 0) break;
            position += n;
            done += n;
        }
        return done;
    }

private:
    std::size_t ReadSome(char* out, std::size_t size) {
        if (position >= blockAt && position - blockAt < blockSize) {
            const auto at = static_cast<std::size_t>(position - blockAt);
            const std::size_t n = std::min(size, blockSize - at);
            std::memcpy(out, block.Data() + at, n);
            return n;
        }
        if (progress && progress->IsCancelled()) return 0;
        if (size >= kBlock) return file.ReadAt(position, out, std::min(size, kPiece));
        if (!block)
            block = BigArray<char>(static_cast<std::size_t>(std::clamp<std::uint64_t>(file.GetLength(), 1, kBlock)));
        blockAt = position;
        blockSize = block ? file.ReadAt(position, block.Data(), block.Size()) : 0;
        return blockSize == 0 ? 0 : ReadSome(out, size);
    }
};

/// What the hooks work with while the library opens its files; they get no argument for it.
struct Opening {
    const ShapeFileOpener* opener = nullptr;
    const LoadProgress* progress = nullptr;
};
thread_local Opening opening;

class OpeningScope {
public:
    OpeningScope(const ShapeFileOpener& opener, const LoadProgress* progress) { opening = {&opener, progress}; }
    ~OpeningScope() { opening = {}; }
};

Stream& StreamOf(SAFile file) {
    return *reinterpret_cast<Stream*>(file);
}

SAFile OpenHook(const char* path, const char*) {
    auto stream = std::make_unique<Stream>();
    stream->progress = opening.progress;
    if (!opening.opener || !(*opening.opener)(path, stream->file)) return nullptr;
    return reinterpret_cast<SAFile>(stream.release());
}
SAOffset ReadHook(void* out, SAOffset size, SAOffset count, SAFile file) {
    return size == 0 ? 0 : StreamOf(file).Read(static_cast<char*>(out), size * count) / size;
}
SAOffset WriteHook(void*, SAOffset, SAOffset, SAFile) {
    return 0;
}
SAOffset SeekHook(SAFile file, SAOffset offset, int whence) {
    Stream& stream = StreamOf(file);
    const std::uint64_t from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? stream.position : stream.file.GetLength();
    stream.position = from + offset;
    return 0;
}
SAOffset TellHook(SAFile file) {
    return StreamOf(file).position;
}
int FlushHook(SAFile) {
    return 0;
}
int CloseHook(SAFile file) {
    delete &StreamOf(file);
    return 0;
}
int RemoveHook(const char*) {
    return -1;
}
void ErrorHook(const char*) {}
double AtofHook(const char* text) {
    return Atof(text);
}

SAHooks& Hooks() {
    static SAHooks hooks = {OpenHook,  ReadHook,  WriteHook,  SeekHook,  TellHook,
                            FlushHook, CloseHook, RemoveHook, ErrorHook, AtofHook};
    return hooks;
}

constexpr std::size_t Count(int n) {
    return n > 0 ? static_cast<std::size_t>(n) : 0;
}

std::span<const double> Values(const double* values, std::size_t count) {
    return {values, values ? count : 0};
}

bool HasZ(int type) {
    return type == SHPT_POINTZ || type == SHPT_ARCZ || type == SHPT_POLYGONZ || type == SHPT_MULTIPOINTZ ||
           type == SHPT_MULTIPATCH;
}

}  // namespace

ShapeFileOpener OpenerOf(const FileSystem& files) {
    return [&files](std::string_view path, CRandomFile& file) { return file.OpenForReading(files, path); };
}

// ---- ShpFile ----

struct ShpFile::Handle {
    SHPHandle shp = nullptr;
    SHPObject* object = nullptr;

    void Drop() {
        if (object) SHPDestroyObject(std::exchange(object, nullptr));
    }
    ~Handle() {
        Drop();
        if (shp) SHPClose(shp);
    }
};

ShpFile::ShpFile(const ShapeFileOpener& opener, std::string_view path, const LoadProgress& progress)
    : handle(std::make_unique<Handle>()) {
    const OpeningScope scope(opener, &progress);
    handle->shp = SHPOpenLL(std::string(path).c_str(), "rb", &Hooks());
    if (!handle->shp) return;
    // In this mode the library keeps one object, and makes no z and m for records that have none.
    SHPSetFastModeReadObject(handle->shp, 1);
    length = StreamOf(handle->shp->fpSHP).file.GetLength();
    SHPGetInfo(handle->shp, nullptr, nullptr, boundsMin.data(), boundsMax.data());
}

ShpFile::~ShpFile() = default;

bool ShpFile::IsOpen() const {
    return handle->shp != nullptr;
}
int ShpFile::GetCount() const {
    return handle->shp->nRecords;
}
int ShpFile::GetType() const {
    return handle->shp->nShapeType;
}
std::uint64_t ShpFile::GetClaimedLength() const {
    return handle->shp->nFileSize;
}

bool ShpFile::Read(int index, ShapeView& view) {
    handle->Drop();
    handle->object = SHPReadObject(handle->shp, index);
    if (!handle->object) return false;
    const SHPObject& object = *handle->object;
    const std::size_t vertices = Count(object.nVertices), parts = Count(object.nParts);
    view.type = object.nSHPType;
    view.x = Values(object.padfX, vertices);
    view.y = Values(object.padfY, vertices);
    view.z = Values(HasZ(object.nSHPType) ? object.padfZ : nullptr, vertices);
    view.m = Values(object.bMeasureIsUsed ? object.padfM : nullptr, vertices);
    view.partStarts = {object.panPartStart, parts};
    view.partTypes = {object.panPartType, parts};
    view.boundsMin = {object.dfXMin, object.dfYMin, object.dfZMin, object.dfMMin};
    view.boundsMax = {object.dfXMax, object.dfYMax, object.dfZMax, object.dfMMax};
    return true;
}

// ---- DbfFile ----

struct DbfFile::Handle {
    DBFHandle dbf = nullptr;

    ~Handle() {
        if (dbf) DBFClose(dbf);
    }
};

DbfFile::DbfFile(const ShapeFileOpener& opener, std::string_view path) : handle(std::make_unique<Handle>()) {
    const OpeningScope scope(opener, nullptr);
    handle->dbf = DBFOpenLL(std::string(path).c_str(), "rb", &Hooks());
    if (!handle->dbf) return;
    const char* page = DBFGetCodePage(handle->dbf);
    utf8 = page && (EqualNoCase(Trim(page), "UTF-8") || EqualNoCase(Trim(page), "UTF8") || Trim(page) == "65001");
}

DbfFile::~DbfFile() = default;

bool DbfFile::IsOpen() const {
    return handle->dbf != nullptr;
}
int DbfFile::GetRows() const {
    return DBFGetRecordCount(handle->dbf);
}
int DbfFile::GetColumns() const {
    return DBFGetFieldCount(handle->dbf);
}

std::string DbfFile::GetColumnName(int column) const {
    char name[XBASE_FLDNAME_LEN_READ + 1] = {};
    DBFGetFieldInfo(handle->dbf, column, name, nullptr, nullptr);
    std::string_view text(name, ::strnlen(name, sizeof name));
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return utf8 ? TextFromUtf8(text) : std::string(text);
}

std::string DbfFile::GetText(int row, int column) {
    if (row < 0 || row >= GetRows() || column < 0 || column >= GetColumns()) return {};
    if (DBFIsAttributeNULL(handle->dbf, row, column)) return {};
    const char* value = DBFReadStringAttribute(handle->dbf, row, column);
    if (!value) return {};
    const std::string_view text = Trim(value);
    return utf8 ? TextFromUtf8(text) : std::string(text);
}

}  // namespace quillon
