#include "support/testprogram.h"
#include "text/anglepanel.h"
#include "text/rotation.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTest>

using namespace ovrano;

namespace {

/// The square as it must look at an angle, drawn anew.
Raster sampleAt(const AnglePanel& panel, int angle) {
    const Surface& shown = panel.picRotateAngleSampleBgd->surface();
    Surface expected(QStringLiteral("expected"), shown.innerSize());
    RotatePicture(*panel.picRotateAngleSample, expected, angle, true, White, false,
                  shown.innerSize().width() / 2, shown.innerSize().height() / 2);
    return expected.Image();
}

/// Everything that tells an angle tells this one.
void verifyShows(const AnglePanel& panel, int angle) {
    QCOMPARE(panel.angle(), angle);
    QCOMPARE(panel.HsbRotateAngle->value(), angle);
    QCOMPARE(panel.cboRotateAngle->currentIndex(), angle + 360);
    QCOMPARE(panel.cboRotateAngle->currentText(), QString::number(angle));
    QVERIFY(panel.picRotateAngleSampleBgd->surface().Image() == sampleAt(panel, angle));
}

int inkOf(const Raster& picture) {
    int ink = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ink += picture.pixel(x, y) != White ? 1 : 0;
    return ink;
}

QPoint thumbOf(QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    option.state |= QStyle::State_Horizontal;
    return bar.style()
        ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar)
        .center();
}

} // namespace

class TestAnglePanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAndRanges();
    void fitsItsPlace();
    void startsAtZero();
    void sampleIsTextOnWhite();
    void listMovesTheBar();
    void barMovesTheList();
    void everyAngleIsMirrored();
    void oneChangeTurnsTheSampleOnce();
    void sampleFollowsTheDraggedThumb();
    void keysTurnByOneAndTen();
    void typedDigitsChooseFromTheList();
    void changeRedrawsAfterAForeignDrawing();
};

void TestAnglePanel::namesAndRanges() {
    AnglePanel panel;
    QCOMPARE(panel.objectName(), QStringLiteral("fraRotateAngle"));
    const auto* list = panel.findChild<QComboBox*>(QStringLiteral("cboRotateAngle"));
    QVERIFY(list);
    QCOMPARE(list->count(), 721);
    QCOMPARE(list->itemText(0), QStringLiteral("-360"));
    QCOMPARE(list->itemText(360), QStringLiteral("0"));
    QCOMPARE(list->itemText(720), QStringLiteral("360"));
    const auto* bar = panel.findChild<QScrollBar*>(QStringLiteral("HsbRotateAngle"));
    QVERIFY(bar);
    QCOMPARE(bar->minimum(), -360);
    QCOMPARE(bar->maximum(), 360);
    QCOMPARE(bar->orientation(), Qt::Horizontal);
    const auto* label = panel.findChild<QLabel*>(QStringLiteral("lblAnglePreset"));
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("Angle en degré"));
    QCOMPARE(label->buddy(), list);
    QVERIFY(panel.findChild<Surface*>(QStringLiteral("picRotateAngleSample")));
    QVERIFY(panel.findChild<PictureBox*>(QStringLiteral("picRotateAngleSampleBgd")));
}

/// Three frames of this kind stand side by side over a picture 1024 pixels wide.
void TestAnglePanel::fitsItsPlace() {
    AnglePanel panel;
    panel.show();
    QVERIFY2(panel.minimumSizeHint().height() <= 136, qPrintable(QString::number(panel.sizeHint().height())));
    QVERIFY2(panel.minimumSizeHint().width() <= 240, qPrintable(QString::number(panel.sizeHint().width())));
    panel.resize(230, 136);
    for (const QWidget* child : panel.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (child->isVisible())
            QVERIFY2(panel.rect().contains(child->geometry()), qPrintable(child->objectName()));
}

void TestAnglePanel::startsAtZero() {
    AnglePanel panel;
    verifyShows(panel, 0);
    // Unturned: the sample itself in the middle.
    const Raster& sample = panel.picRotateAngleSample->Image();
    const Raster& shown = panel.picRotateAngleSampleBgd->surface().Image();
    const QPoint corner(shown.width() / 2 - sample.width() / 2, shown.height() / 2 - sample.height() / 2);
    for (int y = 0; y < sample.height(); ++y)
        for (int x = 0; x < sample.width(); ++x)
            if (shown.rect().contains(corner + QPoint(x, y)))
                QCOMPARE(shown.pixel(corner.x() + x, corner.y() + y), sample.pixel(x, y));
}

void TestAnglePanel::sampleIsTextOnWhite() {
    AnglePanel panel;
    const Raster& sample = panel.picRotateAngleSample->Image();
    QVERIFY(inkOf(sample) > 100);
    QCOMPARE(sample.pixel(0, 0), White);
    QCOMPARE(sample.pixel(sample.width() - 1, sample.height() - 1), White);
    // At no angle does it reach the corner from which the background is read.
    for (int angle = 0; angle < 360; angle += 5) {
        panel.HsbRotateAngle->setValue(angle);
        QCOMPARE(panel.picRotateAngleSampleBgd->surface().Point(0, 0), White);
        QVERIFY(inkOf(panel.picRotateAngleSampleBgd->surface().Image()) > 100);
    }
}

void TestAnglePanel::listMovesTheBar() {
    AnglePanel panel;
    for (const int angle : {45, -360, 360, -1, 0, 90}) {
        panel.cboRotateAngle->setCurrentIndex(angle + 360);
        verifyShows(panel, angle);
    }
}

void TestAnglePanel::barMovesTheList() {
    AnglePanel panel;
    for (const int angle : {30, 360, -360, -90, 0, 1}) {
        panel.HsbRotateAngle->setValue(angle);
        verifyShows(panel, angle);
    }
}

void TestAnglePanel::everyAngleIsMirrored() {
    AnglePanel panel;
    for (int position = 0; position <= 720; ++position) {
        panel.cboRotateAngle->setCurrentIndex(position);
        QCOMPARE(panel.angle(), position - 360);
        QCOMPARE(panel.cboRotateAngle->currentIndex(), position);
    }
}

/// List and bar tell each other, and must leave it at that.
void TestAnglePanel::oneChangeTurnsTheSampleOnce() {
    AnglePanel panel;
    QSignalSpy values(panel.HsbRotateAngle, &QScrollBar::valueChanged);
    QSignalSpy positions(panel.cboRotateAngle, &QComboBox::currentIndexChanged);
    panel.cboRotateAngle->setCurrentIndex(400);
    QCOMPARE(values.size(), 1);
    QCOMPARE(positions.size(), 1);
    panel.HsbRotateAngle->setValue(-17);
    QCOMPARE(values.size(), 2);
    QCOMPARE(positions.size(), 2);
    panel.HsbRotateAngle_Change();
    panel.cboRotateAngle_Click();
    QCOMPARE(values.size(), 2);
    QCOMPARE(positions.size(), 2);
    verifyShows(panel, -17);
}

void TestAnglePanel::sampleFollowsTheDraggedThumb() {
    AnglePanel panel;
    panel.resize(700, 136);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QScrollBar& bar = *panel.HsbRotateAngle;
    QPoint at = thumbOf(bar);
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(bar.isSliderDown());
    int last = 0;
    for (int step = 0; step < 4; ++step) {
        at.rx() += 20;
        QTest::mouseMove(&bar, at);
        QTRY_VERIFY(panel.angle() > last);
        QVERIFY(bar.isSliderDown());
        last = panel.angle();
        verifyShows(panel, last);
    }
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, at);
    verifyShows(panel, last);
}

void TestAnglePanel::keysTurnByOneAndTen() {
    AnglePanel panel;
    panel.show();
    panel.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.cboRotateAngle->setFocus();
    QTest::keyClick(panel.cboRotateAngle, Qt::Key_Tab);
    QVERIFY(panel.HsbRotateAngle->hasFocus());
    QTest::keyClick(panel.HsbRotateAngle, Qt::Key_Right);
    verifyShows(panel, 1);
    QTest::keyClick(panel.HsbRotateAngle, Qt::Key_PageUp);
    verifyShows(panel, 11);
    QTest::keyClick(panel.HsbRotateAngle, Qt::Key_Left);
    verifyShows(panel, 10);
    QTest::keyClick(panel.HsbRotateAngle, Qt::Key_End);
    verifyShows(panel, 360);
}

void TestAnglePanel::typedDigitsChooseFromTheList() {
    AnglePanel panel;
    panel.show();
    QTest::keyClicks(panel.cboRotateAngle, QStringLiteral("90"));
    verifyShows(panel, 90);
    QTest::keyClick(panel.cboRotateAngle, Qt::Key_Down);
    verifyShows(panel, 91);
}

void TestAnglePanel::changeRedrawsAfterAForeignDrawing() {
    AnglePanel panel;
    panel.HsbRotateAngle->setValue(25);
    panel.picRotateAngleSampleBgd->surface().Line(QPointF(10, 10), QPointF(60, 70), Black, BoxStyle::Filled);
    panel.HsbRotateAngle_Change();
    verifyShows(panel, 25);
}

OVRANO_TEST(TestAnglePanel)
#include "tst_anglepanel.moc"
