#include "HostScript.h"

#include <QRegularExpression>
#include <algorithm>
#include <set>
#include <utility>

namespace sidekin::hostsim {

namespace {

struct FunctionInfo {
    const char* name;
    std::vector<bool> textArgs;
    bool textResult;
};

const std::vector<FunctionInfo>& functions() {
    static const std::vector<FunctionInfo> list = {
        {"ORQCheckIfValidVial", {false, false}, false},
        {"RCGetResourceVal", {true, true, true}, false},
        {"TestForDevice", {true, false, true}, false},
        {"MyTestForDevice", {true, false, true}, false},
        {"ORQGetInjectorVialRange$", {false}, true},
    };
    return list;
}

bool isNumber(QStringView text) {
    static const QRegularExpression re(
        QStringLiteral(R"(^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?$)"));
    return re.match(text).hasMatch();
}

using Failed = std::set<std::pair<qsizetype, size_t>>;

bool splitFrom(QStringView text, qsizetype pos, const std::vector<ArgKind>& kinds, size_t k,
               QStringList& out, Failed& failed) {
    if (failed.count({pos, k})) return false;
    const bool last = k + 1 == kinds.size();
    bool ok = false;
    if (kinds[k] == ArgKind::Quoted) {
        if (pos < text.size() && text[pos] == u'"') {
            if (last) {
                ok = text.size() - pos >= 2 && text.back() == u'"';
                if (ok) out << text.sliced(pos + 1, text.size() - pos - 2).toString();
            } else {
                const QStringView closing = u"\", ";
                for (qsizetype q = text.indexOf(closing, pos + 1); q >= 0 && !ok;
                     q = text.indexOf(closing, q + 1)) {
                    out << text.sliced(pos + 1, q - pos - 1).toString();
                    ok = splitFrom(text, q + 3, kinds, k + 1, out, failed);
                    if (!ok) out.removeLast();
                }
            }
        }
    } else {
        const qsizetype end = last ? text.size() : text.indexOf(u", ", pos);
        if (end >= 0) {
            const QStringView token = text.sliced(pos, end - pos);
            if ((token.isEmpty() && kinds[k] == ArgKind::OptionalNumber) || isNumber(token)) {
                out << token.toString();
                ok = last || splitFrom(text, end + 2, kinds, k + 1, out, failed);
                if (!ok) out.removeLast();
            }
        }
    }
    if (!ok) failed.insert({pos, k});
    return ok;
}

class Parser {
public:
    explicit Parser(QStringView text) : s_(text) {}

    std::optional<Script> script(QString* error) {
        Script script;
        for (;;) {
            skipBlanks();
            if (pos_ >= s_.size()) break;
            if (s_[pos_] == u';') {
                ++pos_;
                continue;
            }
            std::optional<Statement> statement = this->statement();
            if (!statement) break;
            script.push_back(std::move(*statement));
            skipBlanks();
            if (pos_ < s_.size() && s_[pos_] != u';') {
                fail(QStringLiteral("unexpected text at column %1").arg(pos_ + 1));
                break;
            }
        }
        if (error_.isEmpty() && script.empty()) fail(QStringLiteral("empty command"));
        if (!error_.isEmpty()) {
            if (error) *error = error_;
            return std::nullopt;
        }
        return script;
    }

private:
    std::optional<Statement> statement() {
        const qsizetype start = pos_;
        const QString word = identifier();
        if (word.isEmpty())
            return failed(QStringLiteral("no statement at column %1").arg(start + 1));
        const QString lower = word.toLower();

        if (lower == u"on") {
            if (!keyword("error")) return failed(QStringLiteral("On without Error"));
            skipBlanks();
            if (pos_ >= s_.size() || s_[pos_] == u';') return Statement{OnError{}};
            std::optional<Statement> handler = statement();
            if (!handler) return std::nullopt;
            if (std::holds_alternative<OnError>(handler->what))
                return failed(QStringLiteral("On Error inside On Error"));
            return Statement{OnError{std::make_shared<const Statement>(std::move(*handler))}};
        }
        if (lower == u"open") {
            OpenFile open;
            auto path = quoted();
            if (!path) return failed(QStringLiteral("Open needs a quoted path"));
            open.path = *path;
            if (!keyword("for")) return failed(QStringLiteral("Open without For"));
            const QString mode = identifier().toLower();
            if (mode == u"output")
                open.mode = QStringLiteral("Output");
            else if (mode == u"append")
                open.mode = QStringLiteral("Append");
            else if (mode == u"input")
                open.mode = QStringLiteral("Input");
            else
                return failed(QStringLiteral("unknown Open mode"));
            if (!keyword("as")) return failed(QStringLiteral("Open without As"));
            skipBlanks();
            if (pos_ < s_.size() && s_[pos_] == u'#') ++pos_;
            if (auto channel = digits())
                open.channel = *channel;
            else
                return failed(QStringLiteral("Open without a channel number"));
            return Statement{open};
        }
        if (lower == u"close") {
            CloseFile close;
            skipBlanks();
            const bool hash = pos_ < s_.size() && s_[pos_] == u'#';
            if (hash) ++pos_;
            if (auto channel = digits())
                close.channel = *channel;
            else if (hash)
                return failed(QStringLiteral("Close # without a number"));
            return Statement{close};
        }
        if (lower == u"delete") {
            auto path = quoted();
            if (!path) return failed(QStringLiteral("Delete needs a quoted path"));
            skipBlanks();
            if (pos_ < s_.size() && s_[pos_] == u',') {
                ++pos_;
                if (!keyword("dontask")) return failed(QStringLiteral("unknown Delete option"));
            }
            return Statement{DeleteFile{*path}};
        }
        if (lower.startsWith(u"orq_")) return macro(lower);
        return assignment(word);
    }

    // A macro takes the whole rest of the text as its arguments, ';' included.
    std::optional<Statement> macro(const QString& word) {
        const QStringView rest = s_.sliced(pos_).trimmed();
        pos_ = s_.size();
        if (word == u"orq_setruntablevars") {
            auto args = splitArguments(rest, {ArgKind::Quoted, ArgKind::Quoted});
            if (!args)
                return failed(QStringLiteral("ORQ_SetRunTableVars needs two quoted arguments"));
            return Statement{SetRunTableVars{args->at(0), args->at(1)}};
        }
        if (word == u"orq_preparesinglerun") {
            using K = ArgKind;
            auto args =
                splitArguments(rest, {K::Quoted, K::Number, K::Quoted, K::OptionalNumber, K::Quoted,
                                      K::Quoted, K::Quoted, K::Quoted, K::Quoted, K::Quoted});
            if (!args) return failed(QStringLiteral("ORQ_PrepareSingleRun needs ten arguments"));
            bool ok = false;
            const int injector = args->at(1).toInt(&ok);
            if (!ok) return failed(QStringLiteral("the injector is not a whole number"));
            RunRequest run;
            run.method = args->at(0);
            run.injector = injector;
            run.sample = args->at(2);
            run.vial = args->at(3);
            run.dataFile = args->at(4);
            run.sampleAmount = args->at(5);
            run.istdAmount = args->at(6);
            run.spare1 = args->at(7);
            run.spare2 = args->at(8);
            run.info = args->at(9);
            return Statement{PrepareRun{run}};
        }
        if (word == u"orq_host_start") {
            bool ok = !rest.isEmpty() &&
                      std::all_of(rest.begin(), rest.end(), [](QChar c) { return c.isDigit(); });
            const int row = ok ? rest.toInt(&ok) : 0;
            if (!ok) return failed(QStringLiteral("ORQ_HOST_START needs a row number"));
            return Statement{HostStart{row}};
        }
        if (word == u"orq_loadmethod") {
            // An unquoted name with a blank arrives as two words; the first is the method.
            const QString name = rest.toString().section(u' ', 0, 0, QString::SectionSkipEmpty);
            if (name.isEmpty()) return failed(QStringLiteral("ORQ_LoadMethod needs a method name"));
            return Statement{LoadMethod{name}};
        }
        return failed(QStringLiteral("unknown macro"));
    }

    std::optional<Statement> assignment(const QString& variable) {
        skipBlanks();
        if (pos_ >= s_.size() || s_[pos_] != u'=')
            return failed(QStringLiteral("unknown statement %1").arg(variable));
        ++pos_;
        const bool textVariable = variable.endsWith(u'$');
        skipBlanks();
        if (auto value = literal()) {
            if (value->isText != textVariable) return failed(QStringLiteral("type mismatch"));
            return Statement{Assign{variable, *value}};
        }
        const QString name = identifier();
        const FunctionInfo* info = nullptr;
        for (const FunctionInfo& f : functions())
            if (name.compare(QLatin1String(f.name), Qt::CaseInsensitive) == 0) info = &f;
        if (!info) return failed(QStringLiteral("unknown function %1").arg(name));
        skipBlanks();
        if (pos_ >= s_.size() || s_[pos_] != u'(') return failed(QStringLiteral("( expected"));
        ++pos_;
        Call call{QLatin1String(info->name), {}};
        for (;;) {
            skipBlanks();
            if (pos_ < s_.size() && s_[pos_] == u')' && call.args.empty()) break;
            auto arg = literal();
            if (!arg) return failed(QStringLiteral("bad argument to %1").arg(call.function));
            call.args.push_back(*arg);
            skipBlanks();
            if (pos_ < s_.size() && s_[pos_] == u',') {
                ++pos_;
                continue;
            }
            break;
        }
        if (pos_ >= s_.size() || s_[pos_] != u')') return failed(QStringLiteral(") expected"));
        ++pos_;
        if (call.args.size() != info->textArgs.size())
            return failed(QStringLiteral("%1 takes %2 arguments")
                              .arg(call.function)
                              .arg(info->textArgs.size()));
        for (size_t i = 0; i < call.args.size(); ++i)
            if (call.args[i].isText != info->textArgs[i])
                return failed(QStringLiteral("type mismatch in %1").arg(call.function));
        if (info->textResult != textVariable) return failed(QStringLiteral("type mismatch"));
        return Statement{Assign{variable, call}};
    }

    std::optional<Literal> literal() {
        skipBlanks();
        if (auto text = quoted()) return Literal{true, *text};
        const qsizetype start = pos_;
        qsizetype end = pos_;
        while (end < s_.size() && (s_[end].isDigit() || s_[end] == u'.' || s_[end] == u'+' ||
                                   s_[end] == u'-' || s_[end] == u'e' || s_[end] == u'E'))
            ++end;
        if (end == start || !isNumber(s_.sliced(start, end - start))) return std::nullopt;
        pos_ = end;
        return Literal{false, s_.sliced(start, end - start).toString()};
    }

    std::optional<QString> quoted() {
        skipBlanks();
        if (pos_ >= s_.size() || s_[pos_] != u'"') return std::nullopt;
        const qsizetype close = s_.indexOf(u'"', pos_ + 1);
        if (close < 0) return std::nullopt;
        const QString text = s_.sliced(pos_ + 1, close - pos_ - 1).toString();
        pos_ = close + 1;
        return text;
    }

    std::optional<int> digits() {
        skipBlanks();
        const qsizetype start = pos_;
        while (pos_ < s_.size() && s_[pos_].isDigit()) ++pos_;
        if (pos_ == start) return std::nullopt;
        return s_.sliced(start, pos_ - start).toInt();
    }

    QString identifier() {
        skipBlanks();
        const qsizetype start = pos_;
        if (pos_ < s_.size() && (s_[pos_].isLetter() || s_[pos_] == u'_')) {
            while (pos_ < s_.size() && (s_[pos_].isLetterOrNumber() || s_[pos_] == u'_')) ++pos_;
            if (pos_ < s_.size() && s_[pos_] == u'$') ++pos_;
        }
        return s_.sliced(start, pos_ - start).toString();
    }

    bool keyword(const char* word) {
        const qsizetype start = pos_;
        if (identifier().compare(QLatin1String(word), Qt::CaseInsensitive) == 0) return true;
        pos_ = start;
        return false;
    }

    void skipBlanks() {
        while (pos_ < s_.size() && (s_[pos_] == u' ' || s_[pos_] == u'\t')) ++pos_;
    }

    void fail(const QString& why) {
        if (error_.isEmpty()) error_ = why;
    }
    std::optional<Statement> failed(const QString& why) {
        fail(why);
        return std::nullopt;
    }

    QStringView s_;
    qsizetype pos_ = 0;
    QString error_;
};

}  // namespace

std::optional<QStringList> splitArguments(QStringView text, const std::vector<ArgKind>& kinds) {
    if (kinds.empty())
        return text.isEmpty() ? std::optional<QStringList>(QStringList{}) : std::nullopt;
    QStringList out;
    Failed failed;
    if (!splitFrom(text, 0, kinds, 0, out, failed)) return std::nullopt;
    return out;
}

std::optional<Script> parseCommand(const QString& text, QString* error) {
    return Parser(text).script(error);
}

}  // namespace sidekin::hostsim
