#include "geodesy/gsb_file.h"

#include <bit>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <optional>
#include <utility>

namespace quillon {

static_assert(std::endian::native == std::endian::little, "nodes are read as they stand in the file");

const std::array<GsbRecordDef, GSB_RECORDS> kGsbRecords = {{
    {"NUM_OREC", GSB_VALUE::INTEGER}, {"NUM_SREC", GSB_VALUE::INTEGER}, {"NUM_FILE", GSB_VALUE::INTEGER},
    {"GS_TYPE", GSB_VALUE::TEXT},     {"VERSION", GSB_VALUE::TEXT},     {"SYSTEM_F", GSB_VALUE::TEXT},
    {"SYSTEM_T", GSB_VALUE::TEXT},    {"MAJOR_F", GSB_VALUE::REAL},     {"MINOR_F", GSB_VALUE::REAL},
    {"MAJOR_T", GSB_VALUE::REAL},     {"MINOR_T", GSB_VALUE::REAL},     {"SUB_NAME", GSB_VALUE::TEXT},
    {"PARENT", GSB_VALUE::TEXT},      {"CREATED", GSB_VALUE::TEXT},     {"UPDATED", GSB_VALUE::TEXT},
    {"S_LAT", GSB_VALUE::REAL},       {"N_LAT", GSB_VALUE::REAL},       {"E_LONG", GSB_VALUE::REAL},
    {"W_LONG", GSB_VALUE::REAL},      {"LAT_INC", GSB_VALUE::REAL},     {"LONG_INC", GSB_VALUE::REAL},
    {"GS_COUNT", GSB_VALUE::INTEGER},
}};

namespace {

constexpr std::size_t kKeywordSize = 8;

std::string EightCharacters(const char* bytes) {
    std::string_view text(bytes, kKeywordSize);
    const std::size_t last = text.find_last_not_of(std::string_view(" \0", 2));
    return std::string(text.substr(0, last + 1));  // npos + 1 is 0: nothing but padding
}

template <class T>
T ValueAt(const GsbHeader& header, GSB_RECORD record) {
    T value;
    std::memcpy(&value, header.bytes.data() + record * GsbHeader::kRecordSize + kKeywordSize, sizeof value);
    return value;
}

/// The last files read, newest first.
class GsbCache {
public:
    std::shared_ptr<const GsbFile> Load(FileSystem& files, std::string_view path) {
        const std::lock_guard lock(mutex);
        const std::optional<FileStamp> stamp = files.Stamp(path);
        if (!stamp) return nullptr;
        const std::filesystem::path native = files.Native(path);
        for (const Entry& entry : entries) {
            if (entry.file && entry.native == native && entry.stamp == *stamp) return entry.file;
        }
        CStdioFile file(files);
        if (!file.OpenForReading(path, FILE_MODE::BINARY)) return nullptr;
        std::shared_ptr<const GsbFile> loaded = ReadGsb(file);
        if (loaded) {
            entries[1] = std::move(entries[0]);
            entries[0] = {native, *stamp, loaded};
        }
        return loaded;
    }

private:
    struct Entry {
        std::filesystem::path native;
        FileStamp stamp;
        std::shared_ptr<const GsbFile> file;
    };
    std::mutex mutex;
    std::array<Entry, 2> entries;  // guarded by mutex
};

}  // namespace

std::string GsbHeader::Keyword(GSB_RECORD record) const {
    return EightCharacters(bytes.data() + record * kRecordSize);
}
std::int32_t GsbHeader::Integer(GSB_RECORD record) const {
    return ValueAt<std::int32_t>(*this, record);
}
double GsbHeader::Real(GSB_RECORD record) const {
    return ValueAt<double>(*this, record);
}
std::string GsbHeader::Text(GSB_RECORD record) const {
    return EightCharacters(bytes.data() + record * kRecordSize + kKeywordSize);
}

std::shared_ptr<const GsbFile> ReadGsb(CStdioFile& file) {
    auto loaded = std::make_shared<GsbFile>();
    auto& bytes = loaded->header.bytes;
    if (file.Read(bytes.data(), bytes.size()) != bytes.size()) return nullptr;
    const std::int32_t count = loaded->header.Integer(GS_COUNT);
    const std::uint64_t held = (file.GetLength() - GsbHeader::kSize) / sizeof(GridShiftRecordDef);
    if (count <= 0 || static_cast<std::uint64_t>(count) > held) return nullptr;
    loaded->nodes.resize(static_cast<std::size_t>(count));
    const std::size_t size = loaded->nodes.size() * sizeof(GridShiftRecordDef);
    if (file.Read(loaded->nodes.data(), size) != size) return nullptr;
    return loaded;
}

std::shared_ptr<const GsbFile> LoadGsb(FileSystem& files, std::string_view path) {
    static GsbCache cache;
    return cache.Load(files, path);
}

}  // namespace quillon
