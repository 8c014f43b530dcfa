#include "failing/saving.h"
#include "support/testprogram.h"
#include "wizards/temporarybmp.h"

#include <QScopeGuard>

#include <sys/stat.h>

using namespace ovrano;
using namespace ovrano::failing;

/// Folders that others can write to as well: who may read a picture on its way there, and what a link does
/// that somebody puts under a name which the program is about to use.
class PrivateFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newFileIsAsReadableAsAnyOther_data() { everyFormat(); }
    void newFileIsAsReadableAsAnyOther();
    void privatePictureIsNeverReadable_data() { everyFormat(); }
    void privatePictureIsNeverReadable();
    void temporariesAreTheOwnersAlone_data() { everyFormat(); }
    void temporariesAreTheOwnersAlone();
    void linkUnderATemporaryName_data();
    void linkUnderATemporaryName();
    void linkUnderTheHiddenName_data() { everyFormat(); }
    void linkUnderTheHiddenName();
    void fileUnderTheNameToRenameTo_data();
    void fileUnderTheNameToRenameTo();
    void textDialogsTemporary();
};

namespace {

mode_t modeOf(const QString& path) {
    struct stat status = {};
    return stat(qPrintable(path), &status) == 0 ? status.st_mode & 0777U : 0;
}

constexpr mode_t OfOthers = 0077;

/// The files of a folder that hold something and that others can read.
QStringList readableIn(const QString& folder) {
    QStringList readable;
    for (const QString& name : namesIn(folder))
        if (const QString path = folder + '/' + name;
            (modeOf(path) & OfOthers) != 0 && QFileInfo(path).size() > 0)
            readable.append(name);
    return readable;
}

/// The files that were readable by others before any of the calls of a save.
QStringList readableDuring(Saving& saving, const std::function<bool(const QString& path)>& isAllowed) {
    QStringList seen;
    const WatchedFolder watched(saving.folder().toStdString(), [&](const Step&, std::size_t) {
        for (const QString& name : readableIn(saving.folder()))
            if (!isAllowed(saving.path(name)))
                seen.append(name);
        return Outcome{};
    });
    const QString told = saving.save();
    return told.isEmpty() ? seen : QStringList(told);
}

/// A user's file elsewhere that an attacker would like to see overwritten or opened to all.
struct Victim {
    explicit Victim(const Saving& saving)
        : path(saving.path("else/victim")) {
        QDir(saving.folder()).mkdir("else");
        put(path, "dear to the user");
        allow(path, 0600);
    }
    bool isUnharmed() const { return contentOf(path) == "dear to the user" && modeOf(path) == 0600; }
    /// Puts a link to it where nothing is.
    void lure(const QString& name) const {
        [[maybe_unused]] const int made =
            symlink(qPrintable(path), qPrintable(name)); // it may be there already
    }

    const QString path;
};

} // namespace

void PrivateFilesTest::newFileIsAsReadableAsAnyOther() {
    QFETCH(Format, format);
    Saving saving(format);
    for (const mode_t mask : {mode_t{022}, mode_t{002}, mode_t{027}, mode_t{077}}) {
        saving.empty();
        const mode_t before = umask(mask);
        const QString told = saving.save();
        umask(before);
        QCOMPARE(told, QString());
        QCOMPARE(modeOf(saving.target()), mode_t{0666} & ~mask);
        QCOMPARE(saving.strangers(), QStringList());
    }
}

void PrivateFilesTest::privatePictureIsNeverReadable() {
    QFETCH(Format, format);
    Saving saving(format);
    put(saving.target(), Saving::oldPicture());
    allow(saving.target(), 0600);
    QCOMPARE(readableDuring(saving, [](const QString&) { return false; }), QStringList());
    QCOMPARE(modeOf(saving.target()), mode_t{0600});
    QCOMPARE(contentOf(saving.target()), saving.whole());
}

/// Until the whole picture is there and about to take its name.
void PrivateFilesTest::temporariesAreTheOwnersAlone() {
    QFETCH(Format, format);
    Saving saving(format);
    const auto isFinished = [&](const QString& path) { return contentOf(path) == saving.whole(); };
    QCOMPARE(readableDuring(saving, isFinished), QStringList());
    QVERIFY((modeOf(saving.target()) & OfOthers) != 0);
}

void PrivateFilesTest::linkUnderATemporaryName_data() {
    QTest::addColumn<Format>("format");
    QTest::addColumn<QString>("name");
    QTest::newRow("JPEG, Temp.bmp") << formats()[1] << "Temp.bmp";
    QTest::newRow("JPEG, Temp.jpg") << formats()[1] << "Temp.jpg";
    QTest::newRow("GIF, Temp.bmp") << formats()[2] << "Temp.bmp";
}

void PrivateFilesTest::linkUnderATemporaryName() {
    QFETCH(Format, format);
    QFETCH(QString, name);
    Saving saving(format);
    const std::size_t count = saving.steps().size();
    for (std::size_t index = 0; index < count; ++index) {
        saving.empty();
        const Victim victim(saving);
        const WatchedFolder watched(saving.folder().toStdString(), [&](const Step&, std::size_t at) {
            if (at == index)
                victim.lure(saving.path(name));
            return Outcome{};
        });
        const QString told = saving.save();
        QVERIFY2(victim.isUnharmed(), qPrintable(QString::number(index)));
        QVERIFY2(!told.isEmpty() || contentOf(saving.target()) == saving.whole(), qPrintable(told));
    }
}

/// Nobody can guess it; should somebody be so lucky, the file is not made.
void PrivateFilesTest::linkUnderTheHiddenName() {
    QFETCH(Format, format);
    Saving saving(format);
    saving.prepare();
    const Victim victim(saving);
    QString told;
    bool isLured = false;
    {
        const WatchedFolder watched(saving.folder().toStdString(), [&](const Step& step, std::size_t) {
            if (step.call == Call::Open && !isLured) {
                victim.lure(QString::fromStdString(step.path));
                isLured = true;
            }
            return Outcome{};
        });
        told = saving.save();
    }
    QVERIFY(isLured);
    QCOMPARE(toldNumber(told), error::FileAlreadyExists);
    QVERIFY(victim.isUnharmed());
    QCOMPARE(contentOf(saving.target()), Saving::oldPicture());
    QCOMPARE(saving.brokenPromises(true), QString());
}

void PrivateFilesTest::fileUnderTheNameToRenameTo_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("set aside") << "Temp.bmp"
                               << "Temp (1).bmp";
    QTest::newRow("put back") << "Temp (1).bmp"
                              << "Temp.bmp";
}

/// Another program takes the free name a moment after it was found to be free.
void PrivateFilesTest::fileUnderTheNameToRenameTo() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    Saving saving(formats()[2]);
    saving.prepare();
    {
        const WatchedFolder watched(saving.folder().toStdString(), [&](const Step& step, std::size_t) {
            if (step.call == Call::Rename && step.path == saving.path(from).toStdString())
                put(saving.path(to), "another's");
            return Outcome{};
        });
        QCOMPARE(saving.save(), QString());
    }
    QCOMPARE(contentOf(saving.path(to)), QByteArray("another's"));
    QCOMPARE(contentOf(saving.path(from)), Saving::usersBmp());
}

void PrivateFilesTest::textDialogsTemporary() {
    const Saving saving(formats()[0]);
    const Raster picture = patterned(QSize(60, 40));
    const mode_t before = umask(0);
    const auto back = qScopeGuard([&] { umask(before); });
    QStringList readable;
    {
        const WatchedFolder watched(saving.folder().toStdString(), [&](const Step&, std::size_t) {
            readable += readableIn(saving.folder());
            return Outcome{};
        });
        QVERIFY(throughTemporaryBmp(picture, saving.folder()).picture == picture);
        QVERIFY(watched.steps().size() > 5);
    }
    QCOMPARE(readable, QStringList());
    QCOMPARE(namesIn(saving.folder()), QStringList());
}

OVRANO_TEST(PrivateFilesTest)
#include "tst_privatefiles.moc"
