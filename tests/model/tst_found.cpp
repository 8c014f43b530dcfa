#include "model/replay.h"
#include "support/testprogram.h"

#include <QCursor>
#include <QTest>

#include <optional>

using namespace ovrano;
using namespace ovrano::model;

/// Sequences that a random walk seldom meets, or on which window and model once told different things.
class TestFound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void blockOfOneColumnIsNotCut();
    void undoLeavesASizeBehind();
    void edgeGoesInAndOutAgain();
    void emptyPictureIsNotSaved();
    void blockLargerThanThePictureIsLiftedByAnotherButton();
    void arrowsKeepTheGrabbedPoint();
    void keysPressInsideASmallerPicture();
    void keysPressWhereThePointerIs();
    void keysLeaveAnEmptyPictureAlone();
    void keysDoNotScrollAPictureWithoutWidth();
};

namespace {

/// Where the space bar presses the button, in pixels of the picture.
std::optional<QPoint> pressedBySpace(Driver& driver) {
    std::optional<QPoint> pressed;
    PictureBox* picture = driver.window().view().picDisp;
    QObject::connect(picture, &PictureBox::mouseDown, picture,
                     [&](Qt::MouseButton, QPoint at) { pressed = at; });
    driver.perform({Kind::Space});
    QObject::disconnect(picture, &PictureBox::mouseDown, picture, nullptr);
    return pressed;
}

} // namespace

/// What tells the cut that there is a zone are the far edges, and here one of them is 0.
void TestFound::blockOfOneColumnIsNotCut() {
    QCOMPARE(disagreementOf({
                 {Kind::Open, {3, NoFile}},
                 {Kind::Gesture, {1, NoFlaw, 40, 30, -1000, 30}},
                 {Kind::Copy, {0}},
                 {Kind::New, {60, 50, 4, NoFile}},
                 {Kind::Paste, {0}},
                 {Kind::Cut, {0}},
                 {Kind::Gesture, {1, NoFlaw, 0, 3, 20, 3}},
                 {Kind::Cut, {0}},
             }),
             QString());
}

/// Undo changes the picture's size without telling it; each edge then catches up on its own side alone.
void TestFound::undoLeavesASizeBehind() {
    QCOMPARE(disagreementOf({
                 {Kind::Copy, {0}},
                 {Kind::PasteNew, {}},
                 {Kind::PasteFile, {4, 0}, Answer::Yes},
                 {Kind::New, {50, 42, -1, NoFile}},
                 {Kind::Undo, {1}},
                 {Kind::Gesture, {1, NoFlaw, 41, 29, 59, 12}},
             }),
             QString());
}

void TestFound::edgeGoesInAndOutAgain() {
    QCOMPARE(disagreementOf({
                 {Kind::Open, {10, NoFile}},
                 {Kind::Gesture, {1, NoFlaw, 299, 30, 200, 30, -500, 30, 290, 30}},
                 {Kind::Gesture, {1, NoFlaw, 9, 341, 9, 340, 9, 360}},
             }),
             QString());
}

void TestFound::emptyPictureIsNotSaved() {
    QCOMPARE(disagreementOf({
                 {Kind::New, {0, 50, 1, NoFile}},
                 {Kind::Save, {0, 1}},
                 {Kind::Copy, {0}},
                 {Kind::PasteFile, {5, 0}},
                 {Kind::Open, {1, 0}, Answer::Yes},
             }),
             QString());
}

void TestFound::blockLargerThanThePictureIsLiftedByAnotherButton() {
    QCOMPARE(disagreementOf({
                 {Kind::Open, {1, NoFile}},
                 {Kind::PasteFile, {10, 0}, Answer::No},
                 {Kind::ZoneEntry, {}},
                 {Kind::Gesture, {0, NoFlaw, 10, 10, 12, 12}},
                 {Kind::Gesture, {1, NoFlaw, 10, 10, 30, -20}},
                 {Kind::Gesture, {1, SecondButton, 10, 10, 15, 15, 30, 40}},
             }),
             QString());
}

/// A block that the space bar holds and arrows have moved stays under the mouse when that comes in.
void TestFound::arrowsKeepTheGrabbedPoint() {
    Driver driver;
    driver.perform({Kind::ZoneButton});
    driver.perform({Kind::Gesture, {1, NoFlaw, 38, 22, 57, 42}});
    driver.perform({Kind::Space}); // in the middle of the viewport
    driver.perform({Kind::Arrow, {0, 1}});
    const QPoint mouse(46, 37);
    driver.window().view().picDisp->pointAt(mouse);
    QVERIFY(driver.window().block().contains(mouse));
}

void TestFound::keysPressInsideASmallerPicture() {
    Driver driver;
    driver.perform({Kind::New, {120, 100, 1, NoFile}});
    for (int i = 0; i < 5; ++i)
        driver.perform({Kind::Arrow, {10, 0}});
    driver.perform({Kind::New, {30, 30, 1, NoFile}});
    const auto pressed = pressedBySpace(driver);
    QVERIFY(pressed && driver.window().view().picDisp->rect().contains(*pressed));
}

void TestFound::keysPressWhereThePointerIs() {
    Driver driver;
    driver.perform({Kind::New, {120, 100, 1, NoFile}});
    driver.perform({Kind::Arrow, {1, 0}});
    driver.perform({Kind::Scroll, {0, 20}});
    const QPoint pointer = driver.window().view().picDisp->mapFromGlobal(QCursor::pos());
    QCOMPARE(pressedBySpace(driver), std::optional(pointer));
}

void TestFound::keysLeaveAnEmptyPictureAlone() {
    Driver driver;
    driver.perform({Kind::New, {0, 0, 1, NoFile}});
    driver.perform({Kind::Arrow, {0, -1}});
    QCOMPARE(pressedBySpace(driver), std::nullopt);
}

void TestFound::keysDoNotScrollAPictureWithoutWidth() {
    QCOMPARE(disagreementOf({
                 {Kind::New, {0, 109, 0, NoFile}},
                 {Kind::Scroll, {1, 10}},
                 {Kind::Arrow, {1, 0}},
             }),
             QString());
}

OVRANO_TEST(TestFound)
#include "tst_found.moc"
