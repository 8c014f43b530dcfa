#include "document/filenew.h"
#include "document/savetest.h"
#include "document/undo.h"
#include "support/testprogram.h"

#include <QApplication>
#include <QTimer>

#include <functional>

using namespace ovrano;

namespace {

constexpr Colour Sand = rgb(200, 170, 90);
constexpr Colour Sea = rgb(20, 70, 190);

} // namespace

class FileNewTest : public SaveTest {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unchangedPictureIsNotAskedAbout();
    void question();
    void questionCancelled();
    void changesDiscarded();
    void changesSaved();
    void changesNotSavedAfterAll();
    void startsOnTheCurrentColour();
    void cancelledForm();
    void defaultsGiveABlankPicture();
    void chosenValues();
    void companions();
    void labels();
    void scrollsHomeAndFitsTheBars();
    void flagsAndFileName();
    void toolsAreTold();
    void closeBoxOnFirstUse();
    void closeBoxLater();
    void noSize_data();
    void noSize();
    void undoAfterNew();
    void drawingIsGone();

private:
    /// What the user does when the form comes up.
    void whenAsked(std::function<void(FrmNouv3DText&)> act) {
        m_act = std::move(act);
        m_timer->start(0);
    }
    void accept(const QString& width, const QString& height) {
        whenAsked([=](FrmNouv3DText& form) {
            form.Text1->setText(width);
            form.Text2->setText(height);
            form.Command2->click();
        });
        m_new->mnuFileNew_Click();
    }
    void acceptAtOnce() {
        whenAsked([](FrmNouv3DText& form) { form.Command2->click(); });
        m_new->mnuFileNew_Click();
    }
    void closeForm() {
        whenAsked([](FrmNouv3DText& form) { form.close(); });
        m_new->mnuFileNew_Click();
    }
    bool isBlank(QSize size, Colour colour) const { return m_work->picDisp.Image() == Raster(size, colour); }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<PictureView> m_view;
    std::unique_ptr<ColourBox> m_label;
    std::unique_ptr<FileNew> m_new;
    std::unique_ptr<QTimer> m_timer;
    std::unique_ptr<QSignalSpy> m_sizes;
    std::function<void(FrmNouv3DText&)> m_act;
    int m_asked = 0;
};

void FileNewTest::init() {
    setUp();
    m_work->picDisp.setAutoSize(false);
    m_work->ImageLoaded = true;
    m_work->showFileName("/some/where.bmp");
    m_window = std::make_unique<QWidget>();
    m_view = std::make_unique<PictureView>(*m_work, m_window.get());
    m_view->picZ->resize(100, 80);
    m_label = std::make_unique<ColourBox>("LblFond", Sand);
    m_new = std::make_unique<FileNew>(*m_work, *m_view, *m_save, *m_label, *m_dialogs);
    m_sizes = std::make_unique<QSignalSpy>(m_work.get(), &WorkPicture::imageSizeShown);
    m_asked = 0;
    m_timer = std::make_unique<QTimer>();
    connect(m_timer.get(), &QTimer::timeout, this, [this] {
        if (auto* form = qobject_cast<FrmNouv3DText*>(QApplication::activeModalWidget())) {
            m_timer->stop();
            ++m_asked;
            m_act(*form);
        }
    });
    whenAsked([](FrmNouv3DText& form) { form.reject(); }); // rather than waiting for ever
}

void FileNewTest::cleanup() {
    m_timer.reset();
    m_sizes.reset();
    m_new.reset();
    m_label.reset();
    m_view.reset();
    m_window.reset();
    tearDown();
}

void FileNewTest::unchangedPictureIsNotAskedAbout() {
    acceptAtOnce();
    QCOMPARE(m_dialogs->messages.size(), 0);
    QCOMPARE(m_asked, 1);
}

void FileNewTest::question() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    acceptAtOnce();
    const MessageBox& box = m_dialogs->messages.at(0);
    QCOMPARE(box.text, QString("Enregistrer l'image ?"));
    QCOMPARE(box.title, QString("Image modifiée"));
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
    QCOMPARE(box.icon, Icon::Question);
}

void FileNewTest::questionCancelled() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Cancel);
    const Raster before = m_work->picDisp.Picture();
    m_new->mnuFileNew_Click();
    QCOMPARE(m_asked, 0);
    QVERIFY(m_work->picDisp.Image() == before);
    QVERIFY(m_work->ImageModified);
    QCOMPARE(m_sizes->size(), 0);
    QCOMPARE(m_work->shownPath(), QString("/some/where.bmp"));
}

void FileNewTest::changesDiscarded() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    acceptAtOnce();
    QVERIFY(isBlank(QSize(300, 300), Sand));
    QCOMPARE(names(), QStringList());
}

void FileNewTest::changesSaved() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->chooseSave(path("a.bmp"), Bmp);
    acceptAtOnce();
    QCOMPARE(names(), QStringList("a.bmp"));
    QCOMPARE(QImage(path("a.bmp")).size(), QSize(120, 90)); // the picture before
    QVERIFY(isBlank(QSize(300, 300), Sand));
    QCOMPARE(m_work->CurrentFileName, path("a.bmp"));
}

void FileNewTest::changesNotSavedAfterAll() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->cancelSave();
    m_new->mnuFileNew_Click();
    QCOMPARE(m_asked, 0);
    QCOMPARE(m_work->picDisp.innerSize(), QSize(120, 90));
    QVERIFY(m_work->ImageModified);
}

void FileNewTest::startsOnTheCurrentColour() {
    m_label->setBackColor(Sea);
    Colour shown = White;
    whenAsked([&shown](FrmNouv3DText& form) {
        shown = form.LabCoulFond->BackColor();
        form.Command3->click();
    });
    m_new->mnuFileNew_Click();
    QCOMPARE(shown, Sea);
}

void FileNewTest::cancelledForm() {
    m_work->ImageModified = true;
    m_work->UndoAvailable = true;
    m_dialogs->answer(Answer::No);
    const Raster before = m_work->picDisp.Picture();
    const QSignalSpy replaced(m_new.get(), &FileNew::pictureReplaced);
    whenAsked([](FrmNouv3DText& form) {
        form.LabCoulFond->setBackColor(Sea);
        form.Command3->click();
    });
    m_new->mnuFileNew_Click();
    QVERIFY(m_work->picDisp.Image() == before);
    QVERIFY(m_work->ImageModified);
    QVERIFY(m_work->UndoAvailable);
    QCOMPARE(m_label->BackColor(), Sand);
    QCOMPARE(m_sizes->size(), 0);
    QCOMPARE(replaced.size(), 0);
    m_work->ImageModified = false;
    acceptAtOnce(); // one that was cancelled does not cancel the next one
    QVERIFY(isBlank(QSize(300, 300), Sand));
}

void FileNewTest::defaultsGiveABlankPicture() {
    acceptAtOnce();
    QVERIFY(isBlank(QSize(300, 300), Sand));
    QVERIFY(m_work->picDisp.Picture().isEmpty());
    QCOMPARE(m_work->picDisp.BackColor(), Sand);
}

void FileNewTest::chosenValues() {
    m_dialogs->pickColour(Sea);
    whenAsked([](FrmNouv3DText& form) {
        form.Text1->setText("17");
        form.Text2->setText("640");
        form.Command1->click();
        form.Command2->click();
    });
    m_new->mnuFileNew_Click();
    QVERIFY(isBlank(QSize(17, 640), Sea));
    QCOMPARE(m_label->BackColor(), Sea); // the current background colour from now on
    QCOMPARE(m_work->ImageWidth, 17);
    QCOMPARE(m_work->ImageHeight, 640);
}

void FileNewTest::companions() {
    for (Surface* surface : {&m_work->picSnap, &m_work->picUndo, &m_work->picRegion, &m_work->picMask}) {
        surface->setInnerSize(QSize(33, 44));
        surface->setPicture(patterned(QSize(33, 44)));
    }
    accept("50", "60");
    for (const Surface* surface : {&m_work->picSnap, &m_work->picUndo, &m_work->picRegion, &m_work->picMask})
        QVERIFY(surface->Picture().isEmpty());
    QCOMPARE(m_work->picSnap.innerSize(), QSize(50, 60));
    QCOMPARE(m_work->picMask.innerSize(), QSize(50, 60));
    QCOMPARE(m_work->picUndo.innerSize(), QSize(33, 44));
    QCOMPARE(m_work->picRegion.innerSize(), QSize(33, 44));
}

void FileNewTest::labels() {
    const QSignalSpy file(m_work.get(), &WorkPicture::fileNameShown);
    acceptAtOnce();
    QCOMPARE(m_sizes->last().at(0).toString(), QString("L=300  H=300"));
    QCOMPARE(file.last().at(0).toString(), QString());
    QCOMPARE(m_work->shownPath(), QString());
}

void FileNewTest::scrollsHomeAndFitsTheBars() {
    m_view->setScrollMax();
    m_view->HScroll1->setValue(15);
    m_view->VScroll1->setValue(8);
    QCOMPARE(m_view->picDisp->pos(), QPoint(-15, -8));
    accept("400", "500");
    QCOMPARE(m_view->picDisp->pos(), QPoint(0, 0));
    QCOMPARE(m_view->HScroll1->value(), 0);
    QCOMPARE(m_view->HScroll1->maximum(), 300);
    QCOMPARE(m_view->VScroll1->value(), 0);
    QCOMPARE(m_view->VScroll1->maximum(), 420);
}

void FileNewTest::flagsAndFileName() {
    m_work->ImageLoaded = false;
    m_work->ImageModified = true;
    m_work->UndoAvailable = true;
    m_work->CurrentFileName = "/kept.bmp";
    m_dialogs->answer(Answer::No);
    acceptAtOnce();
    QVERIFY(m_work->ImageLoaded);
    QVERIFY(!m_work->ImageModified);
    QVERIFY(m_work->UndoAvailable); // of the emptied snapshot
    QCOMPARE(m_work->CurrentFileName, QString("/kept.bmp"));
}

void FileNewTest::toolsAreTold() {
    const QSignalSpy picker(m_new.get(), &FileNew::pickerReleased);
    const QSignalSpy replaced(m_new.get(), &FileNew::pictureReplaced);
    const QSignalSpy unlocked(m_new.get(), &FileNew::backgroundColourUnlocked);
    acceptAtOnce();
    QCOMPARE(picker.size(), 1);
    QCOMPARE(replaced.size(), 1);
    QCOMPARE(unlocked.size(), 1);
    QCOMPARE(m_window->focusWidget(), m_view->picDisp);
}

void FileNewTest::closeBoxOnFirstUse() {
    closeForm();
    QCOMPARE(m_work->picDisp.innerSize(), QSize(0, 0));
    QCOMPARE(m_sizes->last().at(0).toString(), QString("L=0  H=0"));
    QVERIFY(m_work->ImageLoaded);
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileNewTest::closeBoxLater() {
    m_dialogs->pickColour(Sea);
    whenAsked([](FrmNouv3DText& form) {
        form.Text1->setText("71");
        form.Text2->setText("72");
        form.Command1->click();
        form.Command2->click();
    });
    m_new->mnuFileNew_Click();
    m_work->picDisp.setInnerSize(QSize(5, 5));
    m_label->setBackColor(Sand);
    whenAsked([](FrmNouv3DText& form) {
        form.Text1->setText("9");
        form.close();
    });
    m_new->mnuFileNew_Click();
    QVERIFY(isBlank(QSize(71, 72), Sea));
    QCOMPARE(m_label->BackColor(), Sea);
}

void FileNewTest::noSize_data() {
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::addColumn<QSize>("size");
    QTest::newRow("width 0") << "0"
                             << "20" << QSize(0, 20);
    QTest::newRow("height empty") << "20"
                                  << "" << QSize(20, 0);
    QTest::newRow("neither") << ""
                             << "0" << QSize(0, 0);
}

void FileNewTest::noSize() {
    QFETCH(QString, width);
    QFETCH(QString, height);
    QFETCH(QSize, size);
    accept(width, height);
    QCOMPARE(m_work->picDisp.innerSize(), size);
    QCOMPARE(m_work->picSnap.innerSize(), size);
    QCOMPARE(m_sizes->last().at(0).toString(), QString("L=%1  H=%2").arg(size.width()).arg(size.height()));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileNewTest::undoAfterNew() {
    m_work->TakeUndoSnapshot();
    accept("40", "30");
    Undo undo(*m_work, *m_view, *m_dialogs);
    undo.mnuEditUndo_Click();
    QVERIFY(isBlank(QSize(120, 90), m_work->picUndo.BackColor())); // the emptied snapshot in its old size
    QVERIFY(!m_work->UndoAvailable);
}

void FileNewTest::drawingIsGone() {
    m_work->picDisp.Line(QPointF(2, 2), QPointF(20, 20), Sea, BoxStyle::Filled);
    accept("50", "50");
    QVERIFY(isBlank(QSize(50, 50), Sand));
}

OVRANO_TEST(FileNewTest)
#include "tst_filenew.moc"
