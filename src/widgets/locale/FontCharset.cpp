#include "FontCharset.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHash>
#include <QWidget>

#include "AppState.h"
#include "G11n.h"
#include "platform/Conversions.h"

namespace sidekin {

namespace {

struct Script {
    QFontDatabase::WritingSystem system;
    const char* fallbackFamily;  // for fontconfig when no installed family claims the script
};

// Legacy character set numbers that need more than a Latin font.
const QHash<int, Script>& scripts() {
    static const QHash<int, Script> table{
        {2, {QFontDatabase::Symbol, "Symbol"}},
        {128, {QFontDatabase::Japanese, "Noto Sans CJK JP"}},
        {129, {QFontDatabase::Korean, "Noto Sans CJK KR"}},
        {130, {QFontDatabase::Korean, "Noto Sans CJK KR"}},
        {134, {QFontDatabase::SimplifiedChinese, "Noto Sans CJK SC"}},
        {136, {QFontDatabase::TraditionalChinese, "Noto Sans CJK TC"}},
        {161, {QFontDatabase::Greek, "DejaVu Sans"}},
        {163, {QFontDatabase::Vietnamese, "DejaVu Sans"}},
        {177, {QFontDatabase::Hebrew, "Noto Sans Hebrew"}},
        {178, {QFontDatabase::Arabic, "Noto Sans Arabic"}},
        {204, {QFontDatabase::Cyrillic, "DejaVu Sans"}},
        {222, {QFontDatabase::Thai, "Noto Sans Thai"}},
    };
    return table;
}

// Asking the font database is slow next to a status update; ask once per script.
QString familyFor(const Script& script) {
    static QHash<int, QString> found;
    const auto known = found.constFind(script.system);
    if (known != found.constEnd()) return *known;
    const QStringList families = QFontDatabase::families(script.system);
    const QString family =
        families.isEmpty() ? QString::fromLatin1(script.fallbackFamily) : families.first();
    found.insert(script.system, family);
    return family;
}

}  // namespace

std::int16_t readFontCharset() {
    App.GlblFontCharset = CInt(Val(GetResourceString(17320)));
    return App.GlblFontCharset;
}

void applyFontCharset(QWidget& widget, int charset) {
    QFont font = widget.font();
    const auto script = scripts().constFind(charset);
    if (script == scripts().constEnd())
        font.setFamilies(QApplication::font(&widget).families());
    else
        font.setFamilies({familyFor(*script)});
    widget.setFont(font);
    widget.setProperty("fontCharset", charset);
}

}  // namespace sidekin
