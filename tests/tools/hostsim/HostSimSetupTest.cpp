#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "Control.h"
#include "DemoSet.h"
#include "HostSimulator.h"
#include "QtPrinters.h"
#include "SimConfig.h"
#include "TempFolder.h"
#include "platform/ProfileFile.h"

using namespace sidekin::hostsim;
namespace items = sidekin::items;
using sidekin::test::TempFolder;

namespace {

QString pvt(const QString& file, const QString& section, const QString& key) {
    QString buffer;
    const int n = sidekin::GetPrivateProfileStringA(section, key, QString(), buffer, 256, file);
    return buffer.left(n);
}

}  // namespace

TEST(HostSimConfig, ReadsEveryKeyOverTheDefaults) {
    TempFolder dir;
    const QString file =
        dir.write("sim.ini",
                  "[Instrument]\nModel=4420\nFrontLowerVial=1\nFrontUpperVial=100\n"
                  "BackLowerVial=201\nBackUpperVial=208\nFrontValidVials=1-50, 99\n"
                  "FrontCapacity=12\nRangeNeedsMethod=yes\n"
                  "[Run]\nSeconds=2.5\nPublishMs=100\n"
                  "[Faults]\nAbortRuns=2,4\nAbortWord=ABORTED\nNoLoaded=1\nNoRunning=off\n"
                  "CloseAfter=7\nCloseOn=ORQ_HOST_START\nGarbageAfter=3\n");
    SimConfig c;
    QString error;
    ASSERT_TRUE(loadConfig(file, c, &error)) << error.toStdString();
    EXPECT_EQ(c.model, "4420");
    EXPECT_EQ(c.vialRange(1), "1,100");
    EXPECT_EQ(c.vialRange(2), "201,208");
    EXPECT_TRUE(c.vialIsValid(1, 99));
    EXPECT_FALSE(c.vialIsValid(1, 98));
    EXPECT_TRUE(c.vialIsValid(2, 208));  // no list: the range
    EXPECT_FALSE(c.vialIsValid(2, 209));
    EXPECT_EQ(c.frontCapacity, 12);
    EXPECT_TRUE(c.rangeNeedsMethod);
    EXPECT_DOUBLE_EQ(c.runSeconds, 2.5);
    EXPECT_EQ(c.publishMs, 100);
    EXPECT_EQ(c.faults.abortRuns, (std::set<int>{2, 4}));
    EXPECT_EQ(c.faults.abortWord, "ABORTED");
    EXPECT_TRUE(c.faults.noLoaded);
    EXPECT_FALSE(c.faults.noRunning);
    EXPECT_EQ(c.faults.closeAfter, 7);
    EXPECT_EQ(c.faults.closeOn, "ORQ_HOST_START");
    EXPECT_EQ(c.faults.garbageAfter, 3);

    for (const char* bad :
         {"[Instrument]\nModel=4450\n", "[Instrument]\nFrontLowerVial=x\n",
          "[Instrument]\nBackValidVials=1-\n", "[Instrument]\nFrontValidVials=8-1\n",
          "[Instrument]\nFrontValidVials=1-2-3\n", "[Run]\nSeconds=-1\n", "[Run]\nPublishMs=0\n",
          "[Faults]\nAbortWord=aborted\n", "[Faults]\nNoLoaded=maybe\n",
          "[Faults]\nAbortRuns=1,x\n"}) {
        error.clear();
        EXPECT_FALSE(loadConfig(dir.write("bad.ini", bad), c, &error)) << bad;
        EXPECT_FALSE(error.isEmpty()) << bad;
    }
    EXPECT_FALSE(loadConfig(dir.file("none.ini"), c, &error));
}

TEST(HostSimControl, LinesActOnTheSimulator) {
    TempFolder dir;
    HostSimulator sim(SimConfig{}, demoFolders(dir.path()));
    const Faults& faults = sim.config().faults;
    const struct {
        const char* line;
        bool ok;
        std::function<bool()> effect;
    } rows[] = {
        {"show 01", true, [&] { return sim.value(items::ShowOrq) == "01"; }},
        {"show 12", false, [&] { return sim.value(items::ShowOrq) == "01"; }},
        {"set GUIStatusTime$ Prepare|1.0|min", true,
         [&] { return sim.value(items::StatusTime) == "Prepare|1.0|min"; }},
        {"fault abort 3 ABORTED", true,
         [&] { return faults.abortRuns.count(3) && faults.abortWord == "ABORTED"; }},
        {"fault abort off", true, [&] { return faults.abortRuns.empty(); }},
        {"fault noloaded on", true, [&] { return faults.noLoaded; }},
        {"fault norunning maybe", false, [&] { return !faults.noRunning; }},
        {"fault clear", true, [&] { return !faults.noLoaded; }},
        {"runtime 0.5", true, [&] { return sim.config().runSeconds == 0.5; }},
        {"dance", false, [] { return true; }},
    };
    for (const auto& row : rows) {
        const ControlReply reply = applyControl(sim, row.line);
        EXPECT_EQ(reply.text.startsWith("ok"), row.ok)
            << row.line << " -> " << reply.text.toStdString();
        EXPECT_TRUE(row.effect()) << row.line;
        EXPECT_FALSE(reply.quit);
    }
    EXPECT_EQ(applyControl(sim, "get ShowORQ$").text, "ok 01");
    EXPECT_TRUE(applyControl(sim, "quit").quit);
}

TEST(HostSimDemo, InstallsTheInstrumentAndKeepsCounters) {
    TempFolder dir;
    QString error;
    ASSERT_TRUE(installDemoSet(dir.path(), false, &error)) << error.toStdString();
    const Folders f = demoFolders(dir.path());
    const QString orq = f.instrument + "ORQ.INI";
    EXPECT_TRUE(QFileInfo(f.data).isDir());
    EXPECT_GE(pvt(orq, "Operators", "NumOperators").toInt(), 2);

    // The bundle must offer each kind of method the entry forms tell apart.
    QStringList sources;
    QSet<QString> injectors;
    for (const QString& method : QDir(f.methods).entryList({"*.M"}, QDir::Dirs)) {
        sources << pvt(f.methods + method + "/injector.mth", "Injector", "_InjectionSource$");
        injectors << pvt(f.methods + method + "/injector.mth", "Injector", "_MethodInjectors");
    }
    for (const char* source : {"ZE GC Injector", "4430 GC Valve", "Manual Injection"})
        EXPECT_TRUE(sources.contains(source)) << source;
    EXPECT_TRUE(injectors.contains("1") && injectors.contains("2"));

    bool counterPair = false;
    bool manualPair = false;
    for (const QString& section : sidekin::profileSections(orq)) {
        const QString naming = pvt(orq, section, "DataFileNaming");
        counterPair |= naming == "PrefixCounter" && pvt(orq, section, "DataFile").endsWith(",0");
        manualPair |= naming == "Manual";
    }
    EXPECT_TRUE(counterPair && manualPair);
    EXPECT_EQ(pvt(f.instrument + "ZE44QK00.INI", "ZE44QK00", "FrUpperVial"), "108");

    const QString section = "Solvent Blank,FRONTSTD";
    ASSERT_TRUE(sidekin::WritePrivateProfileStringA(section, "DataFile", "BLKF,41", orq));
    ASSERT_TRUE(installDemoSet(dir.path(), false, &error));
    EXPECT_EQ(pvt(orq, section, "DataFile"), "BLKF,41");
    ASSERT_TRUE(installDemoSet(dir.path(), true, &error));
    EXPECT_EQ(pvt(orq, section, "DataFile"), "BLKF,0");
}

TEST(HostSimDemo, ServiceNamesInZentrovarIni) {
    TempFolder dir;
    const QString ini =
        dir.write("zentrovar.ini",
                  "[PCS,1]\nOther=1\n[PCS,3]\n_DDEOnLine=ThirdOn\n_DDEOffLine=ThirdOn\n"
                  "[PCS,5]\n_DDEOnLine=TooFar\n");
    QString error;
    ASSERT_TRUE(writeServicesIni(ini, 1, "SimOn", "SimOff", &error));
    EXPECT_EQ(servicesFromIni(ini), (QStringList{"SimOn", "SimOff", "ThirdOn"}));
    EXPECT_EQ(pvt(ini, "PCS,1", "Other"), "1");
    EXPECT_EQ(pvt(ini, "PCS,1", "_DDEONLINE"), "SimOn");
}
