#include "app/toolbox.h"

#include "ui/icons.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace ovrano {

namespace {

template<typename Button>
Button* newButton(const char* name, const QString& text, const QString& toolTip, QWidget* parent) {
    auto* button = new Button(parent);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(toolTip);
    return button;
}

void showTextBesideIcon(QToolButton& button, const QString& text, const QString& icon) {
    button.setText(text);
    button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setToolIcon(button, icon);
}

} // namespace

ToolBox::ToolBox(QWidget* parent)
    : QFrame(parent)
    , Command1(newButton<QToolButton>("Command1", QString(), QStringLiteral("Enregistrer l'image"), this))
    , CmdAnnul(newButton<QToolButton>("CmdAnnul", QString(),
                                      QStringLiteral("Annuler la dernière modification"), this))
    , imgRegion(new ImageButton(QStringLiteral("imgRegion"), QStringLiteral("Sélectionner une zone"), this))
    , imgColorPicker(new ImageButton(QStringLiteral("imgColorPicker"),
                                     QStringLiteral("Prendre la couleur du texte dans l'image"), this))
    , Command2(newButton<QPushButton>("Command2", QStringLiteral("..."),
                                      QStringLiteral("Changer la couleur de fond"), this))
    , LblFond(new ColourBox(QStringLiteral("LblFond"), White, this))
    , cmdCancel(newButton<QPushButton>("cmdCancel", QStringLiteral("&Quitter"),
                                       QStringLiteral("Quitter sans enregistrer"), this)) {
    setObjectName(QStringLiteral("fraTools"));
    showTextBesideIcon(*Command1, QStringLiteral("Enregistrer"), QStringLiteral("save"));
    showTextBesideIcon(*CmdAnnul, QStringLiteral("Annuler"), QStringLiteral("undo"));
    showTextBesideIcon(*imgRegion, QStringLiteral("Sélection"), QStringLiteral("region"));
    showTextBesideIcon(*imgColorPicker, QStringLiteral("Pipette"), QStringLiteral("picker"));
    Command1->setAutoRaise(true);
    CmdAnnul->setAutoRaise(true);
    setToolIcon(*cmdCancel, QStringLiteral("quit"));
    arrange();
}

void ToolBox::arrange() {
    LblFond->setToolTip(QStringLiteral("Couleur de fond"));
    LblFond->setAccessibleName(LblFond->toolTip());
    LblFond->setMinimumHeight(Command2->sizeHint().height());
    Command2->setAccessibleName(Command2->toolTip());
    Command2->setMaximumWidth(36);

    auto* background = new QHBoxLayout;
    background->addWidget(new QLabel(QStringLiteral("Fond"), this));
    background->addWidget(LblFond, 1);
    background->addWidget(Command2);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    for (QToolButton* button : {Command1, CmdAnnul})
        column->addWidget(button);
    column->addSpacing(8);
    for (ImageButton* button : {imgRegion, imgColorPicker})
        column->addWidget(button);
    column->addSpacing(8);
    column->addLayout(background);
    column->addStretch(1);
    column->addWidget(cmdCancel);
}

} // namespace ovrano
