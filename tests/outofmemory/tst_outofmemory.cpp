#include "document/filetools.h"
#include "model/driver.h"
#include "model/testpictures.h"
#include "outofmemory/scarcememory.h"
#include "platform/parallel.h"
#include "support/testprogram.h"
#include "wizards/rotfonts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QThreadPool>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

using namespace ovrano;
using namespace ovrano::outofmemory;
using namespace ovrano::model;

namespace {

/// What comes after a command that had given the old picture up.
bool isEmptied(const Pixels& pixels) {
    const auto differs = [&](Rgb colour) { return colour != pixels.colours.front(); };
    return std::none_of(pixels.colours.begin(), pixels.colours.end(), differs);
}

/// The picture files, one of each kind, larger than a tile of a raster but for one of the driver's own.
enum File { Bmp, Jpeg, Png, Larger, Small, SmallerThanTile, Gif = FirstSaved + 6 };

constexpr QSize PictureSize(400, 300);
constexpr QSize LargerSize(450, 420);
constexpr QSize SmallSize(270, 260); // finding a palette takes long

/// In letters that take large pieces of memory, and with none of their masks left over.
void writeLarge(RotFonts& circle) {
    circle.Text1->setText(QStringLiteral("Texte"));
    circle.txtSize->setEditText(QStringLiteral("20"));
    circle.Command1_Click();
    circle.txtSize->setEditText(QStringLiteral("120"));
}

} // namespace

/// Memory runs short in the middle of a command: the user is told, the picture is what it was, and the same
/// command works when he tries again.
class OutOfMemoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_driver.reset(); }

    void largePiecesAreRefused();
    void commandIsToldAndCanBeRepeated_data();
    void commandIsToldAndCanBeRepeated();
    void redrawnCircleIsTold();

private:
    void prepare(const std::vector<Step>& steps);
    struct Scarcity {
        int first;
        ScarceMemory::Refused refused;
        std::unique_ptr<ScarceMemory> begin() const { return std::make_unique<ScarceMemory>(first, refused); }
    };
    bool perform(const Step& step, std::optional<Scarcity> scarcity = std::nullopt);
    bool applyTextDialog(int which, std::optional<Scarcity> scarcity);
    void useTextDialog(int which, const std::function<void(QDialog&)>& use);
    bool isTold() const;
    bool isZoneMode() { return m_driver->find<QAction>("mnuToolsRegion")->isChecked(); }
    Pixels shown();
    /// What a command that fails leaves alone beside the picture: what Undo brings back, and the block.
    struct Kept {
        bool isUndoAvailable;
        Raster undo;
        QRect zone; // null without a block
        bool isLifted() const { return !zone.isNull(); }
        bool operator==(const Kept&) const = default;
    };
    Kept kept();
    Pixels committed() { return toPixels(m_driver->window().work().picDisp.Picture()); }
    void repeat(const Step& step);
    struct Trial {
        std::vector<Step> before;
        Step step;
        Pixels expected;
        bool isLifted;                // a block remains
        std::optional<Pixels> undone; // what Undo makes of it, if anything
    };
    Pixels undone();
    QString wrongAfterFailure(const Trial& trial, const Scarcity& scarcity, const Kept& keptBefore);
    QString tryOnce(const Trial& trial, const Scarcity& scarcity, bool& hasRefused);

    std::unique_ptr<Driver> m_driver;
    QList<Tile> m_ballast;
};

Q_DECLARE_METATYPE(ovrano::model::Step)
Q_DECLARE_METATYPE(std::vector<ovrano::model::Step>)

void OutOfMemoryTest::initTestCase() {
    // Memory is scarce in this thread: none is to help it.
    helperThreads().setMaxThreadCount(1);
    m_driver = std::make_unique<Driver>();
    const QImage picture = patterned(PictureSize).toImage();
    put(m_driver->folder() + fileName(Bmp), encoded(picture, "BMP"));
    put(m_driver->folder() + fileName(Jpeg), encoded(picture, "JPG"));
    put(m_driver->folder() + fileName(Png), encoded(picture, "PNG"));
    put(m_driver->folder() + fileName(Larger), encoded(gradient(LargerSize), "PNG"));
    put(m_driver->folder() + fileName(Small), encoded(gradient(SmallSize), "PNG"));
    m_driver->find<QComboBox>("txtFontSize")->setEditText(QStringLiteral("99"));
    m_driver->perform({Kind::Open, {Bmp, NoFile}});
    m_driver->perform({Kind::Save, {0, 6}}); // the toolkit writes no GIF
    QVERIFY(QFile::exists(m_driver->folder() + fileName(Gif)));
    prepare({});
}

/// With no memory of tiles left over from pictures before, for which nobody would have to ask.
void OutOfMemoryTest::prepare(const std::vector<Step>& steps) {
    if (isZoneMode())
        m_driver->perform({Kind::ZoneEntry, {}}); // a gesture that failed has left it on
    for (const Step& step : steps)
        m_driver->perform(step);
    QCoreApplication::processEvents();
    while (Tile::kept() > 0)
        m_ballast.append(Tile::unwritten(QSize(Tile::Side, Tile::Side)));
}

/// Gives whether memory was refused. In a dialog it is scarce while its picture is taken over: what the
/// toolkit itself needs to show another window it does not get on without.
bool OutOfMemoryTest::perform(const Step& step, std::optional<Scarcity> scarcity) {
    if (step.kind == Kind::TextDialog)
        return applyTextDialog(step.numbers.front(), scarcity);
    const std::unique_ptr<ScarceMemory> scarce = scarcity ? scarcity->begin() : nullptr;
    m_driver->perform(step);
    return scarce && scarce->hasRefused();
}

void OutOfMemoryTest::useTextDialog(int which, const std::function<void(QDialog&)>& use) {
    QTimer user;
    connect(&user, &QTimer::timeout, this, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        user.stop();
        use(*dialog);
        dialog->reject(); // one that failed stays open
    });
    user.start(0);
    m_driver->perform({Kind::OpenMenu, {3}}); // forgets what was told before
    m_driver->find<QAction>(which == 1 ? "mnuTextWrite(1)" : "mnuTextWrite(2)")->trigger();
}

bool OutOfMemoryTest::applyTextDialog(int which, std::optional<Scarcity> scarcity) {
    bool hasRefused = false;
    useTextDialog(which, [&](QDialog& dialog) {
        if (auto* circle = qobject_cast<RotFonts*>(&dialog))
            writeLarge(*circle);
        const std::unique_ptr<ScarceMemory> scarce = scarcity ? scarcity->begin() : nullptr;
        dialog
            .findChild<QAbstractButton*>(which == 1 ? QStringLiteral("Command1") : QStringLiteral("Command3"))
            ->click();
        hasRefused = scarce && scarce->hasRefused();
    });
    return hasRefused;
}

/// Without the frame of a block, which is only drawn over it.
Pixels OutOfMemoryTest::shown() {
    const Surface& picDisp = m_driver->window().work().picDisp;
    return toPixels(m_driver->window().block().HasSelection ? picDisp.Picture() : picDisp.Image());
}

/// As a user does it who takes up the tool again if it has been put down.
void OutOfMemoryTest::repeat(const Step& step) {
    if (QTest::currentDataTag() == QByteArray("lift a zone") && !isZoneMode())
        m_driver->perform({Kind::ZoneEntry, {}});
    perform(step);
}

/// The toolkit's own GIF decoder does not say why it has failed.
bool OutOfMemoryTest::isTold() const {
    if (QTest::currentDataTag() == QByteArray("open GIF") && !m_driver->dialogs().messages.isEmpty())
        return true;
    const QString message = QStringLiteral("7     ") + RuntimeError::descriptionOf(error::OutOfMemory);
    return !m_driver->dialogs().messages.filter(message).isEmpty();
}

void OutOfMemoryTest::largePiecesAreRefused() {
    const ScarceMemory scarce(1, ScarceMemory::Refused::One);
    QVERIFY(!QImage(200, 200, QImage::Format_RGB32).isNull());
    QVERIFY(QImage(200, 200, QImage::Format_RGB32).isNull());
    QVERIFY(!QImage(200, 200, QImage::Format_RGB32).isNull());
    QCOMPARE(scarce.asked(), 3);
    QVERIFY(scarce.hasRefused());
    const ScarceMemory none(0, ScarceMemory::Refused::AllFromThere);
    QVERIFY(!skipOnError([] { const std::vector<char> refusedToo(100'000); }));
    QVERIFY(!skipOnError([] { const QByteArray refusedToo(100'000, ' '); }));
    QCOMPARE(errorOf([] { Tile::unwritten(QSize(Tile::Side, Tile::Side)); }), error::OutOfMemory);
    QCOMPARE(errorOf([] { Tile::unwritten(QSize(200, 200)); }), error::OutOfMemory);
}

void OutOfMemoryTest::commandIsToldAndCanBeRepeated_data() {
    QTest::addColumn<std::vector<Step>>("before");
    QTest::addColumn<Step>("step");
    using Steps = std::vector<Step>;
    const Step open{Kind::Open, {Bmp, NoFile}};
    const Step zone{Kind::ZoneEntry, {}};
    const Step lift{Kind::Gesture, {1, NoFlaw, 10, 10, 350, 280}};
    const Step copy{Kind::Copy, {0}};
    QTest::newRow("open BMP") << Steps{open} << Step{Kind::Open, {Bmp, NoFile}};
    QTest::newRow("open JPEG") << Steps{open} << Step{Kind::Open, {Jpeg, NoFile}};
    QTest::newRow("open PNG") << Steps{open} << Step{Kind::Open, {Png, NoFile}};
    QTest::newRow("open GIF") << Steps{open} << Step{Kind::Open, {Gif, NoFile}};
    QTest::newRow("drop a file") << Steps{open} << Step{Kind::Drop, {Larger, NoFile}};
    QTest::newRow("new") << Steps{open} << Step{Kind::New, {500, 400, 2, NoFile}};
    QTest::newRow("drag the right edge")
        << Steps{open} << Step{Kind::Gesture, {1, NoFlaw, 399, 100, 700, 100}};
    QTest::newRow("drag the lower edge")
        << Steps{open} << Step{Kind::Gesture, {1, NoFlaw, 100, 299, 100, 700}};
    QTest::newRow("copy a zone") << Steps{open, zone, lift} << copy;
    QTest::newRow("lift a zone") << Steps{open, zone} << lift;
    QTest::newRow("cut") << Steps{open, zone, lift} << Step{Kind::Cut, {0}};
    QTest::newRow("paste") << Steps{open, zone, lift, copy, open} << Step{Kind::Paste, {0}};
    QTest::newRow("paste see-through") << Steps{open, zone, lift, copy, open} << Step{Kind::Paste, {1}};
    QTest::newRow("paste a larger file") << Steps{open} << Step{Kind::PasteFile, {Larger, 0}, Answer::Yes};
    QTest::newRow("paste a larger file see-through")
        << Steps{open} << Step{Kind::PasteFile, {Larger, 1}, Answer::Yes};
    QTest::newRow("paste into a new picture") << Steps{open, zone, lift, copy} << Step{Kind::PasteNew, {}};
    QTest::newRow("stamp a text") << Steps{open} << Step{Kind::Stamp, {2}};
    QTest::newRow("stamp beside a block") << Steps{open, zone, lift} << Step{Kind::Stamp, {2}};
    const Step openLarger{Kind::Open, {Larger, NoFile}};
    const Step dragToOtherTiles{Kind::Gesture, {1, NoFlaw, 20, 20, 240, 240}};
    const Steps block{openLarger, {Kind::PasteFile, {SmallerThanTile, 0}}};
    QTest::newRow("drag a block") << block << dragToOtherTiles;
    const Steps seeThrough{openLarger, {Kind::PasteFile, {SmallerThanTile, 1}}};
    QTest::newRow("drag a see-through block") << seeThrough << dragToOtherTiles;
    // The dialog leaves the snapshot of the paste, which has another size.
    const Steps otherSnapshot{
        open, {Kind::PasteFile, {SmallerThanTile, 0}}, {Kind::TextDialog, {1, 1}}, zone, lift};
    QTest::newRow("drop a block") << otherSnapshot << Step{Kind::Enter, {}};
    QTest::newRow("circular text") << Steps{open} << Step{Kind::TextDialog, {2, 1}};
    QTest::newRow("two-coloured text") << Steps{open} << Step{Kind::TextDialog, {1, 1}};
    QTest::newRow("save BMP") << Steps{open} << Step{Kind::Save, {0, 1}};
    QTest::newRow("save JPEG") << Steps{open} << Step{Kind::Save, {0, 2}};
    QTest::newRow("save GIF") << Steps{{Kind::Open, {Small, NoFile}}} << Step{Kind::Save, {0, 6}};
}

OutOfMemoryTest::Kept OutOfMemoryTest::kept() {
    const WorkPicture& work = m_driver->window().work();
    const LiftedBlock& block = m_driver->window().block();
    return {work.UndoAvailable, work.picUndo.Picture(), block.HasSelection ? block.zone() : QRect()};
}

Pixels OutOfMemoryTest::undone() {
    m_driver->perform({Kind::Undo, {0}});
    return shown();
}

/// Tries again, or takes back what was done before.
QString OutOfMemoryTest::wrongAfterFailure(const Trial& trial, const Scarcity& scarcity,
                                           const Kept& keptBefore) {
    QString wrong;
    const bool isDrag = trial.step.kind == Kind::Gesture && keptBefore.isLifted();
    if ((isDrag || trial.step.kind == Kind::Stamp || trial.step.kind == Kind::Enter) &&
        !(kept() == keptBefore))
        wrong += "another block or undo; ";
    if (isDrag && scarcity.refused == ScarceMemory::Refused::AllFromThere)
        return wrong;
    repeat(trial.step);
    if (isTold())
        wrong += "told again; ";
    if (!(shown() == trial.expected))
        wrong += "another result when repeated; ";
    return wrong;
}

QString OutOfMemoryTest::tryOnce(const Trial& trial, const Scarcity& scarcity, bool& hasRefused) {
    prepare(trial.before);
    const Pixels old = shown();
    const Pixels oldCommitted = committed();
    const Kept oldKept = kept();
    hasRefused = perform(trial.step, scarcity);
    const Pixels now = shown();
    const bool isGivenUp = trial.step.kind == Kind::Open || trial.step.kind == Kind::New;
    const bool isDone = now == trial.expected && kept().isLifted() == trial.isLifted;
    const bool wasTold = isTold();
    QString broken;
    if (hasRefused && !wasTold && !isDone)
        broken += "not told: " + m_driver->dialogs().messages.join('|') + "; ";
    const bool isOld = now == old || committed() == oldCommitted; // a band may still be drawn over it
    if (!isDone && !isOld && !(isGivenUp && isEmptied(now)))
        broken += QStringLiteral("another picture, %1 x %2; ").arg(now.width).arg(now.height);
    const bool isAllOrNothing = trial.step.kind == Kind::TextDialog && trial.step.numbers.front() == 1;
    if (wasTold && isAllOrNothing && !(now == old))
        broken += "done although it was told; ";
    if (wasTold && !isDone)
        broken += wrongAfterFailure(trial, scarcity, oldKept);
    if (trial.undone && !(undone() == *trial.undone))
        broken += "Undo brings another picture; ";
    return broken.isEmpty() ? broken : QStringLiteral("\npiece %1: ").arg(scarcity.first) + broken;
}

void OutOfMemoryTest::commandIsToldAndCanBeRepeated() {
    using Steps = std::vector<Step>;
    QFETCH(Steps, before);
    QFETCH(Step, step);
    prepare(before);
    perform(step);
    Trial trial{before, step, shown(), kept().isLifted(), std::nullopt};
    if (m_driver->window().work().UndoAvailable)
        trial.undone = undone();
    QString broken;
    int pieces = 0;
    for (const auto refused : {ScarceMemory::Refused::One, ScarceMemory::Refused::AllFromThere}) {
        bool hasRefused = true;
        // When all are refused the user meets the same failures: some of them will do.
        const int stride = refused == ScarceMemory::Refused::One ? 1 : 4;
        for (int first = 0; hasRefused; first += stride) {
            broken += tryOnce(trial, {first, refused}, hasRefused);
            pieces += hasRefused ? 1 : 0;
        }
    }
    QVERIFY2(broken.isEmpty(), qPrintable(broken));
    QVERIFY(pieces > 0); // otherwise nothing has been tried
}

/// A preview that cannot be drawn shows nothing, neither half a text nor the one before.
void OutOfMemoryTest::redrawnCircleIsTold() {
    useTextDialog(2, [this](QDialog& dialog) {
        auto& circle = dynamic_cast<RotFonts&>(dialog);
        writeLarge(circle);
        circle.Command1_Click();
        const Raster whole = circle.Picture1.Image();
        int first = 0;
        for (bool hasRefused = true; hasRefused; ++first) {
            writeLarge(circle);
            m_driver->forgetMessages();
            {
                const ScarceMemory scarce(first, ScarceMemory::Refused::One);
                circle.Command1_Click();
                hasRefused = scarce.hasRefused();
            }
            const bool isWhole = circle.Picture1.Image() == whole;
            QVERIFY(isWhole || isTold());
            QVERIFY(isWhole || isEmptied(toPixels(circle.Picture1.Image())));
        }
        QVERIFY(first > 1);
    });
}

OVRANO_TEST(OutOfMemoryTest)
#include "tst_outofmemory.moc"
