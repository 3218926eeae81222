#include <gtest/gtest.h>

#include "HostScript.h"
#include "QtPrinters.h"

using namespace sidekin::hostsim;

TEST(HostScript, PrepareSingleRunTakesTenArguments) {
    const struct {
        const char* text;
        QStringList fields;  // method, injector, sample, vial, data file, amounts, spares, info
    } rows[] = {
        {R"(ORQ_PrepareSingleRun "TEST1", 1, "A1", 105, "A1", "1.5", "2", "s1", "s2", "note")",
         {"TEST1", "1", "A1", "105", "A1", "1.5", "2", "s1", "s2", "note"}},
        {R"(ORQ_PrepareSingleRun "TEST1", 2, "A1", , "A1", "", "", "", "", "")",
         {"TEST1", "2", "A1", "", "A1", "", "", "", "", ""}},
        {R"(ORQ_PrepareSingleRun "M", 1, "a, b", 1.5, "F", "", "", "", "", "x, y;z")",
         {"M", "1", "a, b", "1.5", "F", "", "", "", "", "x, y;z"}},
        // Quotes inside are not escaped: a quote ends an argument only before ", " or the end.
        {R"(ORQ_PrepareSingleRun "M", 1, "say "hi" now", 3, "F", "", "", "", "", "he said "ok"")",
         {"M", "1", "say \"hi\" now", "3", "F", "", "", "", "", "he said \"ok\""}},
        // A ", " inside an argument: the split that fits all ten wins.
        {R"(ORQ_PrepareSingleRun "M", 1, "x", ", 4, "F", "", "", "", "", "")",
         {"M", "1", "x\", ", "4", "F", "", "", "", "", ""}},
        // The last argument runs to the final quote, whatever it holds.
        {R"(ORQ_PrepareSingleRun "M", 1, "S", 2, "F", "", "", "", "", "a", "b")",
         {"M", "1", "S", "2", "F", "", "", "", "", "a\", \"b"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto script = parseCommand(QString::fromUtf8(row.text), nullptr);
        ASSERT_TRUE(script && script->size() == 1u);
        const RunRequest& r = std::get<PrepareRun>(script->front().what).run;
        EXPECT_EQ(QStringList({r.method, QString::number(r.injector), r.sample, r.vial, r.dataFile,
                               r.sampleAmount, r.istdAmount, r.spare1, r.spare2, r.info}),
                  row.fields);
    }
    auto load = parseCommand("ORQ_LoadMethod TWO WORDS", nullptr);
    ASSERT_TRUE(load);
    EXPECT_EQ(std::get<LoadMethod>(load->front().what).method, "TWO");
}

TEST(HostScript, RefusesWhatDoesNotParse) {
    for (const char* text : {
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
         }) {
        QString error;
        EXPECT_FALSE(parseCommand(QString::fromUtf8(text), &error)) << text;
        EXPECT_FALSE(error.isEmpty()) << text;
    }
}
