#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace sidekin::hostsim {

// The part of the host's command language that the program uses: the ORQ_
// macros, assignments of the question functions to host variables, and the
// file statements of the name check, joined by ';'.

struct Literal {
    bool isText = false;  // a quoted text, else a number
    QString text;
};

struct Call {
    QString function;  // spelled as in the list of known functions
    std::vector<Literal> args;
};

struct Assign {
    QString variable;
    std::variant<Literal, Call> value;
};

struct OpenFile {
    QString path;  // as written; backslashes not yet turned
    QString mode;  // "Output", "Append" or "Input"
    int channel = 0;
};

struct CloseFile {
    int channel = 0;  // 0: all
};

struct DeleteFile {
    QString path;
};

struct SetRunTableVars {
    QString operatorName;
    QString subdirectory;
};

// The ten arguments of ORQ_PrepareSingleRun.
struct RunRequest {
    QString method;
    int injector = 1;
    QString sample;
    QString vial;  // empty when left out
    QString dataFile;
    QString sampleAmount;
    QString istdAmount;
    QString spare1;
    QString spare2;
    QString info;
};

struct PrepareRun {
    RunRequest run;
};

struct HostStart {
    int row = 0;
};

struct LoadMethod {
    QString method;
};

struct Statement;

struct OnError {
    std::shared_ptr<const Statement> handler;  // null: the trap is off
};

struct Statement {
    std::variant<Assign, OpenFile, CloseFile, DeleteFile, OnError, SetRunTableVars, PrepareRun,
                 HostStart, LoadMethod>
        what;
};

using Script = std::vector<Statement>;

// Parses one command text. On failure answers nullopt with the reason in error.
std::optional<Script> parseCommand(const QString& text, QString* error);

enum class ArgKind { Quoted, Number, OptionalNumber };

// Splits the text behind a macro word into arguments separated by ", ". A quoted
// argument ends at a quote that is followed by ", " (or by the end for the last
// one); when several such quotes exist, the split that fits the whole list wins.
std::optional<QStringList> splitArguments(QStringView text, const std::vector<ArgKind>& kinds);

}  // namespace sidekin::hostsim
