#pragma once

#include <QComboBox>
#include <QStringList>

#include "EntryForms.h"
#include "WalkFixture.h"

namespace sidekin::test {

// The program connected to the in-process host, operator "Training" chosen, so
// both entry forms hold every demo sample.
class EntryFixture : public WalkFixture {
protected:
    void connect(hostsim::SimConfig config = InProcessHost::defaultConfig());

    // The operator's choices on a form; no method when the sample has only one.
    void choose(EntryForm& form, const QString& sample, const QString& method = {});
    // A key of ORQ.INI, or of a file in the host's instrument or method folder.
    void setIni(const QString& section, const QString& key, const QString& value);
    QString methodFolder() const;
    QString instrumentFolder() const;

    static QStringList items(const QComboBox& list);
    // Host commands executed since the last mark.
    void mark();
    QStringList asked() const;
    // "title: text" of each box shown, in order.
    QStringList boxes() const;
    QString message(int id, const char* token = nullptr, const QString& value = {},
                    const char* token2 = nullptr, const QString& value2 = {}) const;

    int marked_ = 0;
};

}  // namespace sidekin::test
