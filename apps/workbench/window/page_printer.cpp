#include "window/page_printer.h"

#include <QPdfWriter>
#include <QtPrintSupport/QPrinter>

#include <utility>

#include "toolkit/text_edge.h"

namespace quillon {

PagePrinter::PagePrinter(QPagedPaintDevice& target) : device(target) {
    // The table keeps margins of its own.
    if (auto* const printer = dynamic_cast<QPrinter*>(&device)) printer->setFullPage(true);
    device.setPageMargins(QMarginsF());
}

tagSIZE PagePrinter::PageSize() const {
    const QSize size = device.pageLayout().fullRectPixels(device.logicalDpiX()).size();
    return {size.width(), size.height()};
}

bool PagePrinter::StartDoc(std::string_view name) {
    if (auto* const printer = dynamic_cast<QPrinter*>(&device)) printer->setDocName(ToQString(name));
    if (auto* const writer = dynamic_cast<QPdfWriter*>(&device)) writer->setTitle(ToQString(name));
    if (!painter.begin(&device)) return false;
    isFirst = true;
    page.emplace(painter, device.logicalDpiY());
    return true;
}

bool PagePrinter::StartPage() {
    // The painter opens the first page by itself.
    return std::exchange(isFirst, false) ? painter.isActive() : device.newPage();
}

void PagePrinter::EndDoc() {
    painter.end();
}

}  // namespace quillon
