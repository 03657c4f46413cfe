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

/// 11 overview records, as the first number of every file says, with its bytes the other way round.
bool IsBigEndian(const GsbHeader& header) {
    constexpr std::int32_t kElevenBackwards = 11 << 24;
    return header.Integer(NUM_OREC) == kElevenBackwards;
}

GSB_FAULT FaultOf(const GsbHeader& header, std::uint64_t nodesHeld) {
    const bool named = header.Keyword(NUM_OREC) == kGsbRecords[NUM_OREC].keyword &&
                       header.Keyword(GS_COUNT) == kGsbRecords[GS_COUNT].keyword;
    if (!named) return GSB_FAULT::NOT_NTV2;
    if (IsBigEndian(header)) return GSB_FAULT::HIGH_BYTE_FIRST;
    const std::int32_t count = header.Integer(GS_COUNT);
    if (count <= 0) return GSB_FAULT::NO_NODES;
    return static_cast<std::uint64_t>(count) > nodesHeld ? GSB_FAULT::CUT_SHORT : GSB_FAULT::NONE;
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

std::string_view FaultText(GSB_FAULT fault) {
    switch (fault) {
        case GSB_FAULT::NONE:
            return "is whole";
        case GSB_FAULT::SHORT_HEADER:
            return "ends within its header";
        case GSB_FAULT::NOT_NTV2:
            return "isn't an NTv2 file";
        case GSB_FAULT::HIGH_BYTE_FIRST:
            return "is big-endian, which isn't read";
        case GSB_FAULT::NO_NODES:
            return "counts no nodes";
        case GSB_FAULT::CUT_SHORT:
            return "holds fewer nodes than it counts";
    }
    return {};
}

double SecondsPerUnit(const GsbHeader& header) {
    const std::string unit = header.Text(GS_TYPE);
    if (unit == "SECONDS") return 1;
    if (unit == "MINUTES") return 60;
    return unit == "DEGREES" ? 3600 : 0;
}

std::shared_ptr<const GsbFile> ReadGsb(CStdioFile& file, GSB_FAULT* fault) {
    auto loaded = std::make_shared<GsbFile>();
    auto& bytes = loaded->header.bytes;
    const bool whole = file.Read(bytes.data(), bytes.size()) == bytes.size();
    const std::uint64_t held = whole ? (file.GetLength() - GsbHeader::kSize) / sizeof(GridShiftRecordDef) : 0;
    const GSB_FAULT found = whole ? FaultOf(loaded->header, held) : GSB_FAULT::SHORT_HEADER;
    if (fault) *fault = found;
    const std::int32_t count = loaded->header.Integer(GS_COUNT);
    if (!whole || count <= 0 || static_cast<std::uint64_t>(count) > held) return nullptr;
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
