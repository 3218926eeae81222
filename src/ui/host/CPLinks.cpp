#include "CPLinks.h"

#include <QFormLayout>
#include <QLineEdit>
#include <memory>

#include "ItemFeed.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {
std::unique_ptr<CPLinks> instance;
void (*loader)(CPLinks&) = nullptr;
}  // namespace

CPLinks::CPLinks() {
    setObjectName(QStringLiteral("CPLinks"));
    setWindowTitle(CPLinksCaption);
    auto* layout = new QFormLayout(this);
    auto box = [&](const char* name) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QLatin1String(name));
        layout->addRow(QLatin1String(name), edit);
        return edit;
    };
    txtDataPath = box("txtDataPath");
    txtInstPath = box("txtInstPath");
    txtMethPath = box("txtMethPath");
    ddeSystemStatus = box("ddeSystemStatus");
    ddeStatusTime = box("ddeStatusTime");
    ddeRunEngineStatus = box("ddeRunEngineStatus");
    txtRunEngineStatus = box("txtRunEngineStatus");
    txtSampleLoc = box("txtSampleLoc");
    ddeDummy = box("ddeDummy");
}

void CPLinks::Form_Load() {
    handled("Form_Load", [&] { itemfeed::SetHandleInDLL(windowTitle()); });
}

bool CPLinks::event(QEvent* event) {
    if (event->type() != itemfeed::NoticeEvent::type()) return QWidget::event(event);
    const auto& notice = *static_cast<itemfeed::NoticeEvent*>(event);
    if (!itemfeed::noticeReceived(notice)) return true;  // a late copy of a resent notice
    emit KeyPress(notice.index);
    itemfeed::noticeServed(notice.index);
    return true;
}

CPLinks& cpLinks() {
    if (!instance) {
        instance = std::make_unique<CPLinks>();
        if (loader) loader(*instance);
        instance->Form_Load();
    }
    return *instance;
}

void setCPLinksLoader(void (*load)(CPLinks&)) { loader = load; }

bool cpLinksLoaded() { return instance != nullptr; }

void unloadCPLinks() { instance.reset(); }

}  // namespace sidekin
