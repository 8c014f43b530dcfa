#include "app/mainwindow.h"
#include "document/frmnouv3dtext.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"
#include "wizards/rotfontsform.h"
#include "wizards/txt3dform.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QTest>

using namespace ovrano;

namespace {

/// The captions of a window that lead to a control or a menu by their letter.
QStringList captionsOf(const QWidget& window) {
    QStringList captions;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        captions.append(button->text());
    for (const auto* group : window.findChildren<QGroupBox*>())
        captions.append(group->title());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->buddy())
            captions.append(label->text());
    for (const auto* bar : window.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions())
            captions.append(menu->text());
    return captions;
}

QStringList captionsOf(const QMenu& menu) {
    QStringList captions;
    for (const QAction* entry : menu.actions())
        captions.append(entry->text().section(QLatin1Char('\t'), 0, 0));
    return captions;
}

/// The letters that are underlined in captions, in their order.
QString letters(const QStringList& captions) {
    QString found;
    for (const QString& caption : captions)
        found.append(QKeySequence::mnemonic(caption).toString().right(1));
    return found;
}

/// The letters that stand for more than one caption.
QString ambiguous(const QString& letters) {
    QString found;
    for (const QChar letter : letters)
        if (letters.count(letter) > 1)
            found.append(letter);
    return found;
}

} // namespace

/// The underlined letters: each leads to one thing only.
class TestMnemonics : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyMenuEntryHasItsOwn_data();
    void everyMenuEntryHasItsOwn();
    void everyWindowHasEachOnce();
};

void TestMnemonics::everyMenuEntryHasItsOwn_data() {
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("expected");
    QTest::newRow("file") << "mnuFile"
                          << "NOEQ";
    QTest::newRow("edit") << "mnuEdit"
                          << "ACPLTNFRV";
    QTest::newRow("tools") << "mnuTools"
                           << "SP"; // the third one has none
    QTest::newRow("text") << "mnuText"
                          << "12C";
}

void TestMnemonics::everyMenuEntryHasItsOwn() {
    QFETCH(QString, menu);
    QFETCH(QString, expected);
    AnsweringDialogs dialogs;
    const MainWindow window(dialogs);
    const QString found = letters(captionsOf(*window.findChild<QMenu*>(menu)));
    QCOMPARE(found, expected);
    QCOMPARE(ambiguous(found), QString());
}

void TestMnemonics::everyWindowHasEachOnce() {
    AnsweringDialogs dialogs;
    NewImageChoice choice;
    const MainWindow window(dialogs);
    const FrmNouv3DText newPicture(choice, dialogs);
    const Txt3DForm twoColours(dialogs);
    const RotFontsForm circular(dialogs);
    const std::initializer_list<std::pair<const QWidget*, QString>> expected = {
        {&window, QStringLiteral("EFOQT")},
        {&newPicture, QStringLiteral("AN")},
        {&twoColours, QStringLiteral("A")},
        {&circular, QStringLiteral("A")},
    };
    for (const auto& [shown, all] : expected) {
        QString found = letters(captionsOf(*shown));
        std::sort(found.begin(), found.end());
        QCOMPARE(found, all);
        QCOMPARE(ambiguous(found), QString());
    }
}

OVRANO_TEST(TestMnemonics)
#include "tst_mnemonics.moc"
