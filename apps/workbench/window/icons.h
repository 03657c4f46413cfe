#pragma once

#include <QIcon>

namespace quillon {

enum class ICON { APPLICATION, ADD, EXPORT, ZOOM_ALL, ZOOM_IN, ZOOM_OUT, NIGHT, FULL_SCREEN, PANES, UNDO, REDO };

/// A line drawing in the colour of button texts, drawn anew at any size: it follows day and night by itself. The
/// application's own icon has colours of its own.
QIcon MakeIcon(ICON icon);

}  // namespace quillon
