#include "app/statustips.h"

#include <QAction>
#include <QMainWindow>
#include <QWidget>

namespace ovrano {

namespace {

struct ControlTip {
    const char* name;
    const char* toolTip; // none where the control has one already
    const char* sentence;
};

constexpr ControlTip ControlTips[] = {
    // The tool box.
    {"Command1", nullptr, "Cliquez pour enregistrer l'image en BMP, JPEG ou GIF"},
    {"CmdAnnul", nullptr, "Cliquez pour revenir à l'image d'avant le dernier changement"},
    {"imgRegion", nullptr, "Cliquez, puis tracez un cadre autour de la zone à déplacer ou à copier"},
    {"imgColorPicker", nullptr, "Cliquez ici, puis dans l'image sur la couleur que prendra le texte"},
    {"LblFond", nullptr, "Changez la couleur de fond par le bouton à côté"},
    {"Command2", nullptr, "Cliquez pour choisir la couleur d'une image vide et des zones découvertes"},
    {"cmdCancel", nullptr, "Quitte aussitôt, sans rien demander : enregistrez d'abord"},
    // The text and its look.
    {"txbWriteText", "Texte à écrire", "Tapez ici le texte à écrire sur l'image"},
    {"cboFontName", "Police du texte", "Choisissez une police dans la liste, ou tapez le début de son nom"},
    {"txtFontSize", "Taille du texte, en points", "Choisissez ou tapez une taille de 6 à 99 points"},
    {"imgBold", nullptr, "Cliquez pour passer du maigre au gras et retour"},
    {"imgItalic", nullptr, "Cliquez pour pencher les lettres ou les redresser"},
    {"picTextColor", "Couleur du texte", "Changez la couleur par le bouton à côté ou par la pipette"},
    {"cmdTextColor", nullptr, "Cliquez pour choisir la couleur du texte"},
    {"lblTextSample", "Exemple du texte", "Voici la police, la taille et la couleur choisies"},
    // The angle.
    {"cboRotateAngle", "Angle du texte, en degrés", "Choisissez l'angle : plus de 0, le texte monte"},
    {"HsbRotateAngle", "Angle du texte", "Faites glisser pour tourner l'exemple, et le texte comme lui"},
    {"picRotateAngleSampleBgd", "Exemple de l'angle", "Voici l'angle auquel le texte sera écrit"},
    // The extrusion.
    {"cboShadeThickness", "Profondeur du texte 3D", "Choisissez l'épaisseur des lettres, de 1 à 9"},
    {"icb1Color3D", "Direction du texte 3D", "Choisissez le côté vers lequel les lettres s'épaississent"},
    {"cmd1Color3DProceed", "Créer le texte sur l'image",
     "Cliquez : le texte apparaît sur l'image, prêt à être déplacé"},
    {"cmdOneColour", "Outils du texte à une couleur",
     "Cliquez pour retrouver la case du texte et ses réglages"},
    // What the picture is.
    {"lblImageSize", "Largeur et hauteur de l'image, en pixels",
     "Tirez le bord droit ou le bord inférieur de l'image pour changer sa taille"},
    {"HScroll1", "Défilement horizontal", "Faites glisser pour voir la suite de l'image (Maj + molette)"},
    {"VScroll1", "Défilement vertical", "Faites glisser pour voir la suite de l'image (molette)"},
};

struct EntryTip {
    const char* name;
    const char* sentence;
};

constexpr EntryTip EntryTips[] = {
    {"mnuFileNew", "Commence une image vide : choisissez sa taille et sa couleur"},
    {"mnuFileOpen", "Choisissez la photo ou l'image sur laquelle écrire"},
    {"mnuFileSave", "Choisissez un nom et un format : BMP, JPEG ou GIF"},
    {"mnuFileExit", "Quitte le programme ; une image modifiée peut encore être enregistrée"},
    {"mnuEditUndo", "Revient à l'image d'avant le dernier changement"},
    {"mnuEditCut", "Met la zone sélectionnée dans le presse-papiers et l'efface de l'image"},
    {"mnuEditCopy", "Met la zone sélectionnée, ou toute l'image, dans le presse-papiers"},
    {"mnuEditPaste", "Pose l'image du presse-papiers en haut à gauche, prête à être déplacée"},
    {"mnuEditPasteTransparent", "Colle en rendant transparente la couleur de son coin supérieur gauche"},
    {"Mnu_ColleNouvIMG", "Remplace l'image par celle du presse-papiers"},
    {"mnuEditPasteFromFile", "Choisissez un fichier à poser sur l'image"},
    {"mnuEditPasteFromFileTransparent", "Choisissez un fichier ; la couleur de son coin sera transparente"},
    {"mnuEditClearClipboard", "Vide le presse-papiers"},
    {"mnuToolsRegion", "Tracez ensuite un cadre autour de la zone à déplacer ou à copier"},
    {"Mnu_Pipette", "Cliquez ensuite dans l'image sur la couleur que prendra le texte"},
    {"Mnu_ChoixCouleur", "Choisissez la couleur du texte dans la palette"},
    {"mnuTextWrite(0)", "Écrivez un texte 3D d'une couleur avec les outils du haut"},
    {"mnuTextWrite(1)", "Composez un texte 3D de deux couleurs, avec contour ou relief"},
    {"mnuTextWrite(2)", "Composez un texte qui suit un cercle"},
};

} // namespace

void addStatusTips(QMainWindow& window) {
    for (const ControlTip& tip : ControlTips) {
        auto* control = window.findChild<QWidget*>(QLatin1String(tip.name));
        Q_ASSERT(control);
        control->setStatusTip(QString::fromUtf8(tip.sentence));
        if (tip.toolTip)
            control->setToolTip(QString::fromUtf8(tip.toolTip));
    }
    for (const EntryTip& tip : EntryTips) {
        auto* entry = window.findChild<QAction*>(QLatin1String(tip.name));
        Q_ASSERT(entry);
        entry->setStatusTip(QString::fromUtf8(tip.sentence));
    }
}

} // namespace ovrano
