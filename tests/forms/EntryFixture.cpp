#include "EntryFixture.h"

#include "AppState.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "platform/ProfileFile.h"

namespace sidekin::test {

void EntryFixture::connect(hostsim::SimConfig config) {
    startHost(config);
    frmORQ().cboOperator->setCurrentText(QStringLiteral("Training"));
    dialogs.shown.clear();
    mark();
}

void EntryFixture::choose(EntryForm& form, const QString& sample, const QString& method) {
    form.cboSample->setCurrentText(sample);
    if (!method.isEmpty()) form.cboMethod->setCurrentText(method);
}

void EntryFixture::setIni(const QString& section, const QString& key, const QString& value) {
    WritePrivateProfileStringA(section, key, value, App.GlblIniFile);
}

QString EntryFixture::methodFolder() const { return host->simulator().folders().methods; }

QString EntryFixture::instrumentFolder() const { return host->simulator().folders().instrument; }

QStringList EntryFixture::items(const QComboBox& list) {
    QStringList all;
    for (int i = 0; i < list.count(); ++i) all << list.itemText(i);
    return all;
}

void EntryFixture::mark() { marked_ = static_cast<int>(host->executed().size()); }

QStringList EntryFixture::asked() const { return host->executed().mid(marked_); }

QStringList EntryFixture::boxes() const {
    QStringList all;
    for (const Shown& s : dialogs.shown)
        if (s.kind == Shown::Box) all << s.title + QStringLiteral(": ") + s.text;
    return all;
}

QString EntryFixture::message(int id, const char* token, const QString& value, const char* token2,
                              const QString& value2) const {
    QString text = GetResourceString(id);
    if (token) text.replace(QLatin1String(token), value);
    if (token2) text.replace(QLatin1String(token2), value2);
    return text;
}

}  // namespace sidekin::test
