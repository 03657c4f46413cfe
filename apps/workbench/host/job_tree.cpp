#include "host/job_tree.h"

#include <algorithm>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

const ReadReport& ReportOf(const JobRecord& job, const JobKind& kind, int file) {
    static const ReadReport kNone = [] {
        ReadReport none;
        none.opened = true;
        return none;
    }();
    return kind.report ? kind.report(job, file) : kNone;
}

int PointsOf(const JobRecord& job, const JobKind& kind, int file) {
    return kind.pointCount ? kind.pointCount(job, file) : 0;
}

std::string Lines(std::size_t count) {
    return count == 1 ? "1 line" : Format("%zu lines", count);
}

}  // namespace

JobTree::JobTree(const JobRecord& shownJob) : job(shownJob), files(kKindCount) {}

TreeFile JobTree::Look(const JobKind& kind, int file) const {
    const ReadReport& report = ReportOf(job, kind, file);
    TreeFile look{.path = kind.path(job, file),
                  .name = {},
                  .displayed = kind.isDisplayed(job, file),
                  .look = kind.look(job, file),
                  .points = PointsOf(job, kind, file),
                  .mark = TREE_MARK::NONE,
                  // Without a fault it is still to be read, behind the job.
                  .opened = report.opened || report.fault.empty(),
                  .lines = report.lines,
                  .found = report.passedOver + report.remarks + (report.labelsCut ? 1u : 0u)};
    look.name = NameOfPath(look.path);
    const bool isStub = kind.isStub && kind.isStub(job, file);
    if (isStub) look.points = 0;
    if (!look.opened) {
        look.mark = TREE_MARK::MISSING;
    } else if (isStub) {
        look.mark = TREE_MARK::STUB;
    } else if (changed.contains({kind.id, look.path})) {
        look.mark = TREE_MARK::CHANGED;
    } else if (look.found > 0) {
        look.mark = TREE_MARK::LINES_PASSED_OVER;
    }
    return look;
}

void JobTree::SetChanged(const std::vector<ChangedFile>& changedFiles) {
    changed.clear();
    for (const ChangedFile& file : changedFiles) changed.insert(file.file);
}

void JobTree::Refresh() {
    for (const JobKind& kind : JobKinds()) RefreshKind(kind);
}

/// What stands before the first path that is another, and what stands behind the last one, stays.
void JobTree::RefreshKind(const JobKind& kind) {
    std::vector<TreeFile>& rows = files[static_cast<std::size_t>(kind.id)];
    const int count = kind.fileCount(job);
    const auto old = static_cast<int>(rows.size());
    const auto isSame = [&](int row, int file) {
        return rows[static_cast<std::size_t>(row)].path == kind.path(job, file);
    };
    int front = 0;
    while (front < old && front < count && isSame(front, front)) ++front;
    int back = 0;
    while (back < old - front && back < count - front && isSame(old - 1 - back, count - 1 - back)) ++back;
    if (front < old - back) {
        if (observer) observer->OnFilesGoing(kind.id, front, old - back - 1);
        rows.erase(rows.begin() + front, rows.end() - back);
        if (observer) observer->OnFilesGone();
    }
    if (front < count - back) {
        std::vector<TreeFile> came;
        for (int file = front; file < count - back; ++file) came.push_back(Look(kind, file));
        for (const TreeFile& file : came) NoteReading(kind, file);
        if (observer) observer->OnFilesComing(kind.id, front, count - back - 1);
        rows.insert(rows.begin() + front, std::make_move_iterator(came.begin()), std::make_move_iterator(came.end()));
        if (observer) observer->OnFilesCame();
    }
    UpdateRows(kind, 0, front);
    UpdateRows(kind, count - back, count);
}

void JobTree::UpdateRows(const JobKind& kind, int first, int last) {
    std::vector<TreeFile>& rows = files[static_cast<std::size_t>(kind.id)];
    for (int row = first; row < last; ++row) {
        TreeFile& shown = rows[static_cast<std::size_t>(row)];
        TreeFile now = Look(kind, row);
        if (now == shown) continue;
        const bool readAgain = now.opened != shown.opened || now.lines != shown.lines || now.found != shown.found;
        shown = std::move(now);
        if (readAgain) NoteReading(kind, shown);
        if (observer) observer->OnFilesChanged(kind.id, row, row);
    }
}

void JobTree::NoteReading(const JobKind& kind, const TreeFile& file) {
    if (file.opened && file.found == 0) return;
    JobFile known{kind.id, file.path};
    if (std::find(news.begin(), news.end(), known) == news.end()) news.push_back(std::move(known));
}

bool JobTree::HasMarks() const {
    return std::any_of(files.begin(), files.end(), [](const std::vector<TreeFile>& rows) {
        return std::any_of(rows.begin(), rows.end(), [](const TreeFile& row) { return row.mark != TREE_MARK::NONE; });
    });
}

int JobTree::RowOf(const JobFile& file) const {
    if (file.kind == KIND::NONE) return -1;
    const std::vector<TreeFile>& rows = FilesOf(file.kind);
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const TreeFile& row) { return row.path == file.path; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

std::string JobTree::TipOf(KIND kindId, int row) const {
    const JobKind& kind = KindOf(kindId);
    const TreeFile& file = FilesOf(kindId).at(static_cast<std::size_t>(row));
    std::string tip = file.path;
    const int index = FindFile(job, {kindId, file.path});
    if (index < 0) return tip;
    const ReadReport& report = ReportOf(job, kind, index);
    if (file.mark == TREE_MARK::MISSING) {
        tip += "\nCan't be read";
        if (!report.fault.empty()) tip += ": " + report.fault;
        return tip;
    }
    if (file.mark == TREE_MARK::STUB) tip += "\nNothing in it can be used";
    if (file.points > 0) tip += Format("\n%d point%s", file.points, file.points == 1 ? "" : "s");
    if (report.passedOver > 0) {
        tip += Format("\n%zu of ", report.passedOver) + Lines(report.lines) + " passed over";
        if (!report.named.empty()) {
            tip += Format(", the first is line %zu: ", report.named.front().number);
            tip += ReasonText(report.named.front().reason);
        }
    }
    if (report.remarks > 0) tip += "\n" + Lines(report.remarks) + " taken in part";
    if (kind.notes) {
        for (const std::string& note : kind.notes(job, index)) tip += "\n" + note;
    }
    if (report.labelsCut) tip += "\nThe KP labels end early: the interval asks for too many";
    if (changed.contains({kindId, file.path})) tip += "\nAnother program has changed the file since it was read";
    return tip;
}

std::string NewsText(const JobTree& tree, const std::vector<JobFile>& news) {
    std::vector<const TreeFile*> shown;
    for (const JobFile& file : news) {
        const int row = tree.RowOf(file);
        if (row >= 0) shown.push_back(&tree.FilesOf(file.kind)[static_cast<std::size_t>(row)]);
    }
    if (shown.empty()) return {};
    if (shown.size() == 1) {
        const TreeFile& file = *shown.front();
        if (!file.opened) return file.name + " can't be read";
        return file.name + Format(": %zu of ", file.found) + Lines(file.lines) + " passed over or taken in part";
    }
    std::size_t found = 0, unread = 0;
    for (const TreeFile* const file : shown) {
        found += file->found;
        unread += file->opened ? 0 : 1;
    }
    std::string text = Format("%zu files: ", shown.size());
    if (found > 0) text += Lines(found) + " passed over or taken in part";
    if (found > 0 && unread > 0) text += ", ";
    if (unread > 0) text += unread == 1 ? "1 can't be read" : Format("%zu can't be read", unread);
    return text;
}

}  // namespace quillon
