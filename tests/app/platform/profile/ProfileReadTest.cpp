#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>

#include "ProfileBytes.h"
#include "TempFolder.h"
#include "platform/ProfileFile.h"

using namespace sidekin;
using sidekin::test::TempFolder;

namespace {

const QString kFixtures = QStringLiteral(PROFILE_FIXTURES "/");

// Each key of the layout file as the reader finds it; "DEFAULT" where the default comes back.
TEST(ProfileRead, Layout) {
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"blanksTrimmed", "Blanks", "padded", "value with blanks"},
        {"tabsTrimmed", "Blanks", "tabbed", "tab value"},
        {"emptyValueIsNoDefault", "Blanks", "empty", ""},
        {"blanksOnlyValueIsEmpty", "Blanks", "blankonly", ""},
        {"lineWithoutEqualsIsNoKey", "Blanks", "no equals sign here", "DEFAULT"},
        {"keyWithInnerBlank", "Blanks", "spaced key", "x"},
        {"headerNameTrimmed", "quotes", "single", "single"},
        {"doubleQuotesKeepInnerBlanks", "Quotes", "double", "  inner blanks  "},
        {"mismatchedQuotesStay", "Quotes", "mismatched", "\"open'"},
        {"loneQuoteStays", "Quotes", "lonequote", "\""},
        {"emptyQuotesAreEmpty", "Quotes", "emptyquotes", ""},
        {"commentHidesKey", "Comments", "hidden", "DEFAULT"},
        {"indentedComment", "Comments", "indented", "DEFAULT"},
        {"semicolonInValueIsData", "Comments", "semi", "a;b ; still value"},
        {"hashLineIsKey", "Comments", "#hash", "3"},
        {"slashLineIsKey", "Comments", "//slashes", "4"},
        {"firstDuplicateWins", "DUPES", "first", "one"},
        {"repeatedSectionUnreachable", "Dupes", "late", "DEFAULT"},
        {"orphanKeyInNoSection", "", "orphan", "DEFAULT"},
        {"textBehindHeaderIgnored", "Odd", "x", "in odd"},
        {"unclosedIsNoHeader", "odd", "z", "still odd"},
        {"nameRunsToLastBracket", "a]b", "y", "in a]b"},
        {"caseBlindBeyondAscii", "öL", "NAME", "Jürgen Ölmann"},
        {"missingSection", "Nowhere", "x", "DEFAULT"},
        {"missingKey", "Odd", "nothing", "DEFAULT"},
        {"emptySectionEndsAtTheNextHeader", "Empty", "after", "DEFAULT"},
        {"headerOnTheLastLine", "Last", "after", "DEFAULT"},
    };
    for (const auto& [name, section, key, expected] : rows) {
        QString buffer = QStringLiteral("garbage");
        const int count =
            GetPrivateProfileStringA(QString::fromUtf8(section), QString::fromUtf8(key), "DEFAULT",
                                     buffer, 256, kFixtures + "layout.ini");
        EXPECT_EQ(buffer, QString::fromUtf8(expected)) << name;
        EXPECT_EQ(count, buffer.size()) << name;
    }
}

TEST(ProfileReadDefaults, TrailingBlanksGoLeadingStay) {
    QString buffer;
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "  abc   ", buffer, 256, kFixtures + "none.ini"),
              5);
    EXPECT_EQ(buffer, "  abc");
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "", buffer, 256, QString()), 0);
    EXPECT_EQ(buffer, "");
}

TEST(ProfileReadLength, BufferHoldsSizeMinusOne) {
    const QString digits = QString("0123456789").repeated(30);
    const QString file = kFixtures + "long.ini";
    for (auto [size, expected] : {std::pair{256, 255}, {10, 9}, {1, 0}, {0, 0}, {400, 300}}) {
        QString buffer;
        EXPECT_EQ(GetPrivateProfileStringA("long", "value", "", buffer, size, file), expected)
            << size;
        EXPECT_EQ(buffer, digits.left(expected)) << size;
    }
    QString buffer;
    EXPECT_EQ(GetPrivateProfileStringA("Long", "missing", digits, buffer, 256, file), 255);
}

TEST(ProfileRead, EncodingsAndLineEnds) {
    const QString longName(100000, u'n');
    const struct {
        const char* name;
        QByteArray bytes;
        QString section, key, expected;
    } rows[] = {
        // clang-format off
        {"loneCr", "[S]\ra=1\r[T]\rc=3\r", "T", "c", "3"},
        {"mixedLineEnds", "[S]\r\na=1\n\r[T]\rc=3", "T", "c", "3"},
        {"invalidUtf8IsCp1252", "[S]\n\xE9=\x80 \xC0\x81\n", "S", "\u00C9", "\u20AC \u00C0\u0081"},
        {"cp1252BehindUtf8Mark", "\xEF\xBB\xBF[S]\nk=caf\xE9\n", "S", "k", "caf\u00E9"},
        {"utf16WithMark", utf16File("[S]\r\nk=\u00D6l \u20AC\r\n"), "s", "K", "\u00D6l \u20AC"},
        {"utf16OddLastByteIgnored", utf16File("[S]\nk=v") + 'x', "S", "k", "v"},
        {"ctrlZEndsFile", "[S]\nk=v\x1A", "S", "k", "v"},
        {"ctrlZEndsUtf16File", utf16File("[S]\nk=v\x1A"), "S", "k", "v"},
        {"longNames", "[" + longName.toUtf8() + "]\n" + longName.toUtf8() + "=v\n", longName, longName, "v"},
        {"byteOrderMarkCharIsText", "[\xEF\xBB\xBFS]\n\xEF\xBB\xBFk=\xEF\xBB\xBFv\n", QStringLiteral("\uFEFFS"), QStringLiteral("\uFEFFk"), QStringLiteral("\uFEFFv")},
        // clang-format on
    };
    for (const auto& row : rows) {
        TempFolder dir;
        QString buffer;
        GetPrivateProfileStringA(row.section, row.key, "DEFAULT", buffer, 256,
                                 dir.write("a.ini", row.bytes));
        EXPECT_EQ(buffer, row.expected) << row.name;
    }
}

TEST(ProfileReadInt, LeadingNumber) {
    const std::pair<const char*, int> rows[] = {{"plain", 42}, {"suffix", 12}, {"neg", -15},
                                                {"plus", 8},   {"text", 0},    {"quoted", 7},
                                                {"blank", 99}, {"missing", 99}};
    for (auto [key, expected] : rows)
        EXPECT_EQ(int(GetPrivateProfileIntA("Numbers", key, 99, kFixtures + "layout.ini")),
                  expected)
            << key;
}

// Each write changes only its key's bytes, leaves no temporary and reads back.
TEST(ProfileWrite, OnlyTheKeyChanges) {
    const struct {
        const char* name;
        QByteArray before;  // null: no file yet
        QString section, key, value;
        QByteArray after;
    } rows[] = {
        // clang-format off
        {"replaceKeepsSpellingAndOtherBytes", "; lab\r\n[Diesel,FAME]\r\n  DataFile = OIL,7 \r\nInfoLine= keep  \r\n", "diesel,fame", "DATAFILE", "OIL,8", "; lab\r\n[Diesel,FAME]\r\nDataFile=OIL,8\r\nInfoLine= keep  \r\n"},
        {"onlyFirstDuplicateChanges", "[S]\nk=1\nK=2\n[s]\nk=3\n", "S", "k", "9", "[S]\nk=9\nK=2\n[s]\nk=3\n"},
        {"newKeyAfterLastNonBlankLine", "[S]\na=1\n; note\n\n\n[T]\n", "S", "b", "2", "[S]\na=1\n; note\nb=2\n\n\n[T]\n"},
        {"newKeyEndsUnterminatedFile", "[S]\r\na=1", " S ", " b ", "2", "[S]\r\na=1\r\nb=2\r\n"},
        {"newKeyUnderEmptyHeader", "[S]\r[T]\rx=1\r", "T", "y", "", "[S]\r[T]\rx=1\ry=\r"},
        {"newSectionBeforeCtrlZ", "[S]\r\na=1\x1A", "New", "k", "v", "[S]\r\na=1\r\n[New]\r\nk=v\r\n\x1A"},
        {"ctrlZEndingLastValueKept", "[S]\nk=1", "S", "k", "x\x1A", "[S]\nk=x\x1A\n"},
        {"orphanKeyIsNoSection", "k=1\n", "S", "k", "2", "k=1\n[S]\nk=2\n"},
        {"lineBreaksInValueBecomeBlanks", "[S]\nk=1\nz=2\n", "S", "k", "a\r\nb\nc\rd", "[S]\nk=a  b c d\nz=2\n"},
        {"utf8MarkKeptAndMarkCharIsText", "\xEF\xBB\xBF[S]\n\xEF\xBB\xBFk=1\n", "S", QStringLiteral("\uFEFFk"), QStringLiteral("\uFEFFv"), "\xEF\xBB\xBF[S]\n\xEF\xBB\xBFk=\xEF\xBB\xBFv\n"},
        {"cp1252Kept", "[S]\r\nk=\x80\r\n[\xFF]\r\nz=\x81\x8D\r\n", "s", "k", "\u00A0\u00E9\u20AC", "[S]\r\nk=\xA0\xE9\x80\r\n[\xFF]\r\nz=\x81\x8D\r\n"},
        {"cp1252BecomesUtf8ForOtherText", "[S]\nk=1\nz=\xE9\x1A", "S", "k", "\u03A9", "[S]\nk=\xCE\xA9\nz=\xC3\xA9\x1A"},
        {"cp1252BecomesUtf8RatherThanReadAsUtf8", "[S]\nk=\xE9\n", "S", "k", "\u00C3\u00A9", "[S]\nk=\xC3\x83\xC2\xA9\n"},
        {"utf16Kept", utf16File("[S]\r\nk=1\r\n[T]\r\nz=\u00E9\r\n\x1A"), "S", "k", "\u03A9\u20AC", utf16File("[S]\r\nk=\u03A9\u20AC\r\n[T]\r\nz=\u00E9\r\n\x1A")},
        {"missingFileCreated", QByteArray(), "S", "k", "v", "[S]\nk=v\n"},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TempFolder dir;
        const QString file = dir.file("ORQ.INI");
        if (!row.before.isNull()) dir.write("ORQ.INI", row.before);
        ASSERT_EQ(WritePrivateProfileStringA(row.section, row.key, row.value, file), 1);
        EXPECT_EQ(dir.read("ORQ.INI"), row.after);
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"ORQ.INI"}));
        QString readBack;
        GetPrivateProfileStringA(row.section, row.key, "DEFAULT", readBack, 256, file);
        EXPECT_EQ(readBack, QString(row.value).replace(u'\r', u' ').replace(u'\n', u' '));
    }
}

TEST(ProfileWriteFailure, AnswersZeroAndLeavesFileAlone) {
    TempFolder dir;
    const QString readOnly = dir.write("ro.ini", "[S]\nk=1\n");
    QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    QDir(dir.path()).mkdir("folder.ini");
    const std::tuple<const char*, QString, QString> rows[] = {
        {"read-only file", readOnly, "k"},
        {"missing folder", dir.file("missing/x.ini"), "k"},
        {"folder in the way", dir.file("folder.ini"), "k"},
        {"no file name", QString(), "k"},
        {"key that reads back as another", dir.file("new.ini"), "a=b"},
        {"no key name", dir.file("new.ini"), "  "}};
    for (const auto& [name, file, key] : rows)
        EXPECT_EQ(WritePrivateProfileStringA("S", key, "2", file), 0) << name;
    EXPECT_EQ(dir.read("ro.ini"), "[S]\nk=1\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"folder.ini", "ro.ini"}));
}

TEST(ProfileWritePermissions, KeptAcrossRewrite) {
    TempFolder dir;
    const QString path = dir.write("a.ini", "[S]\nk=1\n");
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0640), 0);
    ASSERT_EQ(WritePrivateProfileStringA("S", "k", "2", path), 1);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(ProfileWriteTemporaries, DeadOnesRemovedLiveOnesKept) {
    TempFolder dir;
    const QString path = dir.write("ORQ.INI", "[S]\nk=1\n");
    dir.write(".ORQ.INI.tmp-0badf00d", "[S]\nk=");
    dir.write(".OTHER.INI.tmp-0badf00d", "x");
    // A writer still busy holds a lock on its temporary.
    QFile live(dir.write(".ORQ.INI.tmp-12345678", "[S]"));
    ASSERT_TRUE(live.open(QIODevice::ReadOnly));
    ASSERT_EQ(flock(live.handle(), LOCK_EX), 0);
    ASSERT_EQ(WritePrivateProfileStringA("S", "k", "2", path), 1);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({".ORQ.INI.tmp-12345678", ".OTHER.INI.tmp-0badf00d", "ORQ.INI"}));
}

TEST(ProfileWritePaths, BareNamesAndCaseBlindLookup) {
    TempFolder dir;
    ASSERT_FALSE(qEnvironmentVariableIsSet("ZENTROVAR_CONFIG_DIR"));
    qputenv("ZENTROVAR_CONFIG_DIR", dir.path().toUtf8());
    EXPECT_EQ(profileFolder(), dir.path());
    EXPECT_EQ(WritePrivateProfileStringA("PCS,1", "_DDEOnLine", "Host1", "zentrovar.ini"), 1);
    EXPECT_EQ(dir.read("zentrovar.ini"), "[PCS,1]\n_DDEOnLine=Host1\n");

    // An existing file or folder of another case is used, also through backslashes.
    QDir(dir.path()).mkdir("fame.m");
    dir.write("fame.m/injector.mth", "[Injector]\n_MethodInjectors=2\n");
    const QString windowsStyle = dir.path() + "\\FAME.M\\INJECTOR.MTH";
    EXPECT_EQ(GetPrivateProfileIntA("injector", "_methodinjectors", 0, windowsStyle), 2u);
    EXPECT_EQ(WritePrivateProfileStringA("Injector", "_MethodInjectors", "1", windowsStyle), 1);
    EXPECT_EQ(dir.read("fame.m/injector.mth"), "[Injector]\n_MethodInjectors=1\n");
    EXPECT_EQ(QDir(dir.path() + "/fame.m").entryList(QDir::Files), QStringList({"injector.mth"}));

    EXPECT_EQ(WritePrivateProfileStringA("S", "k", "v", "ZENTROVAR.INI"), 1);
    QString value;
    EXPECT_EQ(GetPrivateProfileStringA("pcs,1", "_DDEONLINE", "", value, 256, "Zentrovar.Ini"), 5);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList({"zentrovar.ini"}));
    qunsetenv("ZENTROVAR_CONFIG_DIR");
}

}  // namespace
