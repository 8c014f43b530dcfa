#include "app/mainwindow.h"
#include "document/frmnouv3dtext.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"
#include "ui/flatstyle.h"
#include "ui/flatten.h"
#include "wizards/rotfonts.h"
#include "wizards/txt3d.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace ovrano;

namespace {

/// Names of a form's controls that should be flat but are not.
QStringList plainControls(const QWidget& form) {
    QStringList plain;
    for (const auto* box : form.findChildren<QComboBox*>())
        if (!cControlFlater::of(box))
            plain.append(box->objectName());
    for (const auto* button : form.findChildren<QPushButton*>())
        if (!FlatStyle::instance().isWornBy(*button))
            plain.append(button->objectName());
    for (const auto* field : form.findChildren<QLineEdit*>())
        if (!qobject_cast<QComboBox*>(field->parent()) && !FlatStyle::instance().isWornBy(*field))
            plain.append(field->objectName());
    return plain;
}

} // namespace

/// Every form gives its controls the flat look while it loads.
class TestFlatForms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mainWindow();
    void newImage();
    void twoColours();
    void circularText();

private:
    AnsweringDialogs m_dialogs;
};

void TestFlatForms::mainWindow() {
    const MainWindow window(m_dialogs);
    QVERIFY(window.findChild<QPushButton*>());
    QVERIFY(window.findChild<QComboBox*>());
    QCOMPARE(plainControls(window), QStringList());
}

void TestFlatForms::newImage() {
    NewImageChoice choice;
    const FrmNouv3DText form(choice, m_dialogs);
    QVERIFY(form.findChild<QPushButton*>());
    QCOMPARE(plainControls(form), QStringList());
}

void TestFlatForms::twoColours() {
    WorkPicture work(m_dialogs);
    QWidget window;
    PictureView view(work, &window);
    Handover handover(work, view);
    WizardMemory memory;
    const Txt3D form(handover, memory, m_dialogs);
    QVERIFY(form.findChild<QComboBox*>());
    QCOMPARE(plainControls(form), QStringList());
}

void TestFlatForms::circularText() {
    WorkPicture work(m_dialogs);
    QWidget window;
    PictureView view(work, &window);
    Handover handover(work, view);
    WizardMemory memory;
    const RotFonts form(handover, memory, m_dialogs, QString());
    QVERIFY(form.findChild<QComboBox*>());
    QCOMPARE(plainControls(form), QStringList());
}

OVRANO_TEST(TestFlatForms)
#include "tst_flatforms.moc"
