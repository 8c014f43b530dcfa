#include "scenarios/accessibilityrules.h"
#include "scenarios/spokenprogram.h"
#include "scenarios/spokenwindows.h"
#include "support/inputerror.h"
#include "support/testprogram.h"

#include <QTest>

#include <algorithm>

using namespace ovrano::testing;

namespace {

const QString MainTitle = spokenWindows().front().title;

/// Opens a window by its letters and reads it.
AccessibleObject open(SpokenProgram& program, const SpokenWindow& window) {
    program.window(MainTitle);
    if (!window.menu.isEmpty()) {
        program.openMenu(window.keys.front(), window.menu);
        program.keys.type(window.keys.back());
    }
    return program.window(window.title);
}

/// Starts the program and works it.
void play(const std::function<void(SpokenProgram&)>& script) {
    try {
        SpokenProgram program;
        script(program);
    } catch (const InputError& error) {
        QTest::qFail(error.what(), __FILE__, __LINE__);
    }
}

QStringList spoken(const std::vector<AccessibleObject>& objects) {
    QStringList all;
    for (const AccessibleObject& object : objects)
        all.append(object.spoken());
    return all;
}

/// In one line, so that a comparison that fails shows them all.
QString listed(const QStringList& items) {
    return items.join(QStringLiteral("; "));
}

/// The controls that can be used in the order in which the Tab key leads to them, once around.
std::vector<AccessibleObject> tabRound(SpokenProgram& program,
                                       const std::vector<AccessibleObject>& controls) {
    std::vector<AccessibleObject> visited;
    const int first = program.waitForFocus(controls, std::nullopt);
    int current = first;
    do {
        visited.push_back(controls.at(static_cast<std::size_t>(current)));
        program.keys.strike(Qt::Key_Tab);
        current = program.waitForFocus(controls, current);
    } while (current != first && visited.size() <= controls.size());
    return visited;
}

/// The entry of an open menu with a caption, which its short cut follows after a tab.
const AccessibleObject& entry(const AccessibleObject& menu, const QString& caption) {
    const std::vector<AccessibleObject>& entries = menu.children.front().children;
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const AccessibleObject& object) {
        return object.name.section(QLatin1Char('\t'), 0, 0) == caption;
    });
    if (found == entries.end())
        throw InputError(QStringLiteral("no entry ") + caption);
    return *found;
}

} // namespace

/// What the program's windows tell a screen reader over the session's accessibility bus, and what can be
/// done in them with the keyboard alone.
class TestAccessibility : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingIsNamed_data() { eachWindow(); }
    void everythingIsNamed();
    void tabKeyGoesRoundAsOneReads_data() { eachWindow(); }
    void tabKeyGoesRoundAsOneReads();
    void coloursAreToldInWords_data() { eachWindow(); }
    void coloursAreToldInWords();
    void pictureSizeIsTold();
    void menusOpenByTheirLetters();
    void toolsTellWhetherTheyAreOn();
    void sampleIsToldInWords();
    void undoAndPasteTellWhetherTheyCanBeUsed();
    void whatIsOutOfUseIsToldSo();
    void togglingFromOutsideIsAPress();
    void largePictureIsScrolledByKeys();

private:
    static void eachWindow();
};

void TestAccessibility::eachWindow() {
    QTest::addColumn<SpokenWindow>("expected");
    for (const SpokenWindow& window : spokenWindows())
        QTest::newRow(window.called) << window;
}

void TestAccessibility::everythingIsNamed() {
    QFETCH(SpokenWindow, expected);
    play([&](SpokenProgram& program) {
        const AccessibleObject window = open(program, expected);
        const bool isDialog = !expected.menu.isEmpty();
        QCOMPARE(window.role, isDialog ? QStringLiteral("dialog") : QStringLiteral("frame"));
        QVERIFY(controlsIn(window).size() >= static_cast<std::size_t>(expected.controls.size()));
        QCOMPARE(listed(unnamedControls(window)), QString());
        QCOMPARE(listed(controlsOfOneName(window)), QString());
        QCOMPARE(listed(looseLabels(window)), QString());
        QCOMPARE(listed(doubledLetters(window)), QString());
    });
}

void TestAccessibility::tabKeyGoesRoundAsOneReads() {
    QFETCH(SpokenWindow, expected);
    play([&](SpokenProgram& program) {
        const AccessibleObject window = open(program, expected);
        std::vector<AccessibleObject> controls = controlsIn(window);
        std::erase_if(controls,
                      [](const auto& control) { return !control.states.has(AccessibleState::Enabled); });
        const std::vector<AccessibleObject> visited = tabRound(program, controls);
        QCOMPARE(visited.size(), controls.size());
        QCOMPARE(listed(leapsAgainstReading(window, visited)), QString());
        QCOMPARE(spoken(visited), expected.controls);
    });
}

void TestAccessibility::coloursAreToldInWords() {
    QFETCH(SpokenWindow, expected);
    play([&](SpokenProgram& program) {
        QStringList told;
        visit(open(program, expected), [&](const AccessibleObject& object, const AccessibleObject&) {
            if (object.description.startsWith(QStringLiteral("rouge ")))
                told.append(object.name + QStringLiteral(": ") + object.description);
        });
        QCOMPARE(told, expected.colours);
    });
}

void TestAccessibility::pictureSizeIsTold() {
    play([&](SpokenProgram& program) {
        for (const SpokenWindow& expected : spokenWindows()) {
            const AccessibleObject window = open(program, expected);
            if (!expected.status.isEmpty())
                find(window, QStringLiteral("label ") + expected.status);
            if (!expected.menu.isEmpty())
                program.keys.strike(Qt::Key_Escape);
        }
        open(program, spokenWindows().at(1));
        program.keys.type(QStringLiteral("204\t150\n"));
        find(program.window(MainTitle), QStringLiteral("label L=204  H=150"));
    });
}

void TestAccessibility::menusOpenByTheirLetters() {
    play([&](SpokenProgram& program) {
        program.window(MainTitle);
        for (const auto& [letter, title, entries] :
             {std::tuple(u'F', QStringLiteral("Fichier"), 4), std::tuple(u'E', QStringLiteral("Edition"), 9),
              std::tuple(u'O', QStringLiteral("Outils"), 3), std::tuple(u'T', QStringLiteral("Texte"), 3)}) {
            const AccessibleObject menu = program.openMenu(letter, title);
            QStringList names;
            for (const AccessibleObject& shown : menu.children.front().children)
                if (shown.role == QStringLiteral("menu item"))
                    names.append(shown.name);
            QCOMPARE(names.size(), entries);
            QVERIFY2(!names.contains(QString()), qPrintable(title));
            QCOMPARE(names.removeDuplicates(), 0);
            program.closeMenu(menu);
        }
    });
}

void TestAccessibility::toolsTellWhetherTheyAreOn() {
    play([&](SpokenProgram& program) {
        const AccessibleObject window = program.window(MainTitle);
        for (const QString& name :
             {QStringLiteral("Gras"), QStringLiteral("Italique"), QStringLiteral("Sélectionner une zone"),
              QStringLiteral("Prendre la couleur du texte dans l'image")}) {
            const AccessibleObject& tool = find(window, QStringLiteral("check box ") + name);
            for (const bool on : {true, false}) {
                program.bus().act(tool.address);
                program.waitForState(tool, AccessibleState::Checked, on);
            }
        }
        const AccessibleObject menu = program.openMenu(u'T', QStringLiteral("Texte"));
        QVERIFY(entry(menu, QStringLiteral("Texte 3D - 1 Couleur")).states.has(AccessibleState::Checked));
        QVERIFY(!entry(menu, QStringLiteral("Texte 3D - 2 Couleurs")).states.has(AccessibleState::Checked));
    });
}

void TestAccessibility::sampleIsToldInWords() {
    play([&](SpokenProgram& program) {
        const AccessibleObject window = program.window(MainTitle);
        const AccessibleObject& sample = find(window, QStringLiteral("label Exemple du texte"));
        QCOMPARE(sample.description, QStringLiteral("Arial, 24 points"));
        program.bus().act(find(window, QStringLiteral("check box Gras")).address);
        program.waitFor(
            [&] {
                return program.bus().read(sample.address).description ==
                       QStringLiteral("Arial, 24 points, gras");
            },
            QStringLiteral("the sample to be told as bold"));
    });
}

void TestAccessibility::undoAndPasteTellWhetherTheyCanBeUsed() {
    play([&](SpokenProgram& program) {
        const AccessibleObject window = program.window(MainTitle);
        const AccessibleObject& undo = find(window, QStringLiteral("push button Annuler"));
        const auto edition = [&] { return program.openMenu(u'E', QStringLiteral("Edition")); };
        const auto isUsable = [](const AccessibleObject& menu, const char* caption) {
            return entry(menu, QString::fromUtf8(caption)).states.has(AccessibleState::Enabled);
        };
        QVERIFY(!undo.states.has(AccessibleState::Enabled));
        AccessibleObject menu = edition();
        QVERIFY(!isUsable(menu, "Annuler"));
        QVERIFY(!isUsable(menu, "Couper"));
        QVERIFY(!isUsable(menu, "Coller"));
        program.keys.type(QStringLiteral("p")); // copies the picture
        program.waitForState(menu.children.front(), AccessibleState::Showing, false);

        program.bus().act(find(window, QStringLiteral("push button Créer le texte 3D")).address);
        program.waitForState(undo, AccessibleState::Enabled, true);
        menu = edition();
        QVERIFY(isUsable(menu, "Annuler"));
        QVERIFY(isUsable(menu, "Couper"));
        QVERIFY(isUsable(menu, "Coller"));
    });
}

void TestAccessibility::whatIsOutOfUseIsToldSo() {
    play([&](SpokenProgram& program) {
        const AccessibleObject window = open(program, spokenWindows().at(2));
        const AccessibleObject& depth = find(window, QStringLiteral("slider Profondeur 3D"));
        const AccessibleObject& outline = find(window, QStringLiteral("check box Contour"));
        const AccessibleObject& effect = find(window, QStringLiteral("check box Effet 3D"));
        QVERIFY(!depth.states.has(AccessibleState::Enabled));
        QVERIFY(outline.states.has(AccessibleState::Enabled));
        program.bus().act(effect.address);
        program.waitForState(effect, AccessibleState::Checked, true);
        program.waitForState(depth, AccessibleState::Enabled, true);
        program.waitForState(outline, AccessibleState::Enabled, false);
    });
}

void TestAccessibility::togglingFromOutsideIsAPress() {
    play([&](SpokenProgram& program) {
        const AccessibleObject window = open(program, spokenWindows().at(2));
        const AccessibleObject& outline = find(window, QStringLiteral("check box Contour"));
        const AccessibleObject& relief = find(window, QStringLiteral("check box Relief"));
        program.bus().act(outline.address);
        program.waitForState(outline, AccessibleState::Checked, true);
        program.bus().act(relief.address); // a press by the mouse clears the other one, and so must this
        program.waitForState(relief, AccessibleState::Checked, true);
        program.waitForState(outline, AccessibleState::Checked, false);
        // A bold that was only shown would be gone when the next press shows the text's real style.
        const AccessibleObject& bold = find(window, QStringLiteral("check box Gras"));
        const AccessibleObject& italic = find(window, QStringLiteral("check box Italique"));
        program.bus().act(bold.address);
        program.waitForState(bold, AccessibleState::Checked, true);
        program.bus().focus(italic.address);
        program.waitForState(italic, AccessibleState::Focused, true);
        program.keys.strike(Qt::Key_Space);
        program.waitForState(italic, AccessibleState::Checked, true);
        QVERIFY(program.bus().states(bold.address).has(AccessibleState::Checked));
    });
}

void TestAccessibility::largePictureIsScrolledByKeys() {
    play([&](SpokenProgram& program) {
        open(program, spokenWindows().at(1));
        program.keys.type(QStringLiteral("999\t999\n"));
        const AccessibleObject window = program.window(MainTitle);
        const AccessibleObject& picture = find(window, QStringLiteral("graphic Image de travail"));
        program.waitForState(picture, AccessibleState::Focused, true);
        const AccessibleObject& down = find(window, QStringLiteral("scroll bar Défilement vertical"));
        const AccessibleObject& right = find(window, QStringLiteral("scroll bar Défilement horizontal"));
        QVERIFY(down.isFocusable());
        program.keys.strike(Qt::Key_Tab);
        program.waitForState(down, AccessibleState::Focused, true);
        program.keys.strike(Qt::Key_Down);
        program.waitFor([&] { return program.bus().read(picture.address).place.top() < picture.place.top(); },
                        QStringLiteral("the picture to move"));
        if (right.isFocusable()) { // the picture overflows to the right, too, on a small screen
            program.keys.strike(Qt::Key_Tab);
            program.waitForState(right, AccessibleState::Focused, true);
        }
        QCOMPARE(unnamedControls(window), QStringList());
    });
}

OVRANO_TEST_WITHOUT_WINDOWS(TestAccessibility)
#include "tst_accessibility.moc"
