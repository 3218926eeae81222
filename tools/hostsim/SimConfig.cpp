#include "SimConfig.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/ProfileFile.h"

namespace sidekin::hostsim {

namespace {

bool toInt(const QString& text, int& out) {
    bool ok = false;
    const int v = text.trimmed().toInt(&ok);
    if (ok) out = v;
    return ok;
}

std::optional<bool> toBool(const QString& text) {
    const QString t = text.trimmed().toLower();
    if (t == u"1" || t == u"on" || t == u"yes" || t == u"true") return true;
    if (t == u"0" || t == u"off" || t == u"no" || t == u"false") return false;
    return std::nullopt;
}

}  // namespace

std::optional<VialSet> VialSet::parse(const QString& text) {
    VialSet set;
    for (const QString& raw : text.split(u',', Qt::SkipEmptyParts)) {
        const QString part = raw.trimmed();
        if (part.isEmpty()) continue;
        int lower = 0;
        int upper = 0;
        if (part.contains(u'-')) {
            if (!parseRange(part, lower, upper)) return std::nullopt;
        } else if (toInt(part, lower)) {
            upper = lower;
        } else {
            return std::nullopt;
        }
        set.ranges_.append({lower, upper});
    }
    return set;
}

VialSet VialSet::range(int lower, int upper) {
    VialSet set;
    set.ranges_.append({lower, upper});
    return set;
}

bool VialSet::contains(int vial) const {
    return std::any_of(ranges_.begin(), ranges_.end(),
                       [vial](const auto& r) { return vial >= r.first && vial <= r.second; });
}

QString VialSet::toString() const {
    QStringList parts;
    for (const auto& r : ranges_)
        parts << (r.first == r.second ? QString::number(r.first)
                                      : QStringLiteral("%1-%2").arg(r.first).arg(r.second));
    return parts.join(u',');
}

bool parseRange(const QString& text, int& lower, int& upper) {
    const qsizetype dash = text.indexOf(u'-', 1);  // a leading '-' would be a sign
    if (dash < 0) return false;
    int l = 0;
    int u = 0;
    if (!toInt(text.left(dash), l) || !toInt(text.mid(dash + 1), u) || u < l) return false;
    lower = l;
    upper = u;
    return true;
}

bool isKnownModel(const QString& model) {
    return model == u"4410" || model == u"4420" || model == u"4430" || model == u"none";
}

bool SimConfig::vialIsValid(int injector, int vial) const {
    if (injector == 1)
        return (frontValid ? *frontValid : VialSet::range(frontLower, frontUpper)).contains(vial);
    if (injector == 2)
        return (backValid ? *backValid : VialSet::range(backLower, backUpper)).contains(vial);
    return false;
}

QString SimConfig::vialRange(int injector) const {
    return injector == 1 ? QStringLiteral("%1,%2").arg(frontLower).arg(frontUpper)
                         : QStringLiteral("%1,%2").arg(backLower).arg(backUpper);
}

bool loadConfig(const QString& file, SimConfig& config, QString* error) {
    const QFileInfo info(file);
    if (!info.isFile()) {
        *error = QStringLiteral("no configuration file %1").arg(file);
        return false;
    }
    // Absolute, or the profile reader would look for a bare name in its own folder.
    const QString path = info.absoluteFilePath();
    QString failure;
    auto read = [&](const char* section, const char* key) -> std::optional<QString> {
        QString buffer;
        const int n = GetPrivateProfileStringA(QLatin1String(section), QLatin1String(key),
                                               QString(), buffer, 1024, path);
        if (n <= 0) return std::nullopt;
        return buffer.left(n);
    };
    auto bad = [&](const char* section, const char* key, const QString& value) {
        if (failure.isEmpty())
            failure = QStringLiteral("[%1] %2: cannot use \"%3\"")
                          .arg(QLatin1String(section), QLatin1String(key), value);
    };
    auto number = [&](const char* section, const char* key, int& out) {
        if (auto v = read(section, key); v && !toInt(*v, out)) bad(section, key, *v);
    };
    auto flag = [&](const char* section, const char* key, bool& out) {
        if (auto v = read(section, key)) {
            if (auto b = toBool(*v))
                out = *b;
            else
                bad(section, key, *v);
        }
    };
    auto vials = [&](const char* key, std::optional<VialSet>& out) {
        if (auto v = read("Instrument", key)) {
            if (auto set = VialSet::parse(*v))
                out = set;
            else
                bad("Instrument", key, *v);
        }
    };

    if (auto v = read("Instrument", "Model")) {
        if (isKnownModel(v->trimmed().toLower()))
            config.model = v->trimmed().toLower();
        else
            bad("Instrument", "Model", *v);
    }
    number("Instrument", "FrontLowerVial", config.frontLower);
    number("Instrument", "FrontUpperVial", config.frontUpper);
    number("Instrument", "BackLowerVial", config.backLower);
    number("Instrument", "BackUpperVial", config.backUpper);
    vials("FrontValidVials", config.frontValid);
    vials("BackValidVials", config.backValid);
    number("Instrument", "FrontCapacity", config.frontCapacity);
    number("Instrument", "BackCapacity", config.backCapacity);
    flag("Instrument", "RangeNeedsMethod", config.rangeNeedsMethod);
    if (auto v = read("Instrument", "DeviceAnswer")) config.deviceAnswer = v->trimmed();

    if (auto v = read("Run", "Seconds")) {
        bool ok = false;
        const double s = v->trimmed().toDouble(&ok);
        if (ok && s >= 0)
            config.runSeconds = s;
        else
            bad("Run", "Seconds", *v);
    }
    number("Run", "PublishMs", config.publishMs);
    if (config.publishMs <= 0) bad("Run", "PublishMs", QString::number(config.publishMs));

    Faults& f = config.faults;
    if (auto v = read("Faults", "AbortRuns")) {
        for (const QString& part : v->split(u',', Qt::SkipEmptyParts)) {
            int row = 0;
            if (toInt(part, row))
                f.abortRuns.insert(row);
            else
                bad("Faults", "AbortRuns", *v);
        }
    }
    if (auto v = read("Faults", "AbortWord")) {
        if (*v == u"Aborted" || *v == u"ABORTED")
            f.abortWord = *v;
        else
            bad("Faults", "AbortWord", *v);
    }
    flag("Faults", "NoLoaded", f.noLoaded);
    flag("Faults", "NoRunning", f.noRunning);
    number("Faults", "CloseAfter", f.closeAfter);
    if (auto v = read("Faults", "CloseOn")) f.closeOn = v->trimmed();
    number("Faults", "GarbageAfter", f.garbageAfter);

    if (!failure.isEmpty()) {
        *error = QStringLiteral("%1: %2").arg(file, failure);
        return false;
    }
    return true;
}

}  // namespace sidekin::hostsim
