#include "NameRules.h"

#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

bool isPermitted(QChar c) {
    const char16_t u = c.unicode();
    if ((u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9'))
        return true;
    return u == u'-' || QStringView(u"_^$~!#&{}@`'()").contains(c);
}

}  // namespace

bool IsValidFileChar(QString& name) {
    bool result = false;
    handled("IsValidFileChar", [&] {
        if (name.size() > MaxFileNameChars) return;
        name = LTrim(name);
        for (qsizetype i = 0; i < name.size(); ++i) {
            if (!isPermitted(name[i])) {
                name = name.left(i);
                return;
            }
        }
        result = true;
    });
    return result;
}

}  // namespace sidekin
