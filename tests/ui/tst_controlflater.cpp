#include "flatbench.h"
#include "platform/runtimeerror.h"
#include "support/testprogram.h"
#include "ui/ccontrolflater.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QMouseEvent>

using namespace ovrano;

namespace {

constexpr QRect Place(50, 50, 120, 24);
constexpr QPoint OnText(20, 12);
constexpr QPoint OnArrow(110, 12);

/// A form with one combo box that is followed.
class Bench {
public:
    explicit Bench(bool editable)
        : box(form.add(new QComboBox, Place))
        , other(form.add(new QLineEdit, QRect(50, 200, 120, 24))) {
        box->addItems({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
        box->setEditable(editable);
        flater.Attach(box);
    }

    Form form;
    QComboBox* const box;
    QLineEdit* const other;
    cControlFlater flater;
};

void addKinds() {
    QTest::addColumn<bool>("editable");
    QTest::newRow("list") << false;
    QTest::newRow("editable") << true;
}

} // namespace

class TestControlFlater : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Form::restPointer(); }
    void attachRefusesWhatIsNoComboBox();
    void attachKeepsTheFormerBoxWhenItFails();
    void restsWithoutTimer_data() { addKinds(); }
    void restsWithoutTimer();
    void risesUnderThePointer_data() { addKinds(); }
    void risesUnderThePointer();
    void looksAtThePointerEveryTenMilliseconds();
    void paintingTakesOnWhatWasNotTold();
    void aLeaveThatIsNotToldIsNoticed_data() { addKinds(); }
    void aLeaveThatIsNotToldIsNoticed();
    void aLeaveThatIsToldIsBelieved();
    void risesWithTheKeyboard_data() { addKinds(); }
    void risesWithTheKeyboard();
    void disabledStaysFlat_data() { addKinds(); }
    void disabledStaysFlat();
    void disabledWithItsFrame();
    void pressOpensTheList();
    void pressOnTheArrowOpensTheList_data();
    void pressOnTheArrowOpensTheList();
    void openListKeepsItDown_data() { addKinds(); }
    void openListKeepsItDown();
    void openListThatIsHiddenWithTheForm();
    void pressOnTheTextSinksUntilTheRelease();
    void lostReleaseIsMadeUpFor();
    void otherButtonsDoNotSink();
    void becomesEditableLater();
    void hidingEndsFollowing();
    void attachedToAnotherBox();
    void boxOutlivesItsFollower();
    void boxIsDestroyedWhileDown();
};

void TestControlFlater::attachRefusesWhatIsNoComboBox() {
    QLineEdit field;
    QObject thing;
    for (QObject* wrong : {static_cast<QObject*>(nullptr), static_cast<QObject*>(&field), &thing}) {
        cControlFlater flater;
        QString description;
        int number = 0;
        try {
            flater.Attach(wrong);
        } catch (const RuntimeError& error) {
            description = error.description();
            number = error.number();
        }
        QCOMPARE(number, error::InvalidCall);
        QCOMPARE(description, QStringLiteral("Incorrect control type passed to 'Attach' parameter - must be "
                                             "a control with a hWnd property."));
        QVERIFY(!flater.control());
    }
}

void TestControlFlater::attachKeepsTheFormerBoxWhenItFails() {
    QComboBox box;
    QLineEdit field;
    cControlFlater flater;
    flater.Attach(&box);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, flater.Attach(&field));
    QCOMPARE(flater.control(), &box);
    box.setEnabled(false);
    QCOMPARE(flater.state(), FlatState::Disabled);
}

void TestControlFlater::restsWithoutTimer() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    QTest::qWait(3 * cControlFlater::PointerInterval);
    QCOMPARE(bench.flater.state(), FlatState::Normal);
    QVERIFY(!bench.flater.isFollowingPointer());
}

void TestControlFlater::risesUnderThePointer() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    for (const QPoint place : {OnText, OnArrow}) {
        pointAt(*bench.box, place);
        QCOMPARE(bench.flater.state(), FlatState::Hot);
        QVERIFY(bench.flater.isFollowingPointer());
        QTest::qWait(5 * cControlFlater::PointerInterval);
        QCOMPARE(bench.flater.state(), FlatState::Hot);
        pointAt(bench.form, QPoint(5, 5));
        QVERIFY(becomes(bench.flater, FlatState::Normal));
        QVERIFY(!bench.flater.isFollowingPointer());
    }
}

void TestControlFlater::looksAtThePointerEveryTenMilliseconds() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    const auto timers = [&] {
        QList<int> intervals;
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&bench.flater))
            intervals.append(timer.interval);
        return intervals;
    };
    QCOMPARE(timers(), QList<int>());
    pointAt(*bench.box, OnText);
    pointAt(*bench.box, OnArrow);
    QCOMPARE(timers(), QList<int>{10});
    Form::restPointer();
    QVERIFY(stopsFollowing(bench.flater));
    QCOMPARE(timers(), QList<int>());
}

void TestControlFlater::paintingTakesOnWhatWasNotTold() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    QCursor::setPos(bench.box->mapToGlobal(OnText));
    QCOMPARE(bench.flater.state(), FlatState::Normal); // what is told of it waits in a queue
    bench.box->repaint();
    QCOMPARE(bench.flater.state(), FlatState::Hot);
}

void TestControlFlater::aLeaveThatIsNotToldIsNoticed() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    QWidget cover(&bench.form); // comes to lie between the box and the pointer
    cover.setGeometry(Place);
    cover.show();
    QVERIFY(becomes(bench.flater, FlatState::Normal));
    QVERIFY(!bench.flater.isFollowingPointer());
}

void TestControlFlater::aLeaveThatIsToldIsBelieved() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    // Where the position outside the program's windows is not known, it stays what it was.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(bench.box, &leave);
    QCOMPARE(bench.flater.state(), FlatState::Normal);
    QVERIFY(!bench.flater.isFollowingPointer());
    pointAt(*bench.box, OnArrow);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
}

void TestControlFlater::risesWithTheKeyboard() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    bench.box->setFocus();
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    QVERIFY(!bench.flater.isFollowingPointer()); // there is nothing to follow
    pointAt(*bench.box, OnText);
    QVERIFY(bench.flater.isFollowingPointer());
    Form::restPointer();
    QVERIFY(stopsFollowing(bench.flater));
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    bench.other->setFocus();
    QCOMPARE(bench.flater.state(), FlatState::Normal);
}

void TestControlFlater::disabledStaysFlat() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    bench.box->setEnabled(false);
    QCOMPARE(bench.flater.state(), FlatState::Disabled);
    QVERIFY(!bench.flater.isFollowingPointer());
    pointAt(*bench.box, OnArrow);
    QTest::mousePress(bench.box, Qt::LeftButton, {}, OnArrow);
    QCOMPARE(bench.flater.state(), FlatState::Disabled);
    QVERIFY(!bench.flater.isFollowingPointer());
    QTest::mouseRelease(bench.box, Qt::LeftButton, {}, OnArrow);
    bench.box->setEnabled(true);
    QCOMPARE(bench.flater.state(), FlatState::Hot); // the pointer is still there
    bench.box->setEnabled(false);
    Form::restPointer();
    bench.box->setEnabled(true);
    QCOMPARE(bench.flater.state(), FlatState::Normal);
}

void TestControlFlater::disabledWithItsFrame() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    bench.form.setEnabled(false);
    QCOMPARE(bench.flater.state(), FlatState::Disabled);
    bench.form.setEnabled(true);
    QCOMPARE(bench.flater.state(), FlatState::Normal);
}

void TestControlFlater::pressOpensTheList() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QTest::mousePress(bench.form.windowHandle(), Qt::LeftButton, {}, Place.topLeft() + OnText);
    QVERIFY(bench.box->view()->isVisible());
    QCOMPARE(bench.flater.state(), FlatState::Down);
    QVERIFY(bench.flater.isFollowingPointer());
    QTest::keyClick(bench.box->view(), Qt::Key_Escape);
    QVERIFY(becomes(bench.flater, FlatState::Hot));
    bench.other->setFocus();
    QVERIFY(becomes(bench.flater, FlatState::Hot)); // the pointer is still there
    Form::restPointer();
    QVERIFY(becomes(bench.flater, FlatState::Normal));
    QVERIFY(!bench.flater.isFollowingPointer());
}

void TestControlFlater::pressOnTheArrowOpensTheList_data() {
    QTest::addColumn<int>("x");
    QTest::newRow("arrow") << OnArrow.x();
    QTest::newRow("frame beside it") << Place.width() - 1;
}

void TestControlFlater::pressOnTheArrowOpensTheList() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    QFETCH(int, x);
    QTest::mousePress(bench.form.windowHandle(), Qt::LeftButton, {}, Place.topLeft() + QPoint(x, 12));
    QVERIFY(bench.box->view()->isVisible());
    QCOMPARE(bench.flater.state(), FlatState::Down);
    bench.box->hidePopup();
    QTest::mouseRelease(bench.form.windowHandle(), Qt::LeftButton, {}, QPoint());
    QVERIFY(becomes(bench.flater, FlatState::Hot));
}

void TestControlFlater::openListKeepsItDown() {
    QFETCH(bool, editable);
    Bench bench(editable);
    QVERIFY(bench.form.appear());
    bench.box->showPopup(); // by the program, with the pointer elsewhere
    QVERIFY(becomes(bench.flater, FlatState::Down));
    QVERIFY(bench.flater.isFollowingPointer());
    pointAt(*bench.box->view(), QPoint(10, 5));
    QTest::qWait(5 * cControlFlater::PointerInterval);
    QCOMPARE(bench.flater.state(), FlatState::Down);
    bench.box->hidePopup();
    bench.other->setFocus();
    Form::restPointer();
    QVERIFY(becomes(bench.flater, FlatState::Normal));
    QVERIFY(!bench.flater.isFollowingPointer());
}

void TestControlFlater::openListThatIsHiddenWithTheForm() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    bench.box->showPopup();
    QVERIFY(becomes(bench.flater, FlatState::Down));
    bench.form.hide();
    bench.box->hidePopup();
    QVERIFY(stopsFollowing(bench.flater));
    QVERIFY(bench.flater.state() != FlatState::Down);
}

void TestControlFlater::pressOnTheTextSinksUntilTheRelease() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QTest::mousePress(bench.form.windowHandle(), Qt::LeftButton, {}, Place.topLeft() + OnText);
    QCOMPARE(bench.flater.state(), FlatState::Down);
    QTest::mouseRelease(bench.form.windowHandle(), Qt::LeftButton, {}, Place.topLeft() + OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    // The second press of a double click is told as such.
    QMouseEvent second(QEvent::MouseButtonDblClick, OnText, bench.box->mapToGlobal(OnText), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.box->lineEdit(), &second);
    QCOMPARE(bench.flater.state(), FlatState::Down);
    QTest::mouseRelease(bench.box->lineEdit(), Qt::LeftButton);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    QVERIFY(!bench.box->view()->isVisible());
}

void TestControlFlater::lostReleaseIsMadeUpFor() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QTest::mousePress(bench.box->lineEdit(), Qt::LeftButton);
    QCOMPARE(bench.flater.state(), FlatState::Down);
    Form::restPointer();                            // text is dragged away: no release comes
    QVERIFY(becomes(bench.flater, FlatState::Hot)); // the keyboard is still here
    QVERIFY(!bench.flater.isFollowingPointer());
}

void TestControlFlater::otherButtonsDoNotSink() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QTest::mousePress(bench.box, Qt::MiddleButton);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    QTest::mouseRelease(bench.box, Qt::MiddleButton);
}

void TestControlFlater::becomesEditableLater() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    bench.box->setEditable(true);
    pointAt(*bench.box, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
    QTest::mousePress(bench.box->lineEdit(), Qt::LeftButton);
    QCOMPARE(bench.flater.state(), FlatState::Down);
    QTest::mouseRelease(bench.box->lineEdit(), Qt::LeftButton);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
}

void TestControlFlater::hidingEndsFollowing() {
    Bench bench(false);
    QVERIFY(bench.form.appear());
    pointAt(*bench.box, OnText);
    QVERIFY(bench.flater.isFollowingPointer());
    bench.form.hide();
    QVERIFY(stopsFollowing(bench.flater));
    QCOMPARE(bench.flater.state(), FlatState::Normal);
}

void TestControlFlater::attachedToAnotherBox() {
    Bench bench(false);
    auto* second = bench.form.add(new QComboBox, Place.translated(0, 50));
    QVERIFY(bench.form.appear());
    QVERIFY(bench.box->style() != QApplication::style());
    bench.flater.Attach(second);
    QCOMPARE(bench.flater.control(), second);
    QCOMPARE(cControlFlater::of(second), &bench.flater);
    QVERIFY(!cControlFlater::of(bench.box));
    QCOMPARE(bench.box->style(), QApplication::style());
    pointAt(*bench.box, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Normal);
    pointAt(*second, OnText);
    QCOMPARE(bench.flater.state(), FlatState::Hot);
}

void TestControlFlater::boxOutlivesItsFollower() {
    QComboBox box;
    {
        cControlFlater flater;
        flater.Attach(&box);
        QCOMPARE(cControlFlater::of(&box), &flater);
    }
    QVERIFY(!cControlFlater::of(&box));
    QCOMPARE(box.style(), QApplication::style());
    box.setEnabled(false); // nobody listens any more
}

void TestControlFlater::boxIsDestroyedWhileDown() {
    Bench bench(true);
    QVERIFY(bench.form.appear());
    bench.box->showPopup();
    QVERIFY(becomes(bench.flater, FlatState::Down));
    delete bench.box;
    QVERIFY(!bench.flater.control());
    QVERIFY(stopsFollowing(bench.flater));
}

OVRANO_TEST(TestControlFlater)
#include "tst_controlflater.moc"
