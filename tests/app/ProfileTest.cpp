#include "Profile.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class ProfileTest : public StartupFixture {};

TEST_F(ProfileTest, MissingOrEmptyReadsAsMinusOne) {
    const QString ini = config.write("ORQ.INI",
                                     "[Operators]\r\nNumOperators=2\r\nOperator1=\r\n"
                                     "Operator2=  Ana Ruiz  \r\n");
    EXPECT_EQ(GetPvtProfileStr("Operators", "NumOperators", ini), "2");
    EXPECT_EQ(GetPvtProfileStr("operators", "operator2", ini), "Ana Ruiz");
    EXPECT_EQ(GetPvtProfileStr("Operators", "Operator1", ini), "-1");
    EXPECT_EQ(GetPvtProfileStr("Operators", "Operator3", ini), "-1");
    EXPECT_EQ(GetPvtProfileStr("Nobody", "NumSamples", ini), "-1");
    EXPECT_EQ(GetPvtProfileStr("Operators", "NumOperators", config.file("missing.ini")), "-1");
    EXPECT_EQ(GetPvtProfileStr("Operators", "NumOperators", ""), "-1");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ProfileTest, LongValuesAreCutAt255) {
    const QByteArray value(300, 'v');
    const QString ini = config.write("ORQ.INI", "[S]\nK=" + value + "\n");
    EXPECT_EQ(GetPvtProfileStr("S", "K", ini), QString(255, u'v'));
}

TEST_F(ProfileTest, HostIniComesFromTheProfileFolderWhateverTheKeyCase) {
    writeHostIni("[PCS,1]\n_DDEOnLine=ZenOnline1\n_DDEOffLine=ZenOffline1\n");
    EXPECT_EQ(GetProfileStr("PCS,1", "_DDEONLINE"), "ZenOnline1");
    EXPECT_EQ(GetProfileStr("PCS,1", "_DDEOFFLINE"), "ZenOffline1");
    EXPECT_EQ(GetProfileStr("PCS,2", "_DDEONLINE"), "-1");
}

struct ParameterCase {
    const char* name;
    const char* text;
    int index;
    const char* separator;
    const char* expected;
};

class GetParameterTest : public ::testing::TestWithParam<ParameterCase> {};

TEST_P(GetParameterTest, CutsTheNthField) {
    const ParameterCase& c = GetParam();
    EXPECT_EQ(GetParameter(QString::fromUtf8(c.text), static_cast<std::int16_t>(c.index),
                           QString::fromUtf8(c.separator)),
              QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Fields, GetParameterTest,
    ::testing::Values(ParameterCase{"first", "a|b|c", 1, "|", "a"},
                      ParameterCase{"second", "a|b|c", 2, "|", "b"},
                      ParameterCase{"last", "a|b|c", 3, "|", "c"},
                      ParameterCase{"behindTheLast", "a|b|c", 4, "|", ""},
                      ParameterCase{"leadingBarFirstIsEmpty", "|b", 1, "|", ""},
                      ParameterCase{"leadingBarSecond", "|b", 2, "|", "b"},
                      ParameterCase{"emptyMiddleKeepsPlaces", "a||c", 2, "|", ""},
                      ParameterCase{"emptyMiddleNextField", "a||c", 3, "|", "c"},
                      ParameterCase{"firstNotTrimmed", " a , b ", 1, ",", " a "},
                      ParameterCase{"middleLosesLeadingBlanksOnly", "a,  b  ,c", 2, ",", "b  "},
                      ParameterCase{"lastTrimmedBothEnds", "a,  c  ", 2, ",", "c"},
                      ParameterCase{"noSeparator", "abc", 1, ",", "abc"},
                      ParameterCase{"empty", "", 1, ",", ""},
                      ParameterCase{"counterPair", "OIL,17", 2, ",", "17"},
                      ParameterCase{"caseSensitiveSeparator", "aXbxc", 2, "x", "c"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
