// Translation of the host's English status words.

#include "StartupFixture.h"
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

class StatusTranslation : public StartupFixture {
protected:
    void expectRows(std::initializer_list<Row> rows) {
        for (const Row& row : rows) EXPECT_EQ(row.procedure(row.host), row.expected) << row.name;
        EXPECT_TRUE(dialogs.shown.empty());
    }
};

const Localize R = LocalizeSysStatusReady, M = LocalizeSysStatusMethod, D = LocalizeStatusDescript,
               U = LocalizeStatusTimeUnits;

// Each word of the made-up language is marked, so a rule that fired shows.
TEST_F(StatusTranslation, MadeUpTableShowsWhichRulesFire) {
    useTexts(
        "17300=<rdy>\n17301=<not-rdy>\n17302=<running>\n17303=<custom>\n17304=<wait-rdy>\n"
        "17305=<wait-inj>\n17306=<acq>\n17307=<analysis>\n17308=<pre-macro>\n"
        "17309=<post-macro>\n17310=Minuten\n17311=Elapsed (verstrichen)\n17312=<post-run>\n"
        "17313=<last-run>\n17314=<prepare>\n17315=<nrdy>\n");
    expectRows({
        // Ready rules all run and the last that fires wins.
        {"not ready is not half translated", R, "Not Ready", "<not-rdy>"},
        {"later rule starts from the host text", R, "Run in Progress, Ready", "<running>, Ready"},
        {"word twice, surroundings kept", R, " Ready / Ready ", " <rdy> / <rdy> "},
        {"ready is case-sensitive", R, "READY", "READY"},
        // Method rules stop at the first that fires.
        {"waiting for ready", M, "Waiting for Ready", "<wait-rdy>"},
        {"waiting for injection", M, "Waiting for Injection", "<wait-inj>"},
        {"customized before data analysis", M, "Customized Data Analysis", "<custom>"},
        {"pre-run macro", M, "Pre-Run Macro", "<pre-macro>"},
        {"post-run macro", M, "Post-Run Macro", "<post-macro>"},
        {"earlier rule ends the chain", M, "Data Analysis after Data Acquisition",
         "Data Analysis after <acq>"},
        // Descriptions chain, and prepare or nrdy wait overrule the last run outcome.
        {"translation holding the word does not loop", D, "Elapsed", "Elapsed (verstrichen)"},
        {"elapsed ends the chain", D, "Elapsed Post Run Prepare",
         "Elapsed (verstrichen) Post Run Prepare"},
        {"post run ends the chain", D, "Post Run Last Run", "<post-run> Last Run"},
        {"last run alone", D, "Last Run", "<last-run>"},
        {"prepare replaces the last run outcome", D, "Last Run Prepare", "Last Run <prepare>"},
        {"nrdy wait replaces the last run outcome", D, "Last Run nRdy Wait", "Last Run <nrdy>"},
        {"prepare before nrdy wait", D, "nRdy Wait Prepare", "nRdy Wait <prepare>"},
        // Units translate min anywhere, case-sensitive.
        {"inside a word", U, "admins", "adMinutens"},
        {"unit is case-sensitive", U, "Min", "Min"},
    });
}

TEST_F(StatusTranslation, EmptyOrMissingTranslationDropsTheWord) {
    useTexts("17301=\n17303=\n17310=\n");
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
