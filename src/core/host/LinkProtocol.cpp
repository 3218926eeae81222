#include "LinkProtocol.h"

#include <QStringDecoder>
#include <QtEndian>

namespace sidekin::link {

namespace {

void putU32(QByteArray& out, std::uint32_t v) {
    char b[4];
    qToBigEndian(v, b);
    out.append(b, 4);
}

void putText(QByteArray& out, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    putU32(out, static_cast<std::uint32_t>(utf8.size()));
    out.append(utf8);
}

std::uint32_t getU32(const char* p) { return qFromBigEndian<std::uint32_t>(p); }

bool knownVerb(std::uint8_t v) {
    switch (static_cast<Verb>(v)) {
        case Verb::Execute:
        case Verb::Request:
        case Verb::Advise:
        case Verb::Ack:
        case Verb::Data:
        case Verb::Refused:
        case Verb::Update:
            return true;
    }
    return false;
}

}  // namespace

QByteArray encode(const Frame& frame) {
    QByteArray body;
    body.append(static_cast<char>(frame.verb));
    putU32(body, frame.id);
    putText(body, frame.topic);
    putText(body, frame.name);
    putText(body, frame.value);
    QByteArray out;
    putU32(out, static_cast<std::uint32_t>(body.size()));
    return out + body;
}

void FrameReader::feed(const QByteArray& bytes) {
    if (!failed_) buffer_.append(bytes);
}

std::optional<Frame> FrameReader::next() {
    if (failed_ || buffer_.size() < 4) return std::nullopt;
    const std::uint32_t length = getU32(buffer_.constData());
    if (length > MaxFrameBytes || length < 5 + 12) {
        failed_ = true;
        return std::nullopt;
    }
    if (static_cast<std::uint32_t>(buffer_.size()) < 4 + length) return std::nullopt;

    const char* p = buffer_.constData() + 4;
    const char* end = p + length;
    Frame frame;
    if (!knownVerb(static_cast<std::uint8_t>(*p))) {
        failed_ = true;
        return std::nullopt;
    }
    frame.verb = static_cast<Verb>(*p++);
    frame.id = getU32(p);
    p += 4;
    // A leading U+FEFF is part of the text, not a mark to drop.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    for (QString* field : {&frame.topic, &frame.name, &frame.value}) {
        if (end - p < 4) {
            failed_ = true;
            return std::nullopt;
        }
        const std::uint32_t n = getU32(p);
        p += 4;
        if (n > static_cast<std::uint32_t>(end - p)) {
            failed_ = true;
            return std::nullopt;
        }
        *field = utf8(QByteArrayView(p, n));
        p += n;
    }
    if (p != end) {
        failed_ = true;
        return std::nullopt;
    }
    buffer_.remove(0, 4 + length);
    return frame;
}

}  // namespace sidekin::link
