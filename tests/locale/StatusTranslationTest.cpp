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

const Localize R = LocalizeSysStatusReady, M = LocalizeSysStatusMethod, D = LocalizeStatusDescript,
               U = LocalizeStatusTimeUnits;

TEST_F(StatusTranslation, MadeUpTableShowsWhichRulesFire) {
    useTable(madeUpTable);
    expectRows({
        // Ready rules all run and the last that fires wins.
        {"not ready is not half translated", R, "Not Ready", "<not-rdy>"},
        {"later rule starts from the host text", R, "Run in Progress, Ready", "<running>, Ready"},
        {"word twice", R, "Ready / Ready", "<rdy> / <rdy>"},
        {"surrounding text kept", R, "  System Ready ", "  System <rdy> "},
        {"case-sensitive", R, "READY", "READY"},
        {"unknown text unchanged", R, "  Idle  ", "  Idle  "},
        {"empty", R, "", ""},
        // Method rules stop at the first that fires.
        {"waiting for ready", M, "Waiting for Ready", "<wait-rdy>"},
        {"waiting for injection", M, "Waiting for Injection", "<wait-inj>"},
        {"customized before data analysis", M, "Customized Data Analysis", "<custom>"},
        {"data analysis", M, "Data Analysis", "<analysis>"},
        {"pre-run macro", M, "Pre-Run Macro", "<pre-macro>"},
        {"post-run macro", M, "Post-Run Macro", "<post-macro>"},
        {"earlier rule ends the chain", M, "Data Analysis after Data Acquisition",
         "Data Analysis after <acq>"},
        {"ready words are not method words", M, "Ready", "Ready"},
        // Descriptions chain, and prepare or nrdy wait overrule the last run outcome.
        {"translation holding the word does not loop", D, "Elapsed", "Elapsed (verstrichen)"},
        {"elapsed ends the chain", D, "Elapsed Post Run Prepare",
         "Elapsed (verstrichen) Post Run Prepare"},
        {"post run ends the chain", D, "Post Run Last Run", "<post-run> Last Run"},
        {"last run alone", D, "Last Run", "<last-run>"},
        {"prepare replaces the last run outcome", D, "Last Run Prepare", "Last Run <prepare>"},
        {"nrdy wait replaces the last run outcome", D, "Last Run nRdy Wait", "Last Run <nrdy>"},
        {"prepare before nrdy wait", D, "nRdy Wait Prepare", "nRdy Wait <prepare>"},
        {"prepare twice", D, "Prepare, Prepare", "<prepare>, <prepare>"},
        {"case-sensitive", D, "nrdy wait", "nrdy wait"},
        // Units translate min anywhere.
        {"rest of a longer word stays", U, "mins", "Minutens"},
        {"inside a word", U, "admin", "adMinuten"},
        {"case-sensitive", U, "Min", "Min"},
        {"empty unit", U, "", ""},
    });
}

TEST_F(StatusTranslation, EnglishTableGivesTheHostTextBack) {
    setNlsLanguage("en");
    ASSERT_EQ(NLSInit(0), 1);
    expectRows({
        {"ready", R, "Ready", "Ready"},
        {"not ready", R, "Not Ready", "Not Ready"},
        {"customized", M, "Customized Data Analysis", "Customized Data Analysis"},
        {"last run prepare", D, "Last Run Prepare", "Last Run Prepare"},
        {"min", U, "min", "min"},
    });
}

TEST_F(StatusTranslation, EmptyOrMissingTranslationDropsTheWord) {
    useTable("17301=\n17303=\n17310=\n");
    expectRows({
        {"empty text", R, "System Not Ready", "System "},
        {"empty text ends the chain", M, "Customized Data Analysis!", "!"},
        {"empty unit word", U, "5 min", "5 "},
        {"id missing from the table", D, "Elapsed", ""},
        {"ready word missing from the table", R, "Ready", ""},
    });
}

}  // namespace
}  // namespace sidekin::test
