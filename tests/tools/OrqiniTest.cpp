#include <gtest/gtest.h>

#include <QProcess>

#include "TempFolder.h"

using sidekin::test::TempFolder;

namespace {

const QByteArray kLab =
    "[Operators]\nNumOperators=2\nOperator1=Ana Ruiz\noperator1=shadowed\nOperator2=Tom Baker\n"
    "[Diesel,FAME_FAST]\nDataFile=\nInfoLine=\"  padded  \"\n[operators]\nlate=1\n";

// Each row runs in turn on one folder, so a set shows in the rows after it.
TEST(Orqini, AnswersLikeTheReaderAndWritesLikeTheWriter) {
    TempFolder dir;
    dir.write("ORQ.INI", kLab);
    // Arguments, exit status, and the output; for status 1 and 2 a word of the error text.
    const std::tuple<QStringList, int, QByteArray> rows[] = {
        {{"get", "orq.ini", "OPERATORS", "operator1"}, 0, "Ana Ruiz\n"},
        {{"get", "ORQ.INI", "Diesel,FAME_FAST", "InfoLine"}, 0, "  padded  \n"},
        {{"get", "ORQ.INI", "Diesel,FAME_FAST", "DataFile"}, 0, "-1\n"},
        {{"get", "ORQ.INI", "Operators", "late"}, 0, "-1\n"},
        {{"get", "NONE.INI", "Operators", "NumOperators"}, 0, "-1\n"},
        // A leading U+FEFF of a value is kept as the reader keeps it.
        {{"set", "ORQ.INI", "diesel,fame_fast", "datafile", QChar(0xFEFF) + QString("OIL,12")},
         0,
         ""},
        {{"get", "ORQ.INI", "Diesel,FAME_FAST", "DataFile"}, 0, "\xEF\xBB\xBFOIL,12\n"},
        {{"list", "ORQ.INI"}, 0, "Operators\nDiesel,FAME_FAST\n"},
        {{"list", "ORQ.INI", " operators "}, 0, "NumOperators\nOperator1\nOperator2\n"},
        {{"list", "ORQ.INI", "System"}, 0, ""},
        {{"set", dir.file("sub/ORQ.INI"), "S", "k", "v"}, 1, ""},
        {{}, 2, "usage"},
        {{"get", "ORQ.INI", "S"}, 2, "usage"},
        {{"set", "ORQ.INI", "S", "k"}, 2, "usage"},
        {{"list"}, 2, "usage"},
        {{"list", "ORQ.INI", "S", "extra"}, 2, "usage"},
        {{"remove", "ORQ.INI", "S", "k"}, 2, "usage"},
    };
    for (const auto& [args, status, text] : rows) {
        SCOPED_TRACE(args.join(' ').toStdString());
        QProcess tool;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("ZENTROVAR_CONFIG_DIR", dir.path());
        tool.setProcessEnvironment(env);
        tool.start(ORQINI, args);
        ASSERT_TRUE(tool.waitForFinished(10000));
        EXPECT_EQ(tool.exitCode(), status);
        const QByteArray out = tool.readAllStandardOutput();
        const QByteArray err = tool.readAllStandardError();
        EXPECT_EQ(out, status == 0 ? text : QByteArray());
        EXPECT_TRUE(status == 0 || (err.contains(text) && !err.isEmpty())) << err.data();
    }
    QByteArray expected = kLab;
    EXPECT_EQ(dir.read("ORQ.INI"),
              expected.replace("DataFile=\n", "DataFile=\xEF\xBB\xBFOIL,12\n"));
}

}  // namespace
