#pragma once

#include <QLabel>
#include <QStatusBar>
#include <optional>

#include "foundation/values.h"

namespace quillon {

/// The line under the chart: passing messages at the left, then what lasts, the position under the cursor and the
/// scale. Nothing jumps: the fields of numbers are as wide as their widest content, in figures of one width.
class StatusLine {
public:
    explicit StatusLine(QStatusBar& bar);

    void ShowMessage(const QString& text) { bar.showMessage(text, kMessageMs); }
    /// Stands until the next message.
    void ShowLasting(const QString& text) { bar.showMessage(text); }
    /// Stands until the program ends.
    void SetNote(const QString& text);
    /// What lies under the cursor, at the left where passing messages go, which hide it for as long as they stand.
    void SetUnderCursor(const QString& text) { under->setText(text); }
    /// Without a position under the cursor the field is empty.
    void SetPosition(const std::optional<tagXY>& position);
    /// Metres below the surface under the cursor; MISSING_VALUE where none is known.
    void SetDepth(double metres);
    /// The scale is 1 : `denominator`; 0 is none.
    void SetScale(double denominator);

private:
    static constexpr int kMessageMs = 6000;

    QLabel* AddField(const QString& widest, const QString& tip);

    QStatusBar& bar;
    QLabel* under;
    QLabel* note;
    QLabel* depth;
    QLabel* position;
    QLabel* scale;
};

/// "E 503 150.000  N 5 843 620.000": figures in groups of three, three decimals.
QString PositionText(tagXY position);
/// "12 345": figures in groups of three.
QString CountText(int count);
/// "1 : 125 000": two figures more than zero count below 100 000, three above.
QString ScaleText(double denominator);

}  // namespace quillon
