// Translation of the host's English status words.

#include "NlsFixture.h"
#include "StatusTranslation.h"

namespace sidekin::test {
namespace {

using Localize = QString (*)(const QString&);

struct Row {
    const char* name;
    Localize procedure;
    QString host;
    QString expected;
};

// Each word of the made-up language is marked, so a rule that fired shows.
const QByteArray madeUpTable =
    "17300=<rdy>\n17301=<not-rdy>\n17302=<running>\n"
    "17303=<custom>\n17304=<wait-rdy>\n17305=<wait-inj>\n17306=<acq>\n"
    "17307=<analysis>\n17308=<pre-macro>\n17309=<post-macro>\n17310=Minuten\n"
    "17311=Elapsed (verstrichen)\n17312=<post-run>\n17313=<last-run>\n"
    "17314=<prepare>\n17315=<nrdy>\n";

class StatusTranslation : public NlsFixture {
protected:
    void useTable(const QByteArray& table) {
        labTable("xx", table);
        setNlsLanguage("xx");
        ASSERT_EQ(NLSInit(0), 1);
    }
    void expectRows(std::initializer_list<Row> rows) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            EXPECT_EQ(row.procedure(row.host), row.expected);
        }
        EXPECT_TRUE(dialogs.shown.empty());
    }
};

TEST_F(StatusTranslation, ReadyRulesAllRunAndTheLastThatFiresWins) {
    useTable(madeUpTable);
    const Localize f = LocalizeSysStatusReady;
    expectRows({
        {"plain word", f, "Ready", "<rdy>"},
        {"not ready is not half translated", f, "Not Ready", "<not-rdy>"},
        {"run in progress", f, "Run in Progress", "<running>"},
        {"later rule starts from the host text", f, "Run in Progress, Ready", "<running>, Ready"},
        {"word twice", f, "Ready / Ready", "<rdy> / <rdy>"},
        {"surrounding text kept", f, "  System Ready ", "  System <rdy> "},
        {"case-sensitive", f, "READY", "READY"},
        {"unknown text unchanged", f, "  Idle  ", "  Idle  "},
        {"empty", f, "", ""},
    });
}

TEST_F(StatusTranslation, MethodRulesStopAtTheFirstThatFires) {
    useTable(madeUpTable);
    const Localize f = LocalizeSysStatusMethod;
    expectRows({
        {"waiting for ready", f, "Waiting for Ready", "<wait-rdy>"},
        {"waiting for injection", f, "Waiting for Injection", "<wait-inj>"},
        {"acquisition", f, "Data Acquisition", "<acq>"},
        {"customized before data analysis", f, "Customized Data Analysis", "<custom>"},
        {"data analysis", f, "Data Analysis", "<analysis>"},
        {"pre-run macro", f, "Pre-Run Macro", "<pre-macro>"},
        {"post-run macro", f, "Post-Run Macro", "<post-macro>"},
        {"earlier rule ends the chain", f, "Data Analysis after Data Acquisition",
         "Data Analysis after <acq>"},
        {"ready words are not method words", f, "Ready", "Ready"},
    });
}

TEST_F(StatusTranslation, DescriptionChainsAndThePrepareOverrule) {
    useTable(madeUpTable);
    const Localize f = LocalizeStatusDescript;
    expectRows({
        {"translation holding the word does not loop", f, "Elapsed", "Elapsed (verstrichen)"},
        {"post run", f, "Post Run", "<post-run>"},
        {"elapsed ends the chain", f, "Elapsed Post Run Prepare",
         "Elapsed (verstrichen) Post Run Prepare"},
        {"post run ends the chain", f, "Post Run Last Run", "<post-run> Last Run"},
        {"last run alone", f, "Last Run", "<last-run>"},
        {"prepare replaces the last run outcome", f, "Last Run Prepare", "Last Run <prepare>"},
        {"nrdy wait replaces the last run outcome", f, "Last Run nRdy Wait", "Last Run <nrdy>"},
        {"prepare before nrdy wait", f, "nRdy Wait Prepare", "nRdy Wait <prepare>"},
        {"prepare twice", f, "Prepare, Prepare", "<prepare>, <prepare>"},
        {"case-sensitive", f, "nrdy wait", "nrdy wait"},
    });
}

TEST_F(StatusTranslation, UnitsTranslateMinAnywhere) {
    useTable(madeUpTable);
    const Localize f = LocalizeStatusTimeUnits;
    expectRows({
        {"min", f, "min", "Minuten"},
        {"rest of a longer word stays", f, "mins", "Minutens"},
        {"inside a word", f, "admin", "adMinuten"},
        {"case-sensitive", f, "Min", "Min"},
        {"empty unit", f, "", ""},
    });
}

TEST_F(StatusTranslation, EnglishTableGivesTheHostTextBack) {
    setNlsLanguage("en");
    ASSERT_EQ(NLSInit(0), 1);
    expectRows({
        {"ready", LocalizeSysStatusReady, "Ready", "Ready"},
        {"not ready", LocalizeSysStatusReady, "Not Ready", "Not Ready"},
        {"customized", LocalizeSysStatusMethod, "Customized Data Analysis",
         "Customized Data Analysis"},
        {"last run prepare", LocalizeStatusDescript, "Last Run Prepare", "Last Run Prepare"},
        {"min", LocalizeStatusTimeUnits, "min", "min"},
    });
}

TEST_F(StatusTranslation, EmptyOrMissingTranslationDropsTheWord) {
    useTable("17301=\n17303=\n17310=\n");
    expectRows({
        {"empty text", LocalizeSysStatusReady, "System Not Ready", "System "},
        {"empty text ends the chain", LocalizeSysStatusMethod, "Customized Data Analysis!", "!"},
        {"empty unit word", LocalizeStatusTimeUnits, "5 min", "5 "},
        {"id missing from the table", LocalizeStatusDescript, "Elapsed", ""},
        {"ready word missing from the table", LocalizeSysStatusReady, "Ready", ""},
    });
}

}  // namespace
}  // namespace sidekin::test
