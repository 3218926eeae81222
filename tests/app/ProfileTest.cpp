#include "Profile.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class ProfileTest : public StartupFixture {};

TEST_F(ProfileTest, MissingOrEmptyReadsAsMinusOne) {
    const QString ini = config.write("ORQ.INI",
                                     "[Operators]\r\nNumOperators=2\r\nOperator1=\r\n"
                                     "Operator2=  Ana Ruiz  \r\n[S]\nK=" +
                                         QByteArray(300, 'v') + "\n");
    EXPECT_EQ(GetPvtProfileStr("operators", "operator2", ini), "Ana Ruiz");
    EXPECT_EQ(GetPvtProfileStr("S", "K", ini), QString(255, u'v'));
    EXPECT_EQ(GetPvtProfileStr("Operators", "Operator1", ini), "-1");
    EXPECT_EQ(GetPvtProfileStr("Nobody", "NumSamples", ini), "-1");
    EXPECT_EQ(GetPvtProfileStr("Operators", "NumOperators", config.file("missing.ini")), "-1");
    EXPECT_TRUE(dialogs.shown.empty());
    writeHostIni("[PCS,1]\n_DDEOnLine=ZenOnline1\n");
    EXPECT_EQ(GetProfileStr("PCS,1", "_DDEONLINE"), "ZenOnline1");
    EXPECT_EQ(GetProfileStr("PCS,2", "_DDEONLINE"), "-1");
}

// The first field keeps its blanks, a middle one loses its leading blanks, the last both.
TEST(GetParameterTest, CutsTheNthField) {
    const struct {
        const char* text;
        int index;
        const char* separator;
        const char* expected;
    } rows[] = {{"a|b|c", 3, "|", "c"},     {"a|b|c", 4, "|", ""},        {"a||c", 2, "|", ""},
                {" a , b ", 1, ",", " a "}, {"a,  b  ,c", 2, ",", "b  "}, {"a,  c  ", 2, ",", "c"},
                {"", 1, ",", ""},           {"aXbxc", 2, "x", "c"}};
    for (const auto& row : rows) {
        EXPECT_EQ(GetParameter(row.text, static_cast<std::int16_t>(row.index), row.separator),
                  QString::fromUtf8(row.expected))
            << row.text << " #" << row.index;
    }
}

}  // namespace
