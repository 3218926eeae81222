#include "Help.h"

#include "G11n.h"
#include "platform/OperatorDialogs.h"
#include "platform/Paths.h"
#include "platform/SystemLocale.h"

namespace sidekin {

void showHelpTopic(const QString& localisedTopic, const QString& englishTopic) {
    const QString english = QStringLiteral("helpenu\\Zentro.chm");
    QString file = english;
    QString topic = englishTopic;
    switch (GetSystemDefaultLCID()) {
        case 1041:
            file = QStringLiteral("helpenu\\ja\\Zentro.chm");
            topic = localisedTopic;
            break;
        case 2052:
            file = QStringLiteral("helpenu\\zh-CHS\\Zentro.chm");
            topic = localisedTopic;
            break;
        default:
            break;
    }
    if (dialogs().showHelp(nativePath(file), topic)) return;
    if (dialogs().showHelp(nativePath(english), englishTopic)) return;
    dialogs().messageBox(BoxStyle::Plain, GetResourceString(17324), QStringLiteral("Error"));
}

}  // namespace sidekin
