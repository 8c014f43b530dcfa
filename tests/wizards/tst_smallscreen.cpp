#include "support/testprogram.h"
#include "wizards/rotfontsbench.h"
#include "wizards/screenofsize.h"
#include "wizards/txt3dbench.h"

#include <QScreen>

using namespace ovrano;

/// Both dialogs on a screen of a laptop that enlarges everything by half.
class SmallScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dialogsFit_data();
    void dialogsFit();
    void defaultCentreIsThatOfTheSmallerPicture();
    void everySettingCanBeReached();
};

void SmallScreenTest::dialogsFit_data() {
    QTest::addColumn<int>("points");
    for (const int points : {9, 13})
        QTest::addRow("%d points", points) << points;
}

void SmallScreenTest::dialogsFit() {
    QFETCH(const int, points);
    const DesktopFont font(points);
    const Txt3DBench straight;
    straight.show();
    RotFontsBench round;
    round.open();
    for (const QDialog* dialog :
         {static_cast<QDialog*>(straight.dialog.get()), static_cast<QDialog*>(&round.dialog)}) {
        const QRect room = dialog->screen()->availableGeometry();
        QCOMPARE(room.size(), QSize(910, 512));
        QVERIFY2(room.contains(dialog->frameGeometry()), qPrintable(dialog->objectName()));
    }
    QVERIFY(straight.dialog->ExamplePic.innerSize().height() >= 60);
    QVERIFY(round.preview().innerSize().height() >= 300);
    QCOMPARE(round.dialog.Frame6->picture->size(), round.preview().innerSize());
}

void SmallScreenTest::defaultCentreIsThatOfTheSmallerPicture() {
    const DesktopFont font(13);
    RotFontsBench bench;
    bench.open();
    const QSize shown = bench.preview().innerSize();
    QVERIFY(shown.height() < 420); // otherwise there is nothing to tell
    QCOMPARE(bench.dialog.TxtCX->text(), QString::number(shown.width() / 2.0));
    QCOMPARE(bench.dialog.TxtCY->text(), QString::number(shown.height() / 2.0));
    QVERIFY(!bench.isBlank());
}

void SmallScreenTest::everySettingCanBeReached() {
    const DesktopFont font(13);
    RotFontsBench bench;
    bench.open();
    const RotFonts& dialog = bench.dialog;
    for (int presses = 0; presses < 15; ++presses) {
        const QWidget* field = QApplication::focusWidget();
        const QRect place(field->mapTo(&dialog, QPoint(0, 0)), field->size());
        QVERIFY2(field->visibleRegion().boundingRect() == field->rect(), qPrintable(field->objectName()));
        QVERIFY(dialog.rect().contains(place));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), dialog.Text1);
}

OVRANO_TEST_RUN((runOnScreen<SmallScreenTest, 910, 512>))
#include "tst_smallscreen.moc"
