#include "features/data_order.h"

#include <vector>

#include "foundation/config_file.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kOrderSuffix = "_DATA_ORDER";
constexpr std::size_t kBlock = std::size_t{64} << 10;

std::string OrderName(std::string_view name) {
    return std::string(name) + std::string(kOrderSuffix);
}

/// Empty for a file that can't be read.
std::string CheckOfFile(FileSystem& files, std::string_view path) {
    CStdioFile file(files);
    if (!file.OpenForReading(path, FILE_MODE::BINARY)) return {};
    CheckOfBytes check;
    std::vector<char> block(kBlock);
    while (const std::size_t size = file.Read(block.data(), block.size())) check.Add({block.data(), size});
    return check.Text();
}

}  // namespace

std::int32_t LoadDataOrder(FileSystem& files, std::string_view path) {
    const std::string name = SplitPath(path).name;
    CConfigFile file(files);
    if (!file.OpenForRead(OrderName(name))) return 0;
    const std::int32_t order = file.ReadInt(0);
    const PlannedRewrite planned{.path = file.ReadText(), .order = file.ReadInt(0), .check = file.ReadText()};
    if (planned.path.empty() || !EqualNoCase(planned.path, path)) return order;
    const std::int32_t settled = CheckOfFile(files, path) == planned.check ? planned.order : order;
    if (files.Access() == FILE_ACCESS::READ_WRITE) SaveDataOrder(files, name, settled);
    return settled;
}

bool SaveDataOrder(FileSystem& files, std::string_view name, std::int32_t order) {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(OrderName(name))) return false;
    file.WriteInt("Data Order", order);
    return file.Commit();
}

std::optional<std::int32_t> StoredDataOrder(FileSystem& files, std::string_view name) {
    CConfigFile file(files);
    if (!file.OpenForRead(OrderName(name))) return std::nullopt;
    const std::int32_t order = file.ReadInt(0);
    return file.ReadText().empty() ? std::optional(order) : std::nullopt;
}

bool NoteRewrite(FileSystem& files, std::int32_t current, const PlannedRewrite& planned) {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(OrderName(SplitPath(planned.path).name))) return false;
    file.WriteInt("Data Order", current);
    file.WriteText("Rewritten File", planned.path);
    file.WriteInt("Rewritten Order", planned.order);
    file.WriteText("Rewritten Bytes", planned.check);
    return file.Commit();
}

void CheckOfBytes::Add(std::string_view bytes) {
    constexpr std::uint64_t kPrime = 0x100000001B3u;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    size += bytes.size();
}

std::string CheckOfBytes::Text() const {
    return Format("%llu %llx", static_cast<unsigned long long>(size), static_cast<unsigned long long>(hash));
}

}  // namespace quillon
