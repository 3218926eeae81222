#include "BenchSupport.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

#include "AppState.h"
#include "BenchPlatform.h"
#include "CPLinks.h"
#include "FrmOrq.h"
#include "ItemFeed.h"
#include "MainWindowEvents.h"
#include "Nls.h"
#include "RunControl.h"
#include "StartupFetch.h"
#include "StatusEvents.h"
#include "UnloadForms.h"

namespace sidekin::bench {

void prepareEnvironment() {
    lineBufferedOutput();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString runtime = QDir::temp().filePath(QStringLiteral("sidekin-bench-runtime"));
        QDir().mkpath(runtime);
        QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    }
}

bool serveUntil(const std::function<bool()>& done, int ms) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired()) return false;
        QTimer wake;
        wake.start(10);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void EventWait::poke() {
    if (done_()) loop_.quit();
}

void EventWait::pokeLater() {
    QMetaObject::invokeMethod(
        &loop_, [this] { poke(); }, Qt::QueuedConnection);
}

bool EventWait::run(int ms) {
    if (done_()) return true;
    QTimer::singleShot(ms, &loop_, &QEventLoop::quit);
    loop_.exec();
    return done_();
}

Stats summarize(std::vector<double> values) {
    Stats s;
    s.count = values.size();
    if (values.empty()) return s;
    std::sort(values.begin(), values.end());
    auto rank = [&](double q) {
        const auto i = static_cast<std::size_t>(std::ceil(q * values.size()));
        return values[std::clamp<std::size_t>(i, 1, values.size()) - 1];
    };
    s.min = values.front();
    s.median = rank(0.5);
    s.p99 = rank(0.99);
    s.max = values.back();
    s.mean = std::accumulate(values.begin(), values.end(), 0.0) / values.size();
    return s;
}

QuietDialogs::QuietDialogs() { setDialogs(this); }
QuietDialogs::~QuietDialogs() { setDialogs(nullptr); }

BoxAnswer QuietDialogs::messageBox(BoxStyle style, const QString&, const QString& title) {
    ++boxes;
    if (title != QLatin1String("VB DDE Error")) unexpected << title;
    return style == BoxStyle::ExclamationYesNo ? yesNoAnswer : BoxAnswer::Ok;
}

QString QuietDialogs::inputBox(const QString&, const QString& title, const QString& defaultText) {
    unexpected << title;
    return defaultText;
}

HostProcess::HostProcess(const QStringList& extraArguments) {
    static int serial = 0;
    service_ = QStringLiteral("Bench%1x%2").arg(QCoreApplication::applicationPid()).arg(++serial);
    const QString out = folder_.filePath(QStringLiteral("out.txt"));
    if (!prepareControl(process_, folder_.filePath(QStringLiteral("control")), &pipe_)) return;
    process_.setStandardOutputFile(out);
    process_.setStandardErrorFile(folder_.filePath(QStringLiteral("err.txt")));
    process_.start(QStringLiteral(HOSTSIM_EXE),
                   QStringList{"--service", service_, "--root", folder_.filePath("host"), "--ini",
                               folder_.filePath("zentrovar.ini"), "--write-ini", "--log",
                               folder_.filePath("frames.log")} +
                       extraArguments);
    if (!process_.waitForStarted(5000)) return;
    ready_ = serveUntil(
        [&] {
            QFile f(out);
            return f.open(QIODevice::ReadOnly) && f.readAll().replace('\r', "").contains("ready\n");
        },
        10000);
    if (!ready_) {
        QFile err(folder_.filePath(QStringLiteral("err.txt")));
        if (err.open(QIODevice::ReadOnly)) std::fputs(err.readAll().constData(), stderr);
    }
}

HostProcess::~HostProcess() {
    if (process_.state() != QProcess::NotRunning) {
        control("quit");
        if (!process_.waitForFinished(3000)) process_.kill();
        process_.waitForFinished(3000);
    }
    closeControl(pipe_);
}

void HostProcess::control(const QByteArray& line) { writeControl(process_, pipe_, line + '\n'); }

int HostProcess::framesContaining(const QByteArray& text) const {
    QFile log(folder_.filePath(QStringLiteral("frames.log")));
    if (!log.open(QIODevice::ReadOnly)) return 0;
    int count = 0;
    while (!log.atEnd())
        if (log.readLine().contains(text)) ++count;
    return count;
}

double HostProcess::cpuSeconds() const { return processCpuSeconds(process_); }

ProgramSession::ProgramSession() {
    unloadFrmORQ();
    unloadCPLinks();
    itemfeed::reset();
    resetAppState();
    resetNls();
    setNlsLanguage(QStringLiteral("en"));
    NLSTaskInit();
    NLSInit(0);
}

ProgramSession::~ProgramSession() {
    unloadAllForms();
    qunsetenv("ZENTROVAR_CONFIG_DIR");
}

bool ProgramSession::connect(const HostProcess& host, bool showWindow) {
    if (!host.started()) return false;
    qputenv("ZENTROVAR_CONFIG_DIR", host.configFolder().toUtf8());
    App.GlblDDEApp = host.service();
    App.GlblInstrument = 1;
    App.GlblOffline = QStringLiteral("0");
    App.GlblOrqDir = host.configFolder() + QLatin1Char('/');
    installEventWiring();
    OpenDDELinks();
    if (!serveUntil(
            [] {
                return !App.GlblIniFile.isEmpty() && !App.GlblDataDir.isEmpty() && frmORQLoaded() &&
                       frmORQ().cboOperator->count() > 0;
            },
            10000))
        return false;
    FrmOrq& form = frmORQ();
    form.cboOperator->setCurrentIndex(0);
    form.txtSubDir->setText(QStringLiteral("Batch7"));
    form.cmdStartPauseResume->setEnabled(true);
    if (showWindow) {
        form.resize(900, 400);
        form.show();
        serveUntil([] { return false; }, 100);
    }
    return true;
}

}  // namespace sidekin::bench
