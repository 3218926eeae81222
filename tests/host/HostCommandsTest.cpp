#include <gtest/gtest.h>

#include "HostCommands.h"

using namespace sidekin::commands;

namespace {

// The host parses these texts: every blank, quote and comma counts.
TEST(HostCommandsTest, TextsReachTheHostByteForByte) {
    const struct {
        QString actual;
        const char* expected;
    } cases[] = {
        {SetRunTableVars("Ann \"Q\" Lee", "sub|dir \"x"),
         R"(ORQ_SetRunTableVars "Ann "Q" Lee", "sub|dir "x")"},
        {SetRunTableVars("", ""), R"(ORQ_SetRunTableVars "", "")"},
        {PrepareSingleRun({.method = "TEST1",
                           .injector = 1,
                           .sampleId = "A1",
                           .vial = 105.0,
                           .dataFile = "A1",
                           .sampleAmount = "1.5",
                           .istdAmount = "2",
                           .sampleInfo = "note"}),
         R"(ORQ_PrepareSingleRun "TEST1", 1, "A1", 105, "A1", "1.5", "2", "", "", "note")"},
        {PrepareSingleRun({.method = "TEST1",
                           .injector = 2,
                           .sampleId = "A1",
                           .vial = std::nullopt,
                           .dataFile = "A1",
                           .sampleAmount = "",
                           .istdAmount = "",
                           .sampleInfo = ""}),
         R"(ORQ_PrepareSingleRun "TEST1", 2, "A1", , "A1", "", "", "", "", "")"},
        {PrepareSingleRun({.method = "M",
                           .injector = 1,
                           .sampleId = "S",
                           .vial = 12.5,
                           .dataFile = "D",
                           .sampleAmount = "",
                           .istdAmount = "",
                           .sampleInfo = "say \"hi\""}),
         R"(ORQ_PrepareSingleRun "M", 1, "S", 12.5, "D", "", "", "", "", "say "hi"")"},
        {HostStart(1), "ORQ_HOST_START 1"},
        {HostStart(120), "ORQ_HOST_START 120"},
        {LoadMethod("DEF LC"), "ORQ_LoadMethod DEF LC"},
        {CheckIfValidVial(2, 150), "ddeORQ = ORQCheckIfValidVial( 2, 150)"},
        {CheckIfValidVial(1, 0), "ddeORQ = ORQCheckIfValidVial( 1, 0)"},
        {FrontTowerCapacity, R"(ddeORQ = RCGetResourceVal("GC1","config",  "ALS.Fr.Capacity"))"},
        {TestFor4410, R"(ddeORQ = TestForDevice("4410", 0, ""))"},
        {TestFor4420, R"(ddeORQ = MyTestForDevice("RC4420", 0, ""))"},
        {TestFor4430, R"(ddeORQ = MyTestForDevice("RC4430", 0, ""))"},
        {InjectorVialRange(1), "ddeORQ$ = ORQGetInjectorVialRange$(1)"},
        {InjectorVialRange(2), "ddeORQ$ = ORQGetInjectorVialRange$(2)"},
        {NameCheckOpen("C:\\ORQ\\", "RUN 1.D"),
         R"(ORQNameCheck=0;On Error ORQNameCheck=1;Open "C:\ORQ\RUN 1.D" For Output As #3; On Error)"},
        {NameCheckClose, "Close #3"},
        {NameCheckDelete("C:\\ORQ\\", "RUN 1.D"), R"(Delete "C:\ORQ\RUN 1.D",DontAsk)"},
        {NameCheckVariable, "ORQNameCheck"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.actual.toStdString(), c.expected);
}

}  // namespace
