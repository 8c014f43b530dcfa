#include "scenarios/landscape.h"
#include "scenarios/tour.h"
#include "support/inputerror.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

#include <algorithm>
#include <cstdio>

namespace ovrano::testing {

namespace {

constexpr QSize BalloonSize(180, 220);
const QString Text = QStringLiteral("Été à Porquerolles");
const QString MainWindowName = QStringLiteral("frmPicText0");

/// Makes a folder and removes what an earlier tour left there.
QDir prepared(const QDir& folder) {
    if (!folder.mkpath(QStringLiteral(".")))
        throw InputError(QStringLiteral("the folder %1 cannot be made").arg(folder.path()));
    const QStringList patterns = {QStringLiteral("[0-9][0-9]-*.png"), QStringLiteral("photo.jpg"),
                                  QStringLiteral("ballon.bmp"), QStringLiteral("porquerolles.*")};
    for (const QString& name : folder.entryList(patterns, QDir::Files))
        QFile::remove(folder.filePath(name));
    return folder;
}

template<typename Dialog>
Dialog* activeDialog() {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isActiveWindow() ? dialog : nullptr;
}

/// Where the colour dialog takes a colour as text: its one field that is no spin box's.
QWidget* htmlField() {
    const auto* dialog = activeDialog<QColorDialog>();
    const auto fields = dialog ? dialog->findChildren<QLineEdit*>() : QList<QLineEdit*>();
    const auto found = std::find_if(fields.begin(), fields.end(), [](const QLineEdit* field) {
        return field->isVisible() && !qobject_cast<QAbstractSpinBox*>(field->parentWidget());
    });
    return found == fields.end() ? nullptr : *found;
}

} // namespace

void say(const QString& path, const QString& explanation) {
    std::printf("%-40s %s\n", qUtf8Printable(path), qUtf8Printable(explanation));
    std::fflush(stdout);
}

Tour::Tour(MainWindow& window, const QDir& folder, int width)
    : m_window(window)
    , m_folder(prepared(folder))
    , m_width(width) {}

void Tour::play() {
    makePictures();
    m_user.waitForWindow(MainWindowName);
    show(QStringLiteral("depart"), QStringLiteral("the program as it starts, with a blank picture"));
    open();
    write();
    chooseColour();
    choosePlacement();
    create();
    undoAndCreateAgain();
    drag();
    drop();
    saveAll();
    moveZone();
    pasteBalloon();
    composeInTwoColours();
    layInACircle();
    quit();
}

void Tour::makePictures() {
    if (!landscape(PhotoSize).save(photoPath(), "jpg", 92) || !balloon(BalloonSize).save(balloonPath()))
        throw InputError(QStringLiteral("the pictures cannot be written"));
    say(photoPath(), QStringLiteral("the photo that the text is written on"));
    say(balloonPath(), QStringLiteral("a drawing on white, to be pasted onto it"));
}

void Tour::open() {
    m_user.input.strike(Qt::CTRL | Qt::Key_O);
    m_user.waitFor([] { return activeDialog<QFileDialog>() != nullptr; }, QStringLiteral("the open dialog"));
    m_user.input.type(QDir::toNativeSeparators(QFileInfo(photoPath()).absoluteFilePath()));
    show(QStringLiteral("ouvrir"), QStringLiteral("Ouvrir une image de fond: the photo's path is typed"));
    answerFileDialog(photoPath());
    m_user.waitFor([this] { return m_window.work().picDisp.innerSize() == PhotoSize; },
                   QStringLiteral("the photo"));
    show(QStringLiteral("photo"), QStringLiteral("the photo is open, its size and name below it"));
}

void Tour::write() {
    m_user.retype(QStringLiteral("txbWriteText"), Text);
    m_user.chooseItem(QStringLiteral("cboFontName"), QStringLiteral("Liberation Serif"));
    m_user.chooseItem(QStringLiteral("txtFontSize"), QStringLiteral("72"));
    m_user.click(QStringLiteral("imgBold"));
    show(QStringLiteral("texte"), QStringLiteral("the text is typed; its font, size and weight are chosen"));
}

void Tour::chooseColour() {
    m_user.click(QStringLiteral("cmdTextColor"));
    m_user.click(htmlField, QStringLiteral("the colour dialog's HTML field"));
    m_user.input.strike(Qt::CTRL | Qt::Key_A);
    m_user.input.type(QColor::fromRgb(toPixel(TextColour)).name());
    show(QStringLiteral("couleur"), QStringLiteral("Choix de la couleur de texte: a red is typed"));
    m_user.input.strike(Qt::Key_Return);
    m_user.waitForWindow(MainWindowName);
}

void Tour::choosePlacement() {
    m_user.chooseItem(QStringLiteral("cboShadeThickness"), QString::number(Depth));
    m_user.chooseItem(QStringLiteral("icb1Color3D"), QStringLiteral("Haut Droit"));
    m_user.chooseItem(QStringLiteral("cboRotateAngle"), QStringLiteral("8"));
    show(QStringLiteral("reglages"), QStringLiteral("colour, depth, direction and angle are chosen"));
}

void Tour::create() {
    m_user.click(QStringLiteral("cmd1Color3DProceed"));
    waitForLiftedBlock(true);
    show(QStringLiteral("creer"), QStringLiteral("Créer le texte 3D: the text floats over the photo"));
}

void Tour::undoAndCreateAgain() {
    const auto shown = [this] { return m_window.work().picDisp.Picture().toImage(); };
    const QImage with = inGui(shown);
    m_user.click(QStringLiteral("CmdAnnul"));
    m_user.waitFor([this] { return !m_window.work().UndoAvailable; }, QStringLiteral("undo"));
    if (inGui(shown) == with)
        throw InputError(QStringLiteral("undo left the text on the photo"));
    show(QStringLiteral("annuler"), QStringLiteral("Annuler: the photo is as it was"));
    create();
}

void Tour::drag() {
    const QPoint grabbed = block().center();
    m_user.input.drag(onScreen(grabbed), onScreen(grabbed + QPoint(90, -250)), 12);
    m_placed = block();
    show(QStringLiteral("deplacer"), QStringLiteral("the text is dragged into the sky"));
}

void Tour::drop() {
    const QRect visible = inGui([this] { return QRect(QPoint(0, 0), m_window.view().viewportSize()); });
    const QPoint beside(m_placed.right() + 20, visible.height() - 20);
    if (!visible.contains(beside))
        throw InputError(QStringLiteral("no place is left beside the text"));
    m_user.input.click(onScreen(beside));
    waitForLiftedBlock(false);
    show(QStringLiteral("poser"), QStringLiteral("a click beside the text fixes it"));
}

void Tour::saveAs(const std::function<void()>& askForIt, const QString& type, const QString& suffix,
                  const QString& explanation) {
    askForIt();
    m_user.waitFor([] { return activeDialog<QFileDialog>() != nullptr; }, QStringLiteral("the save dialog"));
    m_user.chooseItem(QStringLiteral("fileTypeCombo"), type);
    const QString path = resultPath(suffix);
    m_user.retype(QStringLiteral("fileNameEdit"), QFileInfo(path).absoluteFilePath());
    show(QStringLiteral("enregistrer-") + suffix, QStringLiteral("Enregistrer Sous: ") + type.simplified());
    answerFileDialog(path);
    m_user.waitFor([&] { return QFileInfo::exists(path); }, path);
    say(path, explanation);
}

void Tour::saveAll() {
    saveAs([this] { m_user.chooseMenu(QStringLiteral("mnuFile"), QStringLiteral("mnuFileSave")); },
           QStringLiteral("Image en mode point  (*.BMP)"), QStringLiteral("bmp"),
           QStringLiteral("the result as BMP, through the menu"));
    saveAs([this] { m_user.click(QStringLiteral("Command1")); },
           QStringLiteral("Format JPG-Ratio 80%  (*.JPG)"), QStringLiteral("jpg"),
           QStringLiteral("the result as JPEG of ratio 80, through the button"));
    saveAs([this] { m_user.input.strike(Qt::CTRL | Qt::Key_S); }, QStringLiteral("Fichier GIF 256 couleurs"),
           QStringLiteral("gif"), QStringLiteral("the result as GIF of 256 colours, through the key"));
}

void Tour::moveZone() {
    // The tool is still on from placing the text.
    m_user.input.drag(onScreen(QPoint(60, 60)), onScreen(QPoint(420, 220)), 8);
    waitForLiftedBlock(true);
    m_user.input.drag(onScreen(QPoint(240, 140)), onScreen(QPoint(320, 200)), 8);
    show(QStringLiteral("zone"), QStringLiteral("a zone is framed and dragged; its place is left behind"));
    m_user.click(QStringLiteral("CmdAnnul"));
    m_user.waitFor([this] { return !m_window.work().UndoAvailable; }, QStringLiteral("undo"));
}

void Tour::pasteBalloon() {
    m_user.chooseMenu(QStringLiteral("mnuEdit"), QStringLiteral("mnuEditPasteFromFileTransparent"));
    m_user.waitFor([] { return activeDialog<QFileDialog>() != nullptr; }, QStringLiteral("the file dialog"));
    m_user.input.type(QDir::toNativeSeparators(QFileInfo(balloonPath()).absoluteFilePath()));
    answerFileDialog(balloonPath());
    waitForLiftedBlock(true);
    const QPoint grabbed = block().center();
    m_user.input.drag(onScreen(grabbed), onScreen(QPoint(420, 380)), 12);
    show(QStringLiteral("coller"), QStringLiteral("a drawing is pasted, its white made transparent"));
    m_user.input.strike(Qt::Key_Return);
    waitForLiftedBlock(false);
}

void Tour::composeInTwoColours() {
    m_user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(1)"));
    m_user.waitForWindow(QStringLiteral("Txt3D"));
    m_user.retype(QStringLiteral("Text1"), Text);
    m_user.click(QStringLiteral("Check2"));
    show(QStringLiteral("deux-couleurs"),
         QStringLiteral("Texte 3D avec 2 couleurs: a text with slanted depth"));
    m_user.click(QStringLiteral("Command2"));
    m_user.waitForWindow(MainWindowName);
}

void Tour::layInACircle() {
    m_user.chooseMenu(QStringLiteral("mnuText"), QStringLiteral("mnuTextWrite(2)"));
    m_user.waitForWindow(QStringLiteral("RotFonts"));
    show(QStringLiteral("cercle"), QStringLiteral("Texte Circulaire: a text along a circle"));
    m_user.click(QStringLiteral("Command5"));
    m_user.waitForWindow(MainWindowName);
}

void Tour::quit() {
    m_user.chooseMenu(QStringLiteral("mnuFile"), QStringLiteral("mnuFileExit"));
    m_user.waitFor([] { return activeDialog<QMessageBox>() != nullptr; }, QStringLiteral("the question"));
    show(QStringLiteral("quitter"), QStringLiteral("Quitter asks whether to save, also after saving"));
    m_user.click([] { return activeDialog<QMessageBox>()->button(QMessageBox::No); }, QStringLiteral("Non"));
    m_user.waitFor([this] { return !m_window.isVisible(); }, QStringLiteral("the window to close"));
}

/// Confirms the file dialog. Return is struck again while the list of proposed names takes it.
void Tour::answerFileDialog(const QString& path) {
    const auto closed = [] { return activeDialog<QFileDialog>() == nullptr; };
    constexpr int Strokes = 3;
    for (int i = 0; i < Strokes && !inGui(closed); ++i)
        m_user.input.strike(Qt::Key_Return);
    m_user.waitFor(closed, QStringLiteral("the file dialog to take ") + path);
    m_user.waitForWindow(MainWindowName);
}

void Tour::waitForLiftedBlock(bool lifted) {
    m_user.waitFor(
        [this, lifted] { return m_window.block().HasSelection == lifted && !QApplication::overrideCursor(); },
        lifted ? QStringLiteral("the text to float") : QStringLiteral("the text to be fixed"));
}

QRect Tour::block() const {
    return inGui([this] {
        const LiftedBlock& lifted = m_window.block();
        return QRect(QPointF(lifted.SelX1, lifted.SelY1).toPoint(),
                     QPointF(lifted.SelX2, lifted.SelY2).toPoint());
    });
}

QPoint Tour::onScreen(QPoint picturePoint) const {
    return inGui([&] { return m_window.view().picDisp->mapToGlobal(picturePoint); });
}

void Tour::show(const QString& name, const QString& explanation) {
    const QString number = QStringLiteral("%1").arg(++m_step, 2, 10, QLatin1Char('0'));
    const QString path = m_folder.filePath(number + QLatin1Char('-') + name + QStringLiteral(".png"));
    QImage screen = m_user.screen();
    if (m_width > 0)
        screen = screen.scaledToWidth(m_width, Qt::SmoothTransformation);
    if (!screen.save(path))
        throw InputError(QStringLiteral("the picture %1 cannot be written").arg(path));
    say(path, explanation);
}

} // namespace ovrano::testing
