#include "failing/saving.h"
#include "support/testprogram.h"

#include <QScopeGuard>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

using namespace ovrano;
using namespace ovrano::failing;

/// Saving over what is no ordinary file, or has more names than one.
class StrangeTargetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noFile_data();
    void noFile();
    void linkToAnotherDisk_data() { everyFormat(); }
    void linkToAnotherDisk();
    void linkToAnotherDiskThatFails_data() { everyFormat(); }
    void linkToAnotherDiskThatFails();
    void linkIntoAProtectedFolder_data() { everyFormat(); }
    void linkIntoAProtectedFolder();
    void linkToATemporary_data();
    void linkToATemporary();
    void temporaryThatIsTheTargetAndALink();
    void secondNameKeepsTheOldPicture_data() { everyFormat(); }
    void secondNameKeepsTheOldPicture();
    void whoHasItOpenReadsTheOldPicture_data() { everyFormat(); }
    void whoHasItOpenReadsTheOldPicture();
    void longestName_data() { everyFormat(); }
    void longestName();
    void usersTemporaryIsNoFile_data() { everyFormat(); }
    void usersTemporaryIsNoFile();
};

namespace {

void makePipe(const QString& path) {
    QCOMPARE(mkfifo(qPrintable(path), 0666), 0);
}

void makeSocket(const QString& path) {
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    const auto closed = qScopeGuard([&] { close(descriptor); });
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = path.toLocal8Bit();
    QVERIFY(name.size() < qsizetype{sizeof address.sun_path});
    std::copy(name.begin(), name.end(), address.sun_path);
    QCOMPARE(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
}

void link(const QString& to, const QString& path) {
    QCOMPARE(symlink(qPrintable(to), qPrintable(path)), 0);
}

dev_t diskOf(const QString& path) {
    struct stat status = {};
    return stat(qPrintable(path), &status) == 0 ? status.st_dev : 0;
}

/// A folder on another disk than the one that is saved to; empty when the machine has one disk only.
QString otherDisk(const Saving& saving) {
    for (const QString& place : {QDir::tempPath(), QStringLiteral("/var/tmp"), QDir::homePath()})
        if (diskOf(place) != diskOf(saving.folder()) && QFileInfo(place).isWritable())
            return place;
    return QString();
}

/// The target is a link to an old picture, "real", that is in another folder.
void linkTarget(Saving& saving, const QTemporaryDir& there) {
    saving.prepare();
    QFile::remove(saving.target());
    link(put(there.filePath("real"), Saving::oldPicture()), saving.target());
}

} // namespace

void StrangeTargetsTest::noFile_data() {
    QTest::addColumn<Format>("format");
    QTest::addColumn<QString>("kind");
    for (const Format& format : formats())
        for (const char* kind : {"pipe", "socket", "device", "folder", "loop"})
            QTest::addRow("%s over a %s", qPrintable(format.name), kind) << format << kind;
}

void StrangeTargetsTest::noFile() {
    QFETCH(Format, format);
    QFETCH(QString, kind);
    Saving saving(format);
    put(saving.path("Temp.bmp"), Saving::usersBmp());
    if (kind == "pipe")
        makePipe(saving.target());
    else if (kind == "socket")
        makeSocket(saving.target());
    else if (kind == "device")
        link("/dev/full", saving.target());
    else if (kind == "folder")
        link(saving.folder(), saving.target());
    else
        link(saving.target(), saving.target());
    const QString told = saving.save();
    QVERIFY2(toldNumber(told) == error::PathFileAccess, qPrintable(told));
    QCOMPARE(contentOf(saving.path("Temp.bmp")), Saving::usersBmp());
    QCOMPARE(saving.strangers(), QStringList());
    struct stat status = {};
    QCOMPARE(lstat(qPrintable(saving.target()), &status), 0);
    QVERIFY(!S_ISREG(status.st_mode));
}

void StrangeTargetsTest::linkToAnotherDisk() {
    QFETCH(Format, format);
    Saving saving(format);
    const QString other = otherDisk(saving);
    if (other.isEmpty())
        QSKIP("there is no second disk on this machine");
    const QTemporaryDir there(other + "/ovrano-failing-XXXXXX");
    linkTarget(saving, there);
    allow(there.filePath("real"), 0640);
    QCOMPARE(saving.save(), QString());
    QVERIFY(QFileInfo(saving.target()).isSymLink());
    QCOMPARE(contentOf(there.filePath("real")), saving.whole());
    QCOMPARE(QFileInfo(there.filePath("real")).permissions() & 0x777,
             QFile::Permissions(0x640) | QFile::ReadUser | QFile::WriteUser);
    QCOMPARE(namesIn(there.path()), QStringList("real"));
    QCOMPARE(saving.strangers(), QStringList());
    QCOMPARE(saving.brokenPromises(false), QString());
}

void StrangeTargetsTest::linkToAnotherDiskThatFails() {
    QFETCH(Format, format);
    Saving saving(format);
    const QString other = otherDisk(saving);
    if (other.isEmpty())
        QSKIP("there is no second disk on this machine");
    const QTemporaryDir there(other + "/ovrano-failing-XXXXXX");
    linkTarget(saving, there);
    QString told;
    {
        const WatchedFolder full(there.path().toStdString(), [](const Step& step, std::size_t) {
            return Outcome{step.call == Call::Write ? ENOSPC : 0};
        });
        told = saving.save();
    }
    QCOMPARE(toldNumber(told), error::DiskFull);
    QCOMPARE(contentOf(there.filePath("real")), Saving::oldPicture());
    QCOMPARE(namesIn(there.path()), QStringList("real"));
    QCOMPARE(saving.brokenPromises(true), QString());
    QCOMPARE(saving.strangers(), QStringList());
}

void StrangeTargetsTest::linkIntoAProtectedFolder() {
    QFETCH(Format, format);
    Saving saving(format);
    saving.prepare();
    QFile::remove(saving.target());
    QVERIFY(QDir(saving.folder()).mkdir("else"));
    link(put(saving.path("else/real"), Saving::oldPicture()), saving.target());
    allow(saving.path("else/real"), 0666);
    allow(saving.path("else"), 0555);
    allow(saving.folder(), 0777);
    QString told;
    {
        const Unprivileged nobody;
        told = saving.save();
    }
    allow(saving.path("else"), 0755);
    QCOMPARE(toldNumber(told), error::PermissionDenied);
    QCOMPARE(saving.brokenPromises(true), QString());
    QCOMPARE(contentOf(saving.path("else/real")), Saving::oldPicture());
    QCOMPARE(namesIn(saving.path("else")), QStringList("real"));
}

void StrangeTargetsTest::linkToATemporary_data() {
    QTest::addColumn<Format>("format");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("isThere");
    for (const bool isThere : {true, false}) {
        const char* what = isThere ? "that is there" : "that is not there";
        QTest::addRow("a.jpg to a Temp.bmp %s", what) << formats()[1] << "Temp.bmp" << isThere;
        QTest::addRow("a.jpg to a Temp.jpg %s", what) << formats()[1] << "Temp.jpg" << isThere;
        QTest::addRow("a.gif to a Temp.bmp %s", what) << formats()[2] << "Temp.bmp" << isThere;
    }
}

/// What is saved there would be deleted as a temporary file a moment later.
void StrangeTargetsTest::linkToATemporary() {
    QFETCH(Format, format);
    QFETCH(QString, to);
    QFETCH(bool, isThere);
    Saving saving(format);
    if (isThere)
        put(saving.path(to), "the user's own");
    link(saving.path(to), saving.target());
    const QString told = saving.save();
    QVERIFY2(toldNumber(told) == error::PathFileAccess, qPrintable(told));
    QVERIFY(QFileInfo(saving.target()).isSymLink());
    if (isThere)
        QCOMPARE(contentOf(saving.path(to)), QByteArray("the user's own"));
    QCOMPARE(saving.strangers(), QStringList());
}

void StrangeTargetsTest::temporaryThatIsTheTargetAndALink() {
    Saving saving({2, "Temp.jpg"});
    QVERIFY(QDir(saving.folder()).mkdir("else"));
    link(put(saving.path("else/real"), Saving::oldPicture()), saving.target());
    allow(saving.path("else/real"), 0640);
    QCOMPARE(saving.save(), QString());
    QVERIFY(QFileInfo(saving.target()).isSymLink());
    QVERIFY(!QFileInfo(saving.path("else/real")).isSymLink());
    QCOMPARE(contentOf(saving.path("else/real")), saving.whole());
    QVERIFY(!QFileInfo(saving.path("else/real")).permissions().testFlag(QFile::ReadOther));
    QCOMPARE(namesIn(saving.folder()), QStringList({"Temp.jpg", "else"}));
}

void StrangeTargetsTest::secondNameKeepsTheOldPicture() {
    QFETCH(Format, format);
    Saving saving(format);
    saving.prepare();
    QCOMPARE(::link(qPrintable(saving.target()), qPrintable(saving.path("second"))), 0);
    QCOMPARE(saving.save(), QString());
    QCOMPARE(contentOf(saving.target()), saving.whole());
    QCOMPARE(contentOf(saving.path("second")), Saving::oldPicture());
}

void StrangeTargetsTest::whoHasItOpenReadsTheOldPicture() {
    QFETCH(Format, format);
    Saving saving(format);
    saving.prepare();
    QFile reader(saving.target());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QCOMPARE(saving.save(), QString());
    QCOMPARE(reader.readAll(), Saving::oldPicture());
    QCOMPARE(contentOf(saving.target()), saving.whole());
}

void StrangeTargetsTest::longestName() {
    QFETCH(Format, format);
    const QString name = QString(255 - format.name.size() + 1, 'x') + format.name.mid(1);
    Saving saving({format.row, name});
    saving.prepare();
    QCOMPARE(saving.save(), QString());
    QCOMPARE(saving.brokenPromises(false), QString());
    QCOMPARE(saving.strangers(), QStringList());
    const QString told = saving.saveAs('x' + name);
    QVERIFY2(toldNumber(told) == error::BadFileName, qPrintable(told));
    QCOMPARE(saving.brokenPromises(true), QString());
    QCOMPARE(saving.strangers(), QStringList());
}

void StrangeTargetsTest::usersTemporaryIsNoFile() {
    QFETCH(Format, format);
    Saving saving(format);
    makePipe(saving.path("Temp.bmp"));
    link("nowhere", saving.path("Temp.jpg"));
    QCOMPARE(saving.save(), QString());
    struct stat status = {};
    QCOMPARE(stat(qPrintable(saving.path("Temp.bmp")), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
    QVERIFY(QFileInfo(saving.path("Temp.jpg")).isSymLink());
    QCOMPARE(contentOf(saving.target()), saving.whole());
    QCOMPARE(saving.strangers(), QStringList());
}

OVRANO_TEST(StrangeTargetsTest)
#include "tst_strangetargets.moc"
