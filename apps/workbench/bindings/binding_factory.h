#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "bindings/control_binding.h"
#include "bindings/row_pictures.h"

namespace quillon {

/// Makes the binding of a control by the control's type. It knows the controls of the floors platform and frame; a host
/// adds what it shows by itself:
///
///     factory.Add<CStructureView, StructureViewBinding>();
///
/// What was added last is asked first, so that a derived control gets its own binding.
class BindingFactory {
public:
    explicit BindingFactory(SymbolPainter symbols = {});
    BindingFactory(const BindingFactory&) = delete;
    BindingFactory& operator=(const BindingFactory&) = delete;

    template <class Model, class Make>
    void Add(Make make) {
        makers.push_back([make](CControl& control, QWidget* parent) -> ControlBinding* {
            Model* const model = dynamic_cast<Model*>(&control);
            return model ? make(*model, parent) : nullptr;
        });
    }

    /// A binding that is made from model and parent alone.
    template <class Model, class Binding>
    void Add() {
        Add<Model>([](Model& model, QWidget* parent) { return new Binding(model, parent); });
    }

    /// A child of `parent`, which owns it. Null for a control of a type that nobody added.
    ControlBinding* Make(CControl& control, QWidget* parent) const;

private:
    std::vector<std::function<ControlBinding*(CControl&, QWidget*)>> makers;
};

}  // namespace quillon
