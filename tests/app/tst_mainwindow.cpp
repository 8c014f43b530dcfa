#include "app/editmenu.h"
#include "app/mainwindow.h"
#include "platform/runtimeerror.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QClipboard>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QtTest>

using namespace ovrano;

namespace {

/// The window as a user sees it after the start.
struct Program {
    explicit Program(QSize size = QSize(1366, 744))
        : window(dialogs) {
        window.show();
        startedMaximised = window.windowState().testFlag(Qt::WindowMaximized);
        window.setWindowState(Qt::WindowNoState); // so that its size can be chosen
        window.resize(size);
        QCoreApplication::processEvents();
    }

    template<typename Control>
    Control* find(const char* name) {
        auto* control = window.findChild<Control*>(QLatin1String(name));
        if (!control)
            qFatal("%s is missing", name);
        return control;
    }
    QAction* entry(const char* name) { return find<QAction>(name); }
    QString label(const char* name) { return find<QLabel>(name)->text(); }

    void openMenu(const char* name) { Q_EMIT find<QMenu>(name)->aboutToShow(); }

    AnsweringDialogs dialogs;
    MainWindow window;
    bool startedMaximised = false; // as it was when it was first shown
};

/// What a control fills of its parent: its margins are left to its neighbours.
QRect drawnArea(const QWidget& control) {
    return control.geometry().marginsRemoved(control.contentsMargins());
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithABlankPicture();
    void showsFileAndSizeAtStart();
    void textColourAtStart();
    void everyNameIsThere_data();
    void everyNameIsThere();
    void captionsOfTheMenus_data();
    void captionsOfTheMenus();
    void mnemonicsAreUniquePerMenu();
    void everyControlIsVisibleWithoutOverlap_data();
    void everyControlIsVisibleWithoutOverlap();
    void resizingLaysOutAndResetsNothing();
    void secondStageRunsOnce();
    void fileMenuNeedsAPicture();
    void toolsMenuNeedsAPicture();
    void editMenuFollowsTheState();
    void undoButtonIsRefreshedAtOnce();
    void keyRunsTheRuleFirst();
    void keyOfADisabledEntryDoesNothing();
    void closingAsksWhenModified();
    void closingAfterCancelledSaveIsRefused();
    void closingAfterFailedSaveGoesOn();
    void closingUnmodifiedAsksNothing();
    void quitEntryAsks();
    void quitButtonEndsAtOnce();
    void textMenuReleasesTheTools();
    void oneColourEntryShowsTheFrames();
    void backgroundColour();
    void backgroundColourCancelled();
    void pickerSetsTheTextColour();
    void resizeWithAHugePictureAsksNothing();
    void editEntriesFollowTheRule_data();
    void editEntriesFollowTheRule();
    void everyCommandReleasesThePicker_data();
    void everyCommandReleasesThePicker();
    void creatingATextLocksTheBackground();
    void openingForgetsTheBlockOfThePictureBefore();
    void undoAfterOpeningShowsTheEmptiedSnapshot();
    void keysWaitForTheEndOfAGesture();
    void longFileNamesAreShortened();
};

void TestMainWindow::startsWithABlankPicture() {
    Program program;
    QCOMPARE(program.window.work().picDisp.Image(), Raster(QSize(640, 480), White));
    QVERIFY(program.window.work().ImageLoaded);
    QVERIFY(!program.window.work().ImageModified);
    QVERIFY(!program.window.work().UndoAvailable);
    QVERIFY(!program.window.block().HasSelection);
    QVERIFY(program.window.work().picAuto.AutoSize());
    QCOMPARE(program.window.work().picSnap.innerSize(), QSize(640, 480));
    QCOMPARE(program.window.work().picUndo.innerSize(), QSize(640, 480));
    QVERIFY(program.startedMaximised);
    QVERIFY(program.window.view().picDisp->isVisible());
    QVERIFY(program.window.view().picSnap->isHidden());
}

void TestMainWindow::showsFileAndSizeAtStart() {
    Program program;
    QCOMPARE(program.label("lblFileSpec"), QStringLiteral("Sans Nom"));
    QCOMPARE(program.label("lblImageSize"), QStringLiteral("L=640  H=480"));
    QCOMPARE(program.window.windowTitle(), QStringLiteral("Ovrano de création de texte 3D"));
    QCOMPARE(program.window.objectName(), QStringLiteral("frmPicText0"));
}

void TestMainWindow::textColourAtStart() {
    Program program;
    QCOMPARE(program.find<ColourBox>("picTextColor")->BackColor(), rgb(0, 64, 128));
    QCOMPARE(program.label("lblTextColor"), QStringLiteral("RVB(0, 64, 128)  Hex: #004080"));
}

void TestMainWindow::everyNameIsThere_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"picZ",
                             "picDisp",
                             "picSnap",
                             "HScroll1",
                             "VScroll1",
                             "lblFileSpec",
                             "lblImageSize",
                             "fraTextPanel",
                             "Command1",
                             "CmdAnnul",
                             "cmdCancel",
                             "Command2",
                             "LblFond",
                             "imgRegion",
                             "imgColorPicker",
                             "frafont",
                             "txbWriteText",
                             "cboFontName",
                             "txtFontSize",
                             "lblFontSize1",
                             "imgBold",
                             "imgItalic",
                             "lblTextSample",
                             "shpTextSample",
                             "picTextColor",
                             "cmdTextColor",
                             "lblTextColor",
                             "fraRotateAngle",
                             "cboRotateAngle",
                             "HsbRotateAngle",
                             "lblAnglePreset",
                             "picRotateAngleSample",
                             "picRotateAngleSampleBgd",
                             "picUndo",
                             "picAuto",
                             "picTemp",
                             "picRegion",
                             "picMask",
                             "mnuToolsRegion",
                             "Mnu_Pipette",
                             "fra1Color3D",
                             "cboShadeThickness",
                             "lblShadeThickness",
                             "icb1Color3D",
                             "Label1",
                             "cmd1Color3DProceed",
                             "mnuFile",
                             "mnuEdit",
                             "mnuTools",
                             "mnuText"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestMainWindow::everyNameIsThere() {
    QFETCH(QString, name);
    Program program;
    QVERIFY(program.window.findChild<QObject*>(name));
}

void TestMainWindow::captionsOfTheMenus_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* name, const char* caption) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromUtf8(caption);
    };
    row("mnuFileNew", "&Nouveau texte 3D");
    row("mnuFileOpen", "&Ouvrir une image de fond...");
    row("mnuFileSave", "&Enregistrer Sous...");
    row("mnuFileExit", "&Quitter");
    row("mnuEditUndo", "&Annuler");
    row("mnuEditCut", "&Couper");
    row("mnuEditCopy", "Co&pier");
    row("mnuEditPaste", "Co&ller");
    row("mnuEditPasteTransparent", "Coller en &transparence");
    row("Mnu_ColleNouvIMG", "Coller dans une &nouvelle image");
    row("mnuEditPasteFromFile", "Coller depuis un &fichier");
    row("mnuEditPasteFromFileTransparent", "Coller depuis un fichier en transpa&rence");
    row("mnuEditClearClipboard", "&Vider le presse-papiers");
    row("mnuTextWrite(0)", "Texte 3D - &1 Couleur");
    row("mnuTextWrite(1)", "Texte 3D - &2 Couleurs");
    row("mnuTextWrite(2)", "Texte &Circulaire");
    row("Mnu_ChoixCouleur", "Choix de la couleur de texte");
}

void TestMainWindow::captionsOfTheMenus() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    Program program;
    QCOMPARE(program.entry(name.toLatin1())->text().section(QLatin1Char('\t'), 0, 0), caption);
}

void TestMainWindow::mnemonicsAreUniquePerMenu() {
    Program program;
    QList<QList<QAction*>> levels = {program.window.menuBar()->actions()};
    for (const char* menu : {"mnuFile", "mnuEdit", "mnuTools", "mnuText"})
        levels.append(program.find<QMenu>(menu)->actions());
    for (const QList<QAction*>& level : levels) {
        QSet<QChar> seen;
        for (const QAction* entry : level) {
            const qsizetype at = entry->text().indexOf(QLatin1Char('&'));
            if (at < 0)
                continue;
            const QChar key = entry->text().at(at + 1).toLower();
            QVERIFY2(!seen.contains(key), qPrintable(entry->text()));
            seen.insert(key);
        }
    }
}

void TestMainWindow::everyControlIsVisibleWithoutOverlap_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("maximised on 1366 x 768") << QSize(1366, 744);
    QTest::newRow("maximised on 1024 x 768") << QSize(1024, 744);
    QTest::newRow("3840 x 2160") << QSize(3840, 2136);
    QTest::newRow("the smallest") << QSize(900, 480);
}

void TestMainWindow::everyControlIsVisibleWithoutOverlap() {
    QFETCH(QSize, size);
    Program program(size);
    QCOMPARE(program.window.size(), size);
    const QRect inside = program.window.centralWidget()->rect();
    const QList<QWidget*> siblings =
        program.window.centralWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* one : siblings) {
        if (!one->isVisible())
            continue;
        QVERIFY2(inside.contains(one->geometry()), qPrintable(one->objectName()));
        QVERIFY2(one->width() >= one->minimumSizeHint().width() &&
                     one->height() >= one->minimumSizeHint().height(),
                 qPrintable(one->objectName()));
        for (const QWidget* other : siblings)
            if (other != one && other->isVisible())
                QVERIFY2(!drawnArea(*one).intersects(drawnArea(*other)),
                         qPrintable(one->objectName() + other->objectName()));
    }
    for (const char* name : {"frafont", "fraRotateAngle", "fra1Color3D"}) {
        const auto* frame = program.find<QWidget>(name);
        const auto* panel = program.find<QWidget>("fraTextPanel");
        QVERIFY2(panel->rect().contains(frame->geometry()), name);
        QVERIFY2(frame->height() >= frame->minimumSizeHint().height(), name);
    }
}

void TestMainWindow::resizingLaysOutAndResetsNothing() {
    Program program;
    program.window.work().showFileName(QStringLiteral("/tmp/photo.jpg"));
    program.window.work().ImageModified = true;
    program.window.work().UndoAvailable = true;
    const int width = program.window.view().picZ->width();
    program.window.resize(1100, 600);
    QCoreApplication::processEvents();
    QCOMPARE(program.window.view().picZ->width(), width - 266);
    QCOMPARE(program.window.view().picZ->height(), 600 - 200 - program.window.view().HScroll1->height());
    QCOMPARE(program.window.view().VScroll1->maximum(), 480 - program.window.view().picZ->height());
    QCOMPARE(program.label("lblFileSpec"), QStringLiteral("/tmp/photo.jpg"));
    QVERIFY(program.window.work().ImageModified && program.window.work().UndoAvailable);
}

void TestMainWindow::secondStageRunsOnce() {
    Program program;
    program.window.work().showFileName(QStringLiteral("/tmp/photo.jpg"));
    program.window.work().ImageModified = true;
    program.window.hide();
    program.window.show();
    QCoreApplication::processEvents();
    QCOMPARE(program.label("lblFileSpec"), QStringLiteral("/tmp/photo.jpg"));
    QVERIFY(program.window.work().ImageModified);
}

void TestMainWindow::fileMenuNeedsAPicture() {
    Program program;
    program.window.work().ImageLoaded = false;
    program.openMenu("mnuFile");
    QVERIFY(!program.entry("mnuFileSave")->isEnabled());
    QVERIFY(program.entry("mnuFileOpen")->isEnabled());
    QVERIFY(program.entry("mnuFileExit")->isEnabled());
    program.window.work().ImageLoaded = true;
    program.openMenu("mnuFile");
    QVERIFY(program.entry("mnuFileSave")->isEnabled());
}

void TestMainWindow::toolsMenuNeedsAPicture() {
    Program program;
    program.window.work().ImageLoaded = false;
    program.openMenu("mnuTools");
    QVERIFY(!program.entry("mnuToolsRegion")->isEnabled());
    program.window.work().ImageLoaded = true;
    program.openMenu("mnuTools");
    QVERIFY(program.entry("mnuToolsRegion")->isEnabled());
    program.entry("mnuToolsRegion")->trigger();
    QCOMPARE(program.find<ImageButton>("imgRegion")->Appearance(), 1);
    QVERIFY(program.entry("mnuToolsRegion")->isChecked());
}

void TestMainWindow::editMenuFollowsTheState() {
    Program program;
    QVERIFY(!program.find<QAbstractButton>("CmdAnnul")->isEnabled());
    program.window.work().UndoAvailable = true;
    program.openMenu("mnuEdit");
    QVERIFY(program.entry("mnuEditUndo")->isEnabled());
    QVERIFY(program.find<QAbstractButton>("CmdAnnul")->isEnabled());
    program.entry("mnuEditUndo")->trigger();
    QVERIFY(program.find<QAbstractButton>("CmdAnnul")->isEnabled()); // until the menu opens again
    program.openMenu("mnuEdit");
    QVERIFY(!program.entry("mnuEditUndo")->isEnabled());
    QVERIFY(!program.find<QAbstractButton>("CmdAnnul")->isEnabled());
}

void TestMainWindow::undoButtonIsRefreshedAtOnce() {
    Program program;
    program.window.work().TakeUndoSnapshot();
    program.window.work().picDisp.Line(QPointF(0, 0), QPointF(9, 9), Black, BoxStyle::Filled);
    program.openMenu("mnuEdit");
    QTest::mouseClick(program.find<QAbstractButton>("CmdAnnul"), Qt::LeftButton);
    QCOMPARE(program.window.work().picDisp.Point(5, 5), White);
    QVERIFY(!program.find<QAbstractButton>("CmdAnnul")->isEnabled());
    QVERIFY(!program.entry("mnuEditUndo")->isEnabled());
}

void TestMainWindow::keyRunsTheRuleFirst() {
    Program program;
    program.window.view().picDisp->setFocus();
    program.window.work().TakeUndoSnapshot();
    program.window.work().picDisp.Line(QPointF(0, 0), QPointF(9, 9), Black, BoxStyle::Filled);
    QVERIFY(!program.entry("mnuEditUndo")->isEnabled()); // as the menu last left it
    QTest::keyClick(&program.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(program.window.work().picDisp.Point(5, 5), White);
    program.dialogs.cancelOpen();
    QTest::keyClick(&program.window, Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(program.dialogs.opens.size(), 1);
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        program.dialogs.cancelSave();
        QTest::keyClick(&program.window, Qt::Key_S, modifiers);
    }
    QCOMPARE(program.dialogs.saves.size(), 2);
}

void TestMainWindow::keyOfADisabledEntryDoesNothing() {
    Program program;
    program.window.view().picDisp->setFocus();
    program.window.work().TakeUndoSnapshot();
    program.window.work().picDisp.Line(QPointF(0, 0), QPointF(9, 9), Black, BoxStyle::Filled);
    program.window.work().UndoAvailable = false;
    QTest::keyClick(&program.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(program.window.work().picDisp.Point(5, 5), Black);
    program.window.work().ImageLoaded = false;
    QTest::keyClick(&program.window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(program.dialogs.saves.size(), 0);
}

void TestMainWindow::closingAsksWhenModified() {
    Program program;
    program.window.work().ImageModified = true;
    program.dialogs.answer(Answer::Cancel);
    QVERIFY(!program.window.close());
    QVERIFY(program.window.isVisible());
    const MessageBox asked = program.dialogs.messages.first();
    QCOMPARE(asked.text, QStringLiteral("Enregistrer l'image ?"));
    QCOMPARE(asked.title, QStringLiteral("Image modifiée"));
    QCOMPARE(asked.buttons, Buttons::YesNoCancel);
    QCOMPARE(asked.icon, Icon::Question);
    program.dialogs.answer(Answer::No);
    QVERIFY(program.window.close());
}

void TestMainWindow::closingAfterCancelledSaveIsRefused() {
    Program program;
    program.window.work().ImageModified = true;
    program.dialogs.answer(Answer::Yes);
    program.dialogs.cancelSave();
    QVERIFY(!program.window.close());
    QVERIFY(program.window.isVisible());
}

void TestMainWindow::closingAfterFailedSaveGoesOn() {
    Program program;
    program.window.work().ImageModified = true;
    program.dialogs.answer(Answer::Yes);
    program.dialogs.chooseSave(QStringLiteral("/nowhere/at/all/photo.bmp"), 1);
    program.dialogs.answer(Answer::Ok); // the error message
    QVERIFY(program.window.close());
    QVERIFY(program.dialogs.messages.last().text.startsWith(
        QStringLiteral("Erreur lors de l'enregistrement du fichier !\r\n76     ")));
}

void TestMainWindow::closingUnmodifiedAsksNothing() {
    Program program;
    QVERIFY(program.window.close());
}

void TestMainWindow::quitEntryAsks() {
    Program program;
    program.window.work().ImageModified = true;
    program.dialogs.answer(Answer::Cancel);
    program.entry("mnuFileExit")->trigger();
    QVERIFY(program.window.isVisible());
    QCOMPARE(program.dialogs.messages.size(), 1);
}

void TestMainWindow::quitButtonEndsAtOnce() {
    Program program;
    program.window.work().ImageModified = true;
    QTimer::singleShot(0, &program.window, [&] {
        QTest::mouseClick(program.find<QAbstractButton>("cmdCancel"), Qt::LeftButton);
    });
    QTimer guard;
    guard.setSingleShot(true);
    connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    guard.start(5000);
    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(program.dialogs.messages.size(), 0);
}

void TestMainWindow::textMenuReleasesTheTools() {
    Program program;
    program.find<ImageButton>("imgRegion")->setAppearance(1);
    program.find<ImageButton>("imgColorPicker")->setAppearance(1);
    program.openMenu("mnuText");
    QCOMPARE(program.find<ImageButton>("imgRegion")->Appearance(), 0);
    QCOMPARE(program.find<ImageButton>("imgColorPicker")->Appearance(), 0);
}

void TestMainWindow::oneColourEntryShowsTheFrames() {
    Program program;
    for (const char* name : {"frafont", "fraRotateAngle", "fra1Color3D"})
        program.find<QWidget>(name)->hide();
    program.window.block().SelX2 = 10;
    program.window.block().HasSelection = true;
    program.window.work().UndoAvailable = true;
    program.window.work().picDisp.Line(QPointF(0, 0), QPointF(9, 9), Black, BoxStyle::Filled);
    program.entry("mnuTextWrite(0)")->trigger();
    for (const char* name : {"frafont", "fraRotateAngle", "fra1Color3D"})
        QVERIFY(program.find<QWidget>(name)->isVisible());
    QVERIFY(program.entry("mnuTextWrite(0)")->isChecked());
    QVERIFY(!program.entry("mnuTextWrite(1)")->isChecked());
    QVERIFY(!program.entry("mnuTextWrite(2)")->isChecked());
    QVERIFY(!program.window.block().HasSelection);
    QCOMPARE(program.window.block().SelX2, 0.0F);
    QVERIFY(!program.window.work().UndoAvailable);
    QCOMPARE(program.window.work().picDisp.Point(5, 5), White);
}

void TestMainWindow::backgroundColour() {
    Program program;
    WorkPicture& work = program.window.work();
    work.picDisp.setPicture(grid({"rr", "rr"}));
    work.picDisp.Line(QPointF(1, 1), QPointF(9, 9), Black, BoxStyle::Filled);
    work.UndoAvailable = true;
    program.window.block().HasSelection = true;
    program.dialogs.pickColour(rgb(0, 0, 255));
    auto* button = program.find<QAbstractButton>("Command2");
    QCOMPARE(button->text(), QStringLiteral("..."));
    QCOMPARE(button->toolTip(), QStringLiteral("Changer la couleur de fond"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(program.dialogs.colours.first(), White); // starts from the present one
    QCOMPARE(program.find<ColourBox>("LblFond")->BackColor(), rgb(0, 0, 255));
    QCOMPARE(work.picDisp.Point(1, 1), rgb(255, 0, 0));
    QCOMPARE(work.picDisp.Point(2, 2), rgb(0, 0, 255));
    QCOMPARE(work.picSnap.BackColor(), rgb(0, 0, 255));
    QCOMPARE(work.picMask.BackColor(), rgb(0, 0, 255));
    QCOMPARE(work.picRegion.BackColor(), White);
    QVERIFY(!work.UndoAvailable);
    QVERIFY(!program.window.block().HasSelection);
}

void TestMainWindow::backgroundColourCancelled() {
    Program program;
    program.window.work().picDisp.Line(QPointF(1, 1), QPointF(9, 9), Black, BoxStyle::Filled);
    program.dialogs.cancelColour();
    QTest::mouseClick(program.find<QAbstractButton>("Command2"), Qt::LeftButton);
    QCOMPARE(program.window.work().picDisp.Point(5, 5), Black);
    QCOMPARE(program.dialogs.messages.size(), 0);
    program.entry("mnuToolsRegion")->trigger();
    QVERIFY(program.find<QAbstractButton>("Command2")->isEnabled());
    QTest::mouseClick(program.find<QAbstractButton>("imgRegion"), Qt::LeftButton);
    QVERIFY(!program.find<QAbstractButton>("Command2")->isEnabled());
    QVERIFY(!program.find<QWidget>("LblFond")->isEnabled());
}

void TestMainWindow::pickerSetsTheTextColour() {
    Program program;
    program.window.work().picDisp.Line(QPointF(10, 10), QPointF(30, 30), rgb(10, 20, 255), BoxStyle::Filled);
    program.window.work().picDisp.commit();
    QTest::mouseClick(program.find<QAbstractButton>("imgColorPicker"), Qt::LeftButton);
    QTest::mouseClick(program.window.view().picDisp, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QCOMPARE(program.find<ColourBox>("picTextColor")->BackColor(), rgb(10, 20, 255));
    QCOMPARE(program.label("lblTextColor"), QStringLiteral("RVB(10, 20, 255)  Hex: #A14FF"));
    QCOMPARE(program.find<ImageButton>("imgColorPicker")->Appearance(), 0);
    QVERIFY(program.window.view().picDisp->hasFocus());
}

void TestMainWindow::resizeWithAHugePictureAsksNothing() {
    Program program;
    program.window.work().picDisp.setInnerSize(QSize(60000, 900));
    program.window.resize(1200, 700);
    QCoreApplication::processEvents();
    QCOMPARE(program.dialogs.messages.size(), 0);
    QCOMPARE(program.window.view().VScroll1->maximum(), 900 - program.window.view().picZ->height());
    program.window.work().picDisp.setInnerSize(QSize(100, 100));
}

void TestMainWindow::longFileNamesAreShortened() {
    Program program;
    const QString path =
        QStringLiteral("/tmp/") + QString(400, QLatin1Char('m')) + QStringLiteral("/photo.jpg");
    program.window.work().showFileName(path);
    const auto* label = program.find<ElidedLabel>("lblFileSpec");
    QCOMPARE(label->text(), path);
    QVERIFY(label->shownText() != path);
    QVERIFY(label->fontMetrics().horizontalAdvance(label->shownText()) <= label->width());
    QVERIFY(label->shownText().endsWith(QStringLiteral("photo.jpg")));
    program.window.work().showFileName(QStringLiteral("Sans Nom"));
    QCOMPARE(label->shownText(), QStringLiteral("Sans Nom"));
}

void TestMainWindow::editEntriesFollowTheRule_data() {
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<bool>("selection");
    QTest::addColumn<bool>("clipboard");
    for (const bool loaded : {false, true})
        for (const bool selection : {false, true})
            for (const bool clipboard : {false, true})
                QTest::addRow("%d %d %d", loaded, selection, clipboard) << loaded << selection << clipboard;
}

void TestMainWindow::editEntriesFollowTheRule() {
    QFETCH(bool, loaded);
    QFETCH(bool, selection);
    QFETCH(bool, clipboard);
    for (const bool undo : {false, true}) {
        const EditEntries enabled = EditEntries::enabledIn({loaded, undo, selection, clipboard});
        QCOMPARE(enabled.undo, undo);
        QCOMPARE(enabled.cut, loaded && selection);
        QCOMPARE(enabled.copy, loaded);
        QCOMPARE(enabled.paste, loaded && clipboard);
        QCOMPARE(enabled.pasteFromFile, loaded);
    }
}

void TestMainWindow::everyCommandReleasesThePicker_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"cmd1Color3DProceed", "CmdAnnul", "mnuEditUndo", "cmdTextColor",
                                "Mnu_ChoixCouleur", "txtFontSize", "mnuFileOpen", "mnuText"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

void TestMainWindow::everyCommandReleasesThePicker() {
    QFETCH(QString, command);
    const QTemporaryDir folder;
    const QString photo = folder.filePath(QStringLiteral("p.bmp"));
    QVERIFY(QImage(3, 3, QImage::Format_RGB32).save(photo));
    Program program;
    program.window.work().TakeUndoSnapshot();
    program.openMenu("mnuEdit");
    program.find<ImageButton>("imgColorPicker")->setAppearance(1);
    if (command == QStringLiteral("mnuFileOpen"))
        program.dialogs.chooseOpen(photo, 1);
    if (command == QStringLiteral("cmdTextColor") || command == QStringLiteral("Mnu_ChoixCouleur"))
        program.dialogs.cancelColour();
    if (command == QStringLiteral("mnuText"))
        program.openMenu("mnuText");
    else if (auto* entry = program.window.findChild<QAction*>(command))
        entry->trigger();
    else if (auto* button = program.window.findChild<QAbstractButton*>(command))
        button->click();
    else
        program.window.findChild<QComboBox*>(command)->setEditText(QStringLiteral("30"));
    QCOMPARE(program.find<ImageButton>("imgColorPicker")->Appearance(), 0);
}

void TestMainWindow::creatingATextLocksTheBackground() {
    Program program;
    program.find<QAbstractButton>("cmd1Color3DProceed")->click();
    QVERIFY(program.window.block().HasSelection);
    QVERIFY(!program.find<QAbstractButton>("Command2")->isEnabled());
    QVERIFY(!program.find<QWidget>("LblFond")->isEnabled());
    QVERIFY(program.window.view().picDisp->hasFocus());
    QVERIFY(program.entry("mnuEditUndo")->isEnabled());
    QVERIFY(program.entry("mnuToolsRegion")->isChecked()); // mirrors the zone mode
}

void TestMainWindow::openingForgetsTheBlockOfThePictureBefore() {
    const QTemporaryDir folder;
    QImage blue(320, 240, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(folder.filePath(QStringLiteral("p.bmp"))));
    Program program;
    program.find<QAbstractButton>("cmd1Color3DProceed")->click();
    program.dialogs.answer(Answer::No);
    program.dialogs.chooseOpen(folder.filePath(QStringLiteral("p.bmp")), 1);
    program.entry("mnuFileOpen")->trigger();
    QVERIFY(!program.window.block().HasSelection);
    QVERIFY(program.window.work().UndoAvailable); // unchanged
    auto* picture = program.window.view().picDisp;
    QTest::mousePress(picture, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    QTest::mouseMove(picture, QPoint(90, 90));
    QTest::mouseRelease(picture, Qt::LeftButton, Qt::NoModifier, QPoint(90, 90));
    QCOMPARE(program.window.work().picDisp.Picture(), Raster::fromImage(blue));
}

void TestMainWindow::undoAfterOpeningShowsTheEmptiedSnapshot() {
    const QTemporaryDir folder;
    QImage blue(320, 240, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(folder.filePath(QStringLiteral("p.bmp"))));
    Program program;
    program.window.work().TakeUndoSnapshot();
    program.dialogs.chooseOpen(folder.filePath(QStringLiteral("p.bmp")), 1);
    program.entry("mnuFileOpen")->trigger();
    program.openMenu("mnuEdit");
    program.entry("mnuEditUndo")->trigger();
    QCOMPARE(program.window.work().picDisp.Image(), Raster(QSize(320, 240), White));
}

void TestMainWindow::keysWaitForTheEndOfAGesture() {
    Program program;
    auto* picture = program.window.view().picDisp;
    program.window.work().TakeUndoSnapshot();
    QTest::mousePress(program.window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      picture->mapTo(&program.window, QPoint(50, 50)));
    QTest::keyClick(program.window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(program.dialogs.opens.size(), 0);
    QTest::mouseRelease(program.window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                        picture->mapTo(&program.window, QPoint(50, 50)));
    program.window.work().ImageModified = false; // every release marks it
    program.dialogs.cancelOpen();
    QTest::keyClick(program.window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(program.dialogs.opens.size(), 1);
}

OVRANO_TEST(TestMainWindow)
#include "tst_mainwindow.moc"
