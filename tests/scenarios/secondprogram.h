#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTest>

#include <optional>

namespace ovrano::testing {

/// A second program at the same X server that puts something on the clipboard or takes something from it.
class SecondProgram {
public:
    /// Puts bytes on the clipboard as one type.
    void copy(const QByteArray& bytes, const QString& type) {
        // Goes into the background once it has what it is to give.
        run(QStringLiteral("xclip"),
            {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"), type,
             QStringLiteral("-i")},
            bytes);
    }

    /// What the clipboard gives as a type; nothing when it gives none. The tested program's events go on
    /// meanwhile, so that it can answer.
    std::optional<QByteArray> paste(const QString& type) {
        QProcess program;
        program.start(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                                QStringLiteral("-t"), type, QStringLiteral("-o")});
        if (!QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, Patience))
            qFatal("xclip does not end");
        if (program.exitCode() != 0)
            return std::nullopt;
        return program.readAllStandardOutput();
    }

    /// Starts an owner that does not keep what it announces; see clipboardowner.cpp.
    void copyFalsely(const QString& behaviour, const QString& type) {
        m_owner.start(QStringLiteral(OVRANO_CLIPBOARD_OWNER), {behaviour, type});
        if (!QTest::qWaitFor([this] { return m_owner.canReadLine(); }, Patience))
            qFatal("the other program does not start");
    }

    /// Starts what a desktop has for keeping what programs that end have copied.
    void keepWhatIsCopied() {
        m_owner.start(QStringLiteral(OVRANO_CLIPBOARD_KEEPER));
        if (!QTest::qWaitFor([this] { return m_owner.canReadLine(); }, Patience))
            qFatal("the clipboard's keeper does not start");
    }

    ~SecondProgram() {
        m_owner.kill();
        m_owner.waitForFinished();
    }

private:
    static constexpr int Patience = 60'000; // milliseconds

    static void run(const QString& name, const QStringList& arguments, const QByteArray& input) {
        QProcess program;
        program.setStandardOutputFile(QProcess::nullDevice()); // or the part in the background keeps it open
        program.start(name, arguments);
        program.write(input);
        program.closeWriteChannel();
        // It needs no answer from the tested program, and nobody's events slow the pipe down.
        if (!program.waitForFinished(Patience) || program.exitCode() != 0)
            qFatal("%s failed", qPrintable(name));
    }

    QProcess m_owner;
};

} // namespace ovrano::testing
