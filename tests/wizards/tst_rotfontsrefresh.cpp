#include "support/processortime.h"
#include "support/testprogram.h"
#include "wizards/rotfontsbench.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>

#include <memory>

using namespace ovrano;

namespace {

const QStringList Validated = {"Text1", "TxtCX", "TxtCY", "txtDegree", "txtRaggio", "txtSettore", "txtSize"};
const QStringList Lists = {"txtDegree", "txtFont", "txtRaggio", "txtSettore", "txtSize"};

QWidget& field(RotFontsBench& bench, const QString& name) {
    return *bench.dialog.findChild<QWidget*>(name);
}

void openList(QComboBox& box) {
    box.showPopup();
    QTRY_VERIFY(box.view()->isVisible());
}

void closeList(QComboBox& box) {
    box.hidePopup();
    QTRY_VERIFY(!box.view()->isVisible());
}

void chooseFromList(QComboBox& box, Qt::Key key) {
    openList(box);
    QTest::keyClick(box.view(), key);
    QTest::keyClick(box.view(), Qt::Key_Return);
    QTRY_VERIFY(!box.view()->isVisible());
}

void fieldRows(const QStringList& names) {
    QTest::addColumn<QString>("name");
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

} // namespace

class RotFontsRefreshTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leavingAFieldDraws_data() { fieldRows(Validated); }
    void leavingAFieldDraws();
    void leavingTheFontDrawsNothing();
    void openingItsListIsNotLeaving_data() { fieldRows(Lists); }
    void openingItsListIsNotLeaving();
    void typingDrawsOnlyWhenAutomatic_data() { fieldRows(Validated + QStringList{"txtFont"}); }
    void typingDrawsOnlyWhenAutomatic();
    void choosingDrawsOnlyWhenAutomatic_data() { fieldRows(Lists); }
    void choosingDrawsOnlyWhenAutomatic();
    void scrollingTheListDrawsOnlyWhenAutomatic_data() { fieldRows(Lists); }
    void scrollingTheListDrawsOnlyWhenAutomatic();
    void clickingACoordinateDrawsOnlyWhenAutomatic_data() { fieldRows({"TxtCX", "TxtCY"}); }
    void clickingACoordinateDrawsOnlyWhenAutomatic();
    void clickingTheTextDrawsNothing();
    void otherMouseButtonsDrawNothing();
    void leavingTheDialogDrawsNothing();
    void manyFontsOpenAtOnce();
    void tickingTheBoxAloneDrawsNothing();
    void typedDigitsStayAsTyped();
    void fontIsFoundByTyping();

    void returnDrawsAndLeavesTheDialogOpen();
    void activationDraws();
    void ownDialogThatClosesDrawsNothing();

    void textColourIsChosen();
    void backgroundColourIsChosen();
    void cancelledColourChangesNothing();
};

void RotFontsRefreshTest::leavingAFieldDraws() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    QWidget& left = field(bench, name);
    left.setFocus();
    QVERIFY(bench.draws([&] { QTest::keyClick(&left, Qt::Key_Tab); }));
    left.setFocus();
    QVERIFY(bench.draws([&] { QTest::keyClick(&left, Qt::Key_Backtab); }));
    left.setFocus();
    QVERIFY(bench.draws([&] { bench.dialog.Check1->setFocus(); }));
    QCOMPARE(bench.dialog.AutoRefresh, 0);
}

void RotFontsRefreshTest::leavingTheFontDrawsNothing() {
    RotFontsBench bench;
    bench.open();
    bench.dialog.txtFont->setFocus();
    QVERIFY(!bench.draws([&] { QTest::keyClick(bench.dialog.txtFont, Qt::Key_Tab); }));
}

void RotFontsRefreshTest::openingItsListIsNotLeaving() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    auto& box = static_cast<QComboBox&>(field(bench, name));
    box.setFocus();
    QVERIFY(!bench.draws([&] {
        openList(box);
        closeList(box);
    }));
}

void RotFontsRefreshTest::typingDrawsOnlyWhenAutomatic() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    QWidget& typedInto = field(bench, name);
    typedInto.setFocus();
    QVERIFY(!bench.draws([&] { QTest::keyClick(&typedInto, Qt::Key_5); }));
    bench.dialog.Check1->setChecked(true);
    QVERIFY(bench.draws([&] { QTest::keyClick(&typedInto, Qt::Key_6); }));
    bench.dialog.Check1->setChecked(false);
    QVERIFY(!bench.draws([&] { QTest::keyClick(&typedInto, Qt::Key_7); }));
}

void RotFontsRefreshTest::choosingDrawsOnlyWhenAutomatic() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    auto& box = static_cast<QComboBox&>(field(bench, name));
    box.setFocus();
    QVERIFY(!bench.draws([&] { chooseFromList(box, Qt::Key_End); }));
    QCOMPARE(box.currentIndex(), box.count() - 1);
    bench.dialog.Check1->setChecked(true);
    QVERIFY(bench.draws([&] { chooseFromList(box, Qt::Key_Home); }));
    QCOMPARE(box.currentIndex(), 0);
    QVERIFY(bench.draws([&] { chooseFromList(box, Qt::Key_Home); })); // the same one again
}

void RotFontsRefreshTest::scrollingTheListDrawsOnlyWhenAutomatic() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    auto& box = static_cast<QComboBox&>(field(bench, name));
    box.addItems(QStringList(100, QStringLiteral("9"))); // more than one page in every list
    box.showPopup();
    QScrollBar& bar = *box.view()->verticalScrollBar();
    QTRY_VERIFY(bar.maximum() > 0);
    bar.setValue(0);
    QVERIFY(!bench.draws([&] { bar.setValue(bar.maximum()); }));
    bench.dialog.Check1->setChecked(true);
    QVERIFY(bench.draws([&] { bar.setValue(0); }));
    box.hidePopup();
}

void RotFontsRefreshTest::clickingACoordinateDrawsOnlyWhenAutomatic() {
    QFETCH(const QString, name);
    RotFontsBench bench;
    bench.open();
    QWidget& clicked = field(bench, name);
    clicked.setFocus();
    QVERIFY(!bench.draws([&] { QTest::mouseClick(&clicked, Qt::LeftButton); }));
    bench.dialog.Check1->setChecked(true);
    QVERIFY(bench.draws([&] { QTest::mouseClick(&clicked, Qt::LeftButton); }));
}

void RotFontsRefreshTest::clickingTheTextDrawsNothing() {
    RotFontsBench bench;
    bench.open();
    bench.dialog.Check1->setChecked(true);
    bench.dialog.Text1->setFocus();
    QVERIFY(!bench.draws([&] { QTest::mouseClick(bench.dialog.Text1, Qt::LeftButton); }));
}

void RotFontsRefreshTest::otherMouseButtonsDrawNothing() {
    RotFontsBench bench;
    bench.open();
    bench.dialog.Check1->setChecked(true);
    bench.dialog.TxtCX->setFocus();
    QGuiApplication::clipboard()->clear();
    QVERIFY(!bench.draws([&] { QTest::mouseClick(bench.dialog.TxtCX, Qt::MiddleButton); }));
}

void RotFontsRefreshTest::leavingTheDialogDrawsNothing() {
    const auto typeSize = [](RotFonts& dialog) {
        dialog.Check1->setChecked(true);
        dialog.txtSize->setFocus();
        dialog.txtSize->lineEdit()->selectAll();
        QTest::keyClicks(dialog.txtSize, QStringLiteral("14"));
    };
    RotFontsBench bench;
    bench.open();
    typeSize(bench.dialog);
    QVERIFY(!bench.draws([&] { QTest::keyClick(bench.dialog.txtSize, Qt::Key_Escape); }));
    QVERIFY(!bench.dialog.isVisible());

    auto dialog =
        std::make_unique<RotFonts>(bench.handover, bench.memory, bench.dialogs, bench.folder.path());
    dialog->show();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    typeSize(*dialog);
    int drawings = 0;
    connect(&dialog->Picture1, &Surface::changed, this, [&] { ++drawings; });
    dialog.reset(); // the field loses the keyboard meanwhile
    QCOMPARE(drawings, 0);
}

void RotFontsRefreshTest::manyFontsOpenAtOnce() {
    RotFontsBench bench;
    bench.open();
    QComboBox& box = *bench.dialog.txtFont;
    const int width = bench.dialog.sizeHint().width();
    for (int font = 0; font < 1000; ++font)
        box.addItem(QStringLiteral("Police %1 d'un très long nom").arg(font));
    const testing::ProcessorTime time;
    openList(box);
    QVERIFY2(time.milliseconds() < 500, qPrintable(QString::number(time.milliseconds())));
    closeList(box);
    QCOMPARE(bench.dialog.sizeHint().width(), width);
}

void RotFontsRefreshTest::tickingTheBoxAloneDrawsNothing() {
    RotFontsBench bench;
    bench.open();
    bench.dialog.Check1->setFocus();
    QVERIFY(!bench.draws([&] { QTest::keyClick(bench.dialog.Check1, Qt::Key_Space); }));
    QCOMPARE(bench.dialog.AutoRefresh, 1);
    QTest::keyClick(bench.dialog.Check1, Qt::Key_Space);
    QCOMPARE(bench.dialog.AutoRefresh, 0);
}

void RotFontsRefreshTest::typedDigitsStayAsTyped() {
    RotFontsBench bench;
    bench.open();
    for (const char* name : {"txtDegree", "txtRaggio", "txtSettore", "txtSize"}) {
        auto& box = static_cast<QComboBox&>(field(bench, QLatin1String(name)));
        box.setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(&box, QStringLiteral("1"));
        QTest::keyClick(&box, Qt::Key_Tab);
        QCOMPARE(box.currentText(), QStringLiteral("1"));
    }
}

void RotFontsRefreshTest::fontIsFoundByTyping() {
    RotFontsBench bench;
    bench.open();
    QComboBox& box = *bench.dialog.txtFont;
    box.setFocus();
    box.lineEdit()->selectAll();
    QTest::keyClicks(&box, QStringLiteral("liberation se"));
    QCOMPARE(box.currentText().toLower(), QStringLiteral("liberation serif"));
    const int count = box.count();
    QTest::keyClick(&box, Qt::Key_Tab);
    QCOMPARE(box.count(), count);
}

void RotFontsRefreshTest::returnDrawsAndLeavesTheDialogOpen() {
    RotFontsBench bench;
    bench.open();
    for (const char* name : {"Text1", "TxtCX", "txtSize", "txtFont"}) {
        QWidget& typedInto = field(bench, QLatin1String(name));
        typedInto.setFocus();
        QVERIFY2(bench.draws([&] { QTest::keyClick(&typedInto, Qt::Key_Return); }), name);
        QVERIFY(bench.dialog.isVisible());
    }
}

void RotFontsRefreshTest::activationDraws() {
    RotFontsBench bench;
    QVERIFY(bench.isBlank());
    bench.open();
    QVERIFY(!bench.isBlank());

    QWidget other;
    other.show();
    QVERIFY(!bench.draws([&] {
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    }));
    QVERIFY(bench.draws([&] {
        bench.dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bench.dialog));
    }));
}

void RotFontsRefreshTest::ownDialogThatClosesDrawsNothing() {
    RotFontsBench bench;
    bench.open();
    // Its own child is active together with the window; what a desktop shows in its place is a stranger.
    for (QWidget* parent : {static_cast<QWidget*>(&bench.dialog), static_cast<QWidget*>(nullptr)})
        QVERIFY(!bench.draws([&] {
            QMessageBox box(parent);
            box.setModal(true);
            box.show();
            box.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&box));
            box.close();
            bench.dialog.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&bench.dialog));
        }));
}

void RotFontsRefreshTest::textColourIsChosen() {
    RotFontsBench bench;
    bench.open();
    bench.dialogs.pickColour(rgb(1, 200, 3));
    QVERIFY(!bench.draws([&] { bench.dialog.cmdColor->click(); }));
    QCOMPARE(bench.dialogs.colours, QList<Colour>{rgb(0, 64, 128)}); // starts from the current one
    QCOMPARE(bench.dialog.LblCoulTexte->BackColor(), rgb(1, 200, 3));
    QCOMPARE(bench.dialog.LblFond->BackColor(), White);

    bench.dialog.Check1->setChecked(true);
    bench.dialogs.pickColour(rgb(90, 0, 0));
    QVERIFY(bench.draws([&] { bench.dialog.cmdColor->click(); }));
    bool found = false;
    for (int y = 0; y < 420 && !found; ++y)
        for (int x = 0; x < 420; ++x)
            found = found || bench.preview().Point(x, y) == rgb(90, 0, 0);
    QVERIFY(found);
}

void RotFontsRefreshTest::backgroundColourIsChosen() {
    RotFontsBench bench;
    bench.open();
    bench.dialogs.pickColour(rgb(255, 250, 100));
    bench.dialog.Command2->click();
    QCOMPARE(bench.dialogs.colours, QList<Colour>{White});
    QCOMPARE(bench.dialog.LblFond->BackColor(), rgb(255, 250, 100));
    QCOMPARE(bench.preview().BackColor(), rgb(255, 250, 100));
    QCOMPARE(bench.preview().Point(0, 0), rgb(255, 250, 100));
    QVERIFY(bench.isBlank()); // what was drawn went with the old background
    bench.enlarge(QSize(10, 10));
    QVERIFY(bench.isBlank());

    bench.dialog.Check1->setChecked(true);
    bench.dialogs.pickColour(rgb(0, 0, 40));
    bench.dialog.Command2->click();
    QVERIFY(!bench.isBlank());
    QCOMPARE(bench.preview().Point(0, 0), rgb(0, 0, 40));
}

void RotFontsRefreshTest::cancelledColourChangesNothing() {
    RotFontsBench bench;
    bench.open();
    bench.dialog.Check1->setChecked(true);
    const Raster before = bench.preview().Image();
    bench.dialogs.cancelColour();
    QVERIFY(!bench.draws([&] { bench.dialog.cmdColor->click(); }));
    bench.dialogs.cancelColour();
    QVERIFY(!bench.draws([&] { bench.dialog.Command2->click(); }));
    QCOMPARE(bench.dialog.LblCoulTexte->BackColor(), rgb(0, 64, 128));
    QCOMPARE(bench.dialog.LblFond->BackColor(), White);
    QVERIFY(bench.dialogs.messages.isEmpty());
    bench.dialog.Command1_Click();
    QCOMPARE(bench.preview().Image(), before);
}

OVRANO_TEST(RotFontsRefreshTest)
#include "tst_rotfontsrefresh.moc"
