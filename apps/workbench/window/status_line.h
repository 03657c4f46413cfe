#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>
#include <functional>
#include <optional>

#include "foundation/values.h"

namespace quillon {

/// The line under the chart: passing messages at the left, then what lasts, the position under the cursor and the
/// scale. Nothing jumps: the fields of numbers are as wide as their widest content, in figures of one width.
class StatusLine {
public:
    explicit StatusLine(QStatusBar& bar);

    void ShowMessage(const QString& text) { bar.showMessage(text, kMessageMs); }
    /// Stands until the program ends.
    void SetNote(const QString& text);
    /// What lies under the cursor, at the left where passing messages go, which hide it for as long as they stand.
    void SetUnderCursor(const QString& text) { under->setText(text); }
    /// Without a position under the cursor the field is empty.
    void SetPosition(const std::optional<tagXY>& position);
    /// The grid of the job, as a badge that a click opens.
    void SetGrid(const QString& text, bool chosen);
    std::function<void()> onGrid;
    /// What the grid says of the position under the cursor: latitude and longitude, convergence and scale factor, which
    /// a narrow window has no room for.
    void SetGeographic(const QString& latLon, const QString& scaleThere);
    /// The scale is 1 : `denominator`; 0 is none.
    void SetScale(double denominator);

private:
    static constexpr int kMessageMs = 6000;

    QLabel* AddField(const QString& widest, const QString& tip);

    QStatusBar& bar;
    QLabel* under;
    QLabel* note;
    QToolButton* grid;
    QLabel* gridScale;
    QLabel* geographic;
    QLabel* position;
    QLabel* scale;
};

/// "E 503 150.000  N 5 843 620.000": figures in groups of three, three decimals.
QString PositionText(tagXY position);
/// "1 : 125 000": two figures more than zero count below 100 000, three above.
QString ScaleText(double denominator);

}  // namespace quillon
