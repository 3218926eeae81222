#include "SystemLocale.h"

#include <QLocale>

namespace sidekin {

std::int32_t GetSystemDefaultLCID() {
    const QLocale locale;
    switch (locale.language()) {
        case QLocale::Japanese:
            return 1041;
        case QLocale::Chinese:
            return locale.script() == QLocale::TraditionalChineseScript ? 1028 : 2052;
        case QLocale::English:
            return locale.territory() == QLocale::UnitedKingdom ? 2057 : 1033;
        case QLocale::German:
            return 1031;
        case QLocale::French:
            return 1036;
        case QLocale::Spanish:
            return 3082;
        case QLocale::Italian:
            return 1040;
        case QLocale::Korean:
            return 1042;
        default:
            return 1024;  // the user's default, no language of its own
    }
}

}  // namespace sidekin
