#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QtPrintSupport/QPrintPreviewWidget>
#include <QtPrintSupport/QPrinter>
#include <string>

#include "toolkit/qt_platform.h"

class QBoxLayout;

namespace quillon {

/// The pages of a document as they come out, and the ways out: a printer, or a PDF file. Long documents show their
/// first pages alone; all are printed.
class PrintPreview : public QDialog {
public:
    PrintPreview(QtPlatform& platform, std::string_view document, const PrintPages& print, QWidget* parent);

    /// Whether every step of the printer succeeded.
    bool Succeeded() const { return succeeded; }
    /// All pages as a PDF document, in the orientation shown. Empty if a step failed.
    QByteArray MakePdf();

private:
    void MakeButtons(QBoxLayout& row);
    void PrintOnPaper();
    void SaveAsPdf();
    void SetLandscape(bool landscape);
    void TurnTo(int page);
    void ShowPage();

    QtPlatform& platform;
    std::string document;
    const PrintPages& print;
    QPrinter printer;
    QPrintPreviewWidget* pages;
    QLabel* place;
    QPushButton* back = nullptr;
    QPushButton* on = nullptr;
    bool succeeded = true;
};

/// Makes the platform show what is printed by these.
void ShowPrintingBy(QtPlatform& platform);

}  // namespace quillon
