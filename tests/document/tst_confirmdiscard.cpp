#include "document/savetest.h"
#include "support/testprogram.h"

using namespace ovrano;

/// The question before a changed picture is given up.
class ConfirmDiscardTest : public SaveTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void discardNeedsNoQuestionWhenUnchanged();
    void discardQuestion();
    void discardAnswers_data();
    void discardAnswers();
    void discardAfterSaving();
    void discardAfterSaveCancelled();
    void discardAfterFailedSave();
};

void ConfirmDiscardTest::discardNeedsNoQuestionWhenUnchanged() {
    QVERIFY(m_save->confirmDiscard("Enregistrer l'image ?"));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void ConfirmDiscardTest::discardQuestion() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    m_save->confirmDiscard("Enregistrer l'image ?");
    const MessageBox& box = m_dialogs->messages.at(0);
    QCOMPARE(box.text, QString("Enregistrer l'image ?"));
    QCOMPARE(box.title, QString("Image modifiée"));
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
    QCOMPARE(box.icon, Icon::Question);
}

void ConfirmDiscardTest::discardAnswers_data() {
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<bool>("goOn");
    QTest::newRow("no") << Answer::No << true;
    QTest::newRow("cancel") << Answer::Cancel << false;
}

void ConfirmDiscardTest::discardAnswers() {
    QFETCH(Answer, answer);
    QFETCH(bool, goOn);
    m_work->ImageModified = true;
    m_dialogs->answer(answer);
    QCOMPARE(m_save->confirmDiscard("?"), goOn);
    QCOMPARE(m_dialogs->saves.size(), 0);
    QVERIFY(m_work->ImageModified);
}

void ConfirmDiscardTest::discardAfterSaving() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->chooseSave(path("a.bmp"), Bmp);
    QVERIFY(m_save->confirmDiscard("?"));
    QCOMPARE(names(), QStringList("a.bmp"));
}

void ConfirmDiscardTest::discardAfterSaveCancelled() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->cancelSave();
    QVERIFY(!m_save->confirmDiscard("?"));
}

// A failed save is no cancel: the picture is given up all the same.
void ConfirmDiscardTest::discardAfterFailedSave() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->answer(Answer::Ok);
    m_dialogs->chooseSave(path("none/a.bmp"), Bmp);
    QVERIFY(m_save->confirmDiscard("?"));
    QCOMPARE(m_dialogs->messages.size(), 2);
}

OVRANO_TEST(ConfirmDiscardTest)
#include "tst_confirmdiscard.moc"
