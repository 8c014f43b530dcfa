#include "app/mainwindow.h"
#include "app/nextstep.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QEnterEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusTipEvent>
#include <QtTest>

using namespace ovrano;

namespace {

/// The window in the middle of its work.
struct HintBench {
    HintBench()
        : window(dialogs) {
        window.show();
        settle();
    }

    static void settle() {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }
    template<typename Part>
    Part* find(const char* name) {
        return window.findChild<Part*>(QLatin1String(name));
    }
    void press(const char* button) {
        find<QAbstractButton>(button)->click();
        settle();
    }
    QString hint() { return find<QLabel>("lblHint")->text(); }

    AnsweringDialogs dialogs;
    MainWindow window;
};

} // namespace

class TestHints : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sentenceOfEachSituation_data();
    void sentenceOfEachSituation();
    void followsTheWork();
    void namesWhatIsDragged();
    void emptiedPanelPointsToTheMenu();
    void controlUnderThePointerExplainsItself();
    void menuEntryExplainsItself();
    void longWorkIsShown();
    void everySentenceIsThereAndFits();
    void fileNameGivesWay();
};

void TestHints::sentenceOfEachSituation_data() {
    QTest::addColumn<Situation>("situation");
    QTest::addColumn<QString>("part");
    QTest::newRow("start") << Situation{} << "Créer le texte 3D";
    QTest::newRow("no text") << Situation{.textTyped = false} << "Tapez votre texte dans la case";
    QTest::newRow("picker") << Situation{.pickerOn = true} << "Cliquez dans l'image";
    QTest::newRow("picker over a block")
        << Situation{.pickerOn = true, .zoneMode = true, .blockLifted = true} << "Cliquez dans l'image";
    QTest::newRow("zone") << Situation{.zoneMode = true} << "Tracez un cadre";
    QTest::newRow("lifted zone") << Situation{.zoneMode = true, .blockLifted = true}
                                 << "Faites glisser la zone";
    QTest::newRow("text") << Situation{.zoneMode = true, .blockLifted = true, .blockSeeThrough = true}
                          << "Faites glisser le texte à sa place, puis cliquez à côté pour le fixer";
    QTest::newRow("pasted") << Situation{.zoneMode = true, .blockLifted = true, .blockFromPaste = true}
                            << "Faites glisser l'image collée";
    QTest::newRow("pasted, see-through")
        << Situation{.zoneMode = true, .blockLifted = true, .blockFromPaste = true, .blockSeeThrough = true}
        << "Faites glisser l'image collée";
    QTest::newRow("block that cannot be dragged any more")
        << Situation{.blockLifted = true} << "Créer le texte 3D";
    QTest::newRow("after a dialog") << Situation{.textToolsShown = false} << "menu Texte";
}

void TestHints::sentenceOfEachSituation() {
    QFETCH(Situation, situation);
    QFETCH(QString, part);
    QVERIFY2(nextStep(situation).contains(part), qPrintable(nextStep(situation)));
}

void TestHints::followsTheWork() {
    HintBench bench;
    QVERIFY(bench.hint().contains(QStringLiteral("Créer le texte 3D")));
    bench.find<QLineEdit>("txbWriteText")->clear();
    bench.settle();
    QVERIFY(bench.hint().contains(QStringLiteral("Tapez votre texte")));
    bench.find<QLineEdit>("txbWriteText")->setText(QStringLiteral("Bonjour"));
    bench.press("imgColorPicker");
    QVERIFY(bench.hint().contains(QStringLiteral("Cliquez dans l'image")));
    bench.press("imgColorPicker");
    bench.press("imgRegion");
    QVERIFY(bench.hint().contains(QStringLiteral("Tracez un cadre")));
}

void TestHints::namesWhatIsDragged() {
    HintBench bench;
    bench.press("cmd1Color3DProceed");
    QVERIFY(bench.hint().contains(QStringLiteral("Faites glisser le texte")));
    // Put down beside it.
    const PictureView& view = bench.window.view();
    QTest::mouseClick(view.picDisp, Qt::LeftButton, Qt::NoModifier, QPoint(600, 460));
    bench.settle();
    QVERIFY(bench.hint().contains(QStringLiteral("Tracez un cadre")));
    QTest::mousePress(view.picDisp, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseMove(view.picDisp, QPoint(60, 60));
    QTest::mouseRelease(view.picDisp, Qt::LeftButton, Qt::NoModifier, QPoint(60, 60));
    bench.settle();
    QVERIFY(bench.hint().contains(QStringLiteral("Faites glisser la zone")));
}

void TestHints::emptiedPanelPointsToTheMenu() {
    HintBench bench;
    for (const char* frame : {"frafont", "fraRotateAngle", "fra1Color3D"})
        bench.find<QWidget>(frame)->hide();
    bench.settle();
    QVERIFY(bench.hint().contains(QStringLiteral("menu Texte")));
    bench.press("cmdOneColour");
    QVERIFY(bench.hint().contains(QStringLiteral("Créer le texte 3D")));
}

void TestHints::controlUnderThePointerExplainsItself() {
    HintBench bench;
    const QString before = bench.hint();
    auto* button = bench.find<QWidget>("imgRegion");
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(button, &enter);
    QCOMPARE(bench.hint(), button->statusTip());
    bench.press("imgColorPicker"); // the pointer is still over the other button
    QCOMPARE(bench.hint(), button->statusTip());
    bench.press("imgColorPicker");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    QCOMPARE(bench.hint(), before);
}

void TestHints::menuEntryExplainsItself() {
    HintBench bench;
    auto* menu = bench.find<QMenu>("mnuFile");
    auto* entry = bench.find<QAction>("mnuFileOpen");
    bench.window.menuBar()->setActiveAction(menu->menuAction());
    menu->setActiveAction(entry);
    QCOMPARE(bench.hint(), entry->statusTip());
    menu->close();
}

void TestHints::longWorkIsShown() {
    HintBench bench;
    auto* line = bench.find<HintLine>("lblHint");
    const QString before = bench.hint();
    line->showWorking(true);
    QVERIFY(bench.hint().contains(QStringLiteral("Travail en cours")));
    QStatusTipEvent tip(QStringLiteral("Un outil"));
    QCoreApplication::sendEvent(&bench.window, &tip);
    QVERIFY(bench.hint().contains(QStringLiteral("Travail en cours")));
    line->showWorking(false);
    QCOMPARE(bench.hint(), QStringLiteral("Un outil"));
    QStatusTipEvent none{QString()};
    QCoreApplication::sendEvent(&bench.window, &none);
    QCOMPARE(bench.hint(), before);
}

void TestHints::everySentenceIsThereAndFits() {
    HintBench bench;
    bench.window.setWindowState(Qt::WindowNoState);
    bench.window.resize(1024, 744);
    bench.settle();
    auto* line = bench.find<HintLine>("lblHint");
    int entries = 0;
    const auto check = [&](const QString& name, const QString& tip) {
        QVERIFY2(!tip.isEmpty(), qPrintable(name));
        line->setText(tip);
        QVERIFY2(line->shownText() == tip, qPrintable(tip));
    };
    for (const QAction* entry : bench.window.findChildren<QAction*>())
        if (entry->objectName().startsWith(QStringLiteral("mnu"), Qt::CaseInsensitive) && !entry->menu()) {
            check(entry->objectName(), entry->statusTip());
            ++entries;
        }
    QCOMPARE(entries, 19);
    for (const QWidget* control : bench.window.centralWidget()->findChildren<QWidget*>()) {
        const bool isTool = control->focusPolicy() != Qt::NoFocus &&
                            control->objectName() != QStringLiteral("picDisp") &&
                            control->objectName() != QStringLiteral("picSnap") &&
                            !control->objectName().startsWith(QStringLiteral("qt_")) &&
                            !qobject_cast<QComboBox*>(control->parentWidget()) &&
                            !control->window()->windowFlags().testFlag(Qt::Popup);
        if (!isTool || control->window() != &bench.window)
            continue;
        check(control->objectName(), control->statusTip());
        QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
    }
    for (int bits = 0; bits < 128; ++bits) {
        const auto on = [bits](int bit) { return (bits >> bit & 1) != 0; };
        check(QString::number(bits), nextStep({on(0), on(1), on(2), on(3), on(4), on(5), on(6)}));
    }
}

void TestHints::fileNameGivesWay() {
    HintBench bench;
    bench.window.work().showFileName(QStringLiteral("/tmp/") + QString(300, QLatin1Char('m')));
    const auto* file = bench.find<ElidedLabel>("lblFileSpec");
    const auto* line = bench.find<HintLine>("lblHint");
    const int end = file->x() + file->fontMetrics().horizontalAdvance(file->shownText());
    QVERIFY(end <= line->x());
    QCOMPARE(line->geometry().right(), file->geometry().right());
}

OVRANO_TEST(TestHints)
#include "tst_hints.moc"
