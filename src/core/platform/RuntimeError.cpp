#include "RuntimeError.h"

#include <map>

namespace sidekin {

namespace {
std::map<int, QString>& descriptions() {
    static std::map<int, QString> table{
        {ErrInvalidCall, QStringLiteral("Invalid procedure call or argument")},
        {ErrOverflow, QStringLiteral("Overflow")},
        {ErrSubscript, QStringLiteral("Subscript out of range")},
        {ErrTypeMismatch, QStringLiteral("Type mismatch")},
    };
    return table;
}
}  // namespace

RuntimeError::RuntimeError(int number, QString description)
    : number_(number), description_(std::move(description)), utf8_(description_.toUtf8()) {}

RuntimeError::RuntimeError(int number) : RuntimeError(number, errorDescription(number)) {}

const char* RuntimeError::what() const noexcept { return utf8_.constData(); }

QString errorDescription(int number) {
    auto it = descriptions().find(number);
    if (it != descriptions().end()) return it->second;
    return QStringLiteral("Application-defined or object-defined error");
}

void registerErrorDescription(int number, const QString& description) {
    descriptions()[number] = description;
}

void raiseError(int number) { throw RuntimeError(number); }

}  // namespace sidekin
