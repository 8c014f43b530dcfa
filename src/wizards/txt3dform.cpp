#include "wizards/txt3dform.h"

#include "platform/controls.h"
#include "platform/fontbox.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
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
constexpr int MoreButtonWidth = 30;
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

QGroupBox* frame(const char* name, const QString& caption, QWidget* parent) {
    return named(new QGroupBox(caption, parent), name);
}

QPushButton* moreButton(const char* name, const QString& toolTip, QWidget* parent) {
    auto* button = named(new QPushButton(QStringLiteral("..."), parent), name, toolTip);
    button->setToolTip(toolTip);
    button->setFixedWidth(MoreButtonWidth);
    return button;
}

ColourBox* colourLabel(const char* name, const QString& caption, Colour colour, QWidget* parent) {
    auto* label = new ColourBox(QLatin1String(name), colour, parent);
    label->setText(caption);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(3);
    return label;
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

/// A layout with the same small margins in every frame.
template<typename Layout>
Layout* inside(QGroupBox& box) {
    auto* layout = new Layout(&box);
    layout->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    layout->setSpacing(Spacing);
    return layout;
}

/// What the window manager puts around this window, as far as a window that is already shown can tell.
QMargins windowFrame(const QWidget* shown) {
    if (!shown)
        return {};
    const QRect inner = shown->window()->geometry();
    const QRect outer = shown->window()->frameGeometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

} // namespace

Txt3DForm::Txt3DForm(QWidget* parent)
    : QDialog(parent)
    , ExamplePic(QStringLiteral("ExamplePic"), InitialPicture)
    , Frame3(frame("Frame3", QStringLiteral("Entrez votre texte ici "), this))
    , Text1(named(new QLineEdit(QStringLiteral("Votre texte"), this), "Text1", QStringLiteral("Texte")))
    , Frame1(frame("Frame1", QStringLiteral("Police"), this))
    , Combo1(named(new QComboBox(this), "Combo1", QStringLiteral("Police")))
    , Frame2(frame("Frame2", QStringLiteral("Taille"), this))
    , Combo2(named(new QComboBox(this), "Combo2", QStringLiteral("Taille")))
    , Frame4(frame("Frame4", QStringLiteral("Style "), this))
    , Command3(styleButtons(this))
    , Frame7(frame("Frame7", QStringLiteral("Effet 3D "), this))
    , Check1(named(new QCheckBox(QStringLiteral("Contour"), this), "Check1"))
    , Check2(named(new QCheckBox(QStringLiteral("Effet 3D"), this), "Check2"))
    , Check3(named(new QCheckBox(QStringLiteral("Relief"), this), "Check3"))
    , Frame5(frame("Frame5", QStringLiteral("Profondeur  3D"), this))
    , Slider1(named(new QSlider(Qt::Horizontal, this), "Slider1", QStringLiteral("Profondeur 3D")))
    , lblDepth(named(new QLabel(this), "lblDepth"))
    , Label2(named(new QLabel(QStringLiteral("Angle 3D inclinaison :"), this), "Label2"))
    , Text2(named(new QComboBox(this), "Text2", QStringLiteral("Angle 3D inclinaison, en degrés")))
    , Frame8(frame("Frame8", QStringLiteral("Couleurs "), this))
    , LblCoulT(colourLabel("LblCoulT", QStringLiteral("Couleur du Texte"), InitialTextColour, this))
    , LblCoul3D(colourLabel("LblCoul3D", QStringLiteral("Couleur 3D"), InitialColour3D, this))
    , LblFond(colourLabel("LblFond", QStringLiteral("Couleur de fond"), White, this))
    , Command4(moreButton("Command4", QStringLiteral("Changer la couleur du texte"), this))
    , Command5(moreButton("Command5", QStringLiteral("Changer la couleur 3D"), this))
    , Command6(moreButton("Command6", QStringLiteral("Changer la couleur de fond"), this))
    , Frame6(new ExampleFrame(QStringLiteral("Frame6"), ExamplePic, this))
    , lblExampleSize(named(new QLabel(this), "lblExampleSize"))
    , Command1(named(new QPushButton(QStringLiteral("&Appliquer"), this), "Command1"))
    , Command2(named(new QPushButton(QStringLiteral("Annuler"), this), "Command2")) {
    setObjectName(QStringLiteral("Txt3D"));
    setWindowTitle(QStringLiteral("Texte 3D avec 2 couleurs"));
    setSizeGripEnabled(true);
    setUpStyleButtons();
    setUpDepth();
    setUpColours();
    setUpFont();
    arrange();
}

void Txt3DForm::setUpStyleButtons() {
    constexpr std::array Letters = {u'G', u'I', u'S', u'N', u'B'};
    const std::array toolTips = {QStringLiteral("Gras Oui/Non"), QStringLiteral("Italique Oui/Non"),
                                 QStringLiteral("Souligné Oui/Non"), QStringLiteral("Normal"),
                                 QStringLiteral("Barré Oui/Non")};
    for (std::size_t i = 0; i < Command3.size(); ++i) {
        QPushButton& button = *Command3.at(i);
        button.setText(QChar(Letters.at(i)));
        button.setToolTip(toolTips.at(i));
        button.setAccessibleName(toolTips.at(i));
        button.setCheckable(i != NormalButton);
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
    for (ColourBox* box : {LblCoulT, LblCoul3D, LblFond})
        box->keepCaptionReadable();
    ExamplePic.setBackColor(LblFond->BackColor());
    Frame6->picture->setAccessibleName(QStringLiteral("Exemple"));
    Command1->setToolTip(QStringLiteral("Appliquer les sélections"));
    Command1->setDefault(true);
}

void Txt3DForm::arrange() {
    inside<QVBoxLayout>(*Frame3)->addWidget(Text1);
    inside<QVBoxLayout>(*Frame1)->addWidget(Combo1);
    inside<QVBoxLayout>(*Frame2)->addWidget(Combo2);
    auto* style = inside<QHBoxLayout>(*Frame4);
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
    auto* effect = inside<QVBoxLayout>(*Frame7);
    for (QCheckBox* box : {Check1, Check2, Check3})
        effect->addWidget(box);

    auto* slider = new QHBoxLayout;
    slider->addWidget(Slider1, 1);
    slider->addWidget(lblDepth);
    auto* angle = new QHBoxLayout;
    angle->addWidget(Label2, 1);
    angle->addWidget(Text2);
    auto* depth = inside<QVBoxLayout>(*Frame5);
    depth->addLayout(slider);
    depth->addLayout(angle);

    auto* colours = inside<QGridLayout>(*Frame8);
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
    row->addWidget(lblExampleSize, 1);
    row->addWidget(Command1);
    row->addWidget(Command2);
    return row;
}

void Txt3DForm::placeInCorner() {
    const QRect screenArea = screen()->availableGeometry();
    const QMargins around = windowFrame(parentWidget());
    resize(sizeHint().boundedTo(screenArea.marginsRemoved(around).size()));
    const QSize outer = size().grownBy(around);
    move(screenArea.x() + screenArea.width() - outer.width(),
         screenArea.y() + screenArea.height() - outer.height());
}

void Txt3DForm::showPictureSize() {
    const QSize size = ExamplePic.innerSize();
    lblExampleSize->setText(
        QStringLiteral("Nouvelle image : %1 × %2 pixels").arg(size.width()).arg(size.height()));
}

} // namespace ovrano
