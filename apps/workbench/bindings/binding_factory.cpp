#include "bindings/binding_factory.h"

#include "bindings/button_binding.h"
#include "bindings/combo_binding.h"
#include "bindings/property_list_binding.h"
#include "bindings/table_binding.h"

namespace quillon {

BindingFactory::BindingFactory(SymbolPainter symbols) {
    Add<CButton>([](CButton& button, QWidget* parent) { return new ButtonBinding(button, parent); });
    Add<CComboBox>([](CComboBox& combo, QWidget* parent) { return new ComboBinding(combo, parent); });
    Add<CListCtrl>([](CListCtrl& table, QWidget* parent) { return new TableBinding(table, parent); });
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
