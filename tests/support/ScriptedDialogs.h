#pragma once

#include <QString>
#include <QStringList>
#include <deque>
#include <ostream>
#include <vector>

#include "OperatorDialogs.h"

namespace sidekin::test {

// What the operator was shown, in order.
struct Shown {
    enum Kind { Box, Input, Modal, Document, Help, Printer, File } kind;
    BoxStyle style = BoxStyle::Plain;
    QString text;   // box text, input prompt, document or help file
    QString title;  // box or input title, working folder, help topic

    bool operator==(const Shown&) const = default;
};

void PrintTo(const Shown& shown, std::ostream* os);

// Answers from a script instead of an operator. Boxes with no scripted answer
// get OK (or Yes); input boxes with none get their default text.
class ScriptedDialogs : public OperatorDialogs {
public:
    ScriptedDialogs();   // installs itself
    ~ScriptedDialogs();  // restores the fallback

    void answerBox(BoxAnswer answer) { boxAnswers.push_back(answer); }
    void answerInput(const QString& text) { inputAnswers.push_back(text); }

    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    // Records the form's name as text and its owner's as title.
    void showModal(QWidget& form, QWidget* owner) override;
    bool openDocument(const QString& file, const QString& workingFolder) override;
    bool showHelp(const QString& file, const QString& topic) override;
    QPrinter* printer() override;
    // Records the title as text and the filter as title; answers from fileAnswers (empty: cancel).
    QString openFileName(const QString& title, const QString& filter) override;
    QString saveFileName(const QString& title, const QString& filter,
                         const QString& suggested) override;

    // Titles of the boxes shown, in order.
    QStringList boxTitles() const;

    std::vector<Shown> shown;
    std::deque<BoxAnswer> boxAnswers;
    std::deque<QString> inputAnswers;
    std::deque<QString> fileAnswers;
    bool helpOpens = true;
    QPrinter* printerToGive = nullptr;
};

}  // namespace sidekin::test
