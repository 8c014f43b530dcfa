#include "platform/textmask.h"
#include "support/testprogram.h"
#include "text/stylebench.h"
#include "text/stylepanel.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>

using namespace ovrano;

class TextSizeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typingIntoTheSize_data();
    void typingIntoTheSize();
    void keysThatMoveReachTheSize();
    void composedLettersDoNotReachTheSize();
    void keyPressHandlerFilters();

    void clearedSizeBecomesSixAtOnce();
    void digitAfterClearingReplacesTheSix();
    void sizeWithoutValueBecomesSix_data();
    void sizeWithoutValueBecomesSix();
    void pastedLettersBecomeSix();
    void sizeChangeReleasesThePicker();
    void chosenSizeIsShown();
};

void TextSizeTest::typingIntoTheSize_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("size");

    QTest::newRow("digits") << "7"
                            << "247";
    QTest::newRow("letter") << "a"
                            << "24";
    QTest::newRow("minus") << "-"
                           << "24";
    QTest::newRow("point") << "."
                           << "24";
    QTest::newRow("space") << " "
                           << "24";
    QTest::newRow("accented letter") << "é"
                                     << "24";
    QTest::newRow("character beyond 8 bits whose low byte is a digit") << QString(QChar(0x0131)) << "24";
    QTest::newRow("Backspace") << "\b"
                               << "2";
    QTest::newRow("mixed") << "\b\b1a2"
                           << "12";
}

void TextSizeTest::typingIntoTheSize() {
    QFETCH(QString, typed);
    QFETCH(QString, size);
    StyleBench bench;
    bench.panel.show();
    bench.sizeEdit()->end(false);

    for (const QChar character : typed) {
        const bool back = character == QLatin1Char('\b');
        const int key = back ? int{Qt::Key_Backspace} : int{character.toUpper().unicode()};
        QTest::sendKeyEvent(QTest::Click, bench.sizeEdit(), static_cast<Qt::Key>(key),
                            back ? QString() : QString(character), Qt::NoModifier);
    }

    QCOMPARE(bench.size(), size);
}

void TextSizeTest::keysThatMoveReachTheSize() {
    StyleBench bench;
    bench.panel.show();
    bench.sizeEdit()->end(false);

    QTest::keyClick(bench.sizeEdit(), Qt::Key_Down);
    QCOMPARE(bench.size(), QStringLiteral("25"));

    QTest::keyClick(bench.sizeEdit(), Qt::Key_Home);
    const QString textOfDelete(QChar(0x7F)); // what X11 gives
    QTest::sendKeyEvent(QTest::Click, bench.sizeEdit(), Qt::Key_Delete, textOfDelete, Qt::NoModifier);
    QCOMPARE(bench.size(), QStringLiteral("5"));
}

void TextSizeTest::composedLettersDoNotReachTheSize() {
    StyleBench bench;
    const auto commit = [&](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(bench.sizeEdit(), &event);
    };
    bench.sizeEdit()->end(false);

    commit(QStringLiteral("ê"));
    QCOMPARE(bench.size(), QStringLiteral("24"));
    commit(QStringLiteral("5"));
    QCOMPARE(bench.size(), QStringLiteral("245"));
}

void TextSizeTest::keyPressHandlerFilters() {
    StyleBench bench;
    std::int16_t digit = '5', letter = 'x';

    bench.panel.txtFontSize_KeyPress(digit);
    bench.panel.txtFontSize_KeyPress(letter);

    QCOMPARE(digit, std::int16_t('5'));
    QCOMPARE(letter, std::int16_t(0));
}

void TextSizeTest::clearedSizeBecomesSixAtOnce() {
    StyleBench bench;
    bench.panel.show();
    bench.sizeEdit()->end(false);

    QTest::keyClick(bench.sizeEdit(), Qt::Key_Backspace);
    QCOMPARE(bench.size(), QStringLiteral("2"));
    QCOMPARE(bench.panel.lblTextSample->text(), QString());
    QTest::keyClick(bench.sizeEdit(), Qt::Key_Backspace);

    QCOMPARE(bench.size(), QStringLiteral("6"));
    QCOMPARE(bench.panel.lblTextSample->text(), QStringLiteral("Aa"));
    QCOMPARE(bench.panel.lblTextSample->font(), textFont(QStringLiteral("Arial"), 6, false, false));
}

void TextSizeTest::digitAfterClearingReplacesTheSix() {
    StyleBench bench;
    bench.panel.show();
    bench.sizeEdit()->selectAll();

    QTest::keyClick(bench.sizeEdit(), Qt::Key_Backspace);
    QTest::keyClicks(bench.sizeEdit(), QStringLiteral("36"));

    QCOMPARE(bench.size(), QStringLiteral("36"));
}

void TextSizeTest::sizeWithoutValueBecomesSix_data() {
    QTest::addColumn<QString>("size");
    for (const char* size : {"", "   ", "0", "-7", "abc"})
        QTest::newRow(size) << size;
}

void TextSizeTest::sizeWithoutValueBecomesSix() {
    QFETCH(QString, size);
    StyleBench bench;

    bench.panel.txtFontSize->setEditText(size);

    QCOMPARE(bench.size(), QStringLiteral("6"));
}

void TextSizeTest::pastedLettersBecomeSix() {
    StyleBench bench;
    QApplication::clipboard()->setText(QStringLiteral("grand"));
    bench.sizeEdit()->selectAll();

    bench.sizeEdit()->paste();

    QCOMPARE(bench.size(), QStringLiteral("6"));
}

void TextSizeTest::sizeChangeReleasesThePicker() {
    StyleBench bench;

    bench.panel.txtFontSize->setEditText(QStringLiteral("25"));

    QCOMPARE(bench.pickerReleased.count(), 1);
}

void TextSizeTest::chosenSizeIsShown() {
    StyleBench bench;

    bench.panel.txtFontSize->setCurrentIndex(bench.panel.txtFontSize->findText(QStringLiteral("48")));

    QCOMPARE(bench.panel.lblTextSample->font(), textFont(QStringLiteral("Arial"), 48, false, false));
}

OVRANO_TEST(TextSizeTest)
#include "tst_textsize.moc"
