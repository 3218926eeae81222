// Any command line from the host: no crash and no undefined behaviour, whatever
// the fields hold; a line of five fields from handle 0 names its service as
// written, less the blanks around it.
#include <QTemporaryDir>
#include <cstdint>

#include "AppState.h"
#include "CommandLine.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "platform/LegacyText.h"
#include "platform/OperatorDialogs.h"

using namespace sidekin;

namespace {

struct Ended {};

// Each look at the time finds a second gone, so the host window search gives up
// at once instead of after three seconds. Each input starts from midnight again:
// a count that grew for ever would stop growing in single precision.
class HurriedClock : public Clock {
public:
    void restart() { seconds_ = 0; }
    float secondsSinceMidnight() override { return seconds_ += 1.0f; }
    QDateTime now() override { return QDateTime(QDate(2026, 1, 1), QTime(12, 0)); }
    void pause(double) override {}
    void waitForEvents(double) override {}

private:
    float seconds_ = 0;
};

HurriedClock hurried;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    static QTemporaryDir noProfiles;  // no zentrovar.ini: the service look-up fails
    qputenv("ZENTROVAR_CONFIG_DIR", noProfiles.path().toUtf8());
    setClock(&hurried);
    // The boxes a bad command line shows by design are answered in silence.
    static DefaultAnswers silent;
    setDialogs(&silent);
    setEndProgramHook([] { throw Ended{}; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString line = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    resetAppState();
    hurried.restart();
    try {
        ParseCommandLine(line);
    } catch (const Ended&) {
        return 0;
    }
    const QStringList fields = line.split(u'|');
    if (fields.size() == 5 && Trim(fields[0]) == QLatin1String("0") && !Trim(fields[1]).isEmpty() &&
        App.GlblDDEApp != Trim(fields[1]))
        abort();
    return 0;
}
