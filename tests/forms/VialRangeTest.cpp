// Vial ranges per model and side, with the host questions each asks.
#include <QFile>
#include <functional>

#include "EntryFixture.h"
#include "MethodSelection.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

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
const RangeCase cases[] = {
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

INSTANTIATE_TEST_SUITE_P(PerModelAndSide, VialRangeTest, ::testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
