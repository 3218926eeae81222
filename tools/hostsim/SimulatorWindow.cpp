#include "SimulatorWindow.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QWindow>

#include "Control.h"
#include "FrameLog.h"
#include "HostItems.h"
#include "HostSimulator.h"

namespace sidekin::hostsim {

namespace {

// Room for the program's main window (735 x 289 pixels at 96 dots per inch).
constexpr int ViewWidth = 760;
constexpr int ViewHeight = 320;
constexpr int LogLines = 5000;

QString field(const QString& value, int index) { return value.section(u'|', index, index); }

}  // namespace

SimulatorWindow::SimulatorWindow(HostSimulator& simulator, FrameLog& log, int instrument,
                                 QWidget* parent)
    : QWidget(parent), simulator_(simulator), log_(log) {
    setWindowTitle(QStringLiteral("Zentrovar host simulator"));

    // A native child straight below the top window, where the program looks for it.
    viewMgr_ = new QWidget(this);
    viewMgr_->setAttribute(Qt::WA_NativeWindow);
    viewMgr_->setFixedSize(ViewWidth, ViewHeight);
    viewMgr_->setAutoFillBackground(true);
    viewMgr_->winId();
    viewMgr_->windowHandle()->setTitle(QStringLiteral("ViewMGR - Instrument %1").arg(instrument));

    auto* statusBox = new QGroupBox(QStringLiteral("Instrument %1").arg(instrument));
    auto* form = new QFormLayout(statusBox);
    status_ = new QLabel;
    method_ = new QLabel;
    engine_ = new QLabel;
    runTime_ = new QLabel;
    show_ = new QLabel;
    form->addRow(QStringLiteral("Status:"), status_);
    form->addRow(QStringLiteral("Method:"), method_);
    form->addRow(QStringLiteral("Run engine:"), engine_);
    form->addRow(QStringLiteral("Run time:"), runTime_);
    form->addRow(QStringLiteral("ShowORQ$:"), show_);

    auto* trainerBox = new QGroupBox(QStringLiteral("Trainer"));
    auto* buttons = new QVBoxLayout(trainerBox);
    abortNext_ = new QPushButton(QStringLiteral("Abort next run"));
    abortNext_->setCheckable(true);
    connect(abortNext_, &QPushButton::toggled, this, [this](bool on) {
        control(on ? QStringLiteral("fault abort next") : QStringLiteral("fault abort off"));
    });
    buttons->addWidget(abortNext_);
    auto* showRow = new QHBoxLayout;
    const std::pair<const char*, const char*> shows[] = {
        {"Show (11)", "show 11"}, {"Hide (01)", "show 01"}, {"End (00)", "show 00"}};
    for (const auto& [caption, line] : shows) {
        auto* button = new QPushButton(QLatin1String(caption));
        connect(button, &QPushButton::clicked, this,
                [this, line = QLatin1String(line)] { control(line); });
        showRow->addWidget(button);
    }
    buttons->addLayout(showRow);
    buttons->addStretch();

    frames_ = new QPlainTextEdit;
    frames_->setReadOnly(true);
    frames_->setLineWrapMode(QPlainTextEdit::NoWrap);
    frames_->setFont(QFont(QStringLiteral("Monospace")));
    frames_->setPlaceholderText(QStringLiteral("Frames the host receives"));
    showLines_.setSingleShot(true);
    showLines_.setInterval(100);
    connect(&showLines_, &QTimer::timeout, this, &SimulatorWindow::showPendingLines);
    log_.setListener([this](const QString& line) {
        pendingLines_ << line;
        if (!showLines_.isActive()) showLines_.start();
    });

    auto* panel = new QHBoxLayout;
    panel->addWidget(statusBox, 1);
    panel->addWidget(trainerBox);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(viewMgr_);
    layout->addLayout(panel);
    layout->addWidget(frames_, 1);
    resize(ViewWidth + 20, ViewHeight + 420);

    connect(&simulator_, &HostSimulator::itemChanged, this, &SimulatorWindow::refresh);
    refresh();
}

SimulatorWindow::~SimulatorWindow() { log_.setListener({}); }

qint64 SimulatorWindow::hostHandle() {
    const WId id = winId();
    const QString platform = QGuiApplication::platformName();
    return platform == u"xcb" || platform == u"windows" ? static_cast<qint64>(id) : 0;
}

void SimulatorWindow::control(const QString& line) {
    const ControlReply reply = applyControl(simulator_, line);
    if (reply.text != u"ok") {
        showPendingLines();
        appendToLog(line + QStringLiteral(": ") + reply.text);
    }
    refresh();
}

void SimulatorWindow::showPendingLines() {
    if (pendingLines_.isEmpty()) return;
    if (pendingLines_.size() > LogLines) pendingLines_.remove(0, pendingLines_.size() - LogLines);
    appendToLog(pendingLines_.join(u'\n'));
    pendingLines_.clear();
}

// Cut by position: the document's own block limit lays out every line it removes.
void SimulatorWindow::appendToLog(const QString& text) {
    frames_->appendPlainText(text);
    QTextDocument* document = frames_->document();
    const int extra = document->blockCount() - LogLines;
    if (extra <= 0) return;
    QTextCursor cut(document);
    cut.setPosition(document->findBlockByNumber(extra).position(), QTextCursor::KeepAnchor);
    cut.removeSelectedText();
}

void SimulatorWindow::refresh() {
    const QString status = simulator_.value(items::SystemStatus).value_or(QString());
    status_->setText(field(status, 3) + QStringLiteral(" (") + field(status, 5) + u')');
    const QString method = simulator_.loadedMethod();
    method_->setText(method.isEmpty() ? QStringLiteral("none loaded") : method);
    QString engine = simulator_.value(items::RunEngine).value_or(QString());
    if (simulator_.runInProgress()) engine += QStringLiteral(", row %1").arg(simulator_.runRow());
    engine_->setText(engine);
    const QString time = simulator_.value(items::StatusTime).value_or(QString());
    runTime_->setText(field(time, 1) + u' ' + field(time, 2));
    show_->setText(simulator_.value(items::ShowOrq).value_or(QString()));
    const QSignalBlocker block(abortNext_);
    abortNext_->setChecked(simulator_.config().faults.abortNext);
}

}  // namespace sidekin::hostsim
