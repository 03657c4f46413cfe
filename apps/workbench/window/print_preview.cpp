#include "window/print_preview.h"

#include <QBoxLayout>
#include <QBuffer>
#include <QPdfWriter>
#include <QPushButton>
#include <QtPrintSupport/QPrintDialog>
#include <algorithm>

#include "platform/printer.h"
#include "platform/text.h"
#include "toolkit/text_edge.h"
#include "window/page_printer.h"

namespace quillon {
namespace {

constexpr QSize kSize(900, 820);
/// More pages than anybody looks through; each is kept as a drawing.
constexpr int kMostShown = 100;
constexpr int kPdfPixelsPerInch = 1200;

PrintJob JobOf(const QPrinter& printer) {
    PrintJob job;
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        job.firstPage = printer.fromPage();
        job.lastPage = printer.toPage();
    }
    job.copies = std::max(1, printer.copyCount());
    job.collate = printer.collateCopies();
    return job;
}

}  // namespace

PrintPreview::PrintPreview(QtPlatform& owner, std::string_view name, const PrintPages& pageMaker, QWidget* parent)
    : QDialog(parent),
      platform(owner),
      document(name),
      print(pageMaker),
      printer(QPrinter::HighResolution),
      pages(new QPrintPreviewWidget(&printer, this)),
      place(new QLabel(this)) {
    setWindowTitle("Print " + ToQString(document));
    resize(kSize);
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    column->addLayout(row);
    column->addWidget(pages, 1);
    MakeButtons(*row);
    connect(pages, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* target) {
        PagePrinter shown(*target);
        if (!print(shown, {.lastPage = kMostShown})) succeeded = false;
    });
    connect(pages, &QPrintPreviewWidget::previewChanged, this, [this] { ShowPage(); });
    pages->fitInView();
    pages->updatePreview();
}

void PrintPreview::MakeButtons(QBoxLayout& row) {
    const auto button = [&](const QString& text, auto act) {
        auto* const made = new QPushButton(text, this);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        row.addWidget(made);
        return made;
    };
    button("&Print...", [this] { PrintOnPaper(); })->setDefault(true);
    button("&Save as PDF...", [this] { SaveAsPdf(); });
    row.addSpacing(12);
    QPushButton* const landscape = button("&Landscape", [this](bool on) { SetLandscape(on); });
    landscape->setCheckable(true);
    QPushButton* const wide =
        button("&Whole Width", [this](bool on) { on ? pages->fitToWidth() : pages->fitInView(); });
    wide->setCheckable(true);
    row.addSpacing(12);
    back = button("&Back", [this] { TurnTo(pages->currentPage() - 1); });
    row.addWidget(place);
    on = button("&Next", [this] { TurnTo(pages->currentPage() + 1); });
    row.addStretch(1);
    button("&Close", [this] { reject(); });
}

void PrintPreview::TurnTo(int page) {
    pages->setCurrentPage(std::clamp(page, 1, std::max(1, pages->pageCount())));
    ShowPage();
}

void PrintPreview::ShowPage() {
    const int count = pages->pageCount(), page = pages->currentPage();
    QString text = QString("Page %1 of %2").arg(page).arg(count);
    if (count >= kMostShown) text += " shown; all are printed";
    place->setText(text);
    back->setEnabled(page > 1);
    on->setEnabled(page < count);
}

void PrintPreview::SetLandscape(bool landscape) {
    pages->setOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    pages->updatePreview();
}

void PrintPreview::PrintOnPaper() {
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    if (dialog.exec() != QDialog::Accepted) return;
    const PrintJob job = JobOf(printer);
    // The copies are drawn here, page by page or one after the other.
    printer.setCopyCount(1);
    printer.setPrintRange(QPrinter::AllPages);
    PagePrinter paper(printer);
    succeeded = print(paper, job);
    accept();
}

QByteArray PrintPreview::MakePdf() {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    bool whole = false;
    {
        QPdfWriter writer(&bytes);
        writer.setResolution(kPdfPixelsPerInch);
        writer.setPageSize(printer.pageLayout().pageSize());
        writer.setPageOrientation(printer.pageLayout().orientation());
        PagePrinter paper(writer);
        whole = print(paper, {});
    }
    return whole ? bytes.data() : QByteArray();
}

void PrintPreview::SaveAsPdf() {
    SaveChoice choice;
    const SaveQuestion question = {"Save as PDF", "PDF Documents (*.pdf)|*.pdf||", document + ".pdf", "pdf"};
    if (!platform.ChooseSaveFile(question, choice)) return;
    const QByteArray pdf = MakePdf();
    CStdioFile file(platform.Files());
    const bool written = !pdf.isEmpty() && file.OpenForWriting(choice.path, FILE_MODE::BINARY);
    file.SetIsResult();
    if (written) file.WriteString(std::string_view(pdf.constData(), static_cast<std::size_t>(pdf.size())));
    if (!written || !file.Commit()) {
        platform.WarningMessage(choice.path + "\ncan't be written");
        return;
    }
    accept();
}

void ShowPrintingBy(QtPlatform& platform) {
    platform.SetPrintView([&platform](std::string_view document, const PrintPages& print, QWidget* parent) {
        PrintPreview preview(platform, document, print, parent);
        preview.exec();
        return preview.Succeeded();
    });
}

}  // namespace quillon
