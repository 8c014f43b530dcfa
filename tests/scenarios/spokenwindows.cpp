#include "scenarios/spokenwindows.h"

namespace ovrano::testing {

namespace {

SpokenWindow mainWindow() {
    return {.called = "main window",
            .title = QStringLiteral("Ovrano de création de texte 3D"),
            .menu = QString(),
            .keys = QString(),
            .controls = {QStringLiteral("text Texte à écrire"), QStringLiteral("combo box Police"),
                         QStringLiteral("combo box Taille"), QStringLiteral("check box Gras"),
                         QStringLiteral("check box Italique"),
                         QStringLiteral("push button Choix de la couleur de texte"),
                         QStringLiteral("combo box Angle en degré"),
                         QStringLiteral("scroll bar Angle en degré"), QStringLiteral("combo box Profondeur"),
                         QStringLiteral("combo box Position 3D"),
                         QStringLiteral("push button Créer le texte 3D"),
                         QStringLiteral("push button Enregistrer"),
                         QStringLiteral("check box Sélectionner une zone"),
                         QStringLiteral("check box Prendre la couleur du texte dans l'image"),
                         QStringLiteral("push button Changer la couleur de fond"),
                         QStringLiteral("push button Quitter"), QStringLiteral("graphic Image de travail")},
            .colours = {QStringLiteral("Couleur de fond: rouge 255, vert 255, bleu 255 (#FFFFFF)"),
                        QStringLiteral("Couleur du texte: rouge 0, vert 64, bleu 128 (#004080)")},
            .status = QStringLiteral("L=640  H=480")};
}

SpokenWindow newPicture() {
    return {.called = "new picture",
            .title = QStringLiteral("Nouveau texte 3D"),
            .menu = QStringLiteral("Fichier"),
            .keys = QStringLiteral("FN"),
            .controls = {QStringLiteral("text Largeur en pixels"), QStringLiteral("text Hauteur en pixels"),
                         QStringLiteral("push button Changer la couleur de fond"),
                         QStringLiteral("push button Appliquer"), QStringLiteral("push button Annuler")},
            .colours = {QStringLiteral("Couleur en cours: rouge 255, vert 255, bleu 255 (#FFFFFF)")},
            .status = QString()};
}

SpokenWindow twoColourText() {
    return {.called = "text in two colours",
            .title = QStringLiteral("Texte 3D avec 2 couleurs"),
            .menu = QStringLiteral("Texte"),
            .keys = QStringLiteral("T2"),
            .controls = {QStringLiteral("text Texte"), QStringLiteral("combo box Police"),
                         QStringLiteral("combo box Taille"), QStringLiteral("check box Gras"),
                         QStringLiteral("check box Italique"), QStringLiteral("check box Souligné"),
                         QStringLiteral("push button Normal"), QStringLiteral("check box Barré"),
                         QStringLiteral("check box Contour"), QStringLiteral("check box Effet 3D"),
                         QStringLiteral("check box Relief"),
                         QStringLiteral("push button Changer la couleur du texte"),
                         QStringLiteral("push button Changer la couleur 3D"),
                         QStringLiteral("push button Changer la couleur de fond"),
                         QStringLiteral("push button Appliquer"), QStringLiteral("push button Annuler")},
            .colours = {QStringLiteral("Couleur du Texte: rouge 0, vert 64, bleu 128 (#004080)"),
                        QStringLiteral("Couleur 3D: rouge 160, vert 184, bleu 208 (#A0B8D0)"),
                        QStringLiteral("Couleur de fond: rouge 255, vert 255, bleu 255 (#FFFFFF)")},
            .status = QStringLiteral("Nouvelle image : 560 × 220 pixels")};
}

SpokenWindow circularText() {
    return {.called = "circular text",
            .title = QStringLiteral("Texte Circulaire"),
            .menu = QStringLiteral("Texte"),
            .keys = QStringLiteral("TC"),
            .controls = {QStringLiteral("text Texte"), QStringLiteral("combo box Rayon : "),
                         QStringLiteral("combo box Secteur angulaire : "),
                         QStringLiteral("combo box Angle de départ : "),
                         QStringLiteral("text Coordonnée X du centre, en pixels"),
                         QStringLiteral("text Coordonnée Y du centre, en pixels"),
                         QStringLiteral("push button Défaut"), QStringLiteral("combo box Police"),
                         QStringLiteral("combo box Taille de la police : "),
                         QStringLiteral("push button Changer la couleur de texte"),
                         QStringLiteral("push button Changer la couleur de fond"),
                         QStringLiteral("check box Actualisation automatique"),
                         QStringLiteral("push button Dessiner"), QStringLiteral("push button Appliquer..."),
                         QStringLiteral("push button Fermer")},
            .colours = {QStringLiteral("Texte: rouge 0, vert 64, bleu 128 (#004080)"),
                        QStringLiteral("Fond: rouge 255, vert 255, bleu 255 (#FFFFFF)")},
            .status = QStringLiteral("Nouvelle image : 420 × 420 pixels")};
}

} // namespace

std::vector<SpokenWindow> spokenWindows() {
    return {mainWindow(), newPicture(), twoColourText(), circularText()};
}

} // namespace ovrano::testing
