#include "app/windowlayout.h"
#include "support/testprogram.h"

#include <QtTest>

using namespace ovrano;

class TestWindowLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void followsTheFormulas_data();
    void followsTheFormulas();
    void nothingOverlaps_data();
    void nothingOverlaps();
    void tinyWindowGivesNoNegativeSizes();
};

void TestWindowLayout::followsTheFormulas_data() {
    QTest::addColumn<QSize>("area");
    QTest::newRow("1366 x 768") << QSize(1366, 768);
    QTest::newRow("1024 x 768") << QSize(1024, 768);
    QTest::newRow("3840 x 2160") << QSize(3840, 2160);
}

void TestWindowLayout::followsTheFormulas() {
    QFETCH(QSize, area);
    const int W = area.width(), H = area.height(), barWidth = 17, barHeight = 15;
    const WindowLayout layout = WindowLayout::arrange(area, QSize(barWidth, barHeight), WindowDesign());
    QCOMPARE(layout.VScroll1.left(), W - 5 - barWidth);
    QCOMPARE(layout.VScroll1.height(), H - 200 - barHeight);
    QCOMPARE(layout.picZ.width(), W - layout.picZ.left() - barWidth - 5);
    QCOMPARE(layout.picZ.height(), layout.VScroll1.height());
    QCOMPARE(layout.HScroll1.top(), layout.picZ.top() + layout.picZ.height());
    QCOMPARE(layout.HScroll1.width(), layout.picZ.width());
    QCOMPARE(layout.lblImageSize.top(), layout.HScroll1.top() + layout.HScroll1.height() + 10);
    QCOMPARE(layout.lblFileSpec.top(), layout.lblImageSize.top());
    QCOMPARE(layout.lblFileSpec.width(), layout.picZ.width() + barWidth);
    QCOMPARE(layout.lblHint.right(), layout.lblFileSpec.right());
    QCOMPARE(layout.lblHint.width(), WindowDesign().hintWidth);
}

void TestWindowLayout::nothingOverlaps_data() {
    followsTheFormulas_data();
    QTest::newRow("small") << QSize(900, 480);
}

void TestWindowLayout::nothingOverlaps() {
    QFETCH(QSize, area);
    const WindowLayout layout = WindowLayout::arrange(area, QSize(17, 17), WindowDesign());
    const QList<QRect> parts = {layout.fraTextPanel, layout.toolBox,      layout.picZ,       layout.VScroll1,
                                layout.HScroll1,     layout.lblImageSize, layout.lblFileSpec};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QVERIFY(parts.at(i).left() >= 0 && parts.at(i).right() < area.width());
        for (qsizetype j = 0; j < i; ++j)
            QVERIFY2(!parts.at(i).intersects(parts.at(j)),
                     qPrintable(QStringLiteral("%1 and %2").arg(i).arg(j)));
    }
    // A menu bar of up to 26 pixels fits above the content.
    QVERIFY(layout.lblFileSpec.bottom() < area.height() - 26);
}

void TestWindowLayout::tinyWindowGivesNoNegativeSizes() {
    const WindowLayout layout = WindowLayout::arrange(QSize(50, 60), QSize(17, 17), WindowDesign());
    QVERIFY(layout.picZ.width() >= 0 && layout.picZ.height() >= 0);
    QVERIFY(layout.VScroll1.height() >= 0);
    QVERIFY(layout.lblHint.width() >= 0);
}

OVRANO_TEST_WITHOUT_WINDOWS(TestWindowLayout)
#include "tst_windowlayout.moc"
