#include <QHash>
#include <QMetaObject>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "DdeServerWindows.h"
#include "HostSimulator.h"
#include "LinkProtocol.h"
#include "LinkServer.h"

namespace sidekin::hostsim {

namespace {

constexpr int QuietMs = 50;

std::string ansi(const QString& text) { return text.toLocal8Bit().toStdString(); }

QString fromAnsi(const std::string& text) {
    return QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
}

// After the transaction at hand: a hot link stands only once its advise is
// answered, and values are not posted from inside a DDEML callback.
void later(QObject* context, std::function<void()> work) {
    QMetaObject::invokeMethod(context, std::move(work), Qt::QueuedConnection);
}

// One DDE conversation as the simulator's engine sees it: each transaction
// becomes the frame the local socket would carry, and the engine's reply its answer.
class Conversation : public QObject, public Peer {
public:
    Conversation(HostSimulator& simulator, HCONV handle, const QString& topic, int connection)
        : simulator_(simulator), handle_(handle), topic_(topic), connection_(connection) {
        connect(&simulator, &HostSimulator::itemChanged, this,
                [this](const QString& item, const QString& value) { changed(item, value); });
        quiet_.setSingleShot(true);
        quiet_.setInterval(QuietMs);
        connect(&quiet_, &QTimer::timeout, this, [this] {
            for (const std::string& item : std::exchange(unposted_, {}))
                dde::Server::instance().post(item);
        });
    }

    dde::Answer take(link::Verb verb, const std::string& name) {
        quiet_.start();
        dde::Answer answer{dde::Answer::Refused, {}};
        answer_ = &answer;
        simulator_.receive(*this, link::Frame{verb, ++lastId_, topic_, fromAnsi(name), {}});
        answer_ = nullptr;
        return answer;
    }

    int connection() const override { return connection_; }

    void send(const link::Frame& frame) override {
        if (!answer_) return;
        answer_->kind =
            frame.verb == link::Verb::Refused ? dde::Answer::Refused : dde::Answer::Done;
        answer_->data = ansi(frame.value);
    }

    // A DDE host cannot send a malformed answer: it refuses.
    void sendGarbage() override {
        if (answer_) answer_->kind = dde::Answer::Refused;
    }

    // At once: a blocked conversation (the answer held) would not end later.
    void drop() override {
        if (answer_) answer_->kind = dde::Answer::Hold;
        dde::Server::instance().drop(handle_);
    }

    void watch(const QString& item) override {
        watched_.insert(item.toLower(), item);
        if (auto v = simulator_.value(item)) push(item, *v);
    }

private:
    void changed(const QString& item, const QString& value) {
        const auto it = watched_.constFind(item.toLower());
        if (it != watched_.constEnd()) push(*it, value);
    }

    // A Wine client's transaction fails when a hot link's value arrives on its
    // conversation meanwhile: values wait until the conversation has been quiet a while.
    void push(const QString& item, const QString& value) {
        dde::Server::instance().queue(handle_, ansi(item), ansi(value + link::LineEnd));
        if (quiet_.isActive()) {
            // In the order of their first change: the folder items go first.
            if (std::find(unposted_.begin(), unposted_.end(), ansi(item)) == unposted_.end())
                unposted_.push_back(ansi(item));
        } else
            later(this, [name = ansi(item)] { dde::Server::instance().post(name); });
    }

    HostSimulator& simulator_;
    HCONV handle_;
    QString topic_;
    int connection_;
    std::uint32_t lastId_ = 0;
    dde::Answer* answer_ = nullptr;
    QHash<QString, QString> watched_;  // lower-case name -> name as advised
    QTimer quiet_;
    std::vector<std::string> unposted_;
};

}  // namespace

struct LinkServer::Serving : dde::Server::Handler {
    explicit Serving(HostSimulator& simulator_) : simulator(simulator_) {}

    bool acceptsTopic(const std::string& topic) override {
        const QString name = fromAnsi(topic);
        return name.compare(link::TopicWait, Qt::CaseInsensitive) == 0 ||
               name.compare(link::TopicNoWait, Qt::CaseInsensitive) == 0;
    }
    void connected(HCONV handle, const std::string& topic) override {
        conversations[handle] =
            std::make_unique<Conversation>(simulator, handle, fromAnsi(topic), nextConnection++);
    }
    // It may end inside its own transaction: deleted at the next turn of the event loop.
    void disconnected(HCONV handle) override {
        const auto it = conversations.find(handle);
        if (it == conversations.end()) return;
        it->second.release()->deleteLater();
        conversations.erase(it);
    }

    dde::Answer execute(HCONV handle, const std::string&, const std::string& command) override {
        return answer(handle, link::Verb::Execute, command);
    }
    dde::Answer request(HCONV handle, const std::string&, const std::string& item) override {
        return answer(handle, link::Verb::Request, item);
    }
    dde::Answer advise(HCONV handle, const std::string&, const std::string& item) override {
        return answer(handle, link::Verb::Advise, item);
    }

    dde::Answer answer(HCONV handle, link::Verb verb, const std::string& text) {
        const auto it = conversations.find(handle);
        if (it == conversations.end()) return {dde::Answer::Refused, {}};
        return it->second->take(verb, text);
    }

    HostSimulator& simulator;
    std::map<HCONV, std::unique_ptr<Conversation>> conversations;
    int nextConnection = 1;
};

LinkServer::LinkServer(HostSimulator& simulator, QObject* parent)
    : QObject(parent), simulator_(simulator), serving_(std::make_unique<Serving>(simulator)) {}

LinkServer::~LinkServer() { close(); }

bool LinkServer::listen(const QString& service, QString* error) {
    const UINT started = dde::Server::instance().start(serving_.get());
    if (started != DMLERR_NO_ERROR || !dde::Server::instance().serve(ansi(service))) {
        *error =
            QStringLiteral("cannot serve %1 over DDE (error %2)").arg(service).arg(started, 0, 16);
        return false;
    }
    services_ << service;
    return true;
}

void LinkServer::close() {
    dde::Server::instance().stop();
    serving_->conversations.clear();
}

}  // namespace sidekin::hostsim
