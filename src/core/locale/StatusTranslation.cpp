#include "StatusTranslation.h"

#include <cstdint>

#include "G11n.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

struct Rule {
    const char16_t* english;
    std::int32_t id;
};

// If the word occurs in the host text as it came, result becomes that text with
// each occurrence in the language's word. The detour through the token keeps a
// translation that holds the English word (the English table) from looping.
bool translateWord(const QString& hostText, const Rule& rule, QString& result) {
    const QString word = QString::fromUtf16(rule.english);
    if (InStr(hostText, word) == 0) return false;
    const QString token = QStringLiteral("<TOKEN>");
    result = ReplaceString(ReplaceString(hostText, word, token), token, GetResourceString(rule.id));
    return true;
}

// Rules tried in order until one fires.
template <std::size_t N>
bool firstThatFires(const QString& hostText, const Rule (&rules)[N], QString& result) {
    for (const Rule& rule : rules)
        if (translateWord(hostText, rule, result)) return true;
    return false;
}

}  // namespace

QString LocalizeSysStatusReady(const QString& hostText) {
    static constexpr Rule rules[] = {
        {u"Ready", 17300}, {u"Not Ready", 17301}, {u"Run in Progress", 17302}};
    QString result = hostText;
    handled("LocalizeSysStatusReady", [&] {
        for (const Rule& rule : rules) translateWord(hostText, rule, result);
    });
    return result;
}

QString LocalizeSysStatusMethod(const QString& hostText) {
    static constexpr Rule rules[] = {
        {u"Waiting for Ready", 17304}, {u"Waiting for Injection", 17305},
        {u"Data Acquisition", 17306},  {u"Customized Data Analysis", 17303},
        {u"Data Analysis", 17307},     {u"Pre-Run Macro", 17308},
        {u"Post-Run Macro", 17309}};
    QString result = hostText;
    handled("LocalizeSysStatusMethod", [&] { firstThatFires(hostText, rules, result); });
    return result;
}

QString LocalizeStatusDescript(const QString& hostText) {
    static constexpr Rule chain[] = {{u"Elapsed", 17311}, {u"Post Run", 17312}};
    static constexpr Rule lastRun = {u"Last Run", 17313};
    static constexpr Rule overrule[] = {{u"Prepare", 17314}, {u"nRdy Wait", 17315}};
    QString result = hostText;
    handled("LocalizeStatusDescript", [&] {
        if (firstThatFires(hostText, chain, result)) return;
        translateWord(hostText, lastRun, result);
        firstThatFires(hostText, overrule, result);
    });
    return result;
}

QString LocalizeStatusTimeUnits(const QString& hostText) {
    static constexpr Rule minutes = {u"min", 17310};
    QString result = hostText;
    handled("LocalizeStatusTimeUnits", [&] { translateWord(hostText, minutes, result); });
    return result;
}

}  // namespace sidekin
