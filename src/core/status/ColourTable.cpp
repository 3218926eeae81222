#include "ColourTable.h"

#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

struct NamedColour {
    QStringView name;  // behind the "Sys" or "Mth" prefix
    std::int32_t background;
    std::int32_t text;
};

constexpr std::int32_t White = 16777215;

constexpr NamedColour colours[] = {
    {u"Black", 0, White},   {u"Red", 255, White},       {u"Green", 65280, 0},
    {u"Yellow", 65535, 0},  {u"Blue", 16711680, White}, {u"Magenta", 16711935, White},
    {u"Cyan", 16776960, 0}, {u"White", White, 0},
};

}  // namespace

std::int16_t CS2VbColor(const QString& name, QString& background, QString& textColour) {
    std::int16_t result = 0;
    handled("CS2VbColor", [&] {
        const QStringView prefix = QStringView(name).left(3);
        if (prefix == u"Sys" || prefix == u"Mth") {
            const QStringView colour = QStringView(name).mid(3);
            for (const NamedColour& known : colours) {
                if (colour == known.name) {
                    background = QString::number(known.background);
                    textColour = QString::number(known.text);
                    return;
                }
            }
        }
        background = QString::number(White);
        textColour = QStringLiteral("0");
        result = 1;
    });
    return result;
}

}  // namespace sidekin
