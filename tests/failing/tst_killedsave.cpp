#include "failing/saving.h"
#include "support/testprogram.h"

#include <sys/wait.h>

using namespace ovrano;
using namespace ovrano::failing;

/// The program is killed in the middle of saving, at every call that it makes.
class KilledSaveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void overAnOldPicture_data() { everyFormat(); }
    void overAnOldPicture();
    void whereNothingWas_data() { everyFormat(); }
    void whereNothingWas();
};

namespace {

/// Where the program is killed: before a call, or in the middle of one that writes.
struct Death {
    std::size_t index = 0;
    bool inTheMiddle = false;
};

std::vector<Death> deathsIn(const std::vector<Step>& steps) {
    std::vector<Death> deaths;
    for (std::size_t index = 0; index < steps.size(); ++index) {
        deaths.push_back({index, false});
        if (steps[index].call == Call::Write)
            deaths.push_back({index, true});
    }
    return deaths;
}

Outcome dieAt(const Death& death, const Step& step, std::size_t index) {
    if (index != death.index)
        return {};
    if (!death.inTheMiddle)
        killProgram();
    return Outcome{0, step.bytes / 2, true};
}

/// Whether a process of its own has saved and was killed on the way.
bool isKilledSaving(Saving& saving, const Death& death) {
    const pid_t child = fork();
    if (child == 0) {
        const WatchedFolder watched(saving.folder().toStdString(), [&](const Step& step, std::size_t index) {
            return dieAt(death, step, index);
        });
        saving.save();
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

/// What may be left: the temporary files, and one that has no name of its own yet, which nobody else can
/// read.
QString strangeLeftOvers(const Saving& saving) {
    QString strange;
    for (const QString& name : saving.strangers()) {
        const bool isHidden = name.startsWith(QStringLiteral(".ovrano-"));
        const bool isSetAside =
            name == QStringLiteral("Temp (1).bmp") || name == QStringLiteral("Temp (1).jpg");
        if (!isHidden && !isSetAside)
            strange += name + QStringLiteral(" is left; ");
    }
    return strange;
}

} // namespace

void KilledSaveTest::overAnOldPicture() {
    QFETCH(Format, format);
    Saving saving(format);
    saving.prepare();
    for (const Death& death : deathsIn(saving.steps())) {
        saving.prepare();
        const QString when = QStringLiteral("killed at call %1: ").arg(death.index);
        QVERIFY2(isKilledSaving(saving, death), qPrintable(when));
        QCOMPARE(when + saving.brokenPromises(true) + strangeLeftOvers(saving), when);
        // The next save finds what is left and comes through.
        QCOMPARE(when + saving.save(), when);
        QCOMPARE(when + saving.brokenPromises(false), when);
        QCOMPARE(contentOf(saving.target()), saving.whole());
    }
}

void KilledSaveTest::whereNothingWas() {
    QFETCH(Format, format);
    Saving saving(format);
    for (const Death& death : deathsIn(saving.steps())) {
        saving.empty();
        const QString when = QStringLiteral("killed at call %1: ").arg(death.index);
        QVERIFY2(isKilledSaving(saving, death), qPrintable(when));
        const bool isThere = QFileInfo::exists(saving.target());
        QVERIFY2(!isThere || contentOf(saving.target()) == saving.whole(), qPrintable(when));
        QCOMPARE(when + strangeLeftOvers(saving), when);
        QCOMPARE(when + saving.save(), when);
        QCOMPARE(contentOf(saving.target()), saving.whole());
    }
}

OVRANO_TEST(KilledSaveTest)
#include "tst_killedsave.moc"
