#include "document/frmnouv3dtext.h"

#include "platform/controls.h"
#include "platform/keyfilter.h"
#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "platform/typingfilter.h"
#include "ui/flatten.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace ovrano {

namespace {

constexpr int LongestSize = 3; // characters
constexpr int SwatchWidth = 56;

} // namespace

FrmNouv3DText::FrmNouv3DText(NewImageChoice& choice, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent)
    , Frame1(named(new QGroupBox(QStringLiteral("Taille en Pixels "), this), "Frame1"))
    , Label1(named(new QLabel(QStringLiteral("Largeur :"), Frame1), "Label1"))
    , Text1(named(new QLineEdit(QStringLiteral("300"), Frame1), "Text1", QStringLiteral("Largeur en pixels")))
    , Label2(named(new QLabel(QStringLiteral("Hauteur :"), Frame1), "Label2"))
    , Text2(named(new QLineEdit(QStringLiteral("300"), Frame1), "Text2", QStringLiteral("Hauteur en pixels")))
    , Frame2(named(new QGroupBox(QStringLiteral("Couleur de fond "), this), "Frame2"))
    , LabCoulFond(new ColourBox(QStringLiteral("LabCoulFond"), White, Frame2))
    , Command1(named(new QPushButton(QStringLiteral("Changer la couleur de fond"), Frame2), "Command1"))
    , Command2(named(new QPushButton(QStringLiteral("&Appliquer"), this), "Command2"))
    , Command3(named(new QPushButton(QStringLiteral("A&nnuler"), this), "Command3"))
    , m_choice(choice)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {
    setObjectName(QStringLiteral("FrmNouv3DText"));
    setWindowTitle(QStringLiteral("Nouveau texte 3D"));
    setUpSizes();
    arrange();
    flattenForm(*this);
    connect(Command1, &QPushButton::clicked, this, &FrmNouv3DText::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &FrmNouv3DText::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &FrmNouv3DText::Command3_Click);
}

void FrmNouv3DText::setUpSizes() {
    new TypingFilter(*Text1, [this](std::int16_t& keyAscii) { Text1_KeyPress(keyAscii); });
    new TypingFilter(*Text2, [this](std::int16_t& keyAscii) { Text2_KeyPress(keyAscii); });
    // What is pasted or dropped into a field passes no key.
    const QRegularExpression digits(QStringLiteral("[0-9]*"));
    for (QLineEdit* size : {Text1, Text2}) {
        size->setMaxLength(LongestSize);
        size->setValidator(new QRegularExpressionValidator(digits, size));
        size->setInputMethodHints(Qt::ImhDigitsOnly);
    }
    Label1->setBuddy(Text1);
    Label2->setBuddy(Text2);
}

void FrmNouv3DText::arrange() {
    auto* sizes = new QFormLayout(Frame1);
    sizes->addRow(Label1, Text1);
    sizes->addRow(Label2, Text2);

    LabCoulFond->setToolTip(QStringLiteral("Couleur en cours"));
    LabCoulFond->setAccessibleName(LabCoulFond->toolTip());
    LabCoulFond->setMinimumWidth(SwatchWidth);
    auto* colour = new QHBoxLayout(Frame2);
    colour->addWidget(LabCoulFond);
    colour->addWidget(Command1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    buttons->addWidget(Command3);

    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(Frame1);
    column->addWidget(Frame2);
    column->addLayout(buttons);
    Command1->setAutoDefault(false);
    Command2->setDefault(true);
    Text1->selectAll();
}

void FrmNouv3DText::Text1_KeyPress(std::int16_t& keyAscii) {
    keyAscii = FilterNumericKey(keyAscii);
}

void FrmNouv3DText::Text2_KeyPress(std::int16_t& keyAscii) {
    keyAscii = FilterNumericKey(keyAscii);
}

void FrmNouv3DText::Command1_Click() {
    skipOnError([this] { LabCoulFond->setBackColor(CommonDialog1.AskColour(LabCoulFond->BackColor())); });
}

void FrmNouv3DText::Command2_Click() {
    m_choice.NewImageBackColor = LabCoulFond->BackColor();
    m_choice.NewImageWidth = numericValue(Text1->text());
    m_choice.NewImageHeight = numericValue(Text2->text());
    accept();
}

void FrmNouv3DText::Command3_Click() {
    m_choice.NewImageCancelled = 1;
    done(Rejected);
}

void FrmNouv3DText::closeEvent(QCloseEvent* event) {
    // Not through reject(), which is Escape.
    done(Rejected);
    event->accept();
}

} // namespace ovrano
