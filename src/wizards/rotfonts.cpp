#include "wizards/rotfonts.h"

#include "document/keptwork.h"
#include "platform/commondialog.h"
#include "platform/errorreporter.h"
#include "platform/memoryerror.h"
#include "platform/numbers.h"
#include "platform/textmask.h"
#include "ui/flatten.h"
#include "wizards/modroundtext.h"
#include "wizards/temporarybmp.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalBlocker>

#include <cmath>
#include <limits>

namespace ovrano {

namespace {

/// Half of a length in pixels, as a text.
QString halfOf(int length) {
    return QString::number(length / 2.0, 'g', std::numeric_limits<float>::max_digits10);
}

bool isInside(const QObject* object, const QObject& ancestor) {
    while (object && object != &ancestor)
        object = object->parent();
    return object;
}

/// Whether a field was left for another one, rather than for its own list or menu or another window.
bool isLeavingField(const QObject& field, const QEvent& event) {
    if (event.type() != QEvent::FocusOut)
        return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
           !isInside(QApplication::focusWidget(), field);
}

bool isClick(const QEvent& event) {
    return event.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

} // namespace

RotFonts::RotFonts(Handover& handover, WizardMemory& memory, Dialogs& dialogs, const QString& programFolder,
                   QWidget* parent)
    : RotFontsForm(dialogs, parent)
    , m_handover(handover)
    , m_memory(memory)
    , m_programFolder(programFolder) {
    flattenForm(*this);
    setCentreDefaults();
    connectFields();
    connectButtons();
    connect(Frame6, &ExampleFrame::pictureResized, this, &RotFonts::redrawResized);
}

RotFonts::~RotFonts() {
    putAway();
}

void RotFonts::connectFields() {
    for (QLineEdit* field : {Text1, TxtCX, TxtCY}) {
        connect(field, &QLineEdit::textChanged, this, &RotFonts::refresh);
        field->installEventFilter(this);
    }
    for (QComboBox* field : {txtDegree, txtRaggio, txtSettore, txtSize, txtFont}) {
        connect(field, &QComboBox::editTextChanged, this, &RotFonts::refresh);
        connect(field, &QComboBox::activated, this, &RotFonts::refresh);
        connect(field->view()->verticalScrollBar(), &QScrollBar::valueChanged, this, &RotFonts::refresh);
        if (field != txtFont)
            field->installEventFilter(this);
    }
}

void RotFonts::connectButtons() {
    connect(Check1, &QCheckBox::toggled, this, &RotFonts::Check1_Click);
    connect(cmdColor, &QPushButton::clicked, this, &RotFonts::cmdColor_Click);
    connect(Command1, &QPushButton::clicked, this, &RotFonts::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &RotFonts::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &RotFonts::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &RotFonts::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &RotFonts::Command5_Click);
}

bool RotFonts::event(QEvent* event) {
    const bool handled = RotFontsForm::event(event);
    if (event->type() == QEvent::WindowDeactivate) {
        const QWidget* modal = QApplication::activeModalWidget();
        m_ownDialogActive = modal && modal != this;
    } else if (event->type() == QEvent::WindowActivate && !std::exchange(m_ownDialogActive, false)) {
        Form_Activate();
    }
    return handled;
}

void RotFonts::firstShown() {
    if (TxtCX->text() == m_defaultX && TxtCY->text() == m_defaultY)
        setCentreDefaults();
}

bool RotFonts::eventFilter(QObject* watched, QEvent* event) {
    if (isLeavingField(*watched, *event))
        Command1_Click();
    else if (isClick(*event) && (watched == TxtCX || watched == TxtCY))
        refresh();
    return RotFontsForm::eventFilter(watched, event);
}

void RotFonts::refresh() {
    if (AutoRefresh == 1)
        Command1_Click();
}

void RotFonts::redrawResized() {
    // What was drawn and no longer in the picture comes back with its place.
    if (const auto drawing = m_drawn)
        preview(QStringLiteral("redrawResized"), [&] { return *drawing; });
    else
        Picture1.Cls();
}

void RotFonts::Check1_Click() {
    AutoRefresh = Check1->isChecked() ? 1 : 0;
}

void RotFonts::Command1_Click() {
    if (!isLeaving())
        preview(QStringLiteral("Command1_Click"), [this] { return settings(); });
}

/// Draws nothing where the drawing cannot be had or printed. False when that was for want of memory, which
/// has been reported under the handler's name.
bool RotFonts::preview(const QString& handler, const std::function<Drawing()>& drawing) {
    Picture1.Cls();
    m_drawn.reset();
    const bool lacked = lacksMemory([&] {
        m_drawn = drawing();
        print(Picture1, *m_drawn);
    });
    if (!lacked)
        return true;
    Picture1.Cls();
    m_drawn.reset();
    ErrMsgProc(m_dialogs, handler, RuntimeError(error::OutOfMemory));
    return false;
}

RotFonts::Drawing RotFonts::settings() const {
    return {Text1->text(),
            textFont(txtFont->currentText(), typedPoints(txtSize->currentText()), false, false),
            LblCoulTexte->BackColor(),
            singleValue(txtDegree->currentText()),
            singleValue(txtRaggio->currentText()),
            integerValue(TxtCX->text()),
            integerValue(TxtCY->text()),
            singleValue(txtSettore->currentText())};
}

void RotFonts::print(Surface& target, const Drawing& drawing) const {
    target.setFont(drawing.font);
    target.setForeColor(drawing.colour);
    PrintRoundText(target, drawing.text, drawing.startAngle, drawing.radius, drawing.centreX, drawing.centreY,
                   drawing.sector);
}

void RotFonts::cmdColor_Click() {
    if (chooseColour(*LblCoulTexte, QStringLiteral("cmdColor_Click"), CommonDialog::ColourFullOpenWithPreset))
        refresh();
}

void RotFonts::Command2_Click() {
    if (!chooseColour(*LblFond, QStringLiteral("Command2_Click"), CommonDialog::ColourFullOpenWithPreset))
        return;
    Picture1.setBackColor(LblFond->BackColor());
    m_drawn.reset();
    refresh();
}

void RotFonts::setCentreDefaults() {
    // Both at once: the preview is drawn once, not with a half-changed centre in between.
    const QSignalBlocker quietX(TxtCX);
    const QSignalBlocker quietY(TxtCY);
    m_defaultX = halfOf(Picture1.Width());
    m_defaultY = halfOf(Picture1.Height());
    TxtCX->setText(m_defaultX);
    TxtCY->setText(m_defaultY);
}

void RotFonts::Command4_Click() {
    setCentreDefaults();
    refresh();
}

void RotFonts::Command3_Click() {
    m_memory.TwoColourText = Text1->text();
    m_memory.Cancelled = 0;
    const QString name = QStringLiteral("Command3_Click");
    if (!isLeaving() && !preview(name, [this] { return settings(); }))
        return;
    trapErrors(m_dialogs, name, [&] {
        auto unchanged = qScopeGuard([before = KeptWork(m_handover.work())]() mutable { before.putBack(); });
        printOnWorkPicture();
        giveToCompanions(m_handover.work().picDisp.Picture());
        unchanged.dismiss();
        trapErrors(m_dialogs, name, [this] { passThroughFile(); }); // the picture is there without it
        m_handover.present();
        accept();
    });
}

void RotFonts::printOnWorkPicture() {
    Surface& picDisp = m_handover.work().picDisp;
    // The preview's text is drawn and not committed: its persistent image is the background, on which the
    // smoothed text is printed once, as in the preview.
    m_handover.take(Raster(Picture1.innerSize(), Picture1.BackColor()));
    picDisp.setAutoSize(false);
    if (m_drawn)
        print(picDisp, *m_drawn);
    picDisp.commit();
}

void RotFonts::passThroughFile() {
    WorkPicture& work = m_handover.work();
    const StoredPicture stored = throughTemporaryBmp(work.picDisp.Picture(), m_programFolder);
    work.picDisp.setPicture(stored.picture);
    giveToCompanions(stored.picture);
    work.showFileName(stored.path);
}

void RotFonts::giveToCompanions(const Raster& picture) {
    WorkPicture& work = m_handover.work();
    for (Surface* companion : {&work.picSnap, &work.picUndo}) {
        takeSize(*companion, work.picDisp);
        companion->setPicture(picture);
    }
    work.picRegion.setPicture(picture);
    work.picMask.setPicture(picture);
}

void RotFonts::Command5_Click() {
    m_memory.Cancelled = 1;
    RotFontsForm::reject();
}

void RotFonts::waitFor(float seconds) {
    const double delay = std::isfinite(seconds) ? static_cast<double>(seconds) * 1e9 : 0;
    QElapsedTimer waiting;
    waiting.start();
    while (static_cast<double>(waiting.nsecsElapsed()) < delay) {
    }
}

} // namespace ovrano
