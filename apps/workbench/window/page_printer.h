#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <optional>

#include "chart/qpainter_device.h"
#include "platform/printer.h"

namespace quillon {

/// Prints on what the toolkit makes pages of: a printer, a preview, a PDF document. The whole paper can be drawn on;
/// the device is lent.
class PagePrinter : public CPrinter {
public:
    explicit PagePrinter(QPagedPaintDevice& target);

    tagSIZE PageSize() const override;
    int PixelsPerInchAcross() const override { return device.logicalDpiX(); }
    int PixelsPerInchDown() const override { return device.logicalDpiY(); }
    bool StartDoc(std::string_view name) override;
    bool StartPage() override;
    bool EndPage() override { return painter.isActive(); }
    void EndDoc() override;
    CDrawDevice& Device() override { return *page; }

private:
    QPagedPaintDevice& device;
    QPainter painter;
    std::optional<QPainterDevice> page;
    bool isFirst = true;
};

}  // namespace quillon
