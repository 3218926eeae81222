#include "PrinterObject.h"

#include <QFontMetricsF>
#include <QPrinter>
#include <QRegularExpression>

#include "platform/OperatorDialogs.h"
#include "platform/RuntimeError.h"

namespace sidekin {

namespace {

[[noreturn]] void printerFailed() {
    throw RuntimeError(ErrPrinter, QStringLiteral("Printer error"));
}

QFont qtFont(const PrinterFont& font) {
    QFont qt(font.Name);
    // Columns are counted in characters: a fixed pitch even when the name is unknown.
    qt.setStyleHint(QFont::TypeWriter);
    qt.setFixedPitch(true);
    qt.setPointSizeF(font.Size);
    qt.setBold(font.Bold);
    // Qt falls back per glyph, so the character set needs no family of its own.
    return qt;
}

PrinterObject* installed = nullptr;

}  // namespace

PagePrinter::PagePrinter(std::function<QPrinter*()> device) : device_(std::move(device)) {}

PagePrinter::~PagePrinter() {
    if (painter_.isActive()) painter_.end();
}

void PagePrinter::startJob() {
    printer_ = device_();
    if (printer_ == nullptr || !painter_.begin(printer_)) {
        printer_ = nullptr;
        printerFailed();
    }
    y_ = 0;
    pages_ = 1;
}

void PagePrinter::printLine(qreal x, const QString& line) {
    const QFontMetricsF metrics(painter_.font(), printer_);
    if (y_ > 0 && y_ + metrics.height() > printer_->height()) {
        if (!printer_->newPage()) printerFailed();
        y_ = 0;
        ++pages_;
    }
    // A tab keeps one character cell, so the columns after it stay countable.
    QString shown = line;
    shown.replace(QLatin1Char('\t'), QLatin1Char(' '));
    painter_.drawText(QPointF(x, y_ + metrics.ascent()), shown);
    y_ += metrics.lineSpacing();
}

void PagePrinter::PrintTab(int column, const QString& text) {
    if (!painter_.isActive()) startJob();
    const QFont font = qtFont(Font);
    painter_.setFont(font);
    const qreal x =
        (column - 1) * QFontMetricsF(font, printer_).horizontalAdvance(QLatin1Char('M'));
    // Line ends inside the text start new lines at the left edge.
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|\n|\r"));
    const QStringList lines = text.split(lineEnd);
    for (qsizetype i = 0; i < lines.size(); ++i) printLine(i == 0 ? x : 0, lines[i]);
    if (printer_->printerState() == QPrinter::Error) printerFailed();
}

void PagePrinter::EndDoc() {
    if (!painter_.isActive()) return;
    const bool done = painter_.end();
    const bool failed = printer_->printerState() == QPrinter::Error;
    printer_ = nullptr;
    if (!done || failed) printerFailed();
}

PrinterObject& Printer() {
    // Never destroyed: a job left open must not be ended on a printer already gone.
    static PagePrinter* const system = new PagePrinter([] { return dialogs().printer(); });
    return installed ? *installed : *system;
}

void setPrinter(PrinterObject* implementation) { installed = implementation; }

}  // namespace sidekin
