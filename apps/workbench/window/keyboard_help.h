#pragma once

#include <QAction>
#include <QList>

namespace quillon {

/// A window that lists what every key does: those of the actions, and those of the chart, the property lists and the
/// tables. Modal.
void ShowKeyboardHelp(QWidget* parent, const QList<QAction*>& actions);

}  // namespace quillon
