#pragma once

#include "app/hintline.h"
#include "app/menus.h"
#include "app/nextstep.h"
#include "app/toolbox.h"
#include "app/windowlayout.h"
#include "document/filenew.h"
#include "document/fileopen.h"
#include "document/filesave.h"
#include "document/pictureview.h"
#include "document/undo.h"
#include "document/workpicture.h"
#include "editing/backgroundcolour.h"
#include "editing/blockkeys.h"
#include "editing/copycut.h"
#include "editing/keyboardpointer.h"
#include "editing/liftedblock.h"
#include "editing/paste.h"
#include "editing/pointermodes.h"
#include "platform/longwork.h"
#include "text/anglepanel.h"
#include "text/onecolourpanel.h"
#include "text/stylepanel.h"
#include "wizards/handover.h"
#include "wizards/wizardmemory.h"

#include <QLabel>
#include <QMainWindow>

namespace ovrano {

/// The main window frmPicText0: builds the work picture, the view and the tools, and connects them.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Dialogs& dialogs);

    /// The parts, for those who drive the program from outside (scenario tests, the tour).
    WorkPicture& work() { return m_work; }
    PictureView& view() { return m_view; }
    LiftedBlock& block() { return m_block; }

    // Start-up: first stage (construction) and second stage (first showing, once).
    void Form_Load();
    void ArrangeMainWindow();

    // Menus.
    void mnuFile_Click();
    void mnuEdit_Click();
    void mnuTools_Click();
    void mnuText_Click();
    void mnuTextWrite_Click(int Index);
    void mnuFileExit_Click();

    // Buttons.
    void Command1_Click();
    void CmdAnnul_Click();
    /// Ends the program at once, without a question.
    void cmdCancel_Click();

    /// Whether the window may close: asks when the picture is modified.
    bool Form_QueryUnload();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QFrame* newTextPanel();
    QLabel* newLabel(const char* name, const QString& text);
    void connectMenus();
    void connectEditMenu();
    void connectTextTools();
    void connectEditing();
    void connectDocument();
    void connectWizards();
    void connectHints();
    void showWorking(bool working);
    void showTextFrames(bool shown);
    void showTextDialog(int Index);
    WindowDesign design() const;
    void layOut(QSize area);
    void fitToWindow();

    bool FormLoading = false;
    bool m_arranged = false; // the second start-up stage has run

    Dialogs& m_dialogs;
    QWidget* m_content;
    Menus m_menus;
    ToolBox* m_toolBox;
    WorkPicture m_work;
    PictureView m_view;
    LiftedBlock m_block;
    PointerModes m_pointer;
    KeyboardPointer m_keyboardPointer; // before the block's keys, which are asked first
    BlockKeys m_blockKeys;
    BackgroundColour m_background;
    Undo m_undo;
    FileSave m_save;
    FileNew m_new;
    FileOpen m_open;
    CopyCut m_copyCut;
    Paste m_paste;
    WizardMemory m_wizardMemory;
    Handover m_handover;
    StylePanel* frafont;
    AnglePanel* fraRotateAngle;
    OneColourPanel* fra1Color3D;
    QPushButton* cmdOneColour; // in the panel while its tools are hidden
    QFrame* fraTextPanel;
    QLabel* lblImageSize;
    ElidedLabel* lblFileSpec;
    HintLine* lblHint;
    LongWork m_longWork;
    NextStep m_nextStep;
};

} // namespace ovrano
