#include "document/frmnouv3dtext.h"
#include "platform/runtimeerror.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>

using namespace ovrano;

namespace {

constexpr Colour Sand = rgb(200, 170, 90);

/// A colour dialog that fails.
class FailingDialogs : public AnsweringDialogs {
public:
    std::optional<Colour> chooseColour(Colour) override { throw RuntimeError(error::InvalidCall); }
};

void pasteByMenu(QLineEdit& edit, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    for (QAction* action : menu->actions())
        if (action->text().startsWith("&Paste")) {
            QVERIFY(action->isEnabled());
            return action->trigger();
        }
    QFAIL("no entry to paste with");
}

} // namespace

class FrmNouv3DTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void captions();
    void everyControlIsFoundByItsName();
    void defaults();
    void fieldsTakeDigitsOnly_data();
    void fieldsTakeDigitsOnly();
    void backspaceAndDeleteWork();
    void handlersDiscardByZero();
    void composedLettersAreDiscarded();
    void pastingIntoAField_data();
    void pastingIntoAField();
    void colourChosen();
    void colourCancelled();
    void colourDialogThatFails();
    void applying_data();
    void applying();
    void cancelling_data();
    void cancelling();
    void closeBoxSetsNothing();
    void enterApplies();

private:
    QLineEdit* field(int number) const { return number == 1 ? m_form->Text1 : m_form->Text2; }
    void retype(QLineEdit* edit, const QString& keys) {
        edit->selectAll();
        QTest::keyClicks(edit, keys);
    }
    bool isStart(const NewImageChoice& choice) const {
        return qFuzzyCompare(choice.NewImageWidth, 12) && qFuzzyCompare(choice.NewImageHeight, 34) &&
               choice.NewImageBackColor == Sand;
    }

    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<FrmNouv3DText> m_form;
    NewImageChoice m_choice;
};

void FrmNouv3DTextTest::init() {
    m_choice = {0, 12, 34, Sand};
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_form = std::make_unique<FrmNouv3DText>(m_choice, *m_dialogs);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
}

void FrmNouv3DTextTest::cleanup() {
    m_form.reset();
    m_dialogs.reset();
}

void FrmNouv3DTextTest::captions() {
    QCOMPARE(m_form->windowTitle(), QString("Nouveau texte 3D"));
    QCOMPARE(m_form->Frame1->title(), QString("Taille en Pixels "));
    QCOMPARE(m_form->Label1->text(), QString("Largeur :"));
    QCOMPARE(m_form->Label2->text(), QString("Hauteur :"));
    QCOMPARE(m_form->Frame2->title(), QString("Couleur de fond "));
    QCOMPARE(m_form->LabCoulFond->toolTip(), QString("Couleur en cours"));
    QCOMPARE(m_form->Command1->text(), QString("Changer la couleur de fond"));
    QCOMPARE(m_form->Command2->text(), QString("&Appliquer"));
    QCOMPARE(m_form->Command3->text(), QString("A&nnuler"));
}

void FrmNouv3DTextTest::everyControlIsFoundByItsName() {
    QCOMPARE(m_form->objectName(), QString("FrmNouv3DText"));
    for (const char* name : {"Frame1", "Label1", "Text1", "Label2", "Text2", "Frame2", "LabCoulFond",
                             "Command1", "Command2", "Command3"})
        QCOMPARE(m_form->findChildren<QWidget*>(name).size(), 1);
    for (const QWidget* spoken : QList<QWidget*>{m_form->Text1, m_form->Text2, m_form->LabCoulFond})
        QVERIFY(!spoken->accessibleName().isEmpty());
}

void FrmNouv3DTextTest::defaults() {
    for (const int number : {1, 2}) {
        QCOMPARE(field(number)->text(), QString("300"));
        QCOMPARE(field(number)->maxLength(), 3);
    }
    QVERIFY(isStart(m_choice)); // coming up changes nothing
}

void FrmNouv3DTextTest::fieldsTakeDigitsOnly_data() {
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("digits") << "640"
                            << "640";
    QTest::newRow("letters") << "1a2B"
                             << "12";
    QTest::newRow("minus") << "-5"
                           << "5";
    QTest::newRow("point") << "1.5"
                           << "15";
    QTest::newRow("comma") << "1,5"
                           << "15";
    QTest::newRow("blank") << " 7 "
                           << "7";
    QTest::newRow("sign and exponent") << "+1e2"
                                       << "12";
    QTest::newRow("a fourth") << "1234"
                              << "123";
    QTest::newRow("leading noughts") << "007"
                                     << "007";
    QTest::newRow("letters alone leave what was there") << "abc"
                                                        << "300";
}

void FrmNouv3DTextTest::fieldsTakeDigitsOnly() {
    QFETCH(QString, keys);
    QFETCH(QString, text);
    for (const int number : {1, 2}) {
        retype(field(number), keys);
        QCOMPARE(field(number)->text(), text);
    }
}

void FrmNouv3DTextTest::backspaceAndDeleteWork() {
    for (const int number : {1, 2}) {
        QLineEdit* edit = field(number);
        edit->setText("789");
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), QString("78"));
        QTest::keyClick(edit, Qt::Key_Home);
        QTest::keyClick(edit, Qt::Key_Delete);
        QCOMPARE(edit->text(), QString("8"));
        QTest::keyClick(edit, Qt::Key_Delete);
        QCOMPARE(edit->text(), QString()); // may be left empty
    }
}

void FrmNouv3DTextTest::handlersDiscardByZero() {
    for (int code = 1; code < 256; ++code) {
        const bool accepted = code == 8 || (code >= '0' && code <= '9');
        std::int16_t first = static_cast<std::int16_t>(code), second = first;
        m_form->Text1_KeyPress(first);
        m_form->Text2_KeyPress(second);
        QCOMPARE(int{first}, accepted ? code : 0);
        QCOMPARE(int{second}, accepted ? code : 0);
    }
}

void FrmNouv3DTextTest::composedLettersAreDiscarded() {
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("é"));
    m_form->Text1->clear();
    QCoreApplication::sendEvent(m_form->Text1, &event);
    QCOMPARE(m_form->Text1->text(), QString());
}

void FrmNouv3DTextTest::pastingIntoAField_data() {
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    QTest::newRow("digits") << "52"
                            << "52";
    QTest::newRow("letters") << "abc"
                             << "300";
    QTest::newRow("mixed") << "5a"
                           << "300";
    QTest::newRow("negative") << "-5"
                              << "300";
    QTest::newRow("too long") << "98765"
                              << "987";
}

void FrmNouv3DTextTest::pastingIntoAField() {
    QFETCH(QString, pasted);
    QFETCH(QString, text);
    for (const int number : {1, 2}) {
        field(number)->selectAll();
        pasteByMenu(*field(number), pasted);
        QCOMPARE(field(number)->text(), text);
    }
}

void FrmNouv3DTextTest::colourChosen() {
    m_form->LabCoulFond->setBackColor(Sand);
    m_dialogs->pickColour(rgb(1, 2, 3));
    m_form->Command1->click();
    QCOMPARE(m_dialogs->colours, QList<Colour>({Sand})); // starts on the current one
    QCOMPARE(m_form->LabCoulFond->BackColor(), rgb(1, 2, 3));
    QCOMPARE(m_choice.NewImageBackColor, Sand); // not handed back yet
    QVERIFY(m_form->isVisible());
}

void FrmNouv3DTextTest::colourCancelled() {
    m_form->LabCoulFond->setBackColor(rgb(9, 8, 7));
    m_dialogs->cancelColour();
    m_form->Command1->click();
    QCOMPARE(m_form->LabCoulFond->BackColor(), rgb(9, 8, 7));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FrmNouv3DTextTest::colourDialogThatFails() {
    FailingDialogs failing;
    FrmNouv3DText form(m_choice, failing);
    form.LabCoulFond->setBackColor(Sand);
    form.Command1->click();
    QCOMPARE(form.LabCoulFond->BackColor(), Sand);
    QCOMPARE(failing.messages.size(), 0);
}

void FrmNouv3DTextTest::applying_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("default") << "300" << 300.0;
    QTest::newRow("largest") << "999" << 999.0;
    QTest::newRow("leading noughts") << "007" << 7.0;
    QTest::newRow("nought") << "0" << 0.0;
    QTest::newRow("empty") << "" << 0.0;
}

void FrmNouv3DTextTest::applying() {
    QFETCH(QString, text);
    QFETCH(double, value);
    m_form->LabCoulFond->setBackColor(rgb(1, 2, 3));
    for (const int number : {1, 2}) {
        m_choice = {0, 12, 34, Sand};
        m_form->Text1->setText("21");
        m_form->Text2->setText("43");
        field(number)->setText(text);
        m_form->Command2->click();
        QCOMPARE(m_choice.NewImageWidth, number == 1 ? value : 21.0);
        QCOMPARE(m_choice.NewImageHeight, number == 2 ? value : 43.0);
        QCOMPARE(m_choice.NewImageBackColor, rgb(1, 2, 3));
        QCOMPARE(int{m_choice.NewImageCancelled}, 0);
        QVERIFY(!m_form->isVisible());
    }
}

void FrmNouv3DTextTest::cancelling_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"Command3", "Escape", "Escape in Text1", "Escape in Text2"})
        QTest::newRow(way) << way;
}

void FrmNouv3DTextTest::cancelling() {
    QFETCH(QString, way);
    retype(m_form->Text1, "55");
    m_form->LabCoulFond->setBackColor(rgb(1, 2, 3));
    if (way == "Command3")
        m_form->Command3->click();
    else if (way == "Escape")
        QTest::keyClick(m_form->Command1, Qt::Key_Escape);
    else
        QTest::keyClick(field(way.right(1).toInt()), Qt::Key_Escape);
    QCOMPARE(int{m_choice.NewImageCancelled}, 1);
    QVERIFY(isStart(m_choice));
    QVERIFY(!m_form->isVisible());
}

void FrmNouv3DTextTest::closeBoxSetsNothing() {
    retype(m_form->Text1, "55");
    m_form->LabCoulFond->setBackColor(rgb(1, 2, 3));
    m_form->close();
    QVERIFY(!m_form->isVisible());
    QCOMPARE(int{m_choice.NewImageCancelled}, 0);
    QVERIFY(isStart(m_choice));
}

void FrmNouv3DTextTest::enterApplies() {
    retype(m_form->Text2, "77");
    QTest::keyClick(m_form->Text2, Qt::Key_Return);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(m_choice.NewImageHeight, 77.0);
    QCOMPARE(int{m_choice.NewImageCancelled}, 0);
}

OVRANO_TEST(FrmNouv3DTextTest)
#include "tst_frmnouv3dtext.moc"
