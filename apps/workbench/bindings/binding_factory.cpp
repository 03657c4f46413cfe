#include "bindings/binding_factory.h"

#include "bindings/button_binding.h"
#include "bindings/combo_binding.h"
#include "bindings/dialog_control_bindings.h"
#include "bindings/grid_list_binding.h"
#include "bindings/number_edit_binding.h"
#include "bindings/property_list_binding.h"
#include "bindings/tab_binding.h"
#include "bindings/table_binding.h"

namespace quillon {

BindingFactory::BindingFactory(SymbolPainter symbols) {
    Add<CButton, ButtonBinding>();
    Add<CComboBox, ComboBinding>();
    Add<CListCtrl, TableBinding>();
    Add<CMyListCtrl, GridListBinding>();
    Add<CStatic, StaticBinding>();
    Add<CProgressCtrl, ProgressBinding>();
    Add<CEdit, EditBinding>();
    Add<CBaseEditCtrl, NumberEditBinding>();
    Add<CCheckBox, CheckBinding>();
    Add<CListBox, ListBoxBinding>();
    Add<CRadioGroup, RadioBinding>();
    Add<CMFCTabCtrl>([this](CMFCTabCtrl& tabs, QWidget* parent) { return new TabBinding(tabs, *this, parent); });
    Add<CMFCPropertyGridCtrl>([symbols = std::move(symbols)](CMFCPropertyGridCtrl& list, QWidget* parent) {
        return new PropertyListBinding(list, symbols, parent);
    });
}

ControlBinding* BindingFactory::Make(CControl& control, QWidget* parent) const {
    for (auto maker = makers.rbegin(); maker != makers.rend(); ++maker) {
        if (ControlBinding* const binding = (*maker)(control, parent)) return binding;
    }
    return nullptr;
}

}  // namespace quillon
