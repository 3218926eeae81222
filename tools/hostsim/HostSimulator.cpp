#include "HostSimulator.h"

#include <QDateTime>
#include <QDir>
#include <QMetaObject>
#include <algorithm>
#include <cstdio>

#include "FrameLog.h"

namespace sidekin::hostsim {

namespace {

QString hostPath(const QString& path) {
    QString p = path;
    return p.replace(u'\\', u'/');
}

QString firstWord(const QString& text) { return text.trimmed().section(u' ', 0, 0); }

link::Frame reply(link::Verb verb, std::uint32_t id, const QString& value = QString()) {
    return link::Frame{verb, id, {}, {}, value};
}

void warn(const QString& text) {
    std::fprintf(stderr, "zentrovar-hostsim: %s\n", qPrintable(text));
    std::fflush(stderr);
}

}  // namespace

HostSimulator::HostSimulator(const SimConfig& config, const Folders& folders, QObject* parent)
    : QObject(parent), config_(config), folders_(folders) {
    values_.insert(items::DataPath.toLower(), folders.data);
    values_.insert(items::InstPath.toLower(), folders.instrument);
    values_.insert(items::MethPath.toLower(), folders.methods);
    values_.insert(items::SystemStatus.toLower(), readyStatus());
    values_.insert(items::StatusTime.toLower(), QStringLiteral("Elapsed|0.0|min"));
    values_.insert(items::RunEngine.toLower(), QStringLiteral("Idle"));
    values_.insert(items::ShowOrq.toLower(), QStringLiteral("11"));
    armCloseAfter(config.faults.closeAfter);
    armGarbageAfter(config.faults.garbageAfter);
    closeOn_ = config.faults.closeOn;

    tick_.setTimerType(Qt::PreciseTimer);
    finish_.setSingleShot(true);
    finish_.setTimerType(Qt::PreciseTimer);
    connect(&tick_, &QTimer::timeout, this, &HostSimulator::tick);
    connect(&finish_, &QTimer::timeout, this, &HostSimulator::finishRun);
}

HostSimulator::~HostSimulator() = default;

QString HostSimulator::readyStatus() {
    return QStringLiteral("1|0|SysGreen|Ready|MthGreen|Waiting for Injection");
}
QString HostSimulator::runningStatus() {
    return QStringLiteral("1|0|SysYellow|Run in Progress|MthGreen|Data Acquisition");
}
QString HostSimulator::abortedStatus() {
    return QStringLiteral("1|0|SysRed|Not Ready|MthYellow|Waiting for Ready");
}

std::optional<QString> HostSimulator::value(const QString& name) const {
    const auto it = values_.constFind(name.toLower());
    if (it == values_.constEnd()) return std::nullopt;
    return *it;
}

void HostSimulator::publish(const QString& item, const QString& value) {
    const QString key = item.toLower();
    const auto it = values_.constFind(key);
    if (it != values_.constEnd() && *it == value) return;
    values_.insert(key, value);
    emit itemChanged(item, value);
}

void HostSimulator::armCloseAfter(int frames) { closeAt_ = frames > 0 ? frames_ + frames : 0; }
void HostSimulator::armGarbageAfter(int frames) { garbageAt_ = frames > 0 ? frames_ + frames : 0; }

void HostSimulator::clearFaults() {
    config_.faults = Faults{};
    closeAt_ = 0;
    garbageAt_ = 0;
    closeOn_.clear();
}

void HostSimulator::receiveMalformed(Peer& peer) {
    if (log_) log_->malformed(++frames_, peer.connection());
}

void HostSimulator::receive(Peer& peer, const link::Frame& frame) {
    const int number = ++frames_;
    if (log_) log_->frame(number, peer.connection(), frame);

    if (closeAt_ && number >= closeAt_) {
        closeAt_ = 0;
        peer.drop();
        return;
    }
    if (!closeOn_.isEmpty() && frame.verb == link::Verb::Execute &&
        firstWord(frame.name).compare(closeOn_, Qt::CaseInsensitive) == 0) {
        closeOn_.clear();
        peer.drop();
        return;
    }
    if (garbageAt_ && number >= garbageAt_) {
        garbageAt_ = 0;
        peer.sendGarbage();
        return;
    }

    const bool wait = frame.topic.compare(link::TopicWait, Qt::CaseInsensitive) == 0;
    const bool noWait = frame.topic.compare(link::TopicNoWait, Qt::CaseInsensitive) == 0;
    if (!wait && !noWait) {
        peer.send(reply(link::Verb::Refused, frame.id, QStringLiteral("unknown topic")));
        return;
    }

    switch (frame.verb) {
        case link::Verb::Execute: {
            QString error;
            std::optional<Script> script = parseCommand(frame.name, &error);
            if (!script) {
                peer.send(reply(link::Verb::Refused, frame.id, error));
                return;
            }
            if (wait) {
                const bool done = run(*script, &error);
                peer.send(reply(done ? link::Verb::Ack : link::Verb::Refused, frame.id,
                                done ? QString() : error));
                return;
            }
            peer.send(reply(link::Verb::Ack, frame.id));
            QMetaObject::invokeMethod(
                this,
                [this, script = std::move(*script), command = frame.name] {
                    QString why;
                    if (!run(script, &why))
                        warn(QStringLiteral("\"%1\" failed: %2").arg(command, why));
                },
                Qt::QueuedConnection);
            return;
        }
        case link::Verb::Request:
            if (auto v = value(frame.name))
                peer.send(reply(link::Verb::Data, frame.id, *v + link::LineEnd));
            else
                peer.send(reply(link::Verb::Refused, frame.id, QStringLiteral("unknown item")));
            return;
        case link::Verb::Advise:
            if (value(frame.name)) {
                peer.send(reply(link::Verb::Ack, frame.id));
                peer.watch(frame.name);
            } else {
                peer.send(reply(link::Verb::Refused, frame.id, QStringLiteral("unknown item")));
            }
            return;
        default:
            peer.send(reply(link::Verb::Refused, frame.id,
                            QStringLiteral("not a question for the host")));
            return;
    }
}

bool HostSimulator::run(const Script& script, QString* error) {
    std::shared_ptr<const Statement> trap;
    for (const Statement& statement : script) {
        if (const auto* on = std::get_if<OnError>(&statement.what)) {
            trap = on->handler;
            continue;
        }
        QString why;
        if (step(statement, &why)) continue;
        // Like the host's trap: run the handler, then go on with the next statement.
        if (!trap || !step(*trap, &why)) {
            if (error) *error = why;
            return false;
        }
    }
    return true;
}

bool HostSimulator::step(const Statement& statement, QString* error) {
    if (const auto* assign = std::get_if<Assign>(&statement.what)) {
        QString result;
        if (const auto* literal = std::get_if<Literal>(&assign->value)) {
            result = literal->isText ? literal->text
                                     : QString::number(literal->text.toDouble(), 'g', 15);
        } else {
            auto v = evaluate(std::get<Call>(assign->value), error);
            if (!v) return false;
            result = *v;
        }
        publish(assign->variable, result);
        return true;
    }
    if (const auto* open = std::get_if<OpenFile>(&statement.what)) {
        if (channels_.count(open->channel)) {
            *error = QStringLiteral("file already open on #%1").arg(open->channel);
            return false;
        }
        auto file = std::make_unique<QFile>(hostPath(open->path));
        const QIODevice::OpenMode mode = open->mode == u"Input" ? QIODevice::ReadOnly
                                         : open->mode == u"Append"
                                             ? QIODevice::Append
                                             : QIODevice::WriteOnly | QIODevice::Truncate;
        if (!file->open(mode)) {
            *error =
                QStringLiteral("cannot open %1: %2").arg(file->fileName(), file->errorString());
            return false;
        }
        channels_[open->channel] = std::move(file);
        return true;
    }
    if (const auto* close = std::get_if<CloseFile>(&statement.what)) {
        if (close->channel == 0)
            channels_.clear();
        else
            channels_.erase(close->channel);
        return true;
    }
    if (const auto* del = std::get_if<DeleteFile>(&statement.what)) {
        const QString path = hostPath(del->path);
        if (!QFile::remove(path)) {
            *error = QStringLiteral("cannot delete %1").arg(path);
            return false;
        }
        return true;
    }
    if (const auto* vars = std::get_if<SetRunTableVars>(&statement.what)) {
        operator_ = vars->operatorName;
        subdirectory_ = vars->subdirectory;
        return true;
    }
    if (const auto* prepare = std::get_if<PrepareRun>(&statement.what)) {
        if (running_) {
            *error = QStringLiteral("a run is in progress");
            return false;
        }
        prepared_ = prepare->run;
        loadedMethod_ = prepare->run.method;
        methodLoaded();
        return true;
    }
    if (const auto* load = std::get_if<LoadMethod>(&statement.what)) {
        if (running_) {
            *error = QStringLiteral("a run is in progress");
            return false;
        }
        loadedMethod_ = load->method;
        methodLoaded();
        return true;
    }
    if (const auto* start = std::get_if<HostStart>(&statement.what)) {
        if (running_) {
            *error = QStringLiteral("a run is in progress");
            return false;
        }
        startRun(start->row);
        return true;
    }
    *error = QStringLiteral("statement not supported");
    return false;
}

std::optional<QString> HostSimulator::evaluate(const Call& call, QString* error) {
    const auto number = [&](size_t i) { return static_cast<int>(call.args[i].text.toDouble()); };
    const auto flag = [](bool b) { return b ? QStringLiteral("1") : QStringLiteral("0"); };

    if (call.function == u"ORQCheckIfValidVial")
        return flag(config_.vialIsValid(number(0), number(1)));
    if (call.function == u"RCGetResourceVal") {
        const QString key = call.args[2].text;
        if (key.compare(u"ALS.Fr.Capacity", Qt::CaseInsensitive) == 0)
            return QString::number(config_.frontCapacity);
        if (key.compare(u"ALS.Bk.Capacity", Qt::CaseInsensitive) == 0)
            return QString::number(config_.backCapacity);
        *error = QStringLiteral("no resource %1").arg(key);
        return std::nullopt;
    }
    if (call.function == u"TestForDevice" || call.function == u"MyTestForDevice") {
        QString device = call.args[0].text.trimmed();
        if (device.startsWith(u"RC", Qt::CaseInsensitive)) device = device.mid(2);
        if (!config_.deviceAnswer.isEmpty()) return config_.deviceAnswer;
        return flag(config_.model != u"none" && device == config_.model);
    }
    if (call.function == u"ORQGetInjectorVialRange$") {
        const int injector = number(0);
        if (injector != 1 && injector != 2) {
            *error = QStringLiteral("no injector %1").arg(injector);
            return std::nullopt;
        }
        if (config_.rangeNeedsMethod && loadedMethod_.isEmpty()) return QStringLiteral("0,0");
        return config_.vialRange(injector);
    }
    *error = QStringLiteral("function %1 not supported").arg(call.function);
    return std::nullopt;
}

void HostSimulator::methodLoaded() {
    // Always a change first: a second LOADED in a row would reach nobody.
    publish(items::RunEngine, QStringLiteral("LOADING"));
    publish(items::SystemStatus, readyStatus());
    if (!config_.faults.noLoaded) publish(items::RunEngine, QStringLiteral("LOADED"));
}

void HostSimulator::startRun(int row) {
    running_ = true;
    runRow_ = row;
    runAborted_ = config_.faults.abortRuns.count(row) > 0 || config_.faults.abortNext;
    config_.faults.abortNext = false;
    current_ = prepared_;
    prepared_.reset();
    runClock_.start();
    if (!config_.faults.noRunning) publish(items::RunEngine, QStringLiteral("RUNNING"));
    publish(items::SystemStatus, runningStatus());
    publish(items::StatusTime, QStringLiteral("Elapsed|0.0|min"));
    tick_.start(config_.publishMs);
    finish_.start(static_cast<int>(std::min(config_.runSeconds * 1000.0, 2.0e9)));
}

QString HostSimulator::elapsedText() const {
    return QStringLiteral("Elapsed|%1|min")
        .arg(QString::number(runClock_.elapsed() / 60000.0, 'f', 1));
}

void HostSimulator::tick() {
    if (running_) publish(items::StatusTime, elapsedText());
}

void HostSimulator::finishRunNow() {
    if (!running_) return;
    finish_.stop();
    finishRun();
}

void HostSimulator::finishRun() {
    tick_.stop();
    running_ = false;
    publish(items::StatusTime, elapsedText());
    const bool aborted = runAborted_;
    if (aborted) {
        publish(items::SystemStatus, abortedStatus());
    } else {
        writeDataFolder();
        publish(items::SystemStatus, readyStatus());
    }
    const QString word = aborted ? config_.faults.abortWord : QStringLiteral("Completed");
    publish(items::RunEngine, word);
    current_.reset();
    emit runFinished(runRow_, word);
}

void HostSimulator::writeDataFolder() {
    if (!current_ || current_->dataFile.trimmed().isEmpty()) return;
    QString folder = folders_.data;
    const QString sub = hostPath(subdirectory_).trimmed();
    if (!sub.isEmpty()) folder += sub + u'/';
    folder += hostPath(current_->dataFile) + QStringLiteral(".d");
    if (!QDir().mkpath(folder)) {
        warn(QStringLiteral("cannot create the data folder %1").arg(folder));
        return;
    }
    QFile note(folder + QStringLiteral("/run.txt"));
    if (note.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        const RunRequest& r = *current_;
        const QStringList lines = {
            QStringLiteral("Row=") + QString::number(runRow_),
            QStringLiteral("Operator=") + operator_,
            QStringLiteral("Method=") + r.method,
            QStringLiteral("Injector=") + QString::number(r.injector),
            QStringLiteral("Sample=") + r.sample,
            QStringLiteral("Vial=") + r.vial,
            QStringLiteral("SampleAmount=") + r.sampleAmount,
            QStringLiteral("ISTDAmount=") + r.istdAmount,
            QStringLiteral("Info=") + r.info,
            QStringLiteral("Finished=") + QDateTime::currentDateTime().toString(Qt::ISODate)};
        note.write((lines.join(u'\n') + u'\n').toUtf8());
    }
}

}  // namespace sidekin::hostsim
