// Choosing a method: sources, ranges, defaults and the host's questions.
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>

#include "EntryFixture.h"
#include "MethodSelection.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

const QString T4410 = QStringLiteral(R"(ddeORQ = TestForDevice("4410", 0, ""))");
const QString T4420 = QStringLiteral(R"(ddeORQ = MyTestForDevice("RC4420", 0, ""))");
const QString T4430 = QStringLiteral(R"(ddeORQ = MyTestForDevice("RC4430", 0, ""))");
const QString Front = QStringLiteral("ddeORQ$ = ORQGetInjectorVialRange$(1)");
const QString Back = QStringLiteral("ddeORQ$ = ORQGetInjectorVialRange$(2)");
QString probe(int tray, int vial) {
    return QStringLiteral("ddeORQ = ORQCheckIfValidVial( %1, %2)").arg(tray).arg(vial);
}
QStringList numbers(int first, int last) {
    QStringList all;
    for (int v = first; v <= last; ++v) all << QString::number(v);
    return all;
}
QStringList probes4410Front() {
    return {probe(1, 100), probe(1, 108), probe(1, 103), probe(1, 101)};
}

// Vial list entries: a number stands for itself, 0 for the vial-zero text, and
// a negative id for that resource text.
struct MethodCase {
    const char* name;
    std::function<void(hostsim::SimConfig&)> instrument;
    std::vector<std::array<QString, 3>> ini;  // section, key, value
    const char* sample;
    const char* method;  // nullptr: the sample's only method is chosen by itself
    QStringList vials;
    QString vial;
    int injType;        // 0: empty
    int caption;        // 0: not looked at
    QStringList boxes;  // "title id|message id|token=value..." or "Title: text"
    QStringList asked;
};
void PrintTo(const MethodCase& c, std::ostream* os) { *os << c.name; }

auto model(const char* m, std::function<void(hostsim::SimConfig&)> more = {}) {
    return [m, more](hostsim::SimConfig& c) {
        c.model = QString::fromLatin1(m);
        if (more) more(c);
    };
}

// clang-format off
const MethodCase cases[] = {
    {"front_tower_on_4410", model("4410"), {}, "Solvent Blank", "FRONTSTD",
     QStringList{"@17042"} + numbers(1, 8), "1", 17044, 17061, {}, {T4410, probe(1, 100),
     probe(1, 108)}},
    {"autosampler_back_on_4410", model("4410"), {}, "Solvent Blank", "BACKSTD",
     QStringList{"@17042"} + numbers(1, 100), "1", 17046, 17060, {}, {T4410, probe(2, 100)}},
    {"range_after_method_load_on_no_sampler",
     model("none", [](auto& c) { c.rangeNeedsMethod = true; }), {}, "Calibration Mix", "FRONTSTD",
     QStringList{"@17042"} + numbers(1, 8), "2", 17044, 17061, {}, {T4410, T4420, T4430, Front,
     "ORQ_LoadMethod FRONTSTD", Front}},
    {"back_tower_default_outside_list",
     model("none", [](auto& c) { c.backLower = 201, c.backUpper = 208; }),
     {{"Solvent Blank,BACKSTD", "VialNumDefault", "9"}}, "Solvent Blank", "BACKSTD",
     QStringList{"@17042"} + numbers(1, 8), "1", 17045, 17062,
     {"17266|17215|<NUMBER1>=9|<NUMBER2>=1"}, {T4410, T4420, T4430, Back}},
    {"vial_zero_default", model("4410"), {}, "Calibration Mix", "FRONTFAST",
     QStringList{"@17042"} + numbers(1, 8), "@17042", 17044, 17061, {}, {T4410, probe(1, 100),
     probe(1, 108)}},
    {"valve_without_host", model("4410"), {}, "Process Gas", nullptr,
     QStringList{"@17042"} + numbers(1, 32), "1", 17047, 17063, {}, {}},
    {"manual_back_without_host", model("4410"), {}, "Hand Injection", nullptr, {"@17041"}, "@17041",
     17048, 17059, {}, {}},
    {"no_injector_file_is_manual_front", model("4410"), {}, "Calibration Mix", "FRONTFAST*",
     {"@17040"}, "@17040", 17048, 17059, {"17266|17221"}, {}},
    {"both_injectors_refused_and_form_cleared", model("4410"), {}, "Calibration Mix", "DUALINJ", {},
     "", 0, 0, {"17266|17218|<NAME>=DUALINJ"}, {}},
    {"range_unknown_after_load",
     model("none", [](auto& c) { c.frontLower = 0, c.frontUpper = 999; }), {}, "Solvent Blank",
     "FRONTSTD", {}, "", 0, 0, {"17266|17219"}, {T4410, T4420, T4430, Front,
     "ORQ_LoadMethod FRONTSTD", Front}},
    {"range_not_supported", model("none", [](auto& c) { c.frontLower = 50, c.frontUpper = 60; }),
     {}, "Solvent Blank", "FRONTSTD", {}, "", 0, 0, {"17266|17220"}, {T4410, T4420, T4430, Front}},
    {"nothing_answers_adds_zero_to_list",
     model("4410", [](auto& c) { c.frontValid = hostsim::VialSet::range(1, 0); }), {},
     "Solvent Blank", "FRONTSTD", {"@17042", "0"}, "0", 0, 0,
     {"17266|17215|<NUMBER1>=1|<NUMBER2>=0"},
     QStringList{T4410} + probes4410Front() + QStringList{"ORQ_LoadMethod FRONTSTD"} + probes4410Front()},
    {"default_vial_not_a_number", model("4410"), {{"Solvent Blank,FRONTSTD", "VialNumDefault",
     "abc"}}, "Solvent Blank", "FRONTSTD", QStringList{"@17042"} + numbers(1, 8), "", 17044, 17061,
     {"MethodClick: Type mismatch"}, {T4410, probe(1, 100), probe(1, 108)}},
    {"device_reply_not_a_number", model("4410", [](auto& c) { c.deviceAnswer = "abc"; }), {},
     "Solvent Blank", "FRONTSTD", {}, "", 0, 0, {"MethodClick: Type mismatch"}, {T4410}},
};
// clang-format on

class MethodClickTest : public EntryFixture, public ::testing::WithParamInterface<MethodCase> {
protected:
    QString shown(const QString& entry) const {
        return entry.startsWith('@') ? text(entry.mid(1).toInt()) : entry;
    }
    QString box(const QString& boxRow) const {
        if (!boxRow.contains('|')) return boxRow;
        const QStringList parts = boxRow.split('|');
        QString body = text(parts[1].toInt());
        for (const QString& token : parts.mid(2))
            body.replace(token.section('=', 0, 0), token.section('=', 1));
        return text(parts[0].toInt()) + ": " + body;
    }
};

TEST_P(MethodClickTest, Outcome) {
    const MethodCase& c = GetParam();
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    c.instrument(config);
    connect(config);
    for (const auto& [section, key, value] : c.ini) setIni(section, key, value);
    QString method = QString::fromLatin1(c.method ? c.method : "");
    if (method.endsWith('*')) {
        method.chop(1);
        ASSERT_TRUE(QFile::remove(methodFolder() + method + ".M/injector.mth"));
    }
    FrmRnTblAdd& form = frmRnTblAdd();
    choose(form, QString::fromLatin1(c.sample), method);

    QStringList vials;
    for (const QString& v : c.vials) vials << shown(v);
    EXPECT_EQ(items(*form.cboVialNum), vials);
    EXPECT_EQ(form.cboVialNum->currentText(), shown(c.vial));
    EXPECT_EQ(form.txtInjType->text(), c.injType ? text(c.injType) : QString());
    if (c.caption) {
        EXPECT_EQ(form.lblVial->text(), text(c.caption));
    }
    QStringList expected;
    for (const QString& b : c.boxes) expected << box(b);
    EXPECT_EQ(boxes(), expected);
    EXPECT_EQ(asked(), c.asked);
    EXPECT_TRUE(form.isEnabled());
}

INSTANTIATE_TEST_SUITE_P(PerSourceAndRange, MethodClickTest, ::testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

class MethodClickFaultTest : public EntryFixture {};

TEST_F(MethodClickFaultTest, FieldsWrittenBeforeABadReplyStay) {
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    config.deviceAnswer = "abc";
    connect(config);
    FrmRnTblAdd& form = frmRnTblAdd();
    choose(form, "Solvent Blank", "FRONTSTD");
    EXPECT_EQ(form.txtDataFile->text(), "BLKF000000");
    EXPECT_TRUE(form.txtDataFile->isReadOnly());
    EXPECT_EQ(form.txtInfoLine->toPlainText(), "Solvent blank from the front tower");
    EXPECT_FALSE(form.txtSampleAmt->isEnabled());
    choose(form, "Calibration Mix", "FRONTSTD");  // a pair named by hand
    EXPECT_FALSE(form.txtDataFile->isReadOnly());
}

// A range known only once the method is loaded: the form takes no input while it loads.
TEST_F(MethodClickFaultTest, TheFormRestsWhileTheMethodLoads) {
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    model("none", [](auto& c) { c.frontLower = 0, c.frontUpper = 999; })(config);
    connect(config);
    QList<bool> enabledWhileLoading;
    QObject::connect(&host->simulator(), &hostsim::HostSimulator::itemChanged,
                     [&](const QString&, const QString& value) {
                         if (value == "LOADING") enabledWhileLoading << frmRnTblAdd().isEnabled();
                     });
    choose(frmRnTblAdd(), "Solvent Blank", "FRONTSTD");
    EXPECT_FALSE(enabledWhileLoading.isEmpty());
    EXPECT_FALSE(enabledWhileLoading.contains(true));
    EXPECT_TRUE(frmRnTblAdd().isEnabled());
}

// Vial ranges per model and side, with the host questions each asks.
struct RangeCase {
    const char* name;
    const char* model;
    const char* injector;
    std::function<void(hostsim::SimConfig&)> instrument;
    const char* driverFile;  // the whole ZE44QK00.INI; nullptr: none
    QString lower, upper;
    QStringList asked;
};

void PrintTo(const RangeCase& c, std::ostream* os) { *os << c.name; }

const QString Probe = QStringLiteral("ddeORQ = ORQCheckIfValidVial(%1)");
const char* DemoDriver =
    "[ZE44QK00]\nFrLowerVial=101\nFrUpperVial=108\nBkLowerVial=1\nBkUpperVial=100\n";

// clang-format off
const RangeCase ranges[] = {
    {"m4410_front_only_first", "4410", "Front",
     [](auto& c) { c.frontValid = hostsim::VialSet::range(101, 101); }, DemoDriver, " 101", " 101",
     {Probe.arg(" 1, 100"), Probe.arg(" 1, 108"), Probe.arg(" 1, 103"), Probe.arg(" 1, 101")}},
    {"m4410_back_three", "4410", "Back",
     [](auto& c) { c.backValid = hostsim::VialSet::range(201, 203); }, DemoDriver, " 201", " 203",
     {Probe.arg(" 2, 100"), Probe.arg(" 2, 208"), Probe.arg(" 2, 203")}},
    {"m4420_front_file_upper_valid", "4420", "Front", {}, DemoDriver, "101", "108",
     {Probe.arg(" 1, 108")}},
    {"m4420_front_no_upper_key_asks_capacity", "4420", "Front", {}, "[ZE44QK00]\nFrLowerVial=101\n",
     "101", "108", {Probe.arg(" 1, 999"),
     R"(ddeORQ = RCGetResourceVal("GC1","config",  "ALS.Fr.Capacity"))"}},
    {"m4420_back_probe_150_wins", "4420", "Back",
     [](auto& c) { c.backValid = hostsim::VialSet::range(1, 150); }, DemoDriver, "1", "150",
     {Probe.arg(" 2, 150")}},
    {"m4420_back_file_is_fallback", "4420", "Back",
     [](auto& c) { c.backValid = hostsim::VialSet::range(201, 210); },
     "[ZE44QK00]\nBkLowerVial=201\nBkUpperVial=210\n", "201", "210", {Probe.arg(" 2, 150"),
     Probe.arg(" 2, 100")}},
    {"m4430_front_file_stands", "4430", "Front", {}, DemoDriver, "101", "108", {}},
    {"m4430_back_no_file", "4430", "Back", {}, nullptr, "0", "999", {}},
};
// clang-format on

class VialRangeTest : public EntryFixture, public ::testing::WithParamInterface<RangeCase> {};

TEST_P(VialRangeTest, RangeAndQuestions) {
    const RangeCase& c = GetParam();
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    config.model = QString::fromLatin1(c.model);
    if (c.instrument) c.instrument(config);
    connect(config);
    QFile driver(instrumentFolder() + QStringLiteral("ZE44QK00.INI"));
    driver.remove();
    if (c.driverFile) {
        ASSERT_TRUE(driver.open(QIODevice::WriteOnly));
        driver.write(c.driverFile);
        driver.close();
    }
    mark();

    QString lower;
    QString upper;
    const QString injector = QString::fromLatin1(c.injector);
    if (config.model == u"4410")
        Get4410VialRange(injector, lower, upper);
    else
        GetDriverVialRange(injector, lower, upper, config.model == u"4420" ? 1 : 0);

    EXPECT_EQ(lower, c.lower);
    EXPECT_EQ(upper, c.upper);
    EXPECT_EQ(asked(), c.asked);
    EXPECT_TRUE(boxes().isEmpty()) << boxes().join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(PerModelAndSide, VialRangeTest, ::testing::ValuesIn(ranges),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
