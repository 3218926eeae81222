#include "HostLink.h"

#include "platform/RuntimeError.h"

namespace sidekin::link {

void registerLinkErrors() {
    registerErrorDescription(ErrNoHost,
                             QStringLiteral("No foreign application responded to a DDE initiate"));
    registerErrorDescription(
        ErrRefused, QStringLiteral("Foreign application won't perform DDE method or operation"));
    registerErrorDescription(ErrTimeout, QStringLiteral("Timeout while waiting for DDE response"));
    registerErrorDescription(ErrBusy, QStringLiteral("Destination is busy"));
    registerErrorDescription(ErrBadData, QStringLiteral("Data in wrong format"));
    registerErrorDescription(ErrHostQuit, QStringLiteral("Foreign application quit"));
    registerErrorDescription(ErrNoChannel,
                             QStringLiteral("DDE method invoked with no channel open"));
}

namespace {
// The words are there before the first link error, whatever raises it.
const bool linkErrorsRegistered = (registerLinkErrors(), true);

HostLink* installed = nullptr;
}  // namespace

HostLink& hostLink() { return installed ? *installed : platformHostLink(); }

void setHostLink(HostLink* link) { installed = link; }

}  // namespace sidekin::link
