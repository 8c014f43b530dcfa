#include "platform/typingfilter.h"
#include "support/testprogram.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>

using namespace ovrano;

/// A field whose handler lets some characters through, and the codes that it was asked about.
class TestTypingFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void typedCharactersAreAskedAbout();
    void refusedCharactersDoNotArrive();
    void backspaceIsCodeEight();
    void keysThatTypeNothingAreNotAskedAbout_data();
    void keysThatTypeNothingAreNotAskedAbout();
    void deleteWorksWhateverIsRefused();
    void tabLeavesTheField();
    void composedTextIsAskedAboutWhole_data();
    void composedTextIsAskedAboutWhole();
    void refusedCompositionEnds();
    void pastingIsNotTyping();
    void livesAsLongAsTheField();
    void pastedByKeyIsAskedAbout();
    void commandsAreNotAskedAbout();
    void fieldOfAComboBox();

private:
    void compose(const QString& commit, const QString& preedit = QString()) {
        const QInputMethodEvent::Attribute cursor(QInputMethodEvent::Cursor, static_cast<int>(preedit.size()),
                                                  1);
        QInputMethodEvent event(preedit, {cursor});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(m_edit.get(), &event);
    }

    std::unique_ptr<QLineEdit> m_edit;
    QList<int> m_asked;
    QString m_refused;
};

void TestTypingFilter::init() {
    m_asked.clear();
    m_refused = QStringLiteral("xyz");
    m_edit = std::make_unique<QLineEdit>();
    new TypingFilter(*m_edit, [this](std::int16_t& keyAscii) {
        m_asked.append(keyAscii);
        if (m_refused.contains(QChar(keyAscii)))
            keyAscii = 0;
    });
}

void TestTypingFilter::typedCharactersAreAskedAbout() {
    QTest::keyClicks(m_edit.get(), "a7");
    QCOMPARE(m_asked, QList<int>({'a', '7'}));
    QCOMPARE(m_edit->text(), QString("a7"));
}

void TestTypingFilter::refusedCharactersDoNotArrive() {
    QTest::keyClicks(m_edit.get(), "axbyczd");
    QCOMPARE(m_edit->text(), QString("abcd"));
}

void TestTypingFilter::backspaceIsCodeEight() {
    m_edit->setText("abc");
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QCOMPARE(m_asked, QList<int>({8}));
    QCOMPARE(m_edit->text(), QString("ab"));
    m_refused = QStringLiteral("\b");
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QCOMPARE(m_edit->text(), QString("ab"));
}

void TestTypingFilter::keysThatTypeNothingAreNotAskedAbout_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("delete") << Qt::Key_Delete;
    QTest::newRow("tab") << Qt::Key_Tab;
    QTest::newRow("back tab") << Qt::Key_Backtab;
    QTest::newRow("left") << Qt::Key_Left;
    QTest::newRow("home") << Qt::Key_Home;
    QTest::newRow("enter") << Qt::Key_Return;
    QTest::newRow("enter of the number pad") << Qt::Key_Enter;
    QTest::newRow("escape") << Qt::Key_Escape;
    QTest::newRow("shift") << Qt::Key_Shift;
}

void TestTypingFilter::keysThatTypeNothingAreNotAskedAbout() {
    QFETCH(Qt::Key, key);
    QTest::keyClick(m_edit.get(), key);
    QCOMPARE(m_asked, QList<int>());
}

void TestTypingFilter::deleteWorksWhateverIsRefused() {
    m_refused = QStringLiteral("\x7F");
    m_edit->setText("abc");
    m_edit->setCursorPosition(0);
    QTest::keyClick(m_edit.get(), Qt::Key_Delete);
    QCOMPARE(m_edit->text(), QString("bc"));
}

void TestTypingFilter::tabLeavesTheField() {
    m_refused = QStringLiteral("\t");
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* next = new QLineEdit;
    QLineEdit* edit = m_edit.release(); // the window's from now on
    column->addWidget(edit);
    column->addWidget(next);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Tab);
    QCOMPARE(window.focusWidget(), next);
}

void TestTypingFilter::composedTextIsAskedAboutWhole_data() {
    QTest::addColumn<QString>("commit");
    QTest::addColumn<QString>("arrives");
    QTest::newRow("allowed") << "été"
                             << "été";
    QTest::newRow("one refused") << "axb"
                                 << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestTypingFilter::composedTextIsAskedAboutWhole() {
    QFETCH(QString, commit);
    QFETCH(QString, arrives);
    compose(commit);
    QCOMPARE(m_edit->text(), arrives);
}

void TestTypingFilter::refusedCompositionEnds() {
    const auto cursor = [this] { return m_edit->inputMethodQuery(Qt::ImCursorRectangle).toRect(); };
    const QRect start = cursor();
    compose(QString(), QStringLiteral("^^^"));
    QVERIFY(cursor() != start); // behind what is being composed
    compose(QStringLiteral("x"));
    QCOMPARE(cursor(), start);
}

void TestTypingFilter::pastingIsNotTyping() {
    m_edit->insert("xyz");
    QCOMPARE(m_asked, QList<int>());
    QCOMPARE(m_edit->text(), QString("xyz"));
}

void TestTypingFilter::livesAsLongAsTheField() {
    QPointer<TypingFilter> filter = m_edit->findChild<TypingFilter*>();
    QVERIFY(filter);
    m_edit.reset();
    QVERIFY(!filter);
}

void TestTypingFilter::pastedByKeyIsAskedAbout() {
    QGuiApplication::clipboard()->setText(QStringLiteral("ay"));
    QTest::keyClick(m_edit.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_edit->text(), QString());
    QGuiApplication::clipboard()->setText(QStringLiteral("ab"));
    QTest::keyClick(m_edit.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_edit->text(), QString("ab"));
    QCOMPARE(m_asked, QList<int>({'a', 'y', 'a', 'b'}));
}

void TestTypingFilter::commandsAreNotAskedAbout() {
    m_refused = QStringLiteral("\x01");
    m_edit->setText(QStringLiteral("abc"));
    QTest::sendKeyEvent(QTest::Click, m_edit.get(), Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier);
    QCOMPARE(m_edit->selectedText(), QString("abc"));
    QCOMPARE(m_asked, QList<int>());
}

void TestTypingFilter::fieldOfAComboBox() {
    QComboBox box;
    box.setEditable(true);
    new TypingFilter(*box.lineEdit(), [](std::int16_t& keyAscii) {
        if (keyAscii == 'x')
            keyAscii = 0;
    });
    QTest::keyClicks(&box, "axb"); // the keys of a user go to the box
    QCOMPARE(box.currentText(), QString("ab"));
}

OVRANO_TEST(TestTypingFilter)
#include "tst_typingfilter.moc"
