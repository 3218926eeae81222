#pragma once

#include <QFile>
#include <QString>
#include <functional>

#include "LinkProtocol.h"

namespace sidekin::hostsim {

// One line per frame received: number, connection, verb, topic, text (and the
// value, when a frame carries one), separated by tabs. CR, LF, tab and
// backslash are escaped so that a frame never spans two lines.
class FrameLog {
public:
    bool open(const QString& file, QString* error);
    void setEcho(bool echo) { echo_ = echo; }
    // Called with every line written, e.g. to show the log in a window.
    void setListener(std::function<void(const QString&)> listener) {
        listener_ = std::move(listener);
    }

    void frame(int number, int connection, const link::Frame& frame);
    void malformed(int number, int connection);

    static QString escape(const QString& text);
    static QString verbName(link::Verb verb);

private:
    void write(const QString& line);

    QFile file_;
    bool echo_ = false;
    std::function<void(const QString&)> listener_;
};

}  // namespace sidekin::hostsim
