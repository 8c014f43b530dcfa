#include "platform/accessibletoggle.h"
#include "platform/colourbox.h"
#include "platform/imagebutton.h"
#include "support/testprogram.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using namespace ovrano;

/// What assistive tools are told of our own controls, and what they can do with them.
class TestAccessibleToggle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void toggleTellsItsState();
    void togglingIsPressing();
    void plainButtonsStayButtons();
    void disabledToggleCannotBeToggled();
    void colourIsToldInWords();
};

void TestAccessibleToggle::toggleTellsItsState() {
    ImageButton button(QStringLiteral("imgBold"), QStringLiteral("Gras"));
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(told->role(), QAccessible::CheckBox);
    QCOMPARE(told->text(QAccessible::Name), QStringLiteral("Gras"));
    QVERIFY(told->state().checkable);
    QVERIFY(!told->state().checked);
    button.setAppearance(1);
    QVERIFY(told->state().checked);
}

void TestAccessibleToggle::togglingIsPressing() {
    ImageButton button(QStringLiteral("imgBold"), QStringLiteral("Gras"));
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&button);
    told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(clicked.count(), 0); // who asked does not wait for what the press starts
    QCoreApplication::processEvents();
    QCOMPARE(clicked.count(), 1);
}

void TestAccessibleToggle::plainButtonsStayButtons() {
    AccessibleToggle::install();
    QPushButton button(QStringLiteral("Appliquer"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::Button);
}

void TestAccessibleToggle::disabledToggleCannotBeToggled() {
    ImageButton button(QStringLiteral("imgBold"), QStringLiteral("Gras"));
    QAccessibleActionInterface* actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    button.setEnabled(false);
    QVERIFY(!actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

void TestAccessibleToggle::colourIsToldInWords() {
    ColourBox box(QStringLiteral("picTextColor"), rgb(0, 64, 128));
    QCOMPARE(box.accessibleDescription(), QStringLiteral("rouge 0, vert 64, bleu 128 (#004080)"));
    box.setBackColor(rgb(255, 10, 0));
    QCOMPARE(box.accessibleDescription(), QStringLiteral("rouge 255, vert 10, bleu 0 (#FF0A00)"));
}

OVRANO_TEST(TestAccessibleToggle)
#include "tst_accessibletoggle.moc"
