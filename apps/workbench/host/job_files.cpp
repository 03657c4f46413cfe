#include "host/job_files.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/user_actions.h"

namespace quillon {
namespace {

/// The row by which a pane displays or hides its file: the first box to tick of that name, ahead of those for rings and
/// corridors.
CMFCPropertyGridProperty* FindDisplayRow(CMFCPropertyGridProperty& row) {
    if (!row.IsGroup()) {
        return row.GetKind() == ROW_KIND::CHECK && row.GetName().starts_with("Display") ? &row : nullptr;
    }
    for (int i = 0; i < row.GetSubItemsCount(); ++i) {
        if (CMFCPropertyGridProperty* const found = FindDisplayRow(row.GetSubItem(i))) return found;
    }
    return nullptr;
}

struct DisplayRow {
    CMFCPropertyGridCtrl* list = nullptr;
    CMFCPropertyGridProperty* row = nullptr;
};

DisplayRow DisplayRowOf(const CMyDockablePane& pane) {
    for (CControl* const control : pane.GetControls()) {
        auto* const list = dynamic_cast<CMFCPropertyGridCtrl*>(control);
        if (!list) continue;
        for (int i = 0; i < list->GetPropertyCount(); ++i) {
            if (CMFCPropertyGridProperty* const row = FindDisplayRow(list->GetProperty(i))) return {list, row};
        }
    }
    return {};
}

/// Without a choice the pane is always on its one file.
bool IsOn(CMyDockablePane& pane, int file) {
    const CComboBox* const choice = pane.GetFileControls().choice;
    return choice ? choice->GetCurSel() == file : file == 0;
}

}  // namespace

int FindFile(const JobRecord& job, const JobFile& file) {
    if (file.kind == KIND::NONE) return -1;
    const JobKind& kind = KindOf(file.kind);
    for (int i = 0; i < kind.fileCount(job); ++i) {
        if (kind.path(job, i) == file.path) return i;
    }
    return -1;
}

std::vector<CMyDockablePane*> PanesOf(const Job& job, KIND kind) {
    std::vector<CMyDockablePane*> panes;
    if (kind == KIND::NONE) return panes;
    for (const auto& pane : job.Panes()) {
        if (KindOfPane(pane->GetDlgCtrlID()) == kind) panes.push_back(pane.get());
    }
    return panes;
}

bool ShowFile(Job& job, const JobFile& file) {
    const int index = FindFile(job.Record(), file);
    if (index < 0) return false;
    for (CMyDockablePane* const pane : PanesOf(job, file.kind)) {
        CComboBox* const choice = pane->GetFileControls().choice;
        if (choice && choice->GetCurSel() != index) user::Select(*choice, index);
    }
    return true;
}

bool CanSetDisplayed(const Job& job, KIND kind) {
    const std::vector<CMyDockablePane*> panes = PanesOf(job, kind);
    return !panes.empty() && DisplayRowOf(*panes.front()).row;
}

bool SetDisplayed(Job& job, const JobFile& file, bool displayed) {
    const std::vector<CMyDockablePane*> panes = PanesOf(job, file.kind);
    if (panes.empty() || !ShowFile(job, file)) return false;
    CMyDockablePane& pane = *panes.front();
    if (!IsOn(pane, FindFile(job.Record(), file))) return false;
    const DisplayRow at = DisplayRowOf(pane);
    if (!at.row) return false;
    return at.row->Get<bool>() == displayed || user::Edit(*at.list, *at.row, displayed);
}

bool CanRemove(const Job& job, KIND kind) {
    const std::vector<CMyDockablePane*> panes = PanesOf(job, kind);
    return !panes.empty() && panes.front()->GetFileControls().remove;
}

bool RemoveFile(Job& job, const JobFile& file) {
    if (!CanRemove(job, file.kind) || !ShowFile(job, file)) return false;
    CMyDockablePane& pane = *PanesOf(job, file.kind).front();
    if (!IsOn(pane, FindFile(job.Record(), file))) return false;
    user::Press(*pane.GetFileControls().remove);
    return FindFile(job.Record(), file) < 0;
}

bool ReadAgain(Job& job, const JobFile& file) {
    const int index = FindFile(job.Record(), file);
    const auto readAgain = KindOf(file.kind).readAgain;
    if (index < 0 || !readAgain || !readAgain(job.Record(), index)) return false;
    for (CMyDockablePane* const pane : PanesOf(job, file.kind)) job.BringUpToDate(*pane);
    for (const UINT message : {UM_REDRAW_CHART, UM_REDRAW_VECTOR_DISPLAY, UM_RECOMPUTE_CATENARY_DATA}) {
        job.PostMessage(message);
    }
    return true;
}

bool AddFiles(Job& job, KIND kind) {
    CMyDockablePane* const pane = job.PaneOf(kind);
    if (!pane || !pane->GetFileControls().add) return false;
    user::Press(*pane->GetFileControls().add);
    return true;
}

std::vector<ChangedFile> FilesChangedOnDisk(const JobRecord& job) {
    std::vector<ChangedFile> all;
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(job); ++i) {
            const DISK_CHANGE change = kind.changeOnDisk ? kind.changeOnDisk(job, i) : DISK_CHANGE::NONE;
            if (change != DISK_CHANGE::NONE) all.push_back({{kind.id, kind.path(job, i)}, change});
        }
    }
    return all;
}

}  // namespace quillon
