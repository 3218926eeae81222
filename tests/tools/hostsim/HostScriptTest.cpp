#include <gtest/gtest.h>

#include <QFile>

#include "Control.h"
#include "HostScript.h"
#include "HostSimulator.h"
#include "QtPrinters.h"
#include "SimulatorProcess.h"

using namespace sidekin::hostsim;
using namespace sidekin::test;

namespace {

// A run's ten fields joined by '|', "load <method>", "ok" for any other
// statement; "refused" when the text does not parse and a reason is given.
QString parsed(const char* text) {
    QString error;
    const auto script = parseCommand(QString::fromUtf8(text), &error);
    if (!script) return error.isEmpty() ? QStringLiteral("refused without a reason") : "refused";
    QStringList out;
    for (const Statement& s : *script) {
        if (const auto* p = std::get_if<PrepareRun>(&s.what)) {
            const RunRequest& r = p->run;
            QStringList f{r.method, QString::number(r.injector), r.sample, r.vial, r.dataFile};
            out << (f << r.sampleAmount << r.istdAmount << r.spare1 << r.spare2 << r.info)
                       .join('|');
        } else if (const auto* m = std::get_if<LoadMethod>(&s.what)) {
            out << "load " + m->method;
        } else {
            out << "ok";
        }
    }
    return out.join("; ");
}

TEST(HostScript, ParsesTheCommandsTheProgramSendsAndRefusesTheRest) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        // clang-format off
        {"fullRun", R"(ORQ_PrepareSingleRun "T", 1, "A1", 105, "A1", "1.5", "2", "s1", "s2", "n")", "T|1|A1|105|A1|1.5|2|s1|s2|n"},
        {"vialLeftOut", R"(ORQ_PrepareSingleRun "T", 2, "A1", , "A1", "", "", "", "", "")", "T|2|A1||A1|||||"},
        {"quotesInsideEndOnlyBeforeComma", R"(ORQ_PrepareSingleRun "M", 1, "say "hi", now", 3, "F", "", "", "", "", "x, y;z")", "M|1|say \"hi\", now|3|F|||||x, y;z"},
        {"lastRunsToTheFinalQuote", R"(ORQ_PrepareSingleRun "M", 1, "S", 2, "F", "", "", "", "", "a", "b")", "M|1|S|2|F|||||a\", \"b"},
        {"methodIsTheFirstWord", "ORQ_LoadMethod TWO WORDS", "load TWO"},
        {"fileStatements", R"(On Error Open "x" For Output As #3; Close #3; Delete "x",DontAsk)", "ok; ok; ok"},
        {"questions", "ddeORQ = ORQCheckIfValidVial(1, 2); ORQ_HOST_START 4", "ok; ok"},
        {"empty", "", "refused"},
        {"unknownStatement", "HELLO", "refused"},
        {"nineArguments", R"(ORQ_PrepareSingleRun "M", 1, "S", 1, "F", "", "", "", "")", "refused"},
        {"injectorNotANumber", R"(ORQ_PrepareSingleRun "M", X, "S", 1, "F", "", "", "", "", "")", "refused"},
        {"startWithoutRow", "ORQ_HOST_START 1x", "refused"},
        {"unknownMacro", "ORQ_Unknown 1", "refused"},
        {"unknownFunction", "ddeORQ = NoSuchFunction(1)", "refused"},
        {"wrongArgumentCount", "ddeORQ = ORQCheckIfValidVial( 1)", "refused"},
        {"textIntoNumber", "ddeORQ$ = ORQCheckIfValidVial( 1, 2)", "refused"},
        {"openWithoutChannel", R"(Open "x" For Output)", "refused"},
        {"nestedOnError", "On Error On Error x=1", "refused"},
        // clang-format on
    };
    for (auto [name, text, expected] : rows) EXPECT_EQ(parsed(text), expected) << name;
}

// The simulator launches the front end with the five-field command line and the profile folder.
TEST(HostSimProcess, LaunchesTheFrontEnd) {
    TempFolder dir;
    const QString program =
        dir.write("front-end.sh",
                  "#!/bin/sh\necho \"$1 $ZENTROVAR_CONFIG_DIR\" > \"$(dirname \"$0\")/out\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    SimulatorProcess host({"--instrument", "2", "--offline", "--launch", program});
    ASSERT_TRUE(host.started());
    const QByteArray launched = "0|" + host.service().toUtf8() + "|\"" + dir.path().toUtf8() +
                                "/\"|2|1 " + host.configFolder().toUtf8() + "\n";
    EXPECT_TRUE(waitUntil([&] { return dir.read("out") == launched; })) << dir.read("out").data();
}

// The trainer's "abort next run" ends whichever run starts next, once, and is
// taken back by "fault abort off" before a run starts.
TEST(HostSimulator, AbortNextEndsOnlyTheNextRunAborted) {
    HostSimulator sim(SimConfig{}, Folders{});
    QStringList ends;
    QObject::connect(&sim, &HostSimulator::runFinished, [&](int row, const QString& word) {
        ends << QString::number(row) + ' ' + word;
    });
    const auto runRow = [&](int row) {
        QString error;
        const auto script = parseCommand("ORQ_HOST_START " + QString::number(row), &error);
        ASSERT_TRUE(script && sim.run(*script, &error)) << error.toStdString();
        sim.finishRunNow();
    };
    EXPECT_EQ(applyControl(sim, "fault abort next").text, "ok");
    runRow(3);
    runRow(4);
    EXPECT_EQ(applyControl(sim, "fault abort next").text, "ok");
    EXPECT_EQ(applyControl(sim, "fault abort off").text, "ok");
    runRow(5);
    EXPECT_EQ(ends, QStringList({"3 Aborted", "4 Completed", "5 Completed"}));
}

}  // namespace
