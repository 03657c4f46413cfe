#pragma once

#include <QWidget>

#include "display/in_place_editors.h"

namespace quillon {

/// The widget of an open editor, over its cell; a child of `parent`. It hands keys and the loss of the keyboard to the
/// editor for as long as that has its window.
QWidget* MakeInPlaceWidget(CInPlaceEditor& editor, QWidget* parent);
/// Brings a widget made so up to date with its editor.
void UpdateInPlaceWidget(QWidget& widget);

}  // namespace quillon
