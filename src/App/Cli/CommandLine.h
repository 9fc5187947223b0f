#pragma once

#include <QStringList>
#include <QTextStream>
#include <cstdio>

class QCommandLineParser;

// The headless command-line mode: `pictray COMMAND ...`.
namespace Cli {

// Exit statuses shared by every command.
enum Status { ok = 0, failure = 1, usage = 2 };

struct Io {
    QTextStream& out;
    QTextStream& err;
    std::FILE* stdoutFile; // for binary output
};

// A command gets the arguments after its own name.
using Run = int (*)(const QStringList& args, Io& io);

// Runs the command named by args[1]; args[0] is the program.
int run(const QStringList& args, Io& io);

QString usageText();

// Prints "pictray: <message>" and the usage on stderr; returns Status::usage.
int usageError(Io& io, const QString& message);

// Parses args for `pictray <command>` with the parser's options; on failure
// prints the parser's complaint through usageError and returns false.
bool parse(QCommandLineParser& parser, const char* command, const QStringList& args, Io& io,
           int* status);

// The query words of a command line, joined by single spaces.
inline QString joinedQuery(const QStringList& words)
{
    return words.join(u' ');
}

} // namespace Cli
