// Where Qt has no D-Bus module (the Windows build) no notice goes out. A
// Windows toast would need the WinRT notification API; not done yet.
#include "DesktopNotice.h"

namespace sidekin {

namespace {

std::function<bool(const QString&, const QString&)>& sink() {
    static std::function<bool(const QString&, const QString&)> installed;
    return installed;
}

}  // namespace

void setDesktopNoticeSink(std::function<bool(const QString&, const QString&)> installed) {
    sink() = std::move(installed);
}

bool showDesktopNotice(const QString& summary, const QString& body) {
    return sink() ? sink()(summary, body) : false;
}

}  // namespace sidekin
