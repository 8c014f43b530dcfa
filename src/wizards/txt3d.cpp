#include "wizards/txt3d.h"

#include "platform/controls.h"
#include "platform/errorreporter.h"
#include "platform/numbers.h"
#include "platform/textmask.h"
#include "platform/typingfilter.h"
#include "ui/flatten.h"
#include "wizards/twocolourtext.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScrollBar>

namespace ovrano {

namespace {

constexpr int SmallestSize = 6; // points
constexpr int LargestSize = 99;
constexpr int LargestAngle = 360; // degrees

bool isReturn(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

Txt3D::Txt3D(Handover& handover, WizardMemory& memory, Dialogs& dialogs, QWidget* parent)
    : Txt3DForm(dialogs, parent)
    , m_handover(handover)
    , m_memory(memory) {
    Form_Load();
    connectHandlers();
    connectTyping();
}

Txt3D::~Txt3D() {
    putAway();
}

void Txt3D::Form_Load() {
    flattenForm(*this);
    m_memory.Colour3D = LblCoul3D->BackColor();
    m_memory.TextColour = LblCoulT->BackColor();
    if (m_memory.TwoColourText.isEmpty())
        Text1->setText(QStringLiteral("Votre texte"));
    Text1->setText(m_memory.TwoColourText); // empty on a first opening, on purpose
    fillLists();
    placeOnScreen();
    m_points = numericValue(Combo2->currentText());
    ExamplePic.setFont(smoothTextFont(Combo1->currentText(), m_points));
    DrawExample();
}

void Txt3D::fillLists() {
    addNumbers(*Text2, 0, LargestAngle);
    Text2->setCurrentText(QStringLiteral("250"));
    addNumbers(*Combo2, SmallestSize, LargestSize);
    Combo2->setCurrentIndex(Combo2->findText(QStringLiteral("48")));
}

void Txt3D::connectHandlers() {
    connect(Text1, &QLineEdit::textChanged, this, &Txt3D::Text1_Change);
    connect(Text2, &QComboBox::editTextChanged, this, &Txt3D::Text2_Change);
    connect(Text2, &QComboBox::activated, this, &Txt3D::Text2_Click);
    connect(Text2->view()->verticalScrollBar(), &QScrollBar::valueChanged, this, &Txt3D::Text2_Scroll);
    connect(Slider1, &QSlider::valueChanged, this, &Txt3D::Slider1_Change); // at each step of dragging, too
    connect(Combo1, &QComboBox::activated, this, &Txt3D::Combo1_Click);
    connect(Combo2, &QComboBox::activated, this, &Txt3D::Combo2_Click);
    for (int index = BoldButton; index <= StrikeOutButton; ++index)
        connect(Command3.at(static_cast<std::size_t>(index)), &QPushButton::clicked, this,
                [this, index] { Command3_Click(index); });
    connect(Check1, &QCheckBox::clicked, this, &Txt3D::Check1_Click);
    connect(Check2, &QCheckBox::toggled, this, &Txt3D::Check2_Click); // also when another box clears it
    connect(Check3, &QCheckBox::clicked, this, &Txt3D::Check3_Click);
    connect(Command4, &QPushButton::clicked, this, &Txt3D::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &Txt3D::Command5_Click);
    connect(Command6, &QPushButton::clicked, this, &Txt3D::Command6_Click);
    connect(Command1, &QPushButton::clicked, this, &Txt3D::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Txt3D::Command2_Click);
    connect(Frame6, &ExampleFrame::pictureResized, this, &Txt3D::redraw);
}

void Txt3D::connectTyping() {
    new TypingFilter(*Text2->lineEdit(), Text2_KeyPress);
    Text1->installEventFilter(this);
    for (QComboBox* box : {Combo1, Combo2, Text2}) {
        box->installEventFilter(this);
        box->lineEdit()->installEventFilter(this);
    }
    for (const QComboBox* box : {Combo1, Combo2})
        connect(box->lineEdit(), &QLineEdit::editingFinished, this, &Txt3D::takeTyped);
}

bool Txt3D::eventFilter(QObject* watched, QEvent* event) {
    if (!isReturn(*event))
        return Txt3DForm::eventFilter(watched, event);
    takeTyped();
    return true;
}

void Txt3D::takeTyped() {
    if (isLeaving())
        return;
    if (Combo1->currentText().trimmed().isEmpty())
        Combo1->setEditText(ExamplePic.Font().family());
    const bool otherFont =
        Combo1->currentText().trimmed().compare(ExamplePic.Font().family(), Qt::CaseInsensitive) != 0;
    const bool otherSize = Combo2->currentText() != QString::number(m_points);
    if (otherFont)
        takeFont();
    if (otherSize)
        takeSize();
    if (otherFont || otherSize)
        DrawExample();
}

void Txt3D::DrawExample(OnBadAngle onBadAngle) {
    if (isLeaving())
        return;
    trapErrors(m_dialogs, QStringLiteral("DrawExample"), [&] {
        ExamplePic.Cls();
        std::vector<TextPrint> prints;
        if (Check3->isChecked()) {
            prints = reliefPrints();
        } else if (Check2->isChecked()) {
            if (!readExtrusion(onBadAngle))
                return;
            prints = extrusionPrints(m_memory.Colour3D, m_memory.ExtrusionDepth, m_memory.ExtrusionAngle);
        } else if (Check1->isChecked()) {
            prints = outlinePrints(m_memory.Colour3D);
        }
        prints.push_back(facePrint(m_memory.TextColour));
        printTextLayers(ExamplePic, Text1->text(), prints);
    });
}

bool Txt3D::readExtrusion(OnBadAngle onBadAngle) {
    const QString angle = Text2->currentText();
    if (!isDigitsOnly(angle)) {
        if (onBadAngle == OnBadAngle::Report)
            reportBadAngle();
        return false;
    }
    const QString withinTurn = withoutFullTurns(angle);
    const double degrees = numericValue(withinTurn);
    const QString kept = degrees > 0 ? withinTurn : QStringLiteral("0");
    if (kept != angle) {
        // The change of the text draws the example; drawing it over that once more would only thicken the
        // soft edges.
        replaceAngle(kept);
        return false;
    }
    m_memory.ExtrusionDepth = Slider1->value();
    if (degrees > 0)
        m_memory.ExtrusionAngle = extrusionAngle(degrees);
    return true;
}

void Txt3D::reportBadAngle() {
    // A box in the middle of a press would take its release away.
    if (m_reporting || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    m_reporting = true;
    const auto reported = qScopeGuard([this] { m_reporting = false; });
    m_dialogs.messageBox({QStringLiteral("Entrez uniquement des nombres !"), QStringLiteral("Erreur"),
                          Buttons::Ok, Icon::Critical});
}

void Txt3D::replaceAngle(const QString& text) {
    Text2->setEditText(text);
    // So that the next digit starts a new number.
    Text2->lineEdit()->selectAll();
}

void Txt3D::Text2_KeyPress(std::int16_t& keyAscii) {
    constexpr std::int16_t Backspace = 8;
    const bool accepted = keyAscii == Backspace || keyAscii == u'.' || (keyAscii >= u'0' && keyAscii <= u'9');
    if (!accepted)
        keyAscii = 0;
}

void Txt3D::Slider1_Change() {
    lblDepth->setNum(Slider1->value());
    redraw();
}

void Txt3D::Combo1_Click() {
    if (isLeaving())
        return;
    takeFont();
    DrawExample();
}

void Txt3D::takeFont() {
    QFont font = ExamplePic.Font();
    font.setFamily(Combo1->currentText().trimmed());
    ExamplePic.setFont(font);
    shareFont([&](QFont& shared) { shared.setFamily(font.family()); });
}

void Txt3D::Combo2_Click() {
    if (isLeaving())
        return;
    takeSize();
    DrawExample();
}

void Txt3D::takeSize() {
    if (const double points = typedPoints(Combo2->currentText()); points > 0)
        m_points = points;
    Combo2->setEditText(QString::number(m_points));
    QFont font = ExamplePic.Font();
    font.setPixelSize(textPixelSize(m_points));
    ExamplePic.setFont(font);
    shareFont([&](QFont& shared) { shared.setPixelSize(font.pixelSize()); });
}

void Txt3D::Command3_Click(int index) {
    const bool normal = index == NormalButton;
    QFont font = ExamplePic.Font();
    font.setBold(!normal && font.bold() != (index == BoldButton));
    font.setItalic(!normal && font.italic() != (index == ItalicButton));
    font.setUnderline(!normal && font.underline() != (index == UnderlineButton));
    font.setStrikeOut(!normal && font.strikeOut() != (index == StrikeOutButton));
    ExamplePic.setFont(font);
    shareFont([&](QFont& shared) {
        shared.setBold(font.bold());
        shared.setItalic(font.italic());
        shared.setUnderline(font.underline());
        shared.setStrikeOut(font.strikeOut());
    });
    showStyle();
    DrawExample();
}

void Txt3D::shareFont(const std::function<void(QFont& font)>& change) {
    Surface& picDisp = m_handover.work().picDisp;
    QFont shared = picDisp.Font();
    change(shared);
    picDisp.setFont(shared);
}

void Txt3D::showStyle() {
    const QFont font = ExamplePic.Font();
    Command3.at(BoldButton)->setChecked(font.bold());
    Command3.at(ItalicButton)->setChecked(font.italic());
    Command3.at(UnderlineButton)->setChecked(font.underline());
    Command3.at(StrikeOutButton)->setChecked(font.strikeOut());
}

void Txt3D::Check1_Click() {
    Check2->setChecked(false);
    Check3->setChecked(false);
    DrawExample();
}

void Txt3D::Check2_Click() {
    const bool extruded = Check2->isChecked();
    Frame5->setEnabled(extruded);
    if (extruded)
        Check1->setChecked(false);
    Check1->setEnabled(!extruded);
    DrawExample();
}

void Txt3D::Check3_Click() {
    Check1->setChecked(false);
    Check2->setChecked(false);
    DrawExample();
}

void Txt3D::Command4_Click() {
    if (!chooseColour(*LblCoulT, QStringLiteral("Command4_Click"), CommonDialog::ColourFullOpen))
        return;
    m_memory.TextColour = LblCoulT->BackColor();
    redraw();
}

void Txt3D::Command5_Click() {
    if (!chooseColour(*LblCoul3D, QStringLiteral("Command5_Click"), CommonDialog::ColourFullOpen))
        return;
    m_memory.Colour3D = LblCoul3D->BackColor();
    redraw();
}

void Txt3D::Command6_Click() {
    if (!chooseColour(*LblFond, QStringLiteral("Command6_Click"), CommonDialog::ColourFullOpen))
        return;
    ExamplePic.setBackColor(LblFond->BackColor());
    redraw();
}

void Txt3D::Command1_Click() {
    trapErrors(m_dialogs, QStringLiteral("Command1_Click"), [this] {
        takeTyped();
        m_memory.TwoColourText = Text1->text();
        m_handover.take(ExamplePic.Image());
        m_handover.present();
        accept();
    });
}

void Txt3D::reject() {
    m_memory.Cancelled = 1;
    Txt3DForm::reject();
}

} // namespace ovrano
