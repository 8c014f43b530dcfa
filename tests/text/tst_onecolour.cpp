#include "support/testprogram.h"
#include "text/colourcaption.h"
#include "text/directionicon.h"
#include "text/onecolourbench.h"
#include "text/onecolourpanel.h"

#include <QApplication>
#include <QTest>

using namespace ovrano;

namespace {

constexpr Colour TextColour = rgb(200, 40, 0); // what the bench chooses

QImage iconOf(const OneColourBench& bench, int row) {
    const QSize size(DirectionIconSide, DirectionIconSide);
    return bench.panel.icb1Color3D->itemIcon(row).pixmap(size).toImage().convertToFormat(
        QImage::Format_RGB32);
}

} // namespace

class OneColourTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void stateAtStart();
    void fitsIntoItsPlace();
    void iconShowsWhereTheExtrusionRuns_data();
    void iconShowsWhereTheExtrusionRuns();
    void iconsFollowDepthAndColour();

    void refusedInputsChangeNothing_data();
    void refusedInputsChangeNothing();

    void pictureIsKeptBeforeItChanges();
    void pictureShowsTheBlockAtItsCorner();
    void blockIsHandedOver();
    void leewayIsEightyPercent();
    void windowIsTold();
    void pointerIsAnHourglassMeanwhile();
    void textIsRemembered();

    void anotherPictureSizeIsFollowed();
    void earlierBlockIsGone();
    void secondStampLeavesNoFrameBehind();
    void blockCanBeDraggedWithoutATrace();
    void failingStepIsSkipped();
};

void OneColourTest::init() {
    QApplication::setPalette(QPalette());
}

void OneColourTest::stateAtStart() {
    OneColourBench bench;
    const OneColourPanel& panel = bench.panel;

    QCOMPARE(panel.objectName(), QStringLiteral("fra1Color3D"));
    QCOMPARE(panel.title(), QStringLiteral("Texte 3D"));
    QCOMPARE(panel.cboShadeThickness->count(), 9);
    QCOMPARE(panel.cboShadeThickness->currentText(), QStringLiteral("4"));
    QCOMPARE(panel.lblShadeThickness->text(), QStringLiteral("Profondeur"));
    QCOMPARE(panel.Label1->text(), QStringLiteral("Position 3D"));
    QCOMPARE(panel.cmd1Color3DProceed->text(), QStringLiteral("Créer le texte 3D"));
    QStringList keys, texts;
    for (int row = 0; row < panel.icb1Color3D->count(); ++row) {
        keys.append(panel.icb1Color3D->itemData(row).toString());
        texts.append(panel.icb1Color3D->itemText(row));
    }
    QCOMPARE(keys, (QStringList{"UpperLeft", "UpperRight", "LowerLeft", "LowerRight"}));
    QCOMPARE(texts, (QStringList{"Haut Gauche", "Haut Droit", "Bas Gauche", "Bas Droit"}));
    QCOMPARE(panel.icb1Color3D->currentIndex(), 0);
    QVERIFY(panel.lastWrittenText.isEmpty());
    for (const char* name :
         {"cboShadeThickness", "lblShadeThickness", "icb1Color3D", "Label1", "cmd1Color3DProceed"})
        QVERIFY2(panel.findChild<QWidget*>(QLatin1String(name)), name);
}

void OneColourTest::fitsIntoItsPlace() {
    OneColourBench bench;
    const QSize needed = bench.panel.sizeHint();
    QVERIFY2(needed.height() <= 136, qPrintable(QString::number(needed.height())));
    QVERIFY2(needed.width() <= 230, qPrintable(QString::number(needed.width())));
}

void OneColourTest::iconShowsWhereTheExtrusionRuns_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QPoint>("towards");

    QTest::newRow("UpperLeft") << 0 << QPoint(-1, -1);
    QTest::newRow("UpperRight") << 1 << QPoint(1, -1);
    QTest::newRow("LowerLeft runs to the lower right") << 2 << QPoint(1, 1);
    QTest::newRow("LowerRight runs to the lower left") << 3 << QPoint(-1, 1);
}

void OneColourTest::iconShowsWhereTheExtrusionRuns() {
    QFETCH(int, row);
    QFETCH(QPoint, towards);
    OneColourBench bench;
    bench.panel.cboShadeThickness->setCurrentText(QStringLiteral("6"));
    const QImage icon = iconOf(bench, row);
    const QRgb face =
        toPixel(extrusionLayers(TextColour, extrusionDepth(6), Direction(row + 1)).back().colour);

    QRect all, front;
    for (int y = 0; y < icon.height(); ++y)
        for (int x = 0; x < icon.width(); ++x) {
            if (icon.pixel(x, y) == toPixel(White))
                continue;
            all |= QRect(x, y, 1, 1);
            if (icon.pixel(x, y) == face)
                front |= QRect(x, y, 1, 1);
        }

    QVERIFY(!front.isEmpty());
    QCOMPARE(front.size(), QSize(9, 9));
    QCOMPARE(all.size(), front.size() + QSize(6, 6));
    const QPoint shift = all.center() - front.center();
    QVERIFY2(shift.x() * towards.x() > 0 && shift.y() * towards.y() > 0,
             qPrintable(QStringLiteral("%1, %2").arg(shift.x()).arg(shift.y())));
}

void OneColourTest::iconsFollowDepthAndColour() {
    OneColourBench bench;
    const QImage before = iconOf(bench, 0);
    bench.panel.cboShadeThickness->setCurrentText(QStringLiteral("9"));
    const QImage deeper = iconOf(bench, 0);
    QVERIFY(deeper != before);
    bench.style.DispDialogColor(White);
    const QImage whiteOnBlue = iconOf(bench, 0);
    QCOMPARE(whiteOnBlue.pixel(0, 0), toPixel(rgb(0, 0, 255)));
    QVERIFY(whiteOnBlue != deeper);
}

void OneColourTest::refusedInputsChangeNothing_data() {
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("message");

    QTest::newRow("no picture") << false << "A"
                                << "24"
                                << "Pas d'image chargée !";
    QTest::newRow("only spaces") << true << "   "
                                 << "24"
                                 << "Pas de texte !";
    QTest::newRow("size 5") << true << "A"
                            << "5"
                            << "La taille du texte doit être comprise entre 6 et 99 !";
    QTest::newRow("size 100") << true << "A"
                              << "100"
                              << "La taille du texte doit être comprise entre 6 et 99 !";
}

void OneColourTest::refusedInputsChangeNothing() {
    QFETCH(bool, loaded);
    QFETCH(QString, text);
    QFETCH(QString, size);
    QFETCH(QString, message);
    OneColourBench bench;
    bench.work.ImageLoaded = loaded;
    bench.style.txbWriteText->setText(text);
    bench.style.txtFontSize->setEditText(size);
    bench.imgColorPicker.setAppearance(1);
    bench.dialogs.answer(Answer::Ok);
    const Raster before = bench.work.picDisp.Image();

    bench.proceed();

    QCOMPARE(bench.dialogs.messages.size(), 1);
    QCOMPARE(bench.dialogs.messages.first().text, message);
    QCOMPARE(bench.dialogs.messages.first().title, QStringLiteral("Erreur"));
    QCOMPARE(bench.dialogs.messages.first().icon, Icon::Information);
    QCOMPARE(bench.dialogs.pointers, QList<MousePointer>{MousePointer::Default});
    QVERIFY(bench.work.picDisp.Image() == before);
    QVERIFY(!bench.work.UndoAvailable && !bench.work.ImageModified && !bench.block.HasSelection);
    QCOMPARE(bench.imgRegion.Appearance(), 0);
    QCOMPARE(bench.imgColorPicker.Appearance(), 1);
    QCOMPARE(bench.editStateChanged.count() + bench.backgroundColourLocked.count(), 0);
    QVERIFY(bench.panel.lastWrittenText.isEmpty());
}

void OneColourTest::pictureIsKeptBeforeItChanges() {
    OneColourBench bench;
    const Raster before = bench.work.picDisp.Picture();

    bench.proceed();

    QVERIFY(bench.work.UndoAvailable);
    QVERIFY(bench.work.picUndo.Picture() == before);
    QVERIFY(bench.work.picSnap.Picture() == before);
    QVERIFY(bench.work.picDisp.Picture() != before);
    QVERIFY(bench.work.ImageModified);
}

void OneColourTest::pictureShowsTheBlockAtItsCorner() {
    OneColourBench bench;
    bench.angle.HsbRotateAngle->setValue(45);
    const Raster before = bench.work.picDisp.Picture();

    bench.proceed();

    QVERIFY(bench.work.picDisp.Picture() == composed(before, bench.work.picRegion.Image()));
}

void OneColourTest::blockIsHandedOver() {
    OneColourBench bench;
    bench.block.SetPrevAndCurrValues(50, 60);
    bench.block.SelX1 = bench.block.SelY1 = 40;

    bench.proceed();

    const LiftedBlock& block = bench.block;
    const auto last = static_cast<float>(bench.work.picRegion.ScaleWidth() - 1);
    QVERIFY(block.HasSelection);
    QVERIFY(block.TransparentPaste);
    QCOMPARE((QList<float>{block.SelX1, block.SelY1, block.SelX2, block.SelY2}),
             (QList<float>{0, 0, last, last}));
    QCOMPARE((QList<float>{block.CurrX, block.CurrY, block.PrevX, block.PrevY}), (QList<float>{0, 0, 0, 0}));
    QCOMPARE(bench.imgRegion.Appearance(), 1);
    QVERIFY2(bench.work.picDisp.Image() != bench.work.picDisp.Picture(),
             "the frame is drawn over the picture");
}

void OneColourTest::leewayIsEightyPercent() {
    OneColourBench bench;

    bench.proceed();

    const auto side = static_cast<float>(bench.work.picRegion.ScaleWidth());
    const float leeway = side * 0.8F;
    const LiftedBlock& block = bench.block;
    QCOMPARE((QList<float>{block.MinLeft, block.MinTop}), (QList<float>{-leeway, -leeway}));
    QCOMPARE(block.MaxLeft, 320 - side + leeway);
    QCOMPARE(block.MaxTop, 240 - side + leeway);
}

void OneColourTest::windowIsTold() {
    OneColourBench bench;
    bench.imgColorPicker.setAppearance(1);
    bench.view.HScroll1->setRange(0, 100);
    bench.view.VScroll1->setRange(0, 100);
    bench.view.HScroll1->setValue(30);
    bench.view.VScroll1->setValue(40);

    bench.proceed();

    QCOMPARE(bench.imgColorPicker.Appearance(), 0);
    QCOMPARE(bench.view.HScroll1->value() + bench.view.VScroll1->value(), 0);
    QCOMPARE(bench.focusRequested.count(), 1);
    QCOMPARE(bench.editStateChanged.count(), 1);
    QCOMPARE(bench.backgroundColourLocked.count(), 1);
}

void OneColourTest::pointerIsAnHourglassMeanwhile() {
    OneColourBench bench;
    QList<MousePointer> seen;
    QObject::connect(&bench.work.picRegion, &Surface::changed, &bench.window,
                     [&] { seen.append(screenMousePointer()); });

    bench.proceed();

    QVERIFY(!seen.isEmpty());
    QCOMPARE(seen.count(MousePointer::Hourglass), seen.size());
    QCOMPARE(screenMousePointer(), MousePointer::Default);
}

void OneColourTest::textIsRemembered() {
    OneColourBench bench;
    bench.style.txbWriteText->setText(QStringLiteral(" Été  1 "));

    bench.proceed();

    QCOMPARE(bench.panel.lastWrittenText, QStringLiteral(" Été  1 "));
}

void OneColourTest::anotherPictureSizeIsFollowed() {
    OneColourBench bench;
    // As after an undo of a paste that had enlarged the picture.
    bench.work.picDisp.setInnerSize(QSize(500, 400));
    bench.work.picDisp.commit();
    const Raster before = bench.work.picDisp.Picture();

    bench.proceed();

    QVERIFY(bench.work.picUndo.Picture() == before);
    QVERIFY(bench.work.picSnap.Picture() == before);
}

void OneColourTest::earlierBlockIsGone() {
    OneColourBench bench;
    // As large as the new ones will be, so that nothing is gone just because it no longer fits.
    bench.proceed();
    for (Surface* surface : {&bench.work.picTemp, &bench.work.picRegion, &bench.work.picMask})
        surface->setPicture(Raster(surface->innerSize(), rgb(0, 0, 90)));

    bench.proceed();

    const Raster& stamp = bench.work.picTemp.Image();
    const auto layers = layersOf(rgb(200, 40, 0), 4, Direction::UpperLeft);
    QVERIFY(stamp == stampOf(bench.font(), bench.text(), layers, stamp.size()));
    QVERIFY(!coloursOf(bench.work.picRegion.Image()).contains(rgb(0, 0, 90)));
    QVERIFY(bench.work.picMask.Image() == maskOf(bench.work.picRegion.Image()));
}

void OneColourTest::secondStampLeavesNoFrameBehind() {
    OneColourBench bench;
    bench.proceed();
    const Raster withFirst = bench.work.picDisp.Picture();

    bench.proceed();

    QVERIFY(bench.work.picUndo.Picture() == withFirst);
    QVERIFY(bench.work.picSnap.Picture() == withFirst);
    QVERIFY(bench.work.picDisp.Picture() == composed(withFirst, bench.work.picRegion.Image()));
}

void OneColourTest::blockCanBeDraggedWithoutATrace() {
    OneColourBench bench;
    const Raster before = bench.work.picDisp.Picture();
    bench.proceed();

    bench.modes.picDisp_MouseMove(QPoint(20, 20));
    bench.modes.picDisp_MouseDown(Qt::LeftButton, QPoint(20, 20));
    for (const QPoint& at : {QPoint(40, 50), QPoint(90, 30), QPoint(120, 80)})
        bench.modes.picDisp_MouseMove(at);
    bench.modes.picDisp_MouseUp(QPoint(120, 80));

    const Raster& region = bench.work.picRegion.Image();
    Raster shifted(before.size(), White);
    shifted.copyFrom(region, region.rect(), QPoint(100, 60));
    QVERIFY(bench.work.picDisp.Picture() == composed(before, shifted));
}

void OneColourTest::failingStepIsSkipped() {
    OneColourBench bench;
    bench.panel.cboShadeThickness->setEditable(true);
    bench.panel.cboShadeThickness->setEditText(QStringLiteral("3000")); // 45000 twips exceed 16 bits
    const Raster before = bench.work.picDisp.Picture();

    bench.proceed();

    // Without a depth the farthest layer is the only one, and the steps that follow go on with it.
    const Colour flat = colourFromCaption(bench.style.lblTextColor->text());
    QCOMPARE(coloursOf(bench.work.picTemp.Image()), (QSet<Colour>{White, flat}));
    QCOMPARE(bench.work.picTemp.ScaleMode(), ScaleMode::Pixels);
    QVERIFY(bench.block.HasSelection);
    QVERIFY(!(bench.work.picDisp.Picture() == before));
    QVERIFY(bench.dialogs.messages.isEmpty());
    QCOMPARE(screenMousePointer(), MousePointer::Default);
    QCOMPARE(bench.backgroundColourLocked.count(), 1);
    QCOMPARE(bench.panel.lastWrittenText, bench.text());
}

OVRANO_TEST(OneColourTest)
#include "tst_onecolour.moc"
