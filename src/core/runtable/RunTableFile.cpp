#include "RunTableFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sidekin {

namespace {

const QString Format = QStringLiteral("sidekin run table");
constexpr int Version = 1;

}  // namespace

RunTableSnapshot snapshotOf(const FlexGrid& grid) {
    RunTableSnapshot table;
    const int cols = std::min(grid.Cols(), 10);
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r) {
        RunTableRow row;
        for (int c = 0; c < cols; ++c) {
            row.cells[c] = grid.cellText(r, c);
            row.colours[c] = grid.cellBackColor(r, c);
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

QByteArray encodeRunTable(const RunTableSnapshot& table) {
    QJsonArray rows;
    for (const RunTableRow& row : table.rows) {
        QJsonArray cells, colours;
        bool coloured = false;
        for (int c = 0; c < 10; ++c) {
            cells.append(row.cells[c]);
            colours.append(qint64(row.colours[c]));
            coloured = coloured || row.colours[c] != GridDefaultColor;
        }
        QJsonObject object{{QStringLiteral("cells"), cells}};
        if (coloured) object.insert(QStringLiteral("colours"), colours);
        rows.append(object);
    }
    const QJsonObject root{
        {QStringLiteral("format"), Format},
        {QStringLiteral("version"), Version},
        {QStringLiteral("operator"), table.operatorName},
        {QStringLiteral("instrument"), table.instrument},
        {QStringLiteral("saved"), table.saved.toString(Qt::ISODate)},
        {QStringLiteral("currentRun"), table.currentRun},
        {QStringLiteral("rows"), rows},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

RunTableFileRead decodeRunTable(const QByteArray& bytes) {
    RunTableFileRead read;
    QJsonParseError parse{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parse);
    if (parse.error != QJsonParseError::NoError) {
        read.error = RunTableFileError::Damaged;
        return read;
    }
    const QJsonObject root = document.object();
    if (!document.isObject() || root.value(QStringLiteral("format")).toString() != Format ||
        !root.value(QStringLiteral("rows")).isArray()) {
        read.error = RunTableFileError::NotATable;
        return read;
    }
    if (root.value(QStringLiteral("version")).toInt() > Version) {
        read.error = RunTableFileError::Newer;
        return read;
    }
    RunTableSnapshot table;
    table.operatorName = root.value(QStringLiteral("operator")).toString();
    table.instrument = root.value(QStringLiteral("instrument")).toInt();
    table.saved =
        QDateTime::fromString(root.value(QStringLiteral("saved")).toString(), Qt::ISODate);
    table.currentRun = root.value(QStringLiteral("currentRun")).toInt();
    const QJsonArray rows = root.value(QStringLiteral("rows")).toArray();
    if (rows.size() > 32766) {
        read.error = RunTableFileError::TooMany;
        return read;
    }
    for (qsizetype r = 0; r < rows.size(); ++r) {
        const QJsonObject object = rows[r].toObject();
        const QJsonArray cells = object.value(QStringLiteral("cells")).toArray();
        const QJsonValue colourValue = object.value(QStringLiteral("colours"));
        const QJsonArray colours = colourValue.toArray();
        bool good = rows[r].isObject() && cells.size() == 10 &&
                    (colourValue.isUndefined() || colours.size() == 10);
        RunTableRow row;
        for (int c = 0; good && c < 10; ++c) {
            good = cells[c].isString() && !cells[c].toString().contains(u'\t');
            row.cells[c] = cells[c].toString();
            if (colours.isEmpty()) continue;
            const double colour = colours[c].toDouble(-1);
            good = good && colours[c].isDouble() && colour >= 0 && colour <= 4294967295.0;
            if (good) row.colours[c] = GridColor(colour);
        }
        if (!good) {
            read.error = RunTableFileError::BadRow;
            read.badRow = int(r) + 1;
            return read;
        }
        table.rows.push_back(std::move(row));
    }
    if (table.currentRun < 0 || table.currentRun > int(table.rows.size())) table.currentRun = 0;
    read.table = std::move(table);
    return read;
}

RunTableFileRead readRunTableFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {RunTableFileError::Unreadable, 0, std::nullopt};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return {RunTableFileError::Unreadable, 0, {}};
    return decodeRunTable(bytes);
}

QString stateFolder() {
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    if (base.isEmpty() || QDir::isRelativePath(base))
        base = QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/sidekin");
}

QString journalPath(int instrument) {
    return stateFolder() + QStringLiteral("/run-table-instrument-%1.json").arg(instrument);
}

}  // namespace sidekin
