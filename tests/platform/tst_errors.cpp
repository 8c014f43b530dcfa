#include "platform/commondialog.h"
#include "platform/errorreporter.h"
#include "platform/runtimeerror.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QtTest>

#include <cerrno>

using namespace ovrano;

class TestErrors : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyNumberHasItsOwnDescription();
    void systemErrorsBecomeRuntimeErrors_data();
    void systemErrorsBecomeRuntimeErrors();
    void reportNamesTheProcedure();
    void trapSwallowsOnlyTheCancelError();
    void trapReportsRunningOutOfMemory();
    void failedStepIsSkipped();
};

void TestErrors::everyNumberHasItsOwnDescription() {
    QSet<QString> seen;
    for (const int number : {5, 6, 7, 13, 52, 53, 55, 57, 58, 61, 70, 75, 76, 380, 481, 32755}) {
        const QString text = RuntimeError::descriptionOf(number);
        QVERIFY(!text.isEmpty());
        QVERIFY2(!seen.contains(text), qPrintable(text));
        QCOMPARE(RuntimeError(number).description(), text);
        seen.insert(text);
    }
    QVERIFY(!RuntimeError::descriptionOf(12345).isEmpty());
    QVERIFY(!seen.contains(RuntimeError::descriptionOf(12345)));
}

void TestErrors::systemErrorsBecomeRuntimeErrors_data() {
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("number");
    QTest::newRow("no such file") << ENOENT << 53;
    QTest::newRow("no permission") << EACCES << 70;
    QTest::newRow("read-only file system") << EROFS << 70;
    QTest::newRow("disk full") << ENOSPC << 61;
    QTest::newRow("quota") << EDQUOT << 61;
    QTest::newRow("file size limit") << EFBIG << 61;
    QTest::newRow("is a directory") << EISDIR << 75;
    QTest::newRow("folder is none") << ENOTDIR << 76;
    QTest::newRow("memory") << ENOMEM << 7;
    QTest::newRow("input/output") << EIO << 57;
}

void TestErrors::systemErrorsBecomeRuntimeErrors() {
    QFETCH(int, code);
    QTEST(RuntimeError::fromErrno(code).number(), "number");
    QTEST(RuntimeError::fromSystem(std::error_code(code, std::generic_category())).number(), "number");
}

void TestErrors::reportNamesTheProcedure() {
    AnsweringDialogs dialogs;
    dialogs.answer(Answer::Ok);
    ErrMsgProc(dialogs, QStringLiteral("mnuFileOpen_Click"), RuntimeError(53));
    QCOMPARE(dialogs.messages.size(), 1);
    const MessageBox box = dialogs.messages.first();
    QCOMPARE(box.text, QStringLiteral("mnuFileOpen_Click\r\n53     ") + RuntimeError::descriptionOf(53));
    QCOMPARE(box.title, QString());
    QCOMPARE(box.buttons, Buttons::Ok);
    QCOMPARE(box.icon, Icon::None);
}

void TestErrors::trapSwallowsOnlyTheCancelError() {
    AnsweringDialogs dialogs;
    CommonDialog dialog(dialogs);
    dialog.CancelError = true;
    dialogs.cancelOpen();
    bool reached = false;
    trapErrors(dialogs, QStringLiteral("handler"), [&] {
        dialog.ShowOpen();
        reached = true;
    });
    QVERIFY(!reached);
    QCOMPARE(dialogs.messages.size(), 0);

    dialogs.answer(Answer::Ok);
    trapErrors(dialogs, QStringLiteral("handler"), [] { throw RuntimeError(61); });
    QCOMPARE(dialogs.messages.size(), 1);
    QVERIFY(dialogs.messages.first().text.startsWith(QStringLiteral("handler\r\n61     ")));
}

void TestErrors::trapReportsRunningOutOfMemory() {
    AnsweringDialogs dialogs;
    dialogs.answer(Answer::Ok);
    trapErrors(dialogs, QStringLiteral("handler"), [] { throw std::bad_alloc(); });
    QVERIFY(dialogs.messages.first().text.startsWith(QStringLiteral("handler\r\n7     ")));
}

void TestErrors::failedStepIsSkipped() {
    int steps = 0;
    QVERIFY(!skipOnError([] { throw RuntimeError(380); }));
    QVERIFY(!skipOnError([] { throw std::bad_alloc(); }));
    QVERIFY(skipOnError([&] { ++steps; }));
    QCOMPARE(steps, 1);
}

OVRANO_TEST_WITHOUT_WINDOWS(TestErrors)
#include "tst_errors.moc"
