#include "app/menus.h"

#include "platform/yield.h"

#include <QGuiApplication>
#include <QMenuBar>
#include <QShortcut>

#include <utility>

namespace ovrano {

Menus::Menus(QMainWindow& window)
    : QObject(&window)
    , m_window(window) {
    buildFile();
    buildEdit();
    buildTools();
    buildText();
}

void Menus::buildFile() {
    mnuFile = newMenu("mnuFile", QStringLiteral("&Fichier"));
    mnuFileNew = newEntry(mnuFile, "mnuFileNew", QStringLiteral("&Nouveau texte 3D"), {Qt::CTRL | Qt::Key_N});
    mnuFileOpen = newEntry(mnuFile, "mnuFileOpen", QStringLiteral("&Ouvrir une image de fond..."),
                           {Qt::CTRL | Qt::Key_O});
    mnuFileSave = newEntry(mnuFile, "mnuFileSave", QStringLiteral("&Enregistrer Sous..."),
                           {Qt::CTRL | Qt::Key_S, Qt::CTRL | Qt::SHIFT | Qt::Key_S});
    mnuFile->addSeparator();
    mnuFileExit = newEntry(mnuFile, "mnuFileExit", QStringLiteral("&Quitter"), {Qt::CTRL | Qt::Key_Q});
}

void Menus::buildEdit() {
    mnuEdit = newMenu("mnuEdit", QStringLiteral("&Edition"));
    mnuEditUndo = newEntry(mnuEdit, "mnuEditUndo", QStringLiteral("&Annuler"), {Qt::CTRL | Qt::Key_Z});
    mnuEdit->addSeparator();
    mnuEditCut = newEntry(mnuEdit, "mnuEditCut", QStringLiteral("&Couper"), {Qt::CTRL | Qt::Key_X});
    mnuEditCopy = newEntry(mnuEdit, "mnuEditCopy", QStringLiteral("Co&pier"), {Qt::CTRL | Qt::Key_C});
    mnuEditPaste = newEntry(mnuEdit, "mnuEditPaste", QStringLiteral("Co&ller"), {Qt::CTRL | Qt::Key_V});
    mnuEditPasteTransparent =
        newEntry(mnuEdit, "mnuEditPasteTransparent", QStringLiteral("Coller en &transparence"));
    Mnu_ColleNouvIMG =
        newEntry(mnuEdit, "Mnu_ColleNouvIMG", QStringLiteral("Coller dans une &nouvelle image"));
    mnuEditPasteFromFile =
        newEntry(mnuEdit, "mnuEditPasteFromFile", QStringLiteral("Coller depuis un &fichier"));
    mnuEditPasteFromFileTransparent = newEntry(mnuEdit, "mnuEditPasteFromFileTransparent",
                                               QStringLiteral("Coller depuis un fichier en transpa&rence"));
    mnuEdit->addSeparator();
    mnuEditClearClipboard =
        newEntry(mnuEdit, "mnuEditClearClipboard", QStringLiteral("&Vider le presse-papiers"));
}

void Menus::buildTools() {
    mnuTools = newMenu("mnuTools", QStringLiteral("&Outils"));
    mnuToolsRegion = newEntry(mnuTools, "mnuToolsRegion", QStringLiteral("&Sélection d'une zone"));
    mnuToolsRegion->setCheckable(true);
    Mnu_Pipette = newEntry(mnuTools, "Mnu_Pipette", QStringLiteral("&Pipette"));
    Mnu_ChoixCouleur = newEntry(mnuTools, "Mnu_ChoixCouleur", QStringLiteral("Choix de la couleur de texte"));
}

void Menus::buildText() {
    mnuText = newMenu("mnuText", QStringLiteral("&Texte"));
    mnuTextWrite = {newEntry(mnuText, "mnuTextWrite(0)", QStringLiteral("Texte 3D - &1 Couleur")),
                    newEntry(mnuText, "mnuTextWrite(1)", QStringLiteral("Texte 3D - &2 Couleurs")),
                    newEntry(mnuText, "mnuTextWrite(2)", QStringLiteral("Texte &Circulaire"))};
    for (QAction* entry : mnuTextWrite)
        entry->setCheckable(true);
    mnuTextWrite[0]->setChecked(true);
}

void Menus::setRule(QMenu* menu, const std::function<void()>& rule) {
    connect(menu, &QMenu::aboutToShow, this, rule);
    m_rules.insert(menu, rule);
}

void Menus::setCommand(QAction* entry, std::function<void()> command) {
    connect(entry, &QAction::triggered, this, unlessUnderWay(std::move(command)));
}

QMenu* Menus::newMenu(const char* name, const QString& caption) {
    QMenu* menu = m_window.menuBar()->addMenu(caption);
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction* Menus::newEntry(QMenu* menu, const char* name, const QString& caption,
                         const QList<QKeySequence>& keys) {
    // The keys are separate shortcuts: an entry that was disabled when its menu last opened may be allowed by
    // now. The menu only shows the first of them.
    const QString shown =
        keys.isEmpty() ? QString() : QLatin1Char('\t') + keys.first().toString(QKeySequence::NativeText);
    QAction* entry = menu->addAction(caption + shown);
    entry->setObjectName(QLatin1String(name));
    for (const QKeySequence& key : keys) {
        auto* shortcut = new QShortcut(key, &m_window);
        shortcut->setAutoRepeat(false); // a key held during a long command would repeat it for minutes
        connect(shortcut, &QShortcut::activated, this, [this, menu, entry] { obeyKey(menu, entry); });
    }
    return entry;
}

void Menus::obeyKey(QMenu* menu, QAction* entry) {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return; // a gesture is under way, and no command starts inside another
    if (const auto rule = m_rules.value(menu))
        rule();
    if (entry->isEnabled())
        entry->trigger();
}

} // namespace ovrano
