#include "panes/outline_page.h"

#include "foundation/angle_rows.h"

namespace quillon {
namespace {

enum ALIGNMENT_ROW { ALIGNMENT_TRUE, ALIGNMENT_GRID, ALIGNMENT_CONVERGENCE };

/// Tells beside the angle why it is none.
class ConvergenceRow : public CMFCPropertyGridAngleDouble {
public:
    explicit ConvergenceRow(const COutline& outline)
        : CMFCPropertyGridAngleDouble("Convergence", outline.convergence, AS_CONVERGENCE, "", 0u),
          note(outline.ConvergenceNote()) {}
    std::string FormatProperty() const override {
        const std::string angle = CMFCPropertyGridAngleDouble::FormatProperty();
        return note.empty() ? angle : angle + "  (" + note + ")";
    }
    void SetNote(std::string_view text) {
        note = text;
        Redraw();
    }

protected:
    void Follow(const CMFCPropertyGridProperty& fresh) override {
        SetNote(static_cast<const ConvergenceRow&>(fresh).note);
        CMFCPropertyGridAngleDouble::Follow(fresh);
    }

private:
    std::string note;
};

}  // namespace

void COutlinePage::Init() {
    list.EnableHeaderCtrl(false, "Property", "Value");
    list.EnableDescriptionArea(true);
    list.SetVSDotNetLook(true);
    list.MarkModifiedProperties(true);
    list.RemoveAll();
    Build();
}

void COutlinePage::Build() {
    if (object) {
        BuildRows();
    } else {
        list.Add<CMFCPropertyGridTitleProperty>("No Files Selected");
    }
}

void COutlinePage::SetRow(UINT id, RowValue value) {
    if (CMFCPropertyGridProperty* const row = list.FindItemByData(id)) row->SetValue(std::move(value));
}

void COutlinePage::SetRow(Place place, double value) {
    if (object) list.GetProperty(place.group).GetSubItem(place.row).SetValue(value);
}

void COutlinePage::SetChoicesOf(UINT id, const Choices& choices) {
    if (CMFCPropertyGridProperty* const row = list.FindItemByData(id)) SetChoices(*row, choices);
}

void COutlinePage::ShowRow(UINT id, bool shown) {
    if (CMFCPropertyGridProperty* const row = list.FindItemByData(id)) row->Show(shown);
}

void COutlinePage::BuildAlignment(UINT trueId) {
    auto& group = list.AddGroup("Alignment");
    group.Add<CMFCPropertyGridAngleDouble>("True", object->trueAlignment, AS_FULL,
                                           "True Alignment of Shadow in Degrees", trueId);
    AddShownAngle(group, "Grid", object->gridAlignment);
    group.Add<ConvergenceRow>(*object).AllowEdit(false);
}

void COutlinePage::ShowAlignment(UINT trueId, int group) {
    if (!object) return;
    SetRow(trueId, object->trueAlignment);
    SetRow({group, ALIGNMENT_GRID}, object->gridAlignment);
    SetRow({group, ALIGNMENT_CONVERGENCE}, object->convergence);
    auto& row = list.GetProperty(group).GetSubItem(ALIGNMENT_CONVERGENCE);
    static_cast<ConvergenceRow&>(row).SetNote(object->ConvergenceNote());
}

void COutlinePage::AddShown(CMFCPropertyGridProperty& group, std::string_view name, double value,
                            std::string_view format, std::string_view description, UINT id) {
    group.Add<CMFCPropertyGridDouble>(name, value, format, description, id).AllowEdit(false);
}

void COutlinePage::AddShownAngle(CMFCPropertyGridProperty& group, std::string_view name, double degrees) {
    group.Add<CMFCPropertyGridAngleDouble>(name, degrees, AS_SHORT, "", 0u).AllowEdit(false);
}

void COutlinePage::AddChoices(CMFCPropertyGridProperty& group, std::string_view name, const Choices& choices,
                              std::string_view description, UINT id) {
    auto& row = group.Add<CMFCPropertyGridProperty>(name, ChosenText(choices), description, id);
    SetChoices(row, choices);
    row.AllowEdit(false);
}

}  // namespace quillon
