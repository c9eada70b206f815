// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/SizeRow.h"

#include "benchmarks/Figure.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>

#include <cstdio>
#include <optional>

namespace velmora::bench {

namespace {

/// The standard output of a tool of the binutils; nothing if it cannot be run.
std::optional<QByteArray> output(const QString &tool, const QStringList &arguments) {
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

/// The bytes of what the resource compiler has made.
double resourceBytes(const QByteArray &symbols) {
    double bytes = 0;
    for (const QByteArray &line : symbols.split('\n')) {
        const QList<QByteArray> parts = line.simplified().split(' ');
        const QByteArray name = parts.value(3);
        if (name.contains("qt_resource_data") || name.contains("qt_resource_name") ||
            name.contains("qt_resource_struct"))
            bytes += double(parts.value(1).toULongLong(nullptr, 16));
    }
    return bytes;
}

/// The names that the public headers contain, but for those of Qt's classes.
QSet<QString> publicNames() {
    static const QRegularExpression s_word(QStringLiteral("\\b(?!Q[A-Z])[A-Za-z_]\\w*"));
    QSet<QString> names;
    const QDir headers(QStringLiteral(VELMORA_PUBLIC_HEADERS));
    for (const QString &name : headers.entryList({QStringLiteral("*.h")})) {
        QFile header(headers.filePath(name));
        header.open(QIODevice::ReadOnly);
        auto words = s_word.globalMatch(QString::fromUtf8(header.readAll()));
        while (words.hasNext())
            names.insert(words.next().captured());
    }
    return names;
}

/// The outermost namespace or class of a mangled name, or else its function; the name itself if it
/// is not mangled; empty for what the C++ standard library defines.
QString outermostName(const QString &symbol) {
    static const QRegularExpression s_mangled(
        QStringLiteral("^_Z(?:T[VTIS]|T[chv]n?\\d+_|GV)?(?:N[rVK]*)?(\\d+)"));
    if (!symbol.startsWith(QLatin1String("_Z")))
        return symbol;
    const auto match = s_mangled.match(symbol);
    return symbol.mid(match.capturedEnd(1), match.captured(1).toInt());
}

QStringList foreignSymbols(const QByteArray &symbols) {
    const QSet<QString> ours = publicNames();
    QStringList foreign;
    for (const QByteArray &line : symbols.split('\n')) {
        const QString symbol = QString::fromLatin1(line.simplified().split(' ').value(2));
        if (!symbol.isEmpty() && !ours.contains(outermostName(symbol)))
            foreign.append(symbol);
    }
    return foreign;
}

} // namespace

void SizeRow::measure(const BenchOptions &) {
    const QString packaged = qEnvironmentVariable("VELMORA_PACKAGED_LIBRARY");
    const QString subject =
        packaged.isEmpty() ? QStringLiteral("this build's library") : QStringLiteral("library");
    const auto figure = [&subject](const char *name, const char *unit, const char *kind,
                                   double goal) {
        return Figure{QStringLiteral("size"),    subject + QString::fromLatin1(name), {},
                      QString::fromLatin1(unit), QString::fromLatin1(kind),           goal};
    };
    const Figure whole = figure(", stripped", "KB", "absolute", 700);
    const Figure code = figure(" without resources", "KB", "absolute", 500);
    const Figure exports = figure(", exported symbols that are not ours", "", "exact", 0);
    const auto printMissing = [&](const QString &why) {
        for (const Figure &missing : {whole, code, exports})
            missing.printMissing(why);
    };

    const QString library = packaged.isEmpty() ? QStringLiteral(VELMORA_LIBRARY) : packaged;
    if (!QFileInfo(library).isFile()) {
        printMissing(library + QStringLiteral(" is not there"));
        return;
    }
    const QTemporaryDir folder;
    const QString stripped = folder.filePath(QStringLiteral("stripped"));
    const auto symbols = output(QStringLiteral("nm"), {QStringLiteral("-S"), library});
    const auto exported = output(QStringLiteral("nm"),
                                 {QStringLiteral("-D"), QStringLiteral("--defined-only"), library});
    if (!symbols || !exported ||
        !output(QStringLiteral("strip"), {QStringLiteral("-o"), stripped, library})) {
        printMissing(QStringLiteral("nm and strip cannot read the library"));
        return;
    }
    const double bytes = double(QFileInfo(stripped).size());
    whole.print({bytes / 1000});
    if (const double resources = resourceBytes(*symbols); resources > 0)
        code.print({(bytes - resources) / 1000});
    else
        code.printMissing(QStringLiteral("the library has no symbol table"));
    const QStringList foreign = foreignSymbols(*exported);
    for (const QString &symbol : foreign)
        std::fprintf(stderr, "size: exported and not ours: %s\n", qPrintable(symbol));
    exports.print({double(foreign.size())});
}

} // namespace velmora::bench
