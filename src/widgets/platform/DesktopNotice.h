#pragma once

#include <QString>
#include <functional>

namespace sidekin {

// A desktop notice: on Linux the freedesktop notification service
// over the session bus; nothing when no such service runs. The build picks the
// implementation: DesktopNoticeDBus.cpp where Qt has its D-Bus module,
// DesktopNoticeNone.cpp elsewhere (the Windows build, whose Qt has no D-Bus).
// Answers whether a notice went out. Never waits for the service's reply.
bool showDesktopNotice(const QString& summary, const QString& body);

// Tests see the notices here instead of the desktop; an empty function restores it.
void setDesktopNoticeSink(std::function<bool(const QString&, const QString&)> sink);

}  // namespace sidekin
