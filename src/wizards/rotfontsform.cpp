#include "wizards/rotfontsform.h"

#include "platform/controls.h"
#include "platform/fontbox.h"
#include "wizards/formparts.h"
#include "wizards/settingscolumn.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

constexpr QSize FirstPictureSize(420, 420); // pixels
constexpr Colour DarkBlue = rgb(0, 64, 128);

constexpr QSize SwatchSize(72, 24); // pixels

constexpr int FontCharacters = 16;

QLabel* label(const char* name, const char* text, QWidget* parent) {
    return named(new QLabel(QString::fromUtf8(text), parent), name);
}

QPushButton* button(const char* name, const char* text, const char* toolTip, QWidget* parent) {
    auto* made = named(new QPushButton(QString::fromUtf8(text), parent), name);
    made->setToolTip(QString::fromUtf8(toolTip));
    return made;
}

/// Rows of a label and its field below each other, the fields aligned.
void addField(QGridLayout& grid, int row, QLabel* label, QWidget* field) {
    label->setBuddy(field);
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
}

} // namespace

RotFontsForm::RotFontsForm(Dialogs& dialogs, QWidget* parent)
    : PictureDialog(QStringLiteral("Picture1"), FirstPictureSize, dialogs, parent)
    , Picture1(m_picture)
    , Label3(label("Label3", "Texte : ", this))
    , Text1(named(new QLineEdit(QStringLiteral("EXEMPLE DE TEXTE - Circulaire - "), this), "Text1",
                  QStringLiteral("Texte")))
    , Frame1(groupFrame("Frame1", QStringLiteral("Paramètres "), this))
    , Frame5(groupFrame("Frame5", QStringLiteral("Angles && Rayon"), Frame1))
    , Label1(label("Label1", "Rayon : ", Frame5))
    , txtRaggio(named(new QComboBox(Frame5), "txtRaggio", QStringLiteral("Rayon, en pixels")))
    , Label2(label("Label2", "Secteur angulaire : ", Frame5))
    , txtSettore(named(new QComboBox(Frame5), "txtSettore", QStringLiteral("Secteur angulaire, en degrés")))
    , Label4(label("Label4", "Angle de départ : ", Frame5))
    , txtDegree(named(new QComboBox(Frame5), "txtDegree", QStringLiteral("Angle de départ, en degrés")))
    , Frame4(groupFrame("Frame4", QStringLiteral("Coordonnées Centre "), Frame1))
    , Label5(label("Label5", "Coord X : ", Frame4))
    , TxtCX(named(new QLineEdit(Frame4), "TxtCX", QStringLiteral("Coordonnée X du centre, en pixels")))
    , Label6(label("Label6", "Coord Y : ", Frame4))
    , TxtCY(named(new QLineEdit(Frame4), "TxtCY", QStringLiteral("Coordonnée Y du centre, en pixels")))
    , Command4(button("Command4", "Défaut", "Coordonnées du centre à défaut", Frame4))
    , Frame3(groupFrame("Frame3", QStringLiteral("Police"), Frame1))
    , txtFont(named(new QComboBox(Frame3), "txtFont", QStringLiteral("Police")))
    , Label7(label("Label7", "Taille de la police : ", Frame3))
    , txtSize(named(new QComboBox(Frame3), "txtSize", QStringLiteral("Taille de la police, en points")))
    , Frame2(groupFrame("Frame2", QStringLiteral("Couleurs "), Frame1))
    , LblCoulTexte(captionedColour("LblCoulTexte", QStringLiteral("Texte"), DarkBlue, Frame2))
    , cmdColor(moreButton("cmdColor", QStringLiteral("Changer la couleur de texte"), Frame2))
    , LblFond(captionedColour("LblFond", QStringLiteral("Fond"), White, Frame2))
    , Command2(moreButton("Command2", QStringLiteral("Changer la couleur de fond"), Frame2))
    , Check1(named(new QCheckBox(QStringLiteral("Actualisation automatique"), this), "Check1"))
    , Command1(button("Command1", "Dessiner", "Dessine avec les paramètres en cours", this))
    , Command3(button("Command3", "&Appliquer...", "Applique avec l'image en cours", this))
    , Command5(button("Command5", "Fermer", "Ferme l'ovrano de texte circulaire", this)) {
    setObjectName(QStringLiteral("RotFonts"));
    setWindowTitle(QStringLiteral("Texte Circulaire"));
    fillLists();
    for (ColourBox* box : {LblCoulTexte, LblFond})
        box->setMinimumSize(SwatchSize);
    arrange();
    orderTabs();
    Frame6->picture->setAccessibleName(QStringLiteral("Aperçu"));
    Command1->setDefault(true); // Return in a field shows what was typed
}

void RotFontsForm::fillLists() {
    fillWithFonts(*txtFont, FontCharacters);

    addNumbers(*txtRaggio, 10, 200, 2);
    addNumbers(*txtSettore, 10, 360, 5);
    addNumbers(*txtDegree, 0, 360);
    addNumbers(*txtSize, 6, 60);
    for (const auto& [box, first] : {std::pair(txtRaggio, "120"), std::pair(txtSettore, "360"),
                                     std::pair(txtDegree, "0"), std::pair(txtSize, "18")}) {
        makeNumberBox(*box);
        box->setCurrentIndex(box->findText(QLatin1String(first)));
        box->setEditText(QLatin1String(first));
    }
}

QLayout* RotFontsForm::anglesAndRadius() {
    auto* grid = new QGridLayout;
    addField(*grid, 0, Label1, txtRaggio);
    addField(*grid, 1, Label2, txtSettore);
    addField(*grid, 2, Label4, txtDegree);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* RotFontsForm::centre() {
    auto* grid = new QGridLayout;
    addField(*grid, 0, Label5, TxtCX);
    addField(*grid, 1, Label6, TxtCY);
    grid->addWidget(Command4, 0, 2, 2, 1, Qt::AlignVCenter);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* RotFontsForm::font() {
    auto* grid = new QGridLayout;
    grid->addWidget(txtFont, 0, 0, 1, 2);
    addField(*grid, 1, Label7, txtSize);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* RotFontsForm::colours() {
    auto* row = new QHBoxLayout;
    for (QWidget* control : {static_cast<QWidget*>(LblCoulTexte), static_cast<QWidget*>(cmdColor),
                             static_cast<QWidget*>(LblFond), static_cast<QWidget*>(Command2)})
        row->addWidget(control);
    row->setStretch(0, 1);
    row->setStretch(2, 1);
    return row;
}

void RotFontsForm::arrangeSettings() {
    auto* column = new QVBoxLayout(Frame1);
    inset(*column);
    const std::initializer_list<std::pair<QGroupBox*, QLayout*>> groups = {
        {Frame5, anglesAndRadius()}, {Frame4, centre()}, {Frame3, font()}, {Frame2, colours()}};
    for (const auto& [box, layout] : groups) {
        inset(*layout);
        box->setLayout(layout);
        column->addWidget(box);
    }
    column->addStretch();
}

void RotFontsForm::alignFields() {
    int widest = 0;
    for (const QLabel* text : {Label1, Label2, Label4, Label5, Label6, Label7})
        widest = std::max(widest, text->sizeHint().width());
    for (const QGroupBox* box : {Frame5, Frame4, Frame3})
        static_cast<QGridLayout*>(box->layout())->setColumnMinimumWidth(0, widest);
}

void RotFontsForm::arrange() {
    arrangeSettings();
    alignFields();
    auto* text = new QHBoxLayout;
    Label3->setBuddy(Text1);
    text->addWidget(Label3);
    text->addWidget(Text1, 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblPictureSize);
    bottom->addStretch();
    for (QWidget* control : {static_cast<QWidget*>(Check1), static_cast<QWidget*>(Command1),
                             static_cast<QWidget*>(Command3), static_cast<QWidget*>(Command5)})
        bottom->addWidget(control);

    auto* grid = new QGridLayout(this);
    grid->addLayout(text, 0, 0, 1, 2);
    grid->addWidget(Frame6, 1, 0);
    grid->addWidget(new SettingsColumn(Frame1, this), 1, 1);
    grid->addLayout(bottom, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    placeOnScreen();
}

void RotFontsForm::orderTabs() {
    QWidget* const order[] = {Text1,    txtRaggio, txtSettore, txtDegree, TxtCX,
                              TxtCY,    Command4,  txtFont,    txtSize,   cmdColor,
                              Command2, Check1,    Command1,   Command3,  Command5};
    QWidget* before = nullptr;
    for (QWidget* control : order) {
        if (before)
            setTabOrder(before, control);
        before = control;
    }
}

} // namespace ovrano
