#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace sidekin::hostsim {

class FrameLog;
class HostSimulator;

// The simulator's window for demos and training: a "ViewMGR" child that the
// program places its main window in, the instrument's status, buttons that
// act as the host would, and the frame log as it grows.
class SimulatorWindow : public QWidget {
    Q_OBJECT
public:
    SimulatorWindow(HostSimulator& simulator, FrameLog& log, int instrument,
                    QWidget* parent = nullptr);
    ~SimulatorWindow() override;

    // The handle to give the program: this window's own, on X11; else 0.
    qint64 hostHandle();

private:
    void control(const QString& line);
    void refresh();
    void showPendingLines();
    void appendToLog(const QString& text);

    HostSimulator& simulator_;
    FrameLog& log_;
    QWidget* viewMgr_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* method_ = nullptr;
    QLabel* engine_ = nullptr;
    QLabel* runTime_ = nullptr;
    QLabel* show_ = nullptr;
    QPushButton* abortNext_ = nullptr;
    QPlainTextEdit* frames_ = nullptr;
    // Log lines not shown yet: a repaint per frame would cost more than the frame.
    QStringList pendingLines_;
    QTimer showLines_;
};

}  // namespace sidekin::hostsim
