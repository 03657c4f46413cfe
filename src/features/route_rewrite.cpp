#include "features/route_rewrite.h"

#include <algorithm>
#include <optional>

#include "features/route.h"
#include "foundation/field_scanner.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kShownText = 60;
/// Far above any route, and no more than a machine holds.
constexpr std::size_t kLargestFile = std::size_t{1} << 30;
constexpr int kMostOriginals = 1000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// True for what separates fields and says nothing: white space, commas.
bool SaysNothing(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsSpace(c) || c == ','; });
}

/// What a scanner took between two of its states, without the separator behind it and the white space around it.
std::string_view Taken(std::string_view before, std::string_view after) {
    std::string_view taken = Trim(before.substr(0, static_cast<std::size_t>(after.data() - before.data())));
    if (taken.ends_with(',')) taken.remove_suffix(1);
    return Trim(taken);
}

/// Takes the fields of a line and sees what belongs to none of them.
class Accountant {
public:
    explicit Accountant(std::string_view line) : fields(line) {}

    void PassNumber() {
        const std::string_view before = fields.Rest();
        fields.NextNumber();
        double number = 0.0;
        lost |= !ScanNumber(Taken(before, fields.Rest()), number);
    }
    void PassName() {
        const std::string_view before = fields.Rest();
        const std::string_view field = fields.NextField();
        std::string_view taken = Taken(before, fields.Rest());
        if (!taken.starts_with('"')) return;
        taken.remove_prefix(std::min(taken.size(), field.size() + 1));
        if (taken.starts_with('"')) taken.remove_prefix(1);
        lost |= !SaysNothing(taken);
    }
    bool HasLost() const { return lost || !SaysNothing(fields.Rest()); }

private:
    FieldScanner fields;
    bool lost = false;
};

bool HasOtherText(std::string_view line, int order) {
    Accountant accountant(line);
    if (order == 1) accountant.PassName();
    accountant.PassNumber();
    accountant.PassNumber();
    if (order == 2) accountant.PassName();
    return accountant.HasLost();
}

bool HasOtherThanAscii(std::string_view text, std::size_t from) {
    return std::any_of(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) > 127; });
}

std::string NameOf(const RouteDef& record, int order, std::size_t index) {
    return order == 0 ? RoutePointName(static_cast<std::ptrdiff_t>(index)) : record.name;
}

}  // namespace

std::string_view LossText(LOSS loss) {
    switch (loss) {
        case LOSS::LINE:
            return "lines without a point";
        case LOSS::TEXT:
            return "lines with text that belongs to no field";
        case LOSS::NAME:
            return "names";
        case LOSS::POSITION:
            return "positions with more than 3 decimals";
        case LOSS::MARK:
            return "byte order mark";
    }
    return {};
}

bool RewriteLosses::Any() const {
    return std::any_of(counts.begin(), counts.end(), [](std::size_t count) { return count > 0; });
}

void RewriteLosses::Add(LOSS loss, std::size_t line, std::string_view text) {
    ++counts[static_cast<std::size_t>(loss)];
    if (named.size() < kMostNamed) named.push_back({line, loss, std::string(Trim(text).substr(0, kShownText))});
}

// ---- Before anything is written ----

CRouteRewrite::CRouteRewrite(CRoute& owner) : route(owner), files(owner.GetFiles()) {
    if (route.IsStub() || route.IsEmpty()) {
        result.fault = "it gave no point";
    } else if (ReadOld()) {
        CDelimitedLine encoded;
        for (const RouteDef& record : route) {
            newBytes += EncodeRoutePoint(encoded, record, route.dataOrder);
            newEnds.push_back(newBytes.size());
        }
        Compare();
    }
}

/// The file as it stands; nothing for a route that has none yet.
bool CRouteRewrite::ReadOld() {
    CStdioFile file(files);
    const bool opened = file.OpenForReading(route.GetPath(), FILE_MODE::BINARY);
    if (!opened && files.Exists(route.GetPath())) {
        result.fault = file.GetFault();
    } else if (file.GetStamp() != route.GetReadStamp()) {
        result.fault = "it has changed on the disk since it was read";
    } else if (opened && !file.ReadAll(oldBytes, kLargestFile)) {
        result.fault = "it can't be read whole";
    }
    return result.fault.empty();
}

void CRouteRewrite::Compare() {
    CStdioFile file(files);
    file.OpenBytes(oldBytes);
    std::string_view text;
    for (std::uint64_t from = 0; file.ReadString(text); from = file.GetPosition()) {
        ++line;
        // Of an endless line the reader gives the head alone.
        if (text.size() == CStdioFile::kLongestLine && file.GetPosition() - from > text.size() + 2) {
            result.losses.Add(LOSS::TEXT, line, text);
        }
        CompareLine(text);
    }
    const bool needsMark = oldBytes.starts_with(kByteOrderMark) && HasOtherThanAscii(oldBytes, kByteOrderMark.size());
    if (needsMark) result.losses.Add(LOSS::MARK, 1, {});
}

void CRouteRewrite::CompareLine(std::string_view text) {
    RouteDef was;
    if (DecodeRoutePoint(text, route.GetReadOrder(), was) == PASSED_OVER::NO) {
        if (HasOtherText(text, route.GetReadOrder())) result.losses.Add(LOSS::TEXT, line, text);
        ComparePoint(text, was);
        ++points;
    } else if (!SaysNothing(text)) {
        result.losses.Add(LOSS::LINE, line, text);
    }
}

/// The point as it was beside what the new line is read back as.
void CRouteRewrite::ComparePoint(std::string_view text, const RouteDef& was) {
    RouteDef now;
    const bool readsBack =
        points < newEnds.size() && DecodeRoutePoint(NewLine(points), route.dataOrder, now) == PASSED_OVER::NO;
    if (!readsBack || now.position != was.position) result.losses.Add(LOSS::POSITION, line, text);
    const std::string name = NameOf(now, route.dataOrder, points);
    if (Trim(name) != Trim(NameOf(was, route.GetReadOrder(), points))) result.losses.Add(LOSS::NAME, line, text);
}

std::string_view CRouteRewrite::NewLine(std::size_t index) const {
    const std::size_t from = index == 0 ? 0 : newEnds[index - 1];
    constexpr std::size_t kLineEnd = 2;
    return std::string_view(newBytes).substr(from, newEnds[index] - from - kLineEnd);
}

// ---- Writing ----

const RouteSave& CRouteRewrite::Commit() {
    if (!result.fault.empty()) {
        // What gave no point isn't ours to replace, and nobody expects it to be.
        if (!route.IsStub() && !route.IsEmpty()) files.TellSaveFailed({route.GetPath(), result.fault});
        return result;
    }
    result.saved = (!result.losses.Any() || KeepOriginal()) && Replace();
    return result;
}

bool CRouteRewrite::KeepOriginal() {
    const tagPathParts parts = SplitPath(route.GetPath());
    const std::string end = parts.extension.empty() ? std::string() : '.' + parts.extension;
    for (int i = 1; i <= kMostOriginals; ++i) {
        const std::string mark = i == 1 ? std::string(" (original)") : Format(" (original %d)", i);
        result.original = parts.folder + parts.name + mark + end;
        if (Holds(result.original, oldBytes)) return true;
        if (!files.Exists(result.original)) return Write(result.original, oldBytes, false);
    }
    result.fault = "there are too many originals beside it";
    return false;
}

bool CRouteRewrite::Holds(const std::string& path, std::string_view wanted) {
    CStdioFile file(files);
    std::string bytes;
    return file.OpenForReading(path, FILE_MODE::BINARY) && file.GetLength() == wanted.size() &&
           file.ReadAll(bytes, wanted.size()) && bytes == wanted;
}

bool CRouteRewrite::Write(const std::string& path, std::string_view contents, bool overOld) {
    CStdioFile file(files);
    bool written = file.OpenForWriting(path, FILE_MODE::BINARY);
    file.ExpectStamp(overOld ? route.GetReadStamp() : std::nullopt);
    file.WriteString(contents);
    written = written && file.Commit();
    if (!written) result.fault = file.GetFault();
    if (written && overOld) route.SetReadStamp(file.GetStamp());
    return written;
}

/// Both files or neither: see data_order.h.
bool CRouteRewrite::Replace() {
    const std::string& path = route.GetPath();
    const std::int32_t stored = LoadDataOrder(files, path);
    CheckOfBytes check;
    check.Add(newBytes);
    const bool noted = stored != route.dataOrder;
    if (noted && !NoteRewrite(files, stored, {path, route.dataOrder, check.Text()})) {
        result.fault = "its data order can't be stored";
        return false;
    }
    if (newBytes != oldBytes && !Write(path, newBytes, true)) {
        if (noted) SaveDataOrder(files, route.GetName(), stored);
        return false;
    }
    SaveDataOrder(files, route.GetName(), route.dataOrder);
    route.readOrder = route.dataOrder;
    return true;
}

}  // namespace quillon
