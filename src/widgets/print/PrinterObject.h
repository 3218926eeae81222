#pragma once

#include <QPainter>
#include <QString>
#include <cstdint>
#include <functional>

class QPrinter;

namespace sidekin {

// The legacy platform's error for a printer that is missing or fails.
constexpr int ErrPrinter = 482;

struct PrinterFont {
    QString Name;
    double Size = 10;
    bool Bold = false;
    std::int16_t Charset = 0;
};

// The platform's Printer object: a stream of lines in the current font. The
// job starts with the first line and ends with EndDoc; a line that does not
// fit on the page goes to a new one. Failures raise ErrPrinter.
class PrinterObject {
public:
    virtual ~PrinterObject() = default;

    // Applies to the lines that follow.
    PrinterFont Font;

    // Prints the text at the left edge and ends the line; no text ends the line only.
    void Print(const QString& text = {}) { PrintTab(1, text); }
    // Prints the text from print column `column` (1 is the left edge, a column
    // one character of the font) and ends the line.
    virtual void PrintTab(int column, const QString& text) = 0;
    // Closes the job, which hands it to the printer.
    virtual void EndDoc() = 0;
};

// Lines painted on a QPrinter, a job per begin and end of a painter.
class PagePrinter : public PrinterObject {
public:
    // device() is asked for the printer at the start of each job; nullptr means none.
    explicit PagePrinter(std::function<QPrinter*()> device);
    ~PagePrinter() override;

    void PrintTab(int column, const QString& text) override;
    void EndDoc() override;

    // Pages of the job in progress, or of the last one.
    int pages() const { return pages_; }

private:
    void startJob();
    void printLine(qreal x, const QString& line);

    std::function<QPrinter*()> device_;
    QPrinter* printer_ = nullptr;
    QPainter painter_;
    qreal y_ = 0;
    int pages_ = 0;
};

// The Printer object in use: the system's default printer unless one is installed.
PrinterObject& Printer();
// The caller keeps ownership; nullptr restores the default printer.
void setPrinter(PrinterObject* implementation);

}  // namespace sidekin
