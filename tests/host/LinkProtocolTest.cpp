#include <gtest/gtest.h>

#include <QtEndian>
#include <vector>

#include "LinkProtocol.h"

using namespace sidekin::link;

namespace {

QByteArray u32(quint32 value) {
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray text(const QByteArray& utf8) { return u32(static_cast<quint32>(utf8.size())) + utf8; }

QByteArray framed(const QByteArray& body) { return u32(static_cast<quint32>(body.size())) + body; }

QByteArray body(char verb, const QByteArray& texts) { return QByteArray(1, verb) + u32(7) + texts; }

std::vector<Frame> readAll(FrameReader& reader) {
    std::vector<Frame> frames;
    while (auto frame = reader.next()) frames.push_back(*frame);
    return frames;
}

const std::vector<Frame> sampleFrames{
    {Verb::Execute, 1, "CPWAIT", "ORQ_SetRunTableVars \"a|b\", \"\"", ""},
    {Verb::Request, 0xFFFFFFFFu, "CPNOWAIT", "ddeORQ$", ""},
    {Verb::Advise, 2, "", "", ""},
    {Verb::Ack, 0, "", "", ""},
    {Verb::Data, 3, "", "", "Grüße µ 日本 😀\r\n"},
    {Verb::Refused, 4, "", "", QString(QChar(0)) + "\r\n\r"},
    {Verb::Update, 0, "", "GUIStatusTime$", "Run 1|12:00\n"},
    {Verb::Data, 5, "", "", QString(QChar(0xFEFF)) + "Ready"},
};

TEST(LinkProtocolTest, FramesAreCutFromAnyChunking) {
    QByteArray stream;
    for (const Frame& frame : sampleFrames) stream += encode(frame);

    FrameReader whole;
    whole.feed(stream);
    EXPECT_EQ(readAll(whole), sampleFrames);

    FrameReader bytewise;
    std::vector<Frame> frames;
    for (char byte : stream) {
        bytewise.feed(QByteArray(1, byte));
        for (const Frame& frame : readAll(bytewise)) frames.push_back(frame);
    }
    EXPECT_EQ(frames, sampleFrames);
    EXPECT_FALSE(bytewise.failed());
}

TEST(LinkProtocolTest, BodyOfExactlyTheLimitIsAccepted) {
    Frame frame{Verb::Data, 9, "", "", QString(MaxFrameBytes - 17, u'x')};
    const QByteArray bytes = encode(frame);
    ASSERT_EQ(bytes.size(), 4 + qsizetype(MaxFrameBytes));
    FrameReader reader;
    reader.feed(bytes);
    EXPECT_EQ(reader.next(), frame);
}

TEST(LinkProtocolTest, MalformedFrameLeavesTheReaderFailed) {
    const QByteArray texts = text("CPWAIT") + text("x") + text("");
    const std::pair<const char*, QByteArray> cases[] = {
        {"length over the limit, header alone", u32(MaxFrameBytes + 1)},
        {"length too short for verb, id and three lengths", framed(QByteArray(16, '\0'))},
        {"unknown verb 4", framed(body(4, texts))},
        {"verb 0", framed(body(0, texts))},
        {"text length past the body", framed(body(2, text("CPWAIT") + u32(50) + "x" + text("")))},
        {"no room for the second text's length", framed(body(2, text("CPWAITxx")))},
        {"trailing bytes", framed(body(2, texts + "!"))},
    };
    const QByteArray good = encode({Verb::Ack, 1, "", "", ""});
    for (const auto& [what, bytes] : cases) {
        SCOPED_TRACE(what);
        FrameReader reader;
        reader.feed(bytes + good);
        EXPECT_EQ(reader.next(), std::nullopt);
        EXPECT_TRUE(reader.failed());
        reader.feed(good);
        EXPECT_EQ(reader.next(), std::nullopt);
        EXPECT_TRUE(reader.failed());
    }
}

}  // namespace
