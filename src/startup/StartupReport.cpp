#include "StartupReport.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <chrono>

namespace sidekin {

namespace {

class FirstPaint : public QObject {
public:
    FirstPaint(QString windowName, QString file,
               std::function<std::chrono::system_clock::time_point()> firstBox)
        : windowName_(std::move(windowName)),
          file_(std::move(file)),
          firstBox_(std::move(firstBox)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->objectName() == windowName_) {
            const auto ns = [](std::chrono::system_clock::time_point t) {
                return std::chrono::duration_cast<std::chrono::nanoseconds>(t.time_since_epoch())
                    .count();
            };
            QFile out(file_);
            if (out.open(QIODevice::WriteOnly | QIODevice::Truncate))
                out.write(QStringLiteral("shown %1 box %2\n")
                              .arg(ns(std::chrono::system_clock::now()))
                              .arg(ns(firstBox_()))
                              .toLatin1());
            qApp->removeEventFilter(this);
            deleteLater();
        }
        return false;
    }

private:
    QString windowName_;
    QString file_;
    std::function<std::chrono::system_clock::time_point()> firstBox_;
};

}  // namespace

void reportFirstPaint(const QString& windowName, const QString& file,
                      std::function<std::chrono::system_clock::time_point()> firstBox) {
    qApp->installEventFilter(new FirstPaint(windowName, file, std::move(firstBox)));
}

}  // namespace sidekin
