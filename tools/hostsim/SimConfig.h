#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>
#include <set>

namespace sidekin::hostsim {

// A set of vial positions written as "1-100,150,201-208".
class VialSet {
public:
    static std::optional<VialSet> parse(const QString& text);
    static VialSet range(int lower, int upper);
    bool contains(int vial) const;
    QString toString() const;

private:
    QList<QPair<int, int>> ranges_;
};

struct Faults {
    std::set<int> abortRuns;                        // run table rows that end aborted
    bool abortNext = false;                         // the next run started ends aborted
    QString abortWord = QStringLiteral("Aborted");  // or "ABORTED"
    bool noLoaded = false;                          // never report LOADED
    bool noRunning = false;                         // never report RUNNING
    int closeAfter = 0;    // drop the connection instead of answering frame n
    QString closeOn;       // ... or the first Execute beginning with this word
    int garbageAfter = 0;  // answer frame n with a malformed frame
};

struct SimConfig {
    QString model = QStringLiteral("none");  // "4410", "4420", "4430" or "none"
    int frontLower = 101;
    int frontUpper = 108;
    int backLower = 1;
    int backUpper = 100;
    std::optional<VialSet> frontValid;  // unset: the front range
    std::optional<VialSet> backValid;
    int frontCapacity = 8;
    int backCapacity = 100;
    bool rangeNeedsMethod = false;  // the range question answers "0,0" until a method is loaded
    QString deviceAnswer;           // when set, every device test answers this text instead
    double runSeconds = 10.0;
    int publishMs = 250;
    Faults faults;

    bool vialIsValid(int injector, int vial) const;
    QString vialRange(int injector) const;  // "lower,upper"
};

bool isKnownModel(const QString& model);

// Reads the keys of an ini file over the defaults already in config.
// Answers false with a reason for a missing file or a value that does not read.
bool loadConfig(const QString& file, SimConfig& config, QString* error);

// "L-U" into two numbers.
bool parseRange(const QString& text, int& lower, int& upper);

}  // namespace sidekin::hostsim
