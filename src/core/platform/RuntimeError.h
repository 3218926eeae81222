#pragma once

#include <QString>
#include <exception>

namespace sidekin {

// The legacy platform's run-time error numbers that the program relies on.
enum ErrorNumber : int {
    ErrInvalidCall = 5,
    ErrOverflow = 6,
    ErrSubscript = 9,
    ErrTypeMismatch = 13,
};

// A run-time error: it leaves the procedure that raised it and ends in the
// nearest handler (see ErrorHandler.h).
class RuntimeError : public std::exception {
public:
    RuntimeError(int number, QString description);
    explicit RuntimeError(int number);

    int number() const { return number_; }
    const QString& description() const { return description_; }
    const char* what() const noexcept override;

private:
    int number_;
    QString description_;
    QByteArray utf8_;
};

// The platform's wording for an error number; unknown numbers get a generic text.
QString errorDescription(int number);

// Lets another subsystem (the host link) register the words of its own numbers.
void registerErrorDescription(int number, const QString& description);

[[noreturn]] void raiseError(int number);

}  // namespace sidekin
