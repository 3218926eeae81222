#include "SimulatorApp.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>

#include "Control.h"
#include "DemoSet.h"
#include "FrameLog.h"
#include "HostSimulator.h"
#include "LinkServer.h"
#include "platform/ProfileFile.h"

namespace sidekin::hostsim {

namespace {

const QString DefaultService = QStringLiteral("ZentrovarSim");

void say(FILE* to, const QString& text) {
    std::fputs(qPrintable(text + u'\n'), to);
    std::fflush(to);
}

QCommandLineOption option(const char* name, const char* help, const char* value = nullptr) {
    return value
               ? QCommandLineOption(QLatin1String(name), QLatin1String(help), QLatin1String(value))
               : QCommandLineOption(QLatin1String(name), QLatin1String(help));
}

}  // namespace

QString launchArgument(qint64 windowId, const QString& service, const QString& programFolder,
                       int instrument, bool offline) {
    QString folder = programFolder;
    if (!folder.endsWith(u'/') && !folder.endsWith(u'\\')) folder += u'/';
    return QString::number(windowId) + u'|' + service + QStringLiteral("|\"") + folder +
           QStringLiteral("\"|") + QString::number(instrument) + u'|' + (offline ? u'1' : u'0');
}

SimulatorApp::SimulatorApp() = default;

SimulatorApp::~SimulatorApp() {
    if (program_ && program_->state() != QProcess::NotRunning) {
        program_->disconnect(this);
        program_->kill();
        program_->waitForFinished(3000);
    }
}

std::optional<int> SimulatorApp::start(const QStringList& arguments) {
    QCommandLineParser p;
    p.setApplicationDescription(QStringLiteral(
        "Plays the Zentrovar host for Sidekin: serves the host link, publishes the host's items, "
        "carries out its commands and runs, and seeds a demo instrument. Control lines on standard "
        "input (\"help\" lists them)."));
    const auto help = p.addHelpOption();
    const auto service = option("service", "Serve this service name (repeatable).", "name");
    const auto ini =
        option("ini", "zentrovar.ini to read the service names from, or to write with --write-ini.",
               "file");
    const auto writeIni =
        option("write-ini", "Write the service names into [PCS,n] of zentrovar.ini.");
    const auto instrument = option("instrument", "Instrument number n (default 1).", "n");
    const auto offline = option("offline", "Tell the launched program that the host runs offline.");
    const auto config = option("config", "Instrument and fault settings (ini file).", "file");
    const auto root = option("root", "Folder of the demo instrument, methods and data.", "dir");
    const auto resetDemo = option("reset-demo", "Overwrite the demo files, ORQ.INI included.");
    const auto log = option("log", "Write every frame received to this file.", "file");
    const auto echo = option("echo", "Write the frame log to standard output as well.");
    const auto control =
        option("control", "Also take control lines on this local socket name.", "name");
    const auto launchOpt =
        option("launch", "Start this program with the host's command line.", "program");
    const auto programDir =
        option("program-dir", "Program folder to pass (default: that of --launch).", "dir");
    const auto windowId = option(
        "window-id", "Window handle to pass (default: the simulator's window, else 0).", "id");
    const auto noWindow =
        option("no-window", "No window: control lines only (also without a display).");
    const auto model = option("model", "Attached sampler: 4410, 4420, 4430 or none.", "model");
    const auto runSeconds = option("run-seconds", "Length of a run in seconds (0: at once).", "s");
    const auto publishMs = option("publish-ms", "Status publish interval during a run.", "ms");
    const auto frontRange = option("front-range", "Front tray range L-U.", "L-U");
    const auto backRange = option("back-range", "Back tray range L-U.", "L-U");
    const auto frontValid = option("front-valid", "Valid front vials, e.g. 101-108,110.", "list");
    const auto backValid = option("back-valid", "Valid back vials.", "list");
    const auto frontCapacity = option("front-capacity", "Answer to ALS.Fr.Capacity.", "n");
    const auto rangeNeedsMethod =
        option("range-needs-method", "Answer 0,0 to the range question until a method is loaded.");
    const auto abort = option("abort", "Abort run table row n (repeatable).", "n");
    const auto abortWord = option("abort-word", "Aborted or ABORTED.", "word");
    const auto noLoaded = option("no-loaded", "Never report LOADED.");
    const auto noRunning = option("no-running", "Never report RUNNING.");
    const auto closeAfter =
        option("close-after", "Drop the connection instead of answering frame n.", "n");
    const auto closeOn = option(
        "close-on", "Drop the connection on the first command beginning with this word.", "word");
    const auto garbageAfter =
        option("garbage-after", "Answer frame n with a malformed frame.", "n");
    p.addOptions({service,    ini,        writeIni,  instrument,    offline,          config,
                  root,       resetDemo,  log,       echo,          control,          launchOpt,
                  programDir, windowId,   model,     runSeconds,    publishMs,        frontRange,
                  backRange,  frontValid, backValid, frontCapacity, rangeNeedsMethod, abort,
                  abortWord,  noLoaded,   noRunning, closeAfter,    closeOn,          garbageAfter,
                  noWindow});

    auto usage = [&](const QString& why) {
        say(stderr, QStringLiteral("zentrovar-hostsim: ") + why);
        return 2;
    };
    if (!p.parse(arguments)) return usage(p.errorText());
    if (p.isSet(help)) {
        say(stdout, p.helpText());
        return 0;
    }
    if (!p.positionalArguments().isEmpty())
        return usage(QStringLiteral("unexpected ") + p.positionalArguments().join(u' '));

    SimConfig settings;
    QString error;
    if (p.isSet(config) && !loadConfig(p.value(config), settings, &error)) return usage(error);

    auto integer = [&](const QCommandLineOption& o, int& out, int minimum) {
        bool ok = false;
        const int v = p.value(o).toInt(&ok);
        if (!ok || v < minimum) {
            error = QStringLiteral("--%1: cannot use \"%2\"").arg(o.names().first(), p.value(o));
            return false;
        }
        out = v;
        return true;
    };
    auto vials = [&](const QCommandLineOption& o, std::optional<VialSet>& out) {
        out = VialSet::parse(p.value(o));
        if (!out)
            error = QStringLiteral("--%1: cannot use \"%2\"").arg(o.names().first(), p.value(o));
        return out.has_value();
    };
    bool good = true;
    if (p.isSet(model)) {
        settings.model = p.value(model).toLower();
        if (!isKnownModel(settings.model))
            return usage(QStringLiteral("--model: 4410, 4420, 4430 or none"));
    }
    if (p.isSet(runSeconds)) {
        const double s = p.value(runSeconds).toDouble(&good);
        if (!good || s < 0) return usage(QStringLiteral("--run-seconds: a number of seconds"));
        settings.runSeconds = s;
    }
    if (p.isSet(publishMs)) good = good && integer(publishMs, settings.publishMs, 1);
    if (p.isSet(frontRange) &&
        !parseRange(p.value(frontRange), settings.frontLower, settings.frontUpper))
        return usage(QStringLiteral("--front-range: L-U"));
    if (p.isSet(backRange) &&
        !parseRange(p.value(backRange), settings.backLower, settings.backUpper))
        return usage(QStringLiteral("--back-range: L-U"));
    if (p.isSet(frontValid)) good = good && vials(frontValid, settings.frontValid);
    if (p.isSet(backValid)) good = good && vials(backValid, settings.backValid);
    if (p.isSet(frontCapacity)) good = good && integer(frontCapacity, settings.frontCapacity, 0);
    if (p.isSet(rangeNeedsMethod)) settings.rangeNeedsMethod = true;
    for (const QString& row : p.values(abort)) {
        const int n = row.toInt(&good);
        if (!good || n <= 0) return usage(QStringLiteral("--abort: a row number"));
        settings.faults.abortRuns.insert(n);
    }
    if (p.isSet(abortWord)) {
        settings.faults.abortWord = p.value(abortWord);
        if (settings.faults.abortWord != u"Aborted" && settings.faults.abortWord != u"ABORTED")
            return usage(QStringLiteral("--abort-word: Aborted or ABORTED"));
    }
    if (p.isSet(noLoaded)) settings.faults.noLoaded = true;
    if (p.isSet(noRunning)) settings.faults.noRunning = true;
    if (p.isSet(closeAfter)) good = good && integer(closeAfter, settings.faults.closeAfter, 1);
    if (p.isSet(closeOn)) settings.faults.closeOn = p.value(closeOn);
    if (p.isSet(garbageAfter))
        good = good && integer(garbageAfter, settings.faults.garbageAfter, 1);
    if (p.isSet(instrument)) good = good && integer(instrument, instrument_, 1);
    if (p.isSet(windowId)) {
        windowId_ = p.value(windowId).toLongLong(&good);
        if (!good) return usage(QStringLiteral("--window-id: a number"));
    }
    if (!good) return usage(error);
    offline_ = p.isSet(offline);

    // Service names: given ones, then those of zentrovar.ini unless it is to be written.
    QStringList services = p.values(service);
    QString iniFile = p.value(ini);
    if (p.isSet(writeIni) && iniFile.isEmpty())
        iniFile = resolveProfilePath(QStringLiteral("zentrovar.ini"));
    if (p.isSet(ini) && !p.isSet(writeIni)) {
        if (!QFileInfo(iniFile).isFile()) return usage(QStringLiteral("no file ") + iniFile);
        for (const QString& name : servicesFromIni(iniFile))
            if (!services.contains(name)) services << name;
    }
    if (services.isEmpty()) services << DefaultService;
    service_ = services.first();

    const QString rootFolder = p.isSet(root) ? p.value(root) : defaultDemoRoot();
    if (!installDemoSet(rootFolder, p.isSet(resetDemo), &error)) {
        say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
        return 1;
    }
    const Folders folders = demoFolders(rootFolder);
    for (const QString& path : {folders.instrument, folders.methods, folders.data})
        if (path.size() > 80)
            say(stderr, QStringLiteral("zentrovar-hostsim: %1 is longer than the 80 characters the "
                                       "program reads of an item; choose a shorter --root")
                            .arg(path));

    log_ = std::make_unique<FrameLog>();
    if (p.isSet(log) && !log_->open(p.value(log), &error)) {
        say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
        return 1;
    }
    log_->setEcho(p.isSet(echo));

    simulator_ = std::make_unique<HostSimulator>(settings, folders);
    simulator_->setLog(log_.get());
    server_ = std::make_unique<LinkServer>(*simulator_);
    for (const QString& name : services) {
        if (!server_->listen(name, &error)) {
            say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
            return 1;
        }
    }

    if (p.isSet(writeIni)) {
        if (!writeServicesIni(iniFile, instrument_, services.first(),
                              services.value(1, services.first()), &error)) {
            say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
            return 1;
        }
    }
    if (!iniFile.isEmpty() &&
        QFileInfo(iniFile).fileName().compare(u"zentrovar.ini", Qt::CaseInsensitive) == 0)
        iniFolder_ = QFileInfo(iniFile).absolutePath();

    control_ = std::make_unique<ControlChannel>(*simulator_);
    connect(control_.get(), &ControlChannel::quitRequested, this, [this] {
        server_->close();
        QCoreApplication::exit(0);
    });
    control_->readStandardInput();
    if (p.isSet(control) && !control_->listen(p.value(control), &error)) {
        say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
        return 1;
    }

    say(stderr, QStringLiteral("zentrovar-hostsim: serving %1; instrument %2, methods %3, data %4")
                    .arg(services.join(QStringLiteral(", ")), folders.instrument, folders.methods,
                         folders.data));
    if (windowMaker_) {
        const qint64 id = windowMaker_(*simulator_, *log_, instrument_);
        if (!p.isSet(windowId)) windowId_ = id;
    }
    say(stdout, QStringLiteral("ready"));

    if (p.isSet(launchOpt)) {
        programFolder_ = p.isSet(programDir) ? QDir(p.value(programDir)).absolutePath()
                                             : QFileInfo(p.value(launchOpt)).absolutePath();
        if (!launch(p.value(launchOpt), &error)) {
            say(stderr, QStringLiteral("zentrovar-hostsim: ") + error);
            return 1;
        }
    }
    return std::nullopt;
}

bool SimulatorApp::launch(const QString& program, QString* error) {
    program_ = new QProcess(this);
    program_->setProcessChannelMode(QProcess::ForwardedChannels);
    if (!iniFolder_.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("ZENTROVAR_CONFIG_DIR"), iniFolder_);
        program_->setProcessEnvironment(env);
    }
    const QString argument =
        launchArgument(windowId_, service_, programFolder_, instrument_, offline_);
    program_->start(program, {argument});
    if (!program_->waitForStarted(10000)) {
        *error = QStringLiteral("cannot start %1: %2").arg(program, program_->errorString());
        return false;
    }
    say(stderr, QStringLiteral("zentrovar-hostsim: started %1 %2").arg(program, argument));
    connect(program_, &QProcess::finished, this, [program](int code, QProcess::ExitStatus status) {
        say(stderr, status == QProcess::NormalExit
                        ? QStringLiteral("zentrovar-hostsim: %1 ended with status %2")
                              .arg(program)
                              .arg(code)
                        : QStringLiteral("zentrovar-hostsim: %1 crashed").arg(program));
    });
    return true;
}

}  // namespace sidekin::hostsim
