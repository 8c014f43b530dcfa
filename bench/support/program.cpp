#include "support/program.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace ovrano::bench {

namespace {

constexpr int Patience = 300'000; // milliseconds

} // namespace

QString installedOf(const QStringList& names) {
    for (const QString& name : names)
        if (const QString path = QStandardPaths::findExecutable(name); !path.isEmpty())
            return path;
    return QString();
}

QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(Patience) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAll().constData());
    return QString::fromLocal8Bit(process.readAll());
}

Way processWay(const QString& program, const QStringList& arguments) {
    return timed([=] { outputOf(program, arguments); });
}

QString imageConverter() {
    // The program itself rather than what may stand in for it under the usual name.
    return installedOf(
        {QStringLiteral("magick"), QStringLiteral("convert-im6.q16"), QStringLiteral("convert")});
}

QString memoryFolder() {
    const QString folder = QStringLiteral("/dev/shm");
    return QFileInfo(folder).isWritable() ? folder : QDir::tempPath();
}

} // namespace ovrano::bench
