#include <gtest/gtest.h>

#include "HostScript.h"
#include "QtPrinters.h"

using namespace sidekin::hostsim;

namespace {

std::optional<RunRequest> prepared(const QString& text) {
    auto script = parseCommand(text, nullptr);
    if (!script || script->size() != 1) return std::nullopt;
    if (const auto* p = std::get_if<PrepareRun>(&script->front().what)) return p->run;
    return std::nullopt;
}

}  // namespace

TEST(HostScript, PrepareSingleRunTakesTenArguments) {
    const struct {
        const char* text;
        QStringList fields;  // method, injector, sample, vial, data file, amounts, spares, info
    } rows[] = {
        {R"(ORQ_PrepareSingleRun "TEST1", 1, "A1", 105, "A1", "1.5", "2", "", "", "note")",
         {"TEST1", "1", "A1", "105", "A1", "1.5", "2", "", "", "note"}},
        {R"(ORQ_PrepareSingleRun "TEST1", 2, "A1", , "A1", "", "", "", "", "")",
         {"TEST1", "2", "A1", "", "A1", "", "", "", "", ""}},
        {R"(ORQ_PrepareSingleRun "M", 1, "a, b", 0, "F", "", "", "", "", "x, y, z")",
         {"M", "1", "a, b", "0", "F", "", "", "", "", "x, y, z"}},
        // Quotes inside are not escaped: a quote ends an argument only before ", " or the end.
        {R"(ORQ_PrepareSingleRun "M", 1, "say "hi" now", 3, "F", "", "", "", "", "he said "ok"")",
         {"M", "1", "say \"hi\" now", "3", "F", "", "", "", "", "he said \"ok\""}},
        // A ", " inside an argument: the split that fits all ten wins.
        {R"(ORQ_PrepareSingleRun "M", 1, "x", ", 4, "F", "", "", "", "", "")",
         {"M", "1", "x\", ", "4", "F", "", "", "", "", ""}},
        {R"(ORQ_PrepareSingleRun "M", 1, "S", 1.5, "F", "", "", "", "", "a;b")",
         {"M", "1", "S", "1.5", "F", "", "", "", "", "a;b"}},
        // The last argument runs to the final quote, whatever it holds.
        {R"(ORQ_PrepareSingleRun "M", 1, "S", 2, "F", "", "", "", "", "a", "b")",
         {"M", "1", "S", "2", "F", "", "", "", "", "a\", \"b"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto run = prepared(QString::fromUtf8(row.text));
        ASSERT_TRUE(run);
        const QStringList got = {run->method,     QString::number(run->injector),
                                 run->sample,     run->vial,
                                 run->dataFile,   run->sampleAmount,
                                 run->istdAmount, run->spare1,
                                 run->spare2,     run->info};
        EXPECT_EQ(got, row.fields);
    }
}

TEST(HostScript, RefusesWhatDoesNotParse) {
    const char* rows[] = {
        "",
        "HELLO",
        R"(ORQ_PrepareSingleRun "M", 1, "S", 1, "F", "", "", "", "")",         // nine
        R"(ORQ_PrepareSingleRun "M", 1, "S", 1, "F", "", "", "", "", "", 7)",  // eleven
        R"(ORQ_PrepareSingleRun "M", X, "S", 1, "F", "", "", "", "", "")",     // injector
        R"(ORQ_PrepareSingleRun "M", 1, "S", v, "F", "", "", "", "", "")",     // vial
        R"(ORQ_PrepareSingleRun "M", 1, "S",, "F", "", "", "", "", "")",       // no blank
        R"(ORQ_SetRunTableVars "op")",
        "ORQ_HOST_START",
        "ORQ_HOST_START 1x",
        "ORQ_LoadMethod ",
        "ORQ_Unknown 1",
        "ddeORQ = NoSuchFunction(1)",
        "ddeORQ = ORQCheckIfValidVial( 1)",
        "ddeORQ$ = ORQCheckIfValidVial( 1, 2)",
        "ddeORQ = ORQGetInjectorVialRange$(1)",
        R"(ddeORQ = "text")",
        R"(Open "x" For Output)",
        R"(Open x For Output As #3)",
        R"(Delete "x",Maybe)",
        "On Error On Error x=1",
    };
    for (const char* text : rows) {
        QString error;
        EXPECT_FALSE(parseCommand(QString::fromUtf8(text), &error)) << text;
        EXPECT_FALSE(error.isEmpty()) << text;
    }
}

TEST(HostScript, ReadsTheOtherTemplates) {
    QString error;
    auto vars = parseCommand(R"(ORQ_SetRunTableVars "Avery", "Batch 7")", &error);
    ASSERT_TRUE(vars) << error.toStdString();
    const auto& v = std::get<SetRunTableVars>(vars->front().what);
    EXPECT_EQ(v.operatorName, "Avery");
    EXPECT_EQ(v.subdirectory, "Batch 7");

    auto start = parseCommand("ORQ_HOST_START 12", &error);
    ASSERT_TRUE(start);
    EXPECT_EQ(std::get<HostStart>(start->front().what).row, 12);

    auto load = parseCommand("ORQ_LoadMethod TWO WORDS", &error);
    ASSERT_TRUE(load);
    EXPECT_EQ(std::get<LoadMethod>(load->front().what).method, "TWO");
}

TEST(HostScript, NameCheckIsFourStatements) {
    QString error;
    auto script = parseCommand(
        R"(ORQNameCheck=0;On Error ORQNameCheck=1;Open "C:\Zentro32\ORQ\A;B.TXT" For Output As #3; On Error)",
        &error);
    ASSERT_TRUE(script) << error.toStdString();
    ASSERT_EQ(script->size(), 4u);
    EXPECT_TRUE(std::holds_alternative<Assign>((*script)[0].what));
    const auto& trap = std::get<OnError>((*script)[1].what);
    ASSERT_TRUE(trap.handler);
    EXPECT_EQ(std::get<Literal>(std::get<Assign>(trap.handler->what).value).text, "1");
    const auto& open = std::get<OpenFile>((*script)[2].what);
    EXPECT_EQ(open.path, R"(C:\Zentro32\ORQ\A;B.TXT)");
    EXPECT_EQ(open.channel, 3);
    EXPECT_FALSE(std::get<OnError>((*script)[3].what).handler);
}
