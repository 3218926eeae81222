// Any text through the number conversions: no crash and no undefined
// behaviour; only errors 6 and 13; IsNumeric, CInt and CLng agree with CDbl;
// Val reads what CDbl accepts as the same number.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "Conversions.h"
#include "LegacyText.h"
#include "RuntimeError.h"

using namespace sidekin;

namespace {

template <typename F>
auto attempt(F f) -> std::optional<decltype(f())> {
    try {
        return f();
    } catch (const RuntimeError& e) {
        if (e.number() != ErrOverflow && e.number() != ErrTypeMismatch) std::abort();
        return std::nullopt;
    }
}

void convert(const QString& text) {
    const double val = Val(text);
    Str(val);
    const auto strict = attempt([&] { return CDbl(text); });
    if (IsNumeric(text) != strict.has_value()) std::abort();
    if (strict && !(val == *strict)) std::abort();
    const auto asInt = attempt([&] { return CInt(text); });
    const auto asLong = attempt([&] { return CLng(text); });
    if ((asInt || asLong) && !strict) std::abort();
    if (strict) {
        if (asInt != attempt([&] { return CInt(*strict); })) std::abort();
        if (asLong != attempt([&] { return CLng(*strict); })) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    convert(QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size)));
    // The same bytes as UTF-16 reach lone surrogates and digits of other scripts.
    QString units(qsizetype(size / 2), Qt::Uninitialized);
    std::memcpy(units.data(), data, size / 2 * 2);
    convert(units);

    if (size >= sizeof(double)) {
        double number;
        std::memcpy(&number, data, sizeof number);
        Str(number);
        CStr(number);
        roundHalfEven(number);
        attempt([&] { return CInt(number); });
        attempt([&] { return CLng(number); });
    }
    return 0;
}
