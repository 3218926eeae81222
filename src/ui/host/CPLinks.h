#pragma once

#include <QWidget>

class QLineEdit;

namespace sidekin {

// The hidden mailbox of the item feed: a box per host item. Writing a status
// value into its box raises the box's change event, which is how the status
// feeds reach the rest of the program. The caption names the form to the feed;
// each of the feed's notices is raised as KeyPress with the item's index.
class CPLinks : public QWidget {
    Q_OBJECT
public:
    CPLinks();

    void Form_Load();

signals:
    void KeyPress(int keyAscii);

public:
    QLineEdit* txtDataPath;
    QLineEdit* txtInstPath;
    QLineEdit* txtMethPath;
    QLineEdit* ddeSystemStatus;
    QLineEdit* ddeStatusTime;
    QLineEdit* ddeRunEngineStatus;
    QLineEdit* txtRunEngineStatus;
    QLineEdit* txtSampleLoc;
    QLineEdit* ddeDummy;

protected:
    bool event(QEvent* event) override;
};

inline const QString CPLinksCaption = QStringLiteral("DDEForm");

// The one mailbox form, created and loaded at its first access; the loader
// (if set) runs then, to wire its events.
CPLinks& cpLinks();
void setCPLinksLoader(void (*load)(CPLinks&));
bool cpLinksLoaded();
void unloadCPLinks();

}  // namespace sidekin
