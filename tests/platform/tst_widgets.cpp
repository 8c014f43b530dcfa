#include "platform/clipboard.h"
#include "platform/colourbox.h"
#include "platform/commondialog.h"
#include "platform/imagebutton.h"
#include "platform/paths.h"
#include "platform/picturebox.h"
#include "platform/runtimeerror.h"
#include "platform/yield.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QClipboard>
#include <QMimeData>
#include <QPixmap>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

using namespace ovrano;

namespace {

/// The widget painted into a picture, as raster.
Raster shown(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    widget.render(&image);
    return Raster::fromImage(image);
}

/// Counts what is asked to be painted again.
class PaintedArea : public QObject {
public:
    explicit PaintedArea(QWidget& widget) { widget.installEventFilter(this); }
    QRegion area;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            area += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TestWidgets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictureBoxShowsItsSurface();
    void pictureBoxFollowsTheSize();
    void pictureBoxRepaintsOnlyWhatChanged();
    void pictureBoxReportsWholePixels();
    void lostReleaseIsMadeUpFor();
    void pictureBoxPointer();
    void hourglassIsSetAndReleasedOnce();
    void imageButtonIsAToggleOnlyByItsHandler();
    void colourBoxShowsItsColourInAnyTheme();
    void commonDialogOpens();
    void commonDialogSaves();
    void commonDialogPicksColours();
    void pathFunctions();
    void clipboardFormats();
    void yieldServesEventsAtMostEveryFrame();
    void screenFontsArePlainAndUnique();
};

void TestWidgets::pictureBoxShowsItsSurface() {
    Surface surface(QStringLiteral("picDisp"), QSize(600, 300));
    surface.Line(QPointF(200, 100), QPointF(400, 290), rgb(255, 0, 0), BoxStyle::Filled);
    PictureBox box(surface);
    QCOMPARE(box.objectName(), QStringLiteral("picDisp"));
    QCOMPARE(shown(box), surface.Image());
}

void TestWidgets::pictureBoxFollowsTheSize() {
    Surface surface(QStringLiteral("s"), QSize(20, 10));
    PictureBox box(surface);
    QCOMPARE(box.size(), QSize(20, 10));
    surface.setWidth(33);
    QCOMPARE(box.size(), QSize(33, 10));
    surface.setInnerSize(QSize(0, 0));
    QCOMPARE(box.size(), QSize(0, 0));
}

void TestWidgets::pictureBoxRepaintsOnlyWhatChanged() {
    Surface surface(QStringLiteral("s"), QSize(400, 300));
    PictureBox box(surface);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QCoreApplication::processEvents();
    PaintedArea painted(box);
    surface.Line(QPointF(10, 20), QPointF(14, 29), Black, BoxStyle::Filled);
    surface.Refresh();
    QCOMPARE(painted.area, QRegion(10, 20, 5, 10));
    painted.area = QRegion();
    surface.Cls();
    surface.Refresh();
    QCOMPARE(painted.area, QRegion(10, 20, 5, 10));
}

void TestWidgets::pictureBoxReportsWholePixels() {
    Surface surface(QStringLiteral("s"), QSize(40, 30));
    PictureBox box(surface);
    QSignalSpy down(&box, &PictureBox::mouseDown);
    QSignalSpy move(&box, &PictureBox::mouseMove);
    QSignalSpy up(&box, &PictureBox::mouseUp);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3.9, 4.1), QPointF(), Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(&box, &press);
    QCOMPARE(down.first().at(0).value<Qt::MouseButton>(), Qt::LeftButton);
    QCOMPARE(down.first().at(1).toPoint(), QPoint(3, 4));
    QMouseEvent outside(QEvent::MouseMove, QPointF(-0.5, 99.5), QPointF(), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&box, &outside);
    QCOMPARE(move.first().at(0).toPoint(), QPoint(-1, 99));
    QTest::mouseRelease(&box, Qt::RightButton, {}, QPoint(7, 8));
    QCOMPARE(up.first().at(0).value<Qt::MouseButton>(), Qt::RightButton);
    QCOMPARE(up.first().at(1).toPoint(), QPoint(7, 8));
}

void TestWidgets::lostReleaseIsMadeUpFor() {
    Surface surface(QStringLiteral("s"), QSize(40, 30));
    PictureBox box(surface);
    QStringList events;
    connect(&box, &PictureBox::mouseMove, [&] { events.append(QStringLiteral("move")); });
    connect(&box, &PictureBox::mouseUp, [&](Qt::MouseButton button) {
        events.append(button == Qt::LeftButton ? QStringLiteral("left up") : QStringLiteral("other up"));
    });
    const auto move = [&box](Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, QPointF(5, 5), QPointF(), Qt::NoButton, held, {});
        QCoreApplication::sendEvent(&box, &event);
    };
    QTest::mousePress(&box, Qt::LeftButton, {}, QPoint(3, 3));
    move(Qt::LeftButton);
    move(Qt::NoButton); // a dialog took the release
    move(Qt::NoButton);
    QCOMPARE(events, QStringList({"move", "left up", "move", "move"}));
}

void TestWidgets::pictureBoxPointer() {
    Surface surface(QStringLiteral("s"), QSize(4, 3));
    PictureBox box(surface);
    QCOMPARE(box.pointer(), MousePointer::Default);
    box.setPointer(MousePointer::SizeWE);
    QCOMPARE(box.cursor().shape(), Qt::SizeHorCursor);
    box.setPointer(MousePointer::SizeNS);
    QCOMPARE(box.cursor().shape(), Qt::SizeVerCursor);
    box.setPointer(MousePointer::Cross);
    QCOMPARE(box.cursor().shape(), Qt::CrossCursor);
    box.setPointer(MousePointer::Move);
    QCOMPARE(box.cursor().shape(), Qt::SizeAllCursor);
    box.setPointer(MousePointer::Default);
    QCOMPARE(box.cursor().shape(), Qt::ArrowCursor);
}

void TestWidgets::hourglassIsSetAndReleasedOnce() {
    setScreenMousePointer(MousePointer::Hourglass);
    setScreenMousePointer(MousePointer::Hourglass);
    QCOMPARE(screenMousePointer(), MousePointer::Hourglass);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    setScreenMousePointer(MousePointer::Default);
    QVERIFY(!QGuiApplication::overrideCursor());
    setScreenMousePointer(MousePointer::Default);
    QCOMPARE(screenMousePointer(), MousePointer::Default);
}

void TestWidgets::imageButtonIsAToggleOnlyByItsHandler() {
    ImageButton button(QStringLiteral("imgBold"), QStringLiteral("Gras"));
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(button.property("Appearance").toInt(), 0);
    button.setProperty("Appearance", 1);
    QVERIFY(button.isOn());
    QCOMPARE(button.Appearance(), 1);
    QCOMPARE(button.accessibleName(), QStringLiteral("Gras"));
    QCOMPARE(button.toolTip(), QStringLiteral("Gras"));
}

void TestWidgets::colourBoxShowsItsColourInAnyTheme() {
    ColourBox box(QStringLiteral("LblFond"), White);
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    box.setPalette(dark);
    box.resize(20, 20);
    QCOMPARE(shown(box).pixel(10, 10), White);
    QSignalSpy changed(&box, &ColourBox::BackColorChanged);
    box.setProperty("BackColor", rgb(0, 64, 128));
    QCOMPARE(shown(box).pixel(10, 10), rgb(0, 64, 128));
    box.setBackColor(rgb(0, 64, 128));
    QCOMPARE(changed.size(), 1);
}

void TestWidgets::commonDialogOpens() {
    AnsweringDialogs dialogs;
    CommonDialog dialog(dialogs);
    dialog.DialogTitle = QStringLiteral("Ouvrir une image de fond");
    dialog.Filter = QStringLiteral("Fichiers Images(BMP-GIF-JPEG|*.bmp;*.gif|Tous les fichiers(*.*)|*.*|");
    dialogs.chooseOpen(QStringLiteral("/tmp/a/photo.jpg"), 2);
    dialog.ShowOpen();
    const FileRequest asked = dialogs.opens.first();
    QCOMPARE(asked.types.size(), 2);
    QCOMPARE(asked.types.at(0).description, QStringLiteral("Fichiers Images(BMP-GIF-JPEG"));
    QCOMPARE(asked.types.at(0).patterns, QStringList({"*.bmp", "*.gif"}));
    QCOMPARE(asked.types.at(1).patterns, QStringList({"*.*"}));
    QCOMPARE(asked.typeIndex, 0);
    QCOMPARE(dialog.FileName, QStringLiteral("/tmp/a/photo.jpg"));
    QCOMPARE(dialog.FileTitle, QStringLiteral("photo.jpg"));
    QCOMPARE(dialog.FilterIndex, 2);

    dialogs.cancelOpen();
    dialog.ShowOpen();
    QCOMPARE(dialog.FileTitle, QStringLiteral("photo.jpg"));
    dialog.CancelError = true;
    dialogs.cancelOpen();
    QVERIFY_THROWS_EXCEPTION(RuntimeError, dialog.ShowOpen());
}

void TestWidgets::commonDialogSaves() {
    AnsweringDialogs dialogs;
    CommonDialog dialog(dialogs);
    dialog.Target = [](const QString& path, int filterIndex) { return path + QString::number(filterIndex); };
    dialogs.chooseSave(QStringLiteral("/tmp/x"), 3);
    dialog.ShowSave();
    QCOMPARE(dialogs.saves.first().target(QStringLiteral("/n"), 1), QStringLiteral("/n2"));
    QCOMPARE(dialog.FilterIndex, 3);
    dialogs.chooseSave(QStringLiteral("/tmp/x"), 3);
    dialog.ShowSave();
    QCOMPARE(dialogs.saves.last().typeIndex, 2);
}

void TestWidgets::commonDialogPicksColours() {
    AnsweringDialogs dialogs;
    CommonDialog dialog(dialogs);
    dialog.Color = rgb(1, 2, 3);
    dialogs.pickColour(rgb(4, 5, 6));
    dialog.ShowColor();
    QCOMPARE(dialogs.colours.first(), rgb(1, 2, 3));
    QCOMPARE(dialog.Color, rgb(4, 5, 6));
    dialogs.cancelColour();
    dialog.ShowColor();
    QCOMPARE(dialog.Color, rgb(4, 5, 6));
    dialog.CancelError = true;
    dialogs.cancelColour();
    try {
        dialog.ShowColor();
        QFAIL("not cancelled");
    } catch (const RuntimeError& caught) {
        QCOMPARE(caught.number(), 32755);
    }
}

void TestWidgets::pathFunctions() {
    const QString separator = QDir::separator();
    QCOMPARE(AddBackslash(QStringLiteral("folder")), QStringLiteral("folder") + separator);
    QCOMPARE(AddBackslash(QStringLiteral("folder") + separator), QStringLiteral("folder") + separator);
    QCOMPARE(AddBackslash(QString()), separator);
    const QTemporaryDir folder;
    QVERIFY(FileExists(folder.path()));
    QVERIFY(!FileExists(folder.filePath(QStringLiteral("none"))));
    QVERIFY(!FileExists(QString()));
}

void TestWidgets::clipboardFormats() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    QVERIFY(!ClipboardOffer::now().includesPicture());
    clipboard->setText(QStringLiteral("texte"));
    QVERIFY(!ClipboardOffer::now().includesPicture());
    clipboard->setImage(QImage(3, 3, QImage::Format_RGB32));
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Bitmap));
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Dib));
    QVERIFY(!ClipboardOffer::now().includes(ClipboardFormat::Metafile));
    QVERIFY(!ClipboardOffer::now().includes(ClipboardFormat::Palette));
    auto* vector = new QMimeData;
    vector->setData(QStringLiteral("image/svg+xml"), "<svg/>");
    clipboard->setMimeData(vector);
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Metafile));
    QVERIFY(!ClipboardOffer::now().includes(ClipboardFormat::Bitmap));
    QVERIFY(ClipboardOffer::now().includesPicture());
    auto* file = new QMimeData;
    file->setUrls({QUrl::fromLocalFile(QStringLiteral("/nowhere/Photo.JPG"))});
    clipboard->setMimeData(file);
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Bitmap)); // by its name; the file is not touched
    auto* text = new QMimeData;
    text->setUrls({QUrl::fromLocalFile(QStringLiteral("/nowhere/lettre.txt"))});
    clipboard->setMimeData(text);
    QVERIFY(!ClipboardOffer::now().includesPicture());
    auto* bitmap = new QMimeData;
    bitmap->setData(QStringLiteral("image/x-MS-bmp"), "BM");
    clipboard->setMimeData(bitmap);
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Bitmap));
    clipboard->clear();
}

void TestWidgets::yieldServesEventsAtMostEveryFrame() {
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    int served = 0;
    QTimer::singleShot(0, &window, [&served] { ++served; });
    EventYield yield;
    yield();
    QCOMPARE(served, 0); // less than 16 ms have passed
    QTest::qSleep(20);
    yield();
    QCOMPARE(served, 1);
}

void TestWidgets::screenFontsArePlainAndUnique() {
    const QStringList fonts = screenFonts();
    QVERIFY(fonts.contains(QStringLiteral("Liberation Sans")));
    QCOMPARE(QSet<QString>(fonts.begin(), fonts.end()).size(), fonts.size());
    QVERIFY(fonts.filter(QStringLiteral("[")).isEmpty());
}

OVRANO_TEST(TestWidgets)
#include "tst_widgets.moc"
