#include "support/processortime.h"
#include "support/testprogram.h"
#include "txt3dbench.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QtTest>

using namespace ovrano;

namespace {

/// The letter after a single "&", if any.
QString mnemonicOf(const QString& text) {
    const qsizetype at = text.indexOf(u'&');
    return at < 0 ? QString() : text.mid(at + 1, 1).toUpper();
}

} // namespace

class Txt3DFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlsHaveTheirNames();
    void captionsAndTooltips();
    void everyControlCanBeReadAloud();
    void mnemonicsAreUnique();
    void tabGoesFromTopToBottom();
    void standsInTheLowerRightCorner();
    void fitsOnASmallScreen();
    void enlargingEnlargesThePicture();
    void shrinkingStopsAtAUsefulSize();
    void enlargedPictureIsAppliedWhole();
    void returnInTheTextAppliesNothing();
    void returnInAListTakesWhatIsTyped();
    void leavingAListTakesWhatIsTyped();
    void fontIsFoundByTyping();
    void manyFontsOpenAtOnce();
    void clickingTheButtonsWorks();
};

void Txt3DFormTest::controlsHaveTheirNames() {
    const Txt3DBench bench;
    QStringList names = {QStringLiteral("Frame1"),   QStringLiteral("Combo1"),    QStringLiteral("Frame2"),
                         QStringLiteral("Combo2"),   QStringLiteral("Frame3"),    QStringLiteral("Text1"),
                         QStringLiteral("Frame4"),   QStringLiteral("Frame5"),    QStringLiteral("Slider1"),
                         QStringLiteral("Label2"),   QStringLiteral("Text2"),     QStringLiteral("Frame6"),
                         QStringLiteral("Frame7"),   QStringLiteral("Check1"),    QStringLiteral("Check2"),
                         QStringLiteral("Check3"),   QStringLiteral("Frame8"),    QStringLiteral("Command1"),
                         QStringLiteral("Command2"), QStringLiteral("Command4"),  QStringLiteral("Command5"),
                         QStringLiteral("Command6"), QStringLiteral("LblCoulT"),  QStringLiteral("LblCoul3D"),
                         QStringLiteral("LblFond"),  QStringLiteral("ExamplePic")};
    for (int index = 0; index < 5; ++index)
        names.append(QStringLiteral("Command3(%1)").arg(index));
    for (const QString& name : names)
        QVERIFY2(bench.dialog->findChildren<QWidget*>(name).size() == 1, qPrintable(name));
    QCOMPARE(bench.dialog->objectName(), QStringLiteral("Txt3D"));
}

void Txt3DFormTest::captionsAndTooltips() {
    const Txt3DBench bench;
    const Txt3D& dialog = *bench.dialog;
    const QStringList frames = {dialog.Frame1->title(), dialog.Frame2->title(), dialog.Frame3->title(),
                                dialog.Frame4->title(), dialog.Frame5->title(), dialog.Frame7->title(),
                                dialog.Frame8->title()};
    QCOMPARE(frames, QStringList({QStringLiteral("Police"), QStringLiteral("Taille"),
                                  QStringLiteral("Entrez votre texte ici "), QStringLiteral("Style "),
                                  QStringLiteral("Profondeur  3D"), QStringLiteral("Effet 3D "),
                                  QStringLiteral("Couleurs ")}));
    QStringList styles;
    for (const QPushButton* button : dialog.Command3)
        styles.append(button->toolTip());
    QCOMPARE(styles, QStringList({QStringLiteral("Gras Oui/Non"), QStringLiteral("Italique Oui/Non"),
                                  QStringLiteral("Souligné Oui/Non"), QStringLiteral("Normal"),
                                  QStringLiteral("Barré Oui/Non")}));
    QCOMPARE(dialog.Label2->text(), QStringLiteral("Angle 3D inclinaison :"));
    QCOMPARE(dialog.Check3->toolTip(), QStringLiteral("Prendre en compte l'inclinaison personnalisée"));
    QCOMPARE(dialog.Command4->toolTip(), QStringLiteral("Changer la couleur du texte"));
    QCOMPARE(dialog.Command5->toolTip(), QStringLiteral("Changer la couleur 3D"));
    QCOMPARE(dialog.Command6->toolTip(), QStringLiteral("Changer la couleur de fond"));
    QCOMPARE(dialog.LblCoulT->text(), QStringLiteral("Couleur du Texte"));
    QCOMPARE(dialog.LblCoul3D->text(), QStringLiteral("Couleur 3D"));
    QCOMPARE(dialog.LblFond->text(), QStringLiteral("Couleur de fond"));
    QCOMPARE(dialog.Command1->text(), QStringLiteral("&Appliquer"));
    QCOMPARE(dialog.Command1->toolTip(), QStringLiteral("Appliquer les sélections"));
    QCOMPARE(dialog.Command2->text(), QStringLiteral("Annuler"));
}

void Txt3DFormTest::everyControlCanBeReadAloud() {
    const Txt3DBench bench;
    for (const QWidget* control : bench.dialog->findChildren<QWidget*>()) {
        const bool named = control->objectName().startsWith(u"Combo") ||
                           control->objectName().startsWith(u"Text") ||
                           control->objectName() == QStringLiteral("Slider1");
        const auto* button = qobject_cast<const QPushButton*>(control);
        if (named || (button && button->text().size() < 4))
            QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
    }
    QCOMPARE(bench.dialog->Label2->buddy(), bench.dialog->Text2);
}

void Txt3DFormTest::mnemonicsAreUnique() {
    const Txt3DBench bench;
    QStringList texts;
    for (const QAbstractButton* button : bench.dialog->findChildren<QAbstractButton*>())
        texts.append(mnemonicOf(button->text()));
    for (const QLabel* label : bench.dialog->findChildren<QLabel*>())
        texts.append(mnemonicOf(label->text()));
    texts.removeAll(QString());
    QCOMPARE(texts, QStringList({QStringLiteral("A")}));
}

void Txt3DFormTest::tabGoesFromTopToBottom() {
    const Txt3DBench bench;
    bench.show();
    bench.dialog->Check2->setChecked(true);
    QStringList order;
    do {
        order.append(QApplication::focusWidget()->objectName());
        Txt3DBench::press(Qt::Key_Tab);
    } while (QApplication::focusWidget() != bench.dialog->Text1 && order.size() < 40);
    QCOMPARE(order.join(u' '),
             QStringLiteral("Text1 Combo1 Combo2 Command3(0) Command3(1) Command3(2) Command3(3) Command3(4) "
                            "Check2 Check3 Slider1 Text2 Command4 Command5 Command6 Command1 Command2"));
}

void Txt3DFormTest::standsInTheLowerRightCorner() {
    const Txt3DBench bench;
    bench.show();
    const QRect screen = bench.dialog->screen()->availableGeometry();
    QCOMPARE(bench.dialog->frameGeometry().bottomRight(), screen.bottomRight());
}

void Txt3DFormTest::fitsOnASmallScreen() {
    const Txt3DBench bench;
    QVERIFY(bench.dialog->sizeHint().width() <= 1366 - 20);
    QVERIFY(bench.dialog->sizeHint().height() <= 768 - 80); // a title bar and a task bar
}

void Txt3DFormTest::enlargingEnlargesThePicture() {
    const Txt3DBench bench;
    bench.show();
    QCOMPARE(bench.dialog->ExamplePic.innerSize(), QSize(560, 220));
    QCOMPARE(bench.dialog->lblPictureSize->text(), QStringLiteral("Nouvelle image : 560 × 220 pixels"));
    bench.dialog->resize(bench.dialog->size() + QSize(100, 70));
    QCoreApplication::processEvents();
    QCOMPARE(bench.dialog->ExamplePic.innerSize(), QSize(660, 290));
    QCOMPARE(bench.dialog->Frame6->picture->size(), QSize(660, 290));
    QCOMPARE(bench.dialog->lblPictureSize->text(), QStringLiteral("Nouvelle image : 660 × 290 pixels"));
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DFormTest::shrinkingStopsAtAUsefulSize() {
    const Txt3DBench bench;
    bench.show();
    bench.dialog->resize(10, 10);
    QCoreApplication::processEvents();
    QVERIFY(bench.dialog->ExamplePic.innerSize().width() >= 160);
    QCOMPARE(bench.dialog->ExamplePic.innerSize().height(), 60);
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DFormTest::enlargedPictureIsAppliedWhole() {
    Txt3DBench bench;
    bench.show();
    bench.dialog->resize(bench.dialog->size() + QSize(100, 70));
    QCoreApplication::processEvents();
    const Raster shown = bench.shown();
    bench.dialog->Command1->click();
    QCOMPARE(bench.work.picDisp.Image(), shown);
    QCOMPARE(bench.work.picDisp.innerSize(), QSize(660, 290));
    QCOMPARE(bench.work.picMask.innerSize(), QSize(660, 660));
}

void Txt3DFormTest::returnInTheTextAppliesNothing() {
    Txt3DBench bench;
    bench.show();
    for (QWidget* field :
         {static_cast<QWidget*>(bench.dialog->Text1), static_cast<QWidget*>(bench.dialog->Combo1),
          static_cast<QWidget*>(bench.dialog->Slider1)})
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            field->setFocus();
            Txt3DBench::press(key);
            QVERIFY2(bench.dialog->isVisible(), qPrintable(field->objectName()));
        }
    QVERIFY(!bench.dialog->Command1->isDefault());
    // On the button itself it does what the button says.
    bench.dialog->Command1->setFocus();
    Txt3DBench::press(Qt::Key_Return);
    QVERIFY(!bench.dialog->isVisible());
    QCOMPARE(bench.dialog->result(), int(QDialog::Accepted));
}

void Txt3DFormTest::returnInAListTakesWhatIsTyped() {
    Txt3DBench bench;
    bench.show();
    bench.dialog->Combo2->setFocus();
    bench.dialog->Combo2->lineEdit()->selectAll();
    Txt3DBench::type(QStringLiteral("120"));
    Txt3DBench::press(Qt::Key_Return);
    QCOMPARE(bench.dialog->ExamplePic.Font().pixelSize(), 160);
    QCOMPARE(bench.shown(), bench.expected({}));
    bench.dialog->Check2->setChecked(true);
    bench.dialog->Text2->setFocus();
    Txt3DBench::press(Qt::Key_Enter);
    bench.dialog->Combo1->setFocus();
    Txt3DBench::press(Qt::Key_Return);
    QVERIFY(bench.dialog->isVisible());
}

void Txt3DFormTest::leavingAListTakesWhatIsTyped() {
    const Txt3DBench bench;
    bench.show();
    bench.dialog->Combo2->setFocus();
    bench.dialog->Combo2->lineEdit()->selectAll();
    Txt3DBench::type(QStringLiteral("33"));
    Txt3DBench::press(Qt::Key_Tab);
    QCOMPARE(bench.dialog->ExamplePic.Font().pixelSize(), 44);
    QCOMPARE(bench.shown(), bench.expected({}));
    bench.dialog->Combo1->setFocus();
    bench.dialog->Combo1->lineEdit()->clear();
    Txt3DBench::press(Qt::Key_Tab);
    QCOMPARE(bench.dialog->Combo1->currentText(), QStringLiteral("Arial"));
}

void Txt3DFormTest::fontIsFoundByTyping() {
    const Txt3DBench bench;
    bench.show();
    bench.dialog->Combo1->setFocus();
    bench.dialog->Combo1->lineEdit()->selectAll();
    Txt3DBench::type(QStringLiteral("liberation se"));
    QCOMPARE(bench.dialog->Combo1->currentText(), QStringLiteral("liberation serif"));
    Txt3DBench::press(Qt::Key_Return);
    QCOMPARE(bench.dialog->ExamplePic.Font().family().toLower(), QStringLiteral("liberation serif"));
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DFormTest::manyFontsOpenAtOnce() {
    Txt3DBench bench;
    bench.show();
    for (int font = 0; font < 1000; ++font)
        bench.dialog->Combo1->addItem(QStringLiteral("Police %1 d'un très long nom").arg(font));
    const int width = bench.dialog->sizeHint().width();
    const testing::ProcessorTime time;
    bench.dialog->Combo1->showPopup();
    QVERIFY2(time.milliseconds() < 500, qPrintable(QString::number(time.milliseconds())));
    QVERIFY(bench.dialog->Combo1->view()->isVisible());
    bench.dialog->Combo1->hidePopup();
    QCOMPARE(bench.dialog->sizeHint().width(), width);
}

void Txt3DFormTest::clickingTheButtonsWorks() {
    const Txt3DBench bench;
    bench.show();
    QTest::mouseClick(bench.dialog->Command3.at(BoldButton), Qt::LeftButton);
    QVERIFY(bench.dialog->ExamplePic.Font().bold());
    QVERIFY(bench.dialog->Command3.at(BoldButton)->isChecked());
    bench.dialog->Command3.at(BoldButton)->setFocus();
    Txt3DBench::press(Qt::Key_Return); // presses the button that has the keyboard
    QVERIFY(!bench.dialog->ExamplePic.Font().bold());
    QVERIFY(bench.dialog->isVisible());
}

OVRANO_TEST(Txt3DFormTest)
#include "tst_txt3dform.moc"
