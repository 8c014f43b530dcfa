#include "app/mainwindow.h"

#include "app/editmenu.h"
#include "app/filedrop.h"
#include "app/statustips.h"
#include "app/textfieldkeys.h"
#include "app/windowlayout.h"
#include "platform/clipboard.h"
#include "platform/errorreporter.h"
#include "platform/runtimeerror.h"
#include "platform/screen.h"
#include "platform/yield.h"
#include "ui/flatten.h"
#include "ui/icons.h"
#include "wizards/rotfonts.h"
#include "wizards/txt3d.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QTimer>

#include <algorithm>

namespace ovrano {

namespace {

constexpr Colour DefaultTextColour = rgb(0, 64, 128);
constexpr QSize SmallestWindow(900, 480);
constexpr int WidestTextPanel = 860; // pixels

QWidget* newContent(QMainWindow& window) {
    auto* content = new QWidget(&window);
    window.setCentralWidget(content);
    return content;
}

} // namespace

MainWindow::MainWindow(Dialogs& dialogs)
    : m_dialogs(dialogs)
    , m_content(newContent(*this))
    , m_menus(*this)
    , m_toolBox(new ToolBox(m_content))
    , m_work(dialogs, this)
    , m_view(m_work, m_content)
    , m_block(m_work)
    , m_pointer(m_work, m_view, m_block, *m_toolBox->imgRegion, *m_toolBox->imgColorPicker,
                *m_menus.mnuToolsRegion, dialogs)
    , m_keyboardPointer(m_view)
    , m_blockKeys(m_work, m_view, m_block, *m_toolBox->imgRegion, dialogs)
    , m_background(m_work, m_block, *m_toolBox->Command2, *m_toolBox->LblFond, dialogs)
    , m_undo(m_work, m_view, dialogs)
    , m_save(m_work, dialogs)
    , m_new(m_work, m_view, m_save, *m_toolBox->LblFond, dialogs)
    , m_open(m_work, m_view, m_save, dialogs)
    , m_copyCut(m_work, m_block, dialogs)
    , m_paste(m_work, m_view, m_block, *m_toolBox->imgRegion, dialogs)
    , m_handover(m_work, m_view)
    , frafont(new StylePanel(m_work, dialogs, m_content))
    , fraRotateAngle(new AnglePanel(m_content))
    , fra1Color3D(new OneColourPanel(m_work, m_view, m_block, m_pointer, *frafont, *fraRotateAngle, dialogs,
                                     m_content))
    , cmdOneColour(new QPushButton(QStringLiteral("Revenir au texte 3D à une couleur")))
    , fraTextPanel(newTextPanel())
    , lblImageSize(newLabel("lblImageSize", QStringLiteral("L= H=")))
    , lblFileSpec(new ElidedLabel(QStringLiteral("lblFileSpec"), Qt::ElideMiddle, m_content))
    , lblHint(new HintLine(QStringLiteral("lblHint"), *this, m_content))
    , m_nextStep(m_work, m_block, *m_toolBox->imgRegion, *m_toolBox->imgColorPicker, *frafont->txbWriteText,
                 *frafont) {
    setObjectName(QStringLiteral("frmPicText0"));
    setWindowTitle(QStringLiteral("Ovrano de création de texte 3D"));
    setMinimumSize(SmallestWindow);
    connectMenus();
    connectEditMenu();
    connectTextTools();
    connectEditing();
    connectDocument();
    connectWizards();
    connectHints();
    new TextFieldKeys(*frafont->txbWriteText);
    new FileDrop(*this, [this](const QString& path) {
        if (!EventYield::isUnderWay())
            m_open.openDropped(path);
    });
    Form_Load();
}

QFrame* MainWindow::newTextPanel() {
    auto* panel = new QFrame(m_content);
    panel->setObjectName(QStringLiteral("fraTextPanel"));
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    // On a wide screen the three stay together, so that the way from one to the next is short.
    frafont->setMaximumWidth(WidestTextPanel);
    row->addWidget(frafont, 1);
    row->addWidget(fraRotateAngle);
    row->addWidget(fra1Color3D);
    cmdOneColour->setObjectName(QStringLiteral("cmdOneColour"));
    row->addWidget(cmdOneColour, 0, Qt::AlignCenter);
    row->addStretch();
    cmdOneColour->hide();
    return panel;
}

QLabel* MainWindow::newLabel(const char* name, const QString& text) {
    auto* label = new QLabel(text, m_content);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

void MainWindow::connectMenus() {
    m_menus.setRule(m_menus.mnuFile, [this] { mnuFile_Click(); });
    m_menus.setRule(m_menus.mnuEdit, [this] { mnuEdit_Click(); });
    m_menus.setRule(m_menus.mnuTools, [this] { mnuTools_Click(); });
    m_menus.setRule(m_menus.mnuText, [this] { mnuText_Click(); });
    m_menus.setCommand(m_menus.mnuFileNew, [this] { m_new.mnuFileNew_Click(); });
    m_menus.setCommand(m_menus.mnuFileOpen, [this] { m_open.mnuFileOpen_Click(); });
    m_menus.setCommand(m_menus.mnuFileSave, [this] { m_save.mnuFileSave_Click(); });
    m_menus.setCommand(m_menus.mnuFileExit, [this] { mnuFileExit_Click(); });
    m_menus.setCommand(m_menus.Mnu_Pipette, [this] { m_pointer.Mnu_Pipette_Click(); });
    m_menus.setCommand(m_menus.Mnu_ChoixCouleur, [this] { frafont->Mnu_ChoixCouleur_Click(); });
    for (std::size_t i = 0; i < m_menus.mnuTextWrite.size(); ++i)
        m_menus.setCommand(m_menus.mnuTextWrite.at(i),
                           [this, i] { mnuTextWrite_Click(static_cast<int>(i)); });
}

void MainWindow::connectEditMenu() {
    m_menus.setCommand(m_menus.mnuEditUndo, [this] { m_undo.mnuEditUndo_Click(); });
    m_menus.setCommand(m_menus.mnuEditCut, [this] { m_copyCut.mnuEditCut_Click(); });
    m_menus.setCommand(m_menus.mnuEditCopy, [this] { m_copyCut.mnuEditCopy_Click(); });
    m_menus.setCommand(m_menus.mnuEditPaste, [this] { m_paste.mnuEditPaste_Click(); });
    m_menus.setCommand(m_menus.mnuEditPasteTransparent, [this] { m_paste.mnuEditPasteTransparent_Click(); });
    m_menus.setCommand(m_menus.Mnu_ColleNouvIMG, [this] { m_paste.Mnu_ColleNouvIMG_Click(); });
    m_menus.setCommand(m_menus.mnuEditPasteFromFile, [this] { m_paste.mnuEditPasteFromFile_Click(); });
    m_menus.setCommand(m_menus.mnuEditPasteFromFileTransparent,
                       [this] { m_paste.mnuEditPasteFromFileTransparent_Click(); });
    m_menus.setCommand(m_menus.mnuEditClearClipboard, [this] { m_copyCut.mnuEditClearClipboard_Click(); });
}

void MainWindow::connectTextTools() {
    connect(cmdOneColour, &QAbstractButton::clicked, this, unlessUnderWay([this] { mnuTextWrite_Click(0); }));
    const auto focusPicture = [this] { m_view.picDisp->setFocus(); };
    connect(frafont, &StylePanel::pickerReleased, &m_pointer, &PointerModes::releasePicker);
    connect(frafont, &StylePanel::pictureFocusRequested, this, focusPicture);
    connect(fra1Color3D, &OneColourPanel::pictureFocusRequested, this, focusPicture);
    connect(fra1Color3D, &OneColourPanel::editStateChanged, this, &MainWindow::mnuEdit_Click);
    connect(fra1Color3D, &OneColourPanel::backgroundColourLocked, &m_background, &BackgroundColour::lock);
    setToolIcon(*frafont->imgBold, QStringLiteral("bold"));
    setToolIcon(*frafont->imgItalic, QStringLiteral("italic"));
}

void MainWindow::connectEditing() {
    connect(m_toolBox->imgRegion, &QAbstractButton::clicked, this,
            unlessUnderWay([this] { m_pointer.imgRegion_Click(); }));
    connect(m_toolBox->imgColorPicker, &QAbstractButton::clicked, this,
            unlessUnderWay([this] { m_pointer.imgColorPicker_Click(); }));
    connect(&m_pointer, &PointerModes::colourPicked, this,
            [this](Colour colour) { frafont->DispDialogColor(colour); });
    connect(&m_pointer, &PointerModes::backgroundColourLocked, &m_background, &BackgroundColour::lock);
    connect(&m_pointer, &PointerModes::undoLost, this, &MainWindow::mnuEdit_Click);
    connect(&m_blockKeys, &BlockKeys::editStateChanged, this, &MainWindow::mnuEdit_Click);
    connect(&m_copyCut, &CopyCut::editStateChanged, this, &MainWindow::mnuEdit_Click);
    connect(&m_paste, &Paste::editStateChanged, this, &MainWindow::mnuEdit_Click);
    connect(&m_paste, &Paste::pickerReleased, &m_pointer, &PointerModes::releasePicker);
}

void MainWindow::connectDocument() {
    connect(m_toolBox->Command1, &QAbstractButton::clicked, this,
            unlessUnderWay([this] { Command1_Click(); }));
    connect(m_toolBox->CmdAnnul, &QAbstractButton::clicked, this,
            unlessUnderWay([this] { CmdAnnul_Click(); }));
    connect(m_toolBox->cmdCancel, &QAbstractButton::clicked, this, [this] { cmdCancel_Click(); });
    connect(&m_undo, &Undo::pickerReleased, &m_pointer, &PointerModes::releasePicker);
    connect(&m_open, &FileOpen::pickerReleased, &m_pointer, &PointerModes::releasePicker);
    connect(&m_open, &FileOpen::pictureReplaced, &m_block, &LiftedBlock::forget);
    connect(&m_new, &FileNew::pickerReleased, &m_pointer, &PointerModes::releasePicker);
    connect(&m_new, &FileNew::pictureReplaced, &m_block, &LiftedBlock::forget);
    connect(&m_new, &FileNew::backgroundColourUnlocked, &m_background, &BackgroundColour::unlock);
    connect(&m_work, &WorkPicture::imageSizeShown, lblImageSize, &QLabel::setText);
    connect(&m_work, &WorkPicture::fileNameShown, lblFileSpec, &QLabel::setText);
}

void MainWindow::connectWizards() {
    connect(&m_handover, &Handover::pickerReleased, &m_pointer, &PointerModes::releasePicker);
    connect(&m_handover, &Handover::backgroundColourLocked, &m_background, &BackgroundColour::lock);
    connect(&m_handover, &Handover::pictureReplaced, &m_block, &LiftedBlock::forget);
}

void MainWindow::connectHints() {
    addStatusTips(*this);
    connect(&m_nextStep, &NextStep::changed, lblHint, &HintLine::showNextStep);
    connect(&m_longWork, &LongWork::begun, this, [this] { showWorking(true); });
    connect(&m_longWork, &LongWork::ended, this, [this] { showWorking(false); });
}

void MainWindow::showWorking(bool working) {
    lblHint->showWorking(working);
    setScreenMousePointer(working ? MousePointer::Hourglass : MousePointer::Default);
}

void MainWindow::Form_Load() {
    FormLoading = true;
    flattenForm(*this);
    m_work.picAuto.setAutoSize(true);
    frafont->DispDialogColor(DefaultTextColour);
    FormLoading = false;
}

void MainWindow::ArrangeMainWindow() {
    m_view.picSnap->hide();
    m_view.picDisp->show();
    fraTextPanel->show();
    setWindowState(windowState() | Qt::WindowMaximized);
    layOut(screen()->size());
    m_view.picDisp->move(0, 0);
    takeSize(m_work.picSnap, m_work.picDisp);
    takeSize(m_work.picUndo, m_work.picDisp);
    m_work.showFileName(QStringLiteral("Sans Nom"));
    m_view.fitToPicture();
    m_work.ImageLoaded = true;
    m_work.ImageModified = m_work.UndoAvailable = false;
    m_block.HasSelection = m_block.TransparentPaste = m_block.BlockFromPaste = false;
    frafont->UpdateTextSample();
}

WindowDesign MainWindow::design() const {
    const QString longest = QStringLiteral("L=99999  H=99999 ");
    WindowDesign design;
    design.panelHeight = std::max(design.panelHeight, fraTextPanel->minimumSizeHint().height());
    design.toolBoxWidth =
        std::max({design.toolBoxWidth, m_toolBox->minimumSizeHint().width(),
                  lblImageSize->fontMetrics().horizontalAdvance(longest) - WindowDesign::Margin});
    design.labelHeight = std::max(design.labelHeight, lblImageSize->sizeHint().height());
    design.hintWidth = lblHint->wantedWidth();
    return design;
}

void MainWindow::layOut(QSize area) {
    const QSize bars(m_view.VScroll1->sizeHint().width(), m_view.HScroll1->sizeHint().height());
    const WindowLayout layout = WindowLayout::arrange(area, bars, design());
    fraTextPanel->setGeometry(layout.fraTextPanel);
    m_toolBox->setGeometry(layout.toolBox);
    m_view.picZ->setGeometry(layout.picZ);
    m_view.VScroll1->setGeometry(layout.VScroll1);
    m_view.HScroll1->setGeometry(layout.HScroll1);
    lblImageSize->setGeometry(layout.lblImageSize);
    lblFileSpec->setGeometry(layout.lblFileSpec);
    lblFileSpec->setContentsMargins(0, 0, layout.lblHint.width() + WindowDesign::Margin, 0);
    lblHint->setGeometry(layout.lblHint);
}

void MainWindow::mnuFile_Click() {
    m_menus.mnuFileSave->setEnabled(m_work.ImageLoaded);
}

void MainWindow::mnuEdit_Click() {
    const EditEntries enabled =
        EditEntries::enabledIn({.imageLoaded = m_work.ImageLoaded,
                                .undoAvailable = m_work.UndoAvailable,
                                .hasSelection = m_block.HasSelection,
                                .clipboardOffersPicture = ClipboardOffer::now().includesPicture()});
    m_toolBox->CmdAnnul->setEnabled(enabled.undo);
    m_menus.mnuEditUndo->setEnabled(enabled.undo);
    m_menus.mnuEditCut->setEnabled(enabled.cut);
    m_menus.mnuEditCopy->setEnabled(enabled.copy);
    for (QAction* entry : {m_menus.mnuEditPaste, m_menus.mnuEditPasteTransparent, m_menus.Mnu_ColleNouvIMG})
        entry->setEnabled(enabled.paste);
    for (QAction* entry : {m_menus.mnuEditPasteFromFile, m_menus.mnuEditPasteFromFileTransparent})
        entry->setEnabled(enabled.pasteFromFile);
}

void MainWindow::mnuTools_Click() {
    m_menus.mnuToolsRegion->setEnabled(m_work.ImageLoaded);
}

void MainWindow::mnuText_Click() {
    m_pointer.releasePicker();
    m_pointer.imgRegion.setAppearance(0);
}

void MainWindow::mnuTextWrite_Click(int Index) {
    const bool inTheWindow = Index == 0; // the other two kinds of text have a dialog of their own
    if (inTheWindow)
        m_block.ClearSelection(); // which also clears what is drawn over the picture
    showTextFrames(inTheWindow);
    for (std::size_t i = 0; i < m_menus.mnuTextWrite.size(); ++i)
        m_menus.mnuTextWrite.at(i)->setChecked(static_cast<int>(i) == Index);
    if (!inTheWindow)
        showTextDialog(Index);
}

void MainWindow::showTextFrames(bool shown) {
    for (QGroupBox* frame : {static_cast<QGroupBox*>(fraRotateAngle), static_cast<QGroupBox*>(fra1Color3D),
                             static_cast<QGroupBox*>(frafont)})
        frame->setVisible(shown);
    cmdOneColour->setVisible(!shown);
}

void MainWindow::showTextDialog(int Index) {
    trapErrors(m_dialogs, QStringLiteral("mnuTextWrite_Click"), [&] {
        if (Index == 1)
            Txt3D(m_handover, m_wizardMemory, m_dialogs, this).exec();
        else
            RotFonts(m_handover, m_wizardMemory, m_dialogs, QCoreApplication::applicationDirPath(), this)
                .exec();
    });
    m_wizardMemory.Cancelled = 0;
}

void MainWindow::mnuFileExit_Click() {
    close();
}

void MainWindow::Command1_Click() {
    m_save.mnuFileSave_Click();
}

void MainWindow::CmdAnnul_Click() {
    m_undo.mnuEditUndo_Click();
    mnuEdit_Click();
}

void MainWindow::cmdCancel_Click() {
    QCoreApplication::exit();
}

bool MainWindow::Form_QueryUnload() {
    return m_save.confirmDiscard(QStringLiteral("Enregistrer l'image ?"));
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (m_arranged)
        return;
    m_arranged = true;
    ArrangeMainWindow();
    mnuEdit_Click();
    frafont->txbWriteText->setFocus();
    // Where no window manager answers, the window keeps its size and no resize event will follow.
    QTimer::singleShot(0, this, &MainWindow::fitToWindow);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (m_arranged)
        fitToWindow();
}

void MainWindow::fitToWindow() {
    // The height is the whole window's, menu bar included, as the screen's is at the start.
    layOut(QSize(m_content->width(), height()));
    // A picture that overflows the bars was reported when it came; a window's edge may be dragged in peace.
    skipOnError([this] { m_view.setScrollMax(); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(Form_QueryUnload());
}

} // namespace ovrano
