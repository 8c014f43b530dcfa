#include "wizards/txt3dform.h"

#include "platform/accessibletoggle.h"
#include "platform/controls.h"
#include "platform/fontbox.h"
#include "wizards/formparts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

constexpr QSize InitialPicture(560, 220); // pixels
constexpr int DeepestExtrusion = 60;      // layers
constexpr int InitialExtrusion = 12;

constexpr Colour InitialTextColour = rgb(0, 64, 128);
constexpr Colour InitialColour3D = rgb(160, 184, 208);

// Pixels.
constexpr int StyleButtonSide = 30;
constexpr int Spacing = 6;

constexpr int FontCharacters = 12;

std::array<QPushButton*, 5> styleButtons(QWidget* parent) {
    std::array<QPushButton*, 5> buttons{};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons.at(i) = new QPushButton(parent);
        buttons.at(i)->setObjectName(QStringLiteral("Command3(%1)").arg(i));
    }
    return buttons;
}

/// A pressed look that can be told in a dark theme, too.
void showToggled(QPushButton& button) {
    QPalette palette;
    if (button.isChecked()) {
        palette.setColor(QPalette::Button, palette.color(QPalette::Highlight));
        palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
    }
    button.setPalette(palette);
}

/// As wide as the digits of a size or an angle need.
void keepNarrow(QComboBox& box) {
    box.setMinimumContentsLength(4);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

} // namespace

Txt3DForm::Txt3DForm(Dialogs& dialogs, QWidget* parent)
    : PictureDialog(QStringLiteral("ExamplePic"), InitialPicture, dialogs, parent)
    , ExamplePic(m_picture)
    , Frame3(groupFrame("Frame3", QStringLiteral("Entrez votre texte ici "), this))
    , Text1(named(new QLineEdit(QStringLiteral("Votre texte"), this), "Text1", QStringLiteral("Texte")))
    , Frame1(groupFrame("Frame1", QStringLiteral("Police"), this))
    , Combo1(named(new QComboBox(this), "Combo1", QStringLiteral("Police")))
    , Frame2(groupFrame("Frame2", QStringLiteral("Taille"), this))
    , Combo2(named(new QComboBox(this), "Combo2", QStringLiteral("Taille")))
    , Frame4(groupFrame("Frame4", QStringLiteral("Style "), this))
    , Command3(styleButtons(this))
    , Frame7(groupFrame("Frame7", QStringLiteral("Effet 3D "), this))
    , Check1(named(new QCheckBox(QStringLiteral("Contour"), this), "Check1"))
    , Check2(named(new QCheckBox(QStringLiteral("Effet 3D"), this), "Check2"))
    , Check3(named(new QCheckBox(QStringLiteral("Relief"), this), "Check3"))
    , Frame5(groupFrame("Frame5", QStringLiteral("Profondeur  3D"), this))
    , Slider1(named(new QSlider(Qt::Horizontal, this), "Slider1", QStringLiteral("Profondeur 3D")))
    , lblDepth(named(new QLabel(this), "lblDepth"))
    , Label2(named(new QLabel(QStringLiteral("Angle 3D inclinaison :"), this), "Label2"))
    , Text2(named(new QComboBox(this), "Text2", QStringLiteral("Angle 3D inclinaison, en degrés")))
    , Frame8(groupFrame("Frame8", QStringLiteral("Couleurs "), this))
    , LblCoulT(captionedColour("LblCoulT", QStringLiteral("Couleur du Texte"), InitialTextColour, this))
    , LblCoul3D(captionedColour("LblCoul3D", QStringLiteral("Couleur 3D"), InitialColour3D, this))
    , LblFond(captionedColour("LblFond", QStringLiteral("Couleur de fond"), White, this))
    , Command4(moreButton("Command4", QStringLiteral("Changer la couleur du texte"), this))
    , Command5(moreButton("Command5", QStringLiteral("Changer la couleur 3D"), this))
    , Command6(moreButton("Command6", QStringLiteral("Changer la couleur de fond"), this))
    , Command1(named(new QPushButton(QStringLiteral("&Appliquer"), this), "Command1"))
    , Command2(named(new QPushButton(QStringLiteral("Annuler"), this), "Command2")) {
    setObjectName(QStringLiteral("Txt3D"));
    setWindowTitle(QStringLiteral("Texte 3D avec 2 couleurs"));
    setUpStyleButtons();
    setUpDepth();
    setUpColours();
    setUpFont();
    arrange();
}

void Txt3DForm::setUpStyleButtons() {
    AccessibleToggle::install();
    constexpr std::array Letters = {u'G', u'I', u'S', u'N', u'B'};
    const std::array names = {QStringLiteral("Gras"), QStringLiteral("Italique"), QStringLiteral("Souligné"),
                              QStringLiteral("Normal"), QStringLiteral("Barré")};
    const std::array toolTips = {QStringLiteral("Gras Oui/Non"), QStringLiteral("Italique Oui/Non"),
                                 QStringLiteral("Souligné Oui/Non"), QStringLiteral("Normal"),
                                 QStringLiteral("Barré Oui/Non")};
    for (std::size_t i = 0; i < Command3.size(); ++i) {
        QPushButton& button = *Command3.at(i);
        button.setCheckable(i != NormalButton); // before the first name, which is announced as a toggle's
        button.setText(QChar(Letters.at(i)));
        button.setToolTip(toolTips.at(i));
        button.setAccessibleName(names.at(i));
        const int side = std::max(StyleButtonSide, button.sizeHint().height()); // large desktop fonts
        button.setFixedSize(side, side);
        QFont font = button.font();
        font.setBold(i == BoldButton);
        font.setItalic(i == ItalicButton);
        font.setUnderline(i == UnderlineButton);
        font.setStrikeOut(i == StrikeOutButton);
        button.setFont(font);
        connect(&button, &QPushButton::toggled, this, [&button] { showToggled(button); });
    }
}

void Txt3DForm::setUpDepth() {
    Check3->setToolTip(QStringLiteral("Prendre en compte l'inclinaison personnalisée"));
    Slider1->setRange(1, DeepestExtrusion);
    Slider1->setValue(InitialExtrusion);
    lblDepth->setNum(InitialExtrusion);
    lblDepth->setMinimumWidth(lblDepth->fontMetrics().horizontalAdvance(QString::number(DeepestExtrusion)));
    lblDepth->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label2->setBuddy(Text2);
    makeNumberBox(*Text2);
    keepNarrow(*Text2);
    Text2->lineEdit()->setInputMethodHints(Qt::ImhDigitsOnly);
    Frame5->setEnabled(false);
}

void Txt3DForm::setUpFont() {
    fillWithFonts(*Combo1, FontCharacters);
    makeNumberBox(*Combo2);
    keepNarrow(*Combo2);
}

void Txt3DForm::setUpColours() {
    ExamplePic.setBackColor(LblFond->BackColor());
    Frame6->picture->setAccessibleName(QStringLiteral("Exemple"));
    Command1->setToolTip(QStringLiteral("Appliquer les sélections"));
    // Return in a field takes what was typed there and presses no button.
    auto* nothing = named(new QPushButton(this), "cmdNothing", QStringLiteral("Aucune action"));
    nothing->setDefault(true);
    nothing->hide();
}

void Txt3DForm::arrange() {
    insetLayout<QVBoxLayout>(*Frame3)->addWidget(Text1);
    insetLayout<QVBoxLayout>(*Frame1)->addWidget(Combo1);
    insetLayout<QVBoxLayout>(*Frame2)->addWidget(Combo2);
    auto* style = insetLayout<QHBoxLayout>(*Frame4);
    for (QPushButton* button : Command3)
        style->addWidget(button);

    auto* all = new QVBoxLayout(this);
    all->setSpacing(Spacing);
    all->addWidget(Frame3);
    all->addLayout(textRow());
    all->addLayout(effectRow());
    all->addWidget(Frame6, 1);
    all->addLayout(bottomRow());
}

QLayout* Txt3DForm::textRow() {
    auto* row = new QHBoxLayout;
    row->addWidget(Frame1, 1);
    row->addWidget(Frame2);
    row->addWidget(Frame4);
    return row;
}

QLayout* Txt3DForm::effectRow() {
    auto* effect = insetLayout<QVBoxLayout>(*Frame7);
    for (QCheckBox* box : {Check1, Check2, Check3})
        effect->addWidget(box);

    auto* slider = new QHBoxLayout;
    slider->addWidget(Slider1, 1);
    slider->addWidget(lblDepth);
    auto* angle = new QHBoxLayout;
    angle->addWidget(Label2, 1);
    angle->addWidget(Text2);
    auto* depth = insetLayout<QVBoxLayout>(*Frame5);
    depth->addLayout(slider);
    depth->addLayout(angle);

    auto* colours = insetLayout<QGridLayout>(*Frame8);
    int line = 0;
    for (const auto& [box, button] :
         {std::pair(LblCoulT, Command4), std::pair(LblCoul3D, Command5), std::pair(LblFond, Command6)}) {
        colours->addWidget(box, line, 0);
        colours->addWidget(button, line++, 1);
    }

    auto* row = new QHBoxLayout;
    row->addWidget(Frame7);
    row->addWidget(Frame5, 1);
    row->addWidget(Frame8, 1);
    return row;
}

QLayout* Txt3DForm::bottomRow() {
    auto* row = new QHBoxLayout;
    row->addWidget(lblPictureSize, 1);
    row->addWidget(Command1);
    row->addWidget(Command2);
    return row;
}

void Txt3DForm::placeOnScreen() {
    PictureDialog::placeOnScreen();
    const QRect room = roomOnScreen();
    const QPoint outside = isVisible() ? geometry().topLeft() - pos() : QPoint();
    move(room.right() + 1 - width() - outside.x(), room.bottom() + 1 - height() - outside.y());
}

} // namespace ovrano
