#include "scenarios/program.h"
#include "support/testprogram.h"
#include "wizards/rotfonts.h"
#include "wizards/txt3d.h"

#include <QApplication>
#include <QCheckBox>

using namespace ovrano;
using namespace ovrano::testing;

namespace {

/// The dialog that is open; only for the program's thread.
template<typename Dialog>
Dialog& openDialog() {
    return *qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

void leave(User& user, const QString& button) {
    user.click(button);
    user.waitFor([] { return QApplication::activeModalWidget() == nullptr; },
                 QStringLiteral("the dialog to close"));
    user.waitForWindow(QStringLiteral("frmPicText0"));
}

} // namespace

/// The program's own dialogs, opened from the menus and worked by mouse and keys.
class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newPictureOfATypedSize();
    void newPictureIsCancelled_data();
    void newPictureIsCancelled();
    void closeBoxBuildsTheLastPictureAgain();
    void everythingIsHarmlessOnAnEmptyPicture();
    void backgroundColourButton();
    void twoColourTextBecomesThePicture();
    void twoColourTextIsCancelled();
    void circularTextBecomesThePicture();
    void circularTextIsClosed();
    void oneColourToolsComeBack();
};

void TestDialogs::newPictureOfATypedSize() {
    Program program;
    program.dialogs.pickColour(Red);
    program.playBeside([&] {
        program.user.input.strike(Qt::CTRL | Qt::Key_N);
        program.user.waitForWindow(QStringLiteral("FrmNouv3DText"));
        program.user.input.type(
            QStringLiteral("a-2.0x4\t1509")); // the first field has the focus; three digits fit
        program.user.click(QStringLiteral("Command1"));
        program.user.input.strike(Qt::ALT | Qt::Key_A);
        program.user.waitForWindow(QStringLiteral("frmPicText0"));
    });
    const WorkPicture& work = program.window.work();
    QCOMPARE(work.picDisp.Image(), Raster(QSize(204, 150), Red));
    QCOMPARE(program.label("lblImageSize"), QStringLiteral("L=204  H=150"));
    QCOMPARE(program.label("lblFileSpec"), QString());
    QCOMPARE(program.window.findChild<ColourBox*>(QStringLiteral("LblFond"))->BackColor(), Red);
    QCOMPARE(QApplication::focusWidget(), program.window.view().picDisp);
}

void TestDialogs::newPictureIsCancelled_data() {
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Escape") << true;
}

void TestDialogs::newPictureIsCancelled() {
    QFETCH(bool, byKey);
    Program program;
    program.playBeside([&] {
        program.user.chooseMenu(QStringLiteral("mnuFile"), QStringLiteral("mnuFileNew"));
        program.user.waitForWindow(QStringLiteral("FrmNouv3DText"));
        if (byKey)
            program.user.input.strike(Qt::Key_Escape);
        else
            program.user.click(QStringLiteral("Command3"));
        program.user.waitForWindow(QStringLiteral("frmPicText0"));
    });
    QCOMPARE(program.window.work().picDisp.innerSize(), QSize(400, 300));
    QCOMPARE(program.pixel(120, 90), Red);
}

void TestDialogs::closeBoxBuildsTheLastPictureAgain() {
    Program program;
    program.playBeside([&] {
        for (const bool byCloseBox : {false, true}) {
            program.user.input.strike(Qt::CTRL | Qt::Key_N);
            program.user.waitForWindow(QStringLiteral("FrmNouv3DText"));
            program.user.retype(QStringLiteral("Text1"),
                                byCloseBox ? QStringLiteral("77") : QStringLiteral("120"));
            if (byCloseBox)
                inGui([] { QApplication::activeModalWidget()->close(); });
            else
                program.user.input.strike(Qt::Key_Return);
            program.user.waitForWindow(QStringLiteral("frmPicText0"));
        }
    });
    QCOMPARE(program.window.work().picDisp.innerSize(), QSize(120, 300));
}

void TestDialogs::everythingIsHarmlessOnAnEmptyPicture() {
    Program program;
    for (int i = 0; i < 2; ++i)
        program.dialogs.answer(Answer::No); // the questions about a larger picture
    QTemporaryDir folder;
    program.dialogs.chooseSave(folder.filePath(QStringLiteral("empty.bmp")), 1);
    program.dialogs.answer(Answer::Ok); // the error
    program.playBeside([&] {
        User& user = program.user;
        user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditCopy"));
        user.input.strike(Qt::CTRL | Qt::Key_N);
        user.waitForWindow(QStringLiteral("FrmNouv3DText"));
        user.retype(QStringLiteral("Text1"), QStringLiteral("0"));
        user.input.strike(Qt::Key_Return);
        user.waitForWindow(QStringLiteral("frmPicText0"));
        user.waitFor([&] { return program.window.work().picDisp.innerSize() == QSize(0, 300); },
                     QStringLiteral("the empty picture"));
        user.click(QStringLiteral("cmd1Color3DProceed"));
        user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditCopy"));
        user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPaste"));
        Program::react();
        user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPasteTransparent"));
        Program::react();
        user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditUndo"));
        user.click(QStringLiteral("imgRegion"));
        user.click(QStringLiteral("Command1"));
    });
    QCOMPARE(program.window.work().picDisp.innerSize(), QSize(0, 300));
    QVERIFY(program.dialogs.messages.last().text.contains(QStringLiteral("\r\n380 ")));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestDialogs::backgroundColourButton() {
    Program program;
    program.dialogs.pickColour(Red);
    program.dialogs.cancelColour();
    program.play([&] {
        program.user.click(QStringLiteral("Command2"));
        QCOMPARE(program.window.findChild<ColourBox*>(QStringLiteral("LblFond"))->BackColor(), Red);
        QCOMPARE(program.dialogs.colours.last(), White);
        QCOMPARE(program.pixel(20, 20), Blue); // the picture itself stays
        program.user.input.drag(program.at(399, 150), program.at(419, 150));
        QCOMPARE(program.pixel(410, 150), Red); // what is added has the new background
        program.user.click(QStringLiteral("Command2"));
        QCOMPARE(program.dialogs.colours.last(), Red);
        QCOMPARE(program.window.work().picDisp.BackColor(), Red);
    });
}

void TestDialogs::twoColourTextBecomesThePicture() {
    Program program;
    program.dialogs.pickColour(Red);
    Raster example;
    program.playBeside([&] {
        User& user = program.user;
        user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(1)"));
        user.waitForWindow(QStringLiteral("Txt3D"));
        user.retype(QStringLiteral("Text1"), QStringLiteral("Été"));
        user.click(QStringLiteral("Check2"));
        user.retype(QStringLiteral("Text2"), QStringLiteral("4x5"));
        user.click(QStringLiteral("Command5")); // the second colour
        user.click(QStringLiteral("Command3(0)"));
        inGui([&] {
            auto& dialog = openDialog<Txt3D>();
            example = dialog.ExamplePic.Image();
            QCOMPARE(dialog.Text2->currentText(), QStringLiteral("45"));
            QVERIFY(dialog.ExamplePic.Font().bold());
            QVERIFY(!program.window.findChild<QWidget*>(QStringLiteral("frafont"))->isVisible());
        });
        leave(user, QStringLiteral("Command1"));
    });
    QVERIFY(example != Raster(example.size(), White));
    QCOMPARE(program.window.work().picDisp.Picture(), example);
    QCOMPARE(program.label("lblImageSize"),
             QStringLiteral("L=%1  H=%2").arg(example.width()).arg(example.height()));
    QVERIFY(program.window.findChild<QAction*>(QStringLiteral("mnuTextWrite(1)"))->isChecked());
    QVERIFY(!program.window.findChild<QWidget*>(QStringLiteral("LblFond"))->isEnabled());
}

void TestDialogs::twoColourTextIsCancelled() {
    Program program;
    program.playBeside([&] {
        program.user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(1)"));
        program.user.waitForWindow(QStringLiteral("Txt3D"));
        program.user.input.type(QStringLiteral("Rien"));
        leave(program.user, QStringLiteral("Command2"));
        program.user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(1)"));
        program.user.waitForWindow(QStringLiteral("Txt3D"));
        program.user.input.strike(Qt::Key_Escape);
        program.user.waitForWindow(QStringLiteral("frmPicText0"));
    });
    QCOMPARE(program.window.work().picDisp.innerSize(), QSize(400, 300));
    QCOMPARE(program.pixel(120, 90), Red);
}

void TestDialogs::circularTextBecomesThePicture() {
    Program program;
    Raster preview;
    program.playBeside([&] {
        User& user = program.user;
        user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(2)"));
        user.waitForWindow(QStringLiteral("RotFonts"));
        user.retype(QStringLiteral("Text1"), QStringLiteral("Tour du monde "));
        user.retype(QStringLiteral("txtRaggio"), QStringLiteral("150"));
        user.click(QStringLiteral("Command1"));
        inGui([&] { preview = openDialog<RotFonts>().Picture1.Image(); });
        leave(user, QStringLiteral("Command3"));
    });
    QVERIFY(preview != Raster(preview.size(), White));
    QCOMPARE(program.window.work().picDisp.Picture(), preview);
    const QString temporary = program.label("lblFileSpec");
    QVERIFY2(temporary.endsWith(QStringLiteral("Temp.bmp")), qPrintable(temporary));
    QVERIFY(!QFile::exists(temporary));
    QVERIFY(!program.window.findChild<QWidget*>(QStringLiteral("fra1Color3D"))->isVisible());
}

void TestDialogs::circularTextIsClosed() {
    Program program;
    program.playBeside([&] {
        program.user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(2)"));
        program.user.waitForWindow(QStringLiteral("RotFonts"));
        leave(program.user, QStringLiteral("Command5"));
    });
    QCOMPARE(program.window.work().picDisp.innerSize(), QSize(400, 300));
    QCOMPARE(program.pixel(120, 90), Red);
}

void TestDialogs::oneColourToolsComeBack() {
    Program program;
    program.playBeside([&] {
        program.user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(1)"));
        program.user.waitForWindow(QStringLiteral("Txt3D"));
        program.user.input.type(QStringLiteral("Deux"));
        leave(program.user, QStringLiteral("Command1"));
        program.user.click(QStringLiteral("cmdOneColour")); // does what the menu's first entry does
        program.user.click(QStringLiteral("cmd1Color3DProceed"));
    });
    QVERIFY(program.window.block().HasSelection);
    QVERIFY(program.window.findChild<QWidget*>(QStringLiteral("frafont"))->isVisible());
    QVERIFY(!program.window.findChild<QWidget*>(QStringLiteral("cmdOneColour"))->isVisible());
    QVERIFY(program.window.findChild<QAction*>(QStringLiteral("mnuTextWrite(0)"))->isChecked());
}

OVRANO_TEST(TestDialogs)
#include "tst_dialogs.moc"
