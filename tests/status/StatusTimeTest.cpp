// The time label: it follows the host only while a walk through the table runs.

#include "StatusFixture.h"

namespace sidekin::test {
namespace {

class StatusTime : public StatusFixture {
protected:
    void SetUp() override {
        StatusFixture::SetUp();
        useTexts("17320=0\n17311=Verstrichen\n17314=Vorbereitung\n17310=Min.\n");
        App.GlblRunState = RunStateRunning;
    }
};

TEST_F(StatusTime, CaptionIsDescriptionValueAndUnit) {
    const QString before = "Verstrichen: 1 Min.";
    struct Row {
        const char* name;
        QString status;
        QString caption;
    };
    const Row rows[] = {
        {"translated", "Prepare|0.50|min", "Vorbereitung: 0.50 Min."},
        {"empty unit leaves no blank", "Elapsed|3|", "Verstrichen: 3"},
        {"no unit field", "Elapsed|3", "Verstrichen: 3"},
        {"unknown words pass", "Equilibration|2|sec", "Equilibration: 2 sec"},
        {"word without a translation", "Post Run|4|min", ": 4 Min."},
        {"empty value keeps the label", "Prepare||min", before},
        {"empty description keeps the label", "|3|min", before},
        {"one field keeps the label", "Elapsed", before},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        statusTime("Elapsed|1|min");
        ASSERT_EQ(timeLabel()->text(), before);
        statusTime(row.status);
        EXPECT_EQ(timeLabel()->text(), row.caption);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(StatusTime, StandsStillWhileIdle) {
    statusTime("Elapsed|3.5|min");
    App.GlblRunState = RunStateIdle;
    statusTime("Elapsed|4.0|min");
    EXPECT_EQ(timeLabel()->text(), "Verstrichen: 3.5 Min.");
    EXPECT_TRUE(cpLinks().ddeStatusTime->text().startsWith("Elapsed|4.0|min"));
    for (std::int16_t state : {RunStatePausing, RunStatePaused, RunStateStopping}) {
        SCOPED_TRACE(state);
        App.GlblRunState = state;
        statusTime(QString("Elapsed|%1|min").arg(state));
        EXPECT_EQ(timeLabel()->text(), QString("Verstrichen: %1 Min.").arg(state));
    }
}

// Set before the fields are read, so even a status that changes nothing sets it.
TEST_F(StatusTime, CharacterSetIsSetBeforeTheFieldsAreRead) {
    useTexts("17320=136\n");
    statusTime("|");
    systemStatus("1|0");
    EXPECT_EQ(timeLabel()->property("fontCharset").toInt(), 136);
    EXPECT_EQ(ready()->property("fontCharset").toInt(), 136);
    EXPECT_EQ(method()->property("fontCharset").toInt(), 136);
    EXPECT_EQ(App.GlblFontCharset, 136);
}

}  // namespace
}  // namespace sidekin::test
