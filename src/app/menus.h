#pragma once

#include <QAction>
#include <QHash>
#include <QMainWindow>
#include <QMenu>

#include <array>
#include <functional>

namespace ovrano {

/// The main window's menus. Every entry is there under its name, and enabled as its menu's rule says.
class Menus : public QObject {
    Q_OBJECT

public:
    explicit Menus(QMainWindow& window);

    QMenu* mnuFile;
    QAction* mnuFileNew;
    QAction* mnuFileOpen;
    QAction* mnuFileSave;
    QAction* mnuFileExit;

    QMenu* mnuEdit;
    QAction* mnuEditUndo;
    QAction* mnuEditCut;
    QAction* mnuEditCopy;
    QAction* mnuEditPaste;
    QAction* mnuEditPasteTransparent;
    QAction* Mnu_ColleNouvIMG;
    QAction* mnuEditPasteFromFile;
    QAction* mnuEditPasteFromFileTransparent;
    QAction* mnuEditClearClipboard;

    QMenu* mnuTools;
    QAction* mnuToolsRegion;
    QAction* Mnu_Pipette;
    QAction* Mnu_ChoixCouleur;

    QMenu* mnuText;
    std::array<QAction*, 3> mnuTextWrite;

    /// Runs when a menu opens, and before a key of one of its entries is obeyed.
    void setRule(QMenu* menu, const std::function<void()>& rule);
    void setCommand(QAction* entry, std::function<void()> command);

private:
    void buildFile();
    void buildEdit();
    void buildTools();
    void buildText();
    QMenu* newMenu(const char* name, const QString& caption);
    QAction* newEntry(QMenu* menu, const char* name, const QString& caption,
                      const QList<QKeySequence>& keys = QList<QKeySequence>());
    void obeyKey(QMenu* menu, QAction* entry);

    QMainWindow& m_window;
    QHash<QMenu*, std::function<void()>> m_rules;
};

} // namespace ovrano
