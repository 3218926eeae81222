#include <gtest/gtest.h>

#include <QProcess>

#include "TempFolder.h"

using sidekin::test::TempFolder;

namespace {

struct ToolRun {
    int status;
    QByteArray out;
    QByteArray err;
};

// Runs the tool with bare-named files in the given folder.
ToolRun orqini(const QString& folder, const QStringList& args) {
    QProcess tool;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("ZENTROVAR_CONFIG_DIR", folder);
    tool.setProcessEnvironment(env);
    tool.start(ORQINI, args);
    if (!tool.waitForFinished(10000) || tool.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {tool.exitCode(), tool.readAllStandardOutput(), tool.readAllStandardError()};
}

const QByteArray kLab =
    "[Operators]\nNumOperators=2\nOperator1=Ana Ruiz\noperator1=shadowed\nOperator2=Tom Baker\n"
    "[Diesel,FAME_FAST]\nDataFile=\nInfoLine=\"  padded  \"\n[operators]\nlate=1\n";

TEST(Orqini, GetAnswersLikeTheReader) {
    TempFolder dir;
    dir.write("ORQ.INI", kLab);
    const struct {
        QStringList args;
        QByteArray out;
    } rows[] = {{{"orq.ini", "OPERATORS", "operator1"}, "Ana Ruiz\n"},
                {{"ORQ.INI", "Diesel,FAME_FAST", "InfoLine"}, "  padded  \n"},
                {{"ORQ.INI", "Diesel,FAME_FAST", "DataFile"}, "-1\n"},
                {{"ORQ.INI", "Operators", "late"}, "-1\n"},
                {{"ORQ.INI", "System", "DataSubDir"}, "-1\n"},
                {{"NONE.INI", "Operators", "NumOperators"}, "-1\n"}};
    for (const auto& row : rows) {
        const ToolRun run = orqini(dir.path(), QStringList{"get"} + row.args);
        EXPECT_EQ(run.status, 0) << row.args.join(' ').toStdString();
        EXPECT_EQ(run.out, row.out) << row.args.join(' ').toStdString();
    }
}

TEST(Orqini, SetThenGet) {
    TempFolder dir;
    dir.write("ORQ.INI", kLab);
    EXPECT_EQ(
        orqini(dir.path(), {"set", "ORQ.INI", "diesel,fame_fast", "datafile", "OIL,12"}).status, 0);
    EXPECT_EQ(orqini(dir.path(), {"get", "ORQ.INI", "Diesel,FAME_FAST", "DataFile"}).out,
              "OIL,12\n");
    QByteArray expected = kLab;
    EXPECT_EQ(dir.read("ORQ.INI"), expected.replace("DataFile=\n", "DataFile=OIL,12\n"));
    const QString path = dir.file("sub/ORQ.INI");
    const ToolRun failed = orqini(dir.path(), {"set", path, "S", "k", "v"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_FALSE(failed.err.isEmpty());
}

TEST(Orqini, ListSectionsOrKeys) {
    TempFolder dir;
    dir.write("ORQ.INI", kLab);
    EXPECT_EQ(orqini(dir.path(), {"list", "ORQ.INI"}).out, "Operators\nDiesel,FAME_FAST\n");
    EXPECT_EQ(orqini(dir.path(), {"list", "ORQ.INI", "operators"}).out,
              "NumOperators\nOperator1\nOperator2\n");
    const ToolRun none = orqini(dir.path(), {"list", "ORQ.INI", "System"});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "");
}

TEST(Orqini, UsageErrorsExitTwo) {
    TempFolder dir;
    const QStringList rows[] = {
        {},       {"get", "ORQ.INI", "S"},           {"set", "ORQ.INI", "S", "k"},
        {"list"}, {"list", "ORQ.INI", "S", "extra"}, {"remove", "ORQ.INI", "S", "k"}};
    for (const QStringList& args : rows) {
        const ToolRun run = orqini(dir.path(), args);
        EXPECT_EQ(run.status, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty());
        EXPECT_TRUE(run.err.contains("usage")) << args.join(' ').toStdString();
    }
}

}  // namespace
