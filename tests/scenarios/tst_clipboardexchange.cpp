#include "document/picturereader.h"
#include "platform/yield.h"
#include "scenarios/program.h"
#include "scenarios/secondprogram.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QApplication>
#include <QBuffer>

using namespace ovrano;
using namespace ovrano::testing;

namespace {

/// Green, with one red pixel in its upper-left corner.
QImage stamp(QSize size = QSize(50, 40)) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(0, 200, 0));
    image.setPixel(0, 0, qRgb(255, 0, 0));
    return image;
}
constexpr Colour Green = rgb(0, 200, 0);

/// A work picture larger than the view.
constexpr QSize WorkSize(2000, 1500);

QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    if (!image.save(&buffer, format))
        qFatal("cannot encode %s", format);
    return buffer.data();
}

QByteArray drawing() {
    return "<svg xmlns='http://www.w3.org/2000/svg' width='50' height='40'>"
           "<rect width='50' height='40' fill='#00c800'/></svg>";
}

/// The pixels of a picture that another program received.
Raster received(const std::optional<QByteArray>& bytes) {
    return bytes ? decodePicture(*bytes) : Raster();
}

const QString NoPicture = QStringLiteral("Pas d'image dans le presse papier !");

} // namespace

/// Pictures between this program and others, over the clipboard of a real X server.
class TestClipboardExchange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictureOfAnotherProgramIsPasted_data();
    void pictureOfAnotherProgramIsPasted();
    void pastedBlockIsDraggedAndDropped();
    void transparentPasteLetsTheCornersColourThrough();
    void pastingScrollsHomeAndIsUndone();
    void largerPictureAsks_data();
    void largerPictureAsks();
    void textIsNoPicture();
    void pictureGoesToAnotherProgram_data();
    void pictureGoesToAnotherProgram();
    void liftedZoneGoesToAnotherProgram();
    void cutZoneGoesToAnotherProgram();
    void copiedPictureComesBack();
    void pictureBecomesTheWorkPicture();
    void clearedClipboardIsEmptyForAll();
    void fiftyMegapixelsComeAndGo();
    void falseOwnerChangesNothing_data();
    void falseOwnerChangesNothing();
    void ownerThatIsGoneChangesNothing();
    void silentOwnerHasNothing();
    void ownerThatNeverGivesIsGivenUp();
    void brokenDataIsNoPicture_data();
    void brokenDataIsNoPicture();
    void pressesDuringALongPasteGoBy();
    void pictureStaysAfterTheProgramEnds();
};

void TestClipboardExchange::pictureOfAnotherProgramIsPasted_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("PNG") << QStringLiteral("image/png") << encoded(stamp(), "png");
    QTest::newRow("BMP") << QStringLiteral("image/bmp") << encoded(stamp(), "bmp");
    QTest::newRow("x-bmp") << QStringLiteral("image/x-bmp") << encoded(stamp(), "bmp");
    QTest::newRow("x-MS-bmp") << QStringLiteral("image/x-MS-bmp") << encoded(stamp(), "bmp");
    QTest::newRow("SVG") << QStringLiteral("image/svg+xml") << drawing();
}

void TestClipboardExchange::pictureOfAnotherProgramIsPasted() {
    QFETCH(QString, type);
    QFETCH(QByteArray, bytes);
    SecondProgram other;
    other.copy(bytes, type);
    Program program;
    program.play([&] {
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPaste"));
        QVERIFY(program.window.block().HasSelection);
        QCOMPARE(program.window.work().picRegion.innerSize(), QSize(50, 40));
        QCOMPARE(program.pixel(20, 20), Green);
        QCOMPARE(program.pixel(49, 39), Green);
        QCOMPARE(program.pixel(50, 39), Blue);
        QCOMPARE(program.pixel(49, 40), Blue);
        QVERIFY(program.window.work().ImageModified);
    });
}

void TestClipboardExchange::pastedBlockIsDraggedAndDropped() {
    SecondProgram other;
    other.copy(encoded(stamp(), "png"), QStringLiteral("image/png"));
    Program program;
    program.play([&] {
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        Program::react();
        program.user.input.drag(program.at(20, 20), program.at(220, 170));
        QCOMPARE(program.pixel(20, 20), Blue);
        QCOMPARE(program.pixel(200, 150), Red);
        QCOMPARE(program.pixel(249, 189), Green);
        program.user.input.drag(program.at(220, 170), program.at(-100, 10));
        QCOMPARE(int(program.window.block().CurrX), -40); // four fifths of it may hang over
        program.user.input.click(program.at(300, 250));
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(200, 150), Blue);
        QCOMPARE(program.pixel(9, 0), Green);
    });
}

void TestClipboardExchange::transparentPasteLetsTheCornersColourThrough() {
    QImage image = stamp();
    for (int x = 10; x < 20; ++x)
        for (int y = 10; y < 20; ++y)
            image.setPixel(x, y, y < 15 ? qRgb(255, 0, 0) : qRgb(255, 255, 255));
    SecondProgram other;
    other.copy(encoded(image, "png"), QStringLiteral("image/png"));
    Program program;
    program.play([&] {
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPasteTransparent"));
        QCOMPARE(program.pixel(0, 0), Blue);
        QCOMPARE(program.pixel(15, 12), Blue);
        QCOMPARE(program.pixel(15, 17), Blue);
        QCOMPARE(program.pixel(30, 30), Green);
    });
}

void TestClipboardExchange::pastingScrollsHomeAndIsUndone() {
    SecondProgram other;
    other.copy(encoded(stamp(), "png"), QStringLiteral("image/png"));
    Program program(QSize(3000, 2000));
    program.play([&] {
        program.user.input.wheel(program.at(300, 300), -5);
        QVERIFY(program.window.view().VScroll1->value() > 0);
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(program.window.view().VScroll1->value(), 0);
        QCOMPARE(program.pixel(20, 20), Green);
        Program::react();
        program.user.click(QStringLiteral("CmdAnnul"));
        QCOMPARE(program.pixel(20, 20), Blue);
        QCOMPARE(program.pixel(120, 90), Red);
        QVERIFY(!program.window.findChild<QAbstractButton*>(QStringLiteral("CmdAnnul"))->isEnabled());
    });
}

void TestClipboardExchange::largerPictureAsks_data() {
    QTest::addColumn<QSize>("pasted");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QSize>("expected");
    QTest::addColumn<bool>("composed");
    for (const QSize size : {QSize(2100, 100), QSize(100, 1600), QSize(2100, 1600)}) {
        const auto row = [size](const char* answer) -> QTestData& {
            return QTest::addRow("%d x %d, %s", size.width(), size.height(), answer);
        };
        row("Yes") << size << Answer::Yes << size << true;
        row("No") << size << Answer::No << WorkSize << true;
        row("Cancel") << size << Answer::Cancel << WorkSize << false;
    }
}

void TestClipboardExchange::largerPictureAsks() {
    QFETCH(QSize, pasted);
    QFETCH(Answer, answer);
    QFETCH(QSize, expected);
    QFETCH(bool, composed);
    SecondProgram other;
    other.copy(encoded(stamp(pasted), "png"), QStringLiteral("image/png"));
    Program program(WorkSize);
    program.dialogs.answer(answer);
    program.play([&] {
        program.user.input.wheel(program.at(100, 100), -3);
        QVERIFY(program.window.view().VScroll1->value() > 0);
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(program.dialogs.messages.size(), 1);
        QCOMPARE(program.window.view().VScroll1->value(), 0);
        QVERIFY(!program.window.block().HasSelection);
        QVERIFY(!program.window.findChild<ImageButton*>(QStringLiteral("imgRegion"))->isOn());
        QCOMPARE(program.window.work().picDisp.innerSize(), expected);
        QCOMPARE(program.label("lblImageSize"),
                 QStringLiteral("L=%1  H=%2").arg(expected.width()).arg(expected.height()));
        QCOMPARE(program.pixel(50, 50), composed ? Green : Blue);
        QCOMPARE(program.window.work().ImageModified, composed);
        program.user.input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(program.window.work().picDisp.innerSize(), WorkSize);
        QCOMPARE(program.pixel(50, 50), Blue);
        QCOMPARE(program.pixel(1999, 1499), Blue);
        QCOMPARE(program.pixel(120, 90), Red);
    });
}

void TestClipboardExchange::textIsNoPicture() {
    SecondProgram other;
    other.copy("Bonjour", QStringLiteral("UTF8_STRING"));
    Program program;
    program.dialogs.answer(Answer::Ok);
    program.play([&] {
        program.user.input.strike(Qt::CTRL | Qt::Key_V); // its entry is disabled
        QVERIFY(program.dialogs.messages.isEmpty());
        for (const char* entry : {"mnuEditPaste", "mnuEditPasteTransparent", "Mnu_ColleNouvIMG"})
            QVERIFY2(!program.isEnabled(entry), entry);
        QAction* const entry = program.window.findChild<QAction*>(QStringLiteral("mnuEditPaste"));
        entry->setEnabled(true); // as it was before the other program took the clipboard
        entry->trigger();
        QCOMPARE(program.dialogs.messages.size(), 1);
        QCOMPARE(program.dialogs.messages.first().text, NoPicture);
        QCOMPARE(program.pixel(20, 20), Blue);
        QVERIFY(!program.window.work().ImageModified);
    });
}

void TestClipboardExchange::pictureGoesToAnotherProgram_data() {
    QTest::addColumn<QString>("type");
    QTest::newRow("PNG") << QStringLiteral("image/png");
    QTest::newRow("BMP") << QStringLiteral("image/bmp");
}

void TestClipboardExchange::pictureGoesToAnotherProgram() {
    QFETCH(QString, type);
    Program program;
    program.play([&] {
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditCopy"));
        const Raster copied = program.window.work().picDisp.Picture();
        // What is copied is what the picture was then.
        program.window.work().picDisp.Line(QPointF(0, 0), QPointF(50, 50), Green, BoxStyle::Filled);
        program.window.work().picDisp.commit();
        SecondProgram other;
        QCOMPARE(received(other.paste(type)), copied);
    });
}

void TestClipboardExchange::liftedZoneGoesToAnotherProgram() {
    Program program;
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        program.user.input.drag(program.at(90, 70), program.at(159, 119));
        program.user.input.strike(Qt::CTRL | Qt::Key_C);
        SecondProgram other;
        const Raster zone = received(other.paste(QStringLiteral("image/png")));
        QCOMPARE(zone.size(), QSize(70, 50));
        QCOMPARE(zone.pixel(9, 10), Blue);
        QCOMPARE(zone.pixel(10, 10), Red);
        QCOMPARE(zone.pixel(0, 0), Blue); // nothing of the frame
        QVERIFY(program.window.block().HasSelection);
    });
}

void TestClipboardExchange::cutZoneGoesToAnotherProgram() {
    Program program;
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        program.user.input.drag(program.at(100, 80), program.at(149, 109));
        program.user.input.strike(Qt::CTRL | Qt::Key_X);
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(100, 80), White);
        QCOMPARE(program.pixel(148, 108), White);
        QCOMPARE(program.pixel(149, 108), Red); // the last column and row stay
        QCOMPARE(program.pixel(148, 109), Red);
        SecondProgram other;
        const Raster zone = received(other.paste(QStringLiteral("image/bmp")));
        QCOMPARE(zone, Raster(QSize(50, 30), Red));
    });
}

void TestClipboardExchange::copiedPictureComesBack() {
    Program program(QSize(1200, 900));
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        program.user.input.drag(program.at(100, 80), program.at(149, 109));
        program.user.input.strike(Qt::CTRL | Qt::Key_C);
        program.user.input.wheel(program.at(300, 200), -3);
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(program.window.view().VScroll1->value(), 0);
        QCOMPARE(program.pixel(49, 29), Red);
        QCOMPARE(program.pixel(50, 29), Blue);
        program.user.input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(program.pixel(49, 29), Blue);
    });
}

void TestClipboardExchange::pictureBecomesTheWorkPicture() {
    SecondProgram other;
    other.copy(encoded(stamp(QSize(320, 200)), "png"), QStringLiteral("image/png"));
    Program program(QSize(3000, 2000));
    program.play([&] {
        program.user.input.wheel(program.at(300, 300), -5);
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("Mnu_ColleNouvIMG"));
        QCOMPARE(program.label("lblImageSize"), QStringLiteral("L=320  H=200"));
        QCOMPARE(program.label("lblFileSpec"), QString());
        QCOMPARE(program.window.view().VScroll1->maximum(), 0);
        QCOMPARE(program.pixel(319, 199), Green);
        QVERIFY(!program.window.work().ImageModified);
        program.user.input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(program.window.work().picDisp.innerSize(), QSize(3000, 2000));
        QCOMPARE(program.pixel(120, 90), Red);
    });
}

void TestClipboardExchange::clearedClipboardIsEmptyForAll() {
    SecondProgram other;
    other.copy(encoded(stamp(), "png"), QStringLiteral("image/png"));
    Program program;
    program.play([&] {
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditClearClipboard"));
        QVERIFY(!other.paste(QStringLiteral("image/png")));
        program.window.mnuEdit_Click();
        QVERIFY(!program.isEnabled("mnuEditPaste"));
    });
}

void TestClipboardExchange::fiftyMegapixelsComeAndGo() {
    constexpr QSize Large(8000, 6250);
    SecondProgram other;
    other.copy(encoded(stamp(Large), "bmp"), QStringLiteral("image/bmp"));
    Program program;
    program.dialogs.answer(Answer::Yes);
    program.play([&] {
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(program.window.work().picDisp.innerSize(), Large);
        QCOMPARE(program.pixel(0, 0), Red);
        QCOMPARE(program.pixel(Large.width() - 1, Large.height() - 1), Green);
        program.user.input.strike(Qt::CTRL | Qt::Key_C);
        const Raster back = received(other.paste(QStringLiteral("image/png")));
        QCOMPARE(back.size(), Large);
        QCOMPARE(back.pixel(0, 0), Red);
        QCOMPARE(back.pixel(1, 0), Green);
        QCOMPARE(back.pixel(Large.width() - 1, Large.height() - 1), Green);
    });
}

void TestClipboardExchange::falseOwnerChangesNothing_data() {
    QTest::addColumn<QString>("behaviour");
    QTest::addColumn<QString>("type");
    for (const char* behaviour : {"refuses", "garbles", "vanishes"})
        for (const char* type : {"image/png", "image/svg+xml"})
            QTest::addRow("%s %s", behaviour, type)
                << QString::fromLatin1(behaviour) << QString::fromLatin1(type);
}

void TestClipboardExchange::falseOwnerChangesNothing() {
    QFETCH(QString, behaviour);
    QFETCH(QString, type);
    for (const char* entry : {"mnuEditPaste", "mnuEditPasteTransparent", "Mnu_ColleNouvIMG"}) {
        SecondProgram other;
        other.copyFalsely(behaviour, type);
        Program program;
        program.dialogs.answer(Answer::Ok);
        program.play([&] {
            program.user.click(QStringLiteral("imgRegion"));
            program.user.input.drag(program.at(100, 80), program.at(149, 109));
            const Raster before = program.window.work().picDisp.Image();
            program.user.chooseMenu(QStringLiteral("mnuEdit"), QLatin1String(entry));
            QCOMPARE(program.dialogs.messages.size(), 1);
            QCOMPARE(program.dialogs.messages.first().text, NoPicture);
            // The block is still lifted, framed and as opaque as it was.
            QCOMPARE(program.window.work().picDisp.Image(), before);
            QVERIFY(program.window.block().HasSelection);
            Program::react();
            program.user.input.drag(program.at(120, 90), program.at(220, 190));
            QCOMPARE(program.pixel(220, 190), Red);
            QCOMPARE(program.pixel(120, 90), White);
        });
    }
}

void TestClipboardExchange::ownerThatIsGoneChangesNothing() {
    Program program;
    {
        SecondProgram other;
        other.copyFalsely(QStringLiteral("garbles"), QStringLiteral("image/png"));
        program.window.mnuEdit_Click();
        QVERIFY(program.isEnabled("mnuEditPaste"));
    }
    program.dialogs.answer(Answer::Ok);
    program.play([&] {
        program.window.findChild<QAction*>(QStringLiteral("mnuEditPaste"))->trigger();
        QCOMPARE(program.dialogs.messages.size(), 1);
        QCOMPARE(program.dialogs.messages.first().text, NoPicture);
        QCOMPARE(program.pixel(20, 20), Blue);
    });
}

void TestClipboardExchange::silentOwnerHasNothing() {
    SecondProgram other;
    other.copyFalsely(QStringLiteral("silent"), QStringLiteral("image/png"));
    Program program;
    program.play([&] {
        for (int i = 0; i < 10; ++i) // asked anew each time, these would take minutes
            program.window.mnuEdit_Click();
        QVERIFY(!program.isEnabled("mnuEditPaste"));
    });
}

void TestClipboardExchange::ownerThatNeverGivesIsGivenUp() {
    SecondProgram other;
    other.copyFalsely(QStringLiteral("mutters"), QStringLiteral("image/png"));
    Program program;
    program.dialogs.answer(Answer::Ok);
    program.play([&] {
        // The server may give this owner the number of the one that kept silent before.
        program.user.waitFor(
            [&] {
                program.window.mnuEdit_Click();
                return program.isEnabled("mnuEditPaste");
            },
            QStringLiteral("the owner to be asked"));
        program.user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPaste"));
        program.user.waitFor([&] { return !program.dialogs.messages.isEmpty(); },
                             QStringLiteral("the message"));
        QCOMPARE(program.dialogs.messages.first().text, NoPicture);
        QCOMPARE(program.pixel(20, 20), Blue);
    });
}

void TestClipboardExchange::brokenDataIsNoPicture_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("bytes");
    const auto half = [](const QByteArray& bytes) { return bytes.left(bytes.size() / 2); };
    const QImage large = stamp(QSize(300, 200));
    QTest::newRow("half a PNG") << QStringLiteral("image/png") << half(encoded(large, "png"));
    QTest::newRow("half a BMP") << QStringLiteral("image/bmp") << half(encoded(large, "bmp"));
    QTest::newRow("half a JPEG") << QStringLiteral("image/jpeg") << half(encoded(large, "jpg"));
    QTest::newRow("SVG called PNG") << QStringLiteral("image/png") << drawing();
    QTest::newRow("half an SVG") << QStringLiteral("image/svg+xml") << half(drawing());
}

void TestClipboardExchange::brokenDataIsNoPicture() {
    QFETCH(QString, type);
    QFETCH(QByteArray, bytes);
    SecondProgram other;
    other.copy(bytes, type);
    Program program;
    program.dialogs.answer(Answer::Ok);
    program.play([&] {
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(program.dialogs.messages.size(), 1);
        QCOMPARE(program.dialogs.messages.first().text, NoPicture);
        QCOMPARE(program.pixel(20, 20), Blue);
    });
}

void TestClipboardExchange::pressesDuringALongPasteGoBy() {
    SecondProgram other;
    other.copy(encoded(stamp(QSize(5000, 4000)), "png"), QStringLiteral("image/png"));
    Program program(QSize(5001, 4001));
    program.play([&] {
        const QPoint beside = program.at(500, 300);
        program.user.input.moveTo(beside);
        QAction* const paste = program.window.findChild<QAction*>(QStringLiteral("mnuEditPaste"));
        bool pressed = false;
        // As soon as the window repaints in the middle of the paste.
        QTimer::singleShot(0, paste, [&] {
            pressed = EventYield::isUnderWay();
            program.user.input.clickUnseen();
        });
        paste->trigger();
        QVERIFY(pressed);
        QTest::qWait(100);
        QVERIFY(program.window.block().HasSelection);
        QVERIFY(program.window.work().UndoAvailable);
        program.user.input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(program.pixel(20, 20), Blue);
    });
}

void TestClipboardExchange::pictureStaysAfterTheProgramEnds() {
    SecondProgram keeper;
    keeper.keepWhatIsCopied();
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("copyandend")});
    QVERIFY(program.waitForFinished(30'000));
    QCOMPARE(program.exitCode(), 0);
    const Raster kept = received(keeper.paste(QStringLiteral("image/png")));
    QCOMPARE(kept.size(), QSize(400, 300));
    QCOMPARE(kept.pixel(120, 90), Red);
    QCOMPARE(kept.pixel(0, 0), Blue);
}

OVRANO_TEST(TestClipboardExchange)
#include "tst_clipboardexchange.moc"
