#include "document/bmpfile.h"
#include "document/fileopen.h"
#include "document/filetools.h"
#include "document/picturereader.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

class FileOpenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogIsSetUp();
    void dialogIsResetEachTime();
    void pictureReplacesTheWorkPicture();
    void undrawnAndDrawnPixelsAreGone();
    void companionsAreEmptiedAndSized();
    void labelsShowPathAndSize();
    void flagsAreSet();
    void undoStaysAvailable();
    void pickerIsReleased();
    void focusGoesToThePicture();
    void scrollsBackToTheCorner();
    void pictureLargerThanTheViewport();
    void pictureSmallerThanTheViewport();

    void cancelChangesNothing();
    void emptyNameOnlyMovesTheFocus();
    void unreadableFileLeavesAnEmptiedPicture_data();
    void unreadableFileLeavesAnEmptiedPicture();
    void unreadableFileLeavesTheRest_data();
    void unreadableFileLeavesTheRest();
    void goodFileAfterABadOne();
    void pictureTooWideToScroll();

    void unchangedPictureIsNotAskedFor();
    void questionIsAsked();
    void cancelledQuestionStops();
    void yesSavesFirst();
    void yesAndCancelledSaveStops();
    void yesAndFailedSaveGoesOn();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QString picture(const QString& name, const Raster& content) const {
        SavePicture(content, path(name));
        return path(name);
    }
    void open(const QString& file) {
        m_dialogs->chooseOpen(file);
        m_open->mnuFileOpen_Click();
    }
    void openAndModify();
    void openUnreadable(const QString& name);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<WorkPicture> m_work;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<PictureView> m_view;
    std::unique_ptr<FileSave> m_save;
    std::unique_ptr<FileOpen> m_open;
    std::unique_ptr<QSignalSpy> m_fileLabel;
    std::unique_ptr<QSignalSpy> m_sizeLabel;
    std::unique_ptr<QSignalSpy> m_pickerReleased;
};

void FileOpenTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_work = std::make_unique<WorkPicture>(*m_dialogs);
    m_window = std::make_unique<QWidget>();
    m_window->resize(900, 700);
    m_view = std::make_unique<PictureView>(*m_work, m_window.get());
    m_view->picZ->setFrameShape(QFrame::NoFrame);
    m_view->picZ->resize(800, 600);
    m_save = std::make_unique<FileSave>(*m_work, *m_dialogs);
    m_open = std::make_unique<FileOpen>(*m_work, *m_view, *m_save, *m_dialogs);
    m_fileLabel = std::make_unique<QSignalSpy>(m_work.get(), &WorkPicture::fileNameShown);
    m_sizeLabel = std::make_unique<QSignalSpy>(m_work.get(), &WorkPicture::imageSizeShown);
    m_pickerReleased = std::make_unique<QSignalSpy>(m_open.get(), &FileOpen::pickerReleased);
    m_work->readImageSize();
    m_work->ImageLoaded = true;
}

void FileOpenTest::cleanup() {
    m_open.reset();
    m_save.reset();
    m_view.reset();
    m_window.reset();
    m_work.reset();
    m_dialogs.reset();
}

/// A large picture, scrolled, with a snapshot and a change; what was announced so far is forgotten.
void FileOpenTest::openAndModify() {
    open(picture("a.bmp", patterned(QSize(1000, 700))));
    m_work->picUndo.setPicture(patterned(QSize(1000, 700)));
    m_view->HScroll1->setValue(150);
    m_work->ImageModified = true;
    m_fileLabel->clear();
    m_sizeLabel->clear();
    m_pickerReleased->clear();
}

void FileOpenTest::openUnreadable(const QString& name) {
    put(path("text.bmp"), "Ceci n'est pas une image.");
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    m_dialogs->answer(Answer::No); // the change is given up
    m_dialogs->answer(Answer::Ok);
    open(path(name));
}

void FileOpenTest::dialogIsSetUp() {
    m_dialogs->cancelOpen();
    m_open->mnuFileOpen_Click();
    const FileRequest& request = m_dialogs->opens.at(0);
    QCOMPARE(request.title, QString("Ouvrir une image de fond"));
    QCOMPARE(request.types.size(), 2);
    QCOMPARE(request.types.at(0).description, QString("Fichiers Images(BMP-GIF-JPEG"));
    QCOMPARE(request.types.at(0).patterns, QStringList({"*.bmp", "*.gif", "*.jpg", "*.jpeg"}));
    QCOMPARE(request.types.at(1).description, QString("Tous les fichiers(*.*)"));
    QCOMPARE(request.types.at(1).patterns, QStringList("*.*"));
    QCOMPARE(request.typeIndex, 0);
    QCOMPARE(request.fileName, QString());
}

void FileOpenTest::dialogIsResetEachTime() {
    m_dialogs->chooseOpen(picture("a.bmp", patterned(QSize(20, 10))), 2);
    m_open->mnuFileOpen_Click();
    m_dialogs->cancelOpen();
    m_open->mnuFileOpen_Click();
    QCOMPARE(m_dialogs->opens.at(1).typeIndex, 0);
    QCOMPARE(m_dialogs->opens.at(1).fileName, QString());
}

void FileOpenTest::pictureReplacesTheWorkPicture() {
    const Raster content = patterned(QSize(57, 31));
    open(picture("a.bmp", content));
    QCOMPARE(m_work->picDisp.innerSize(), QSize(57, 31));
    QVERIFY(m_work->picDisp.Picture() == content);
    QVERIFY(m_work->picDisp.Image() == content);
    QVERIFY(!m_work->picDisp.AutoSize());
    QCOMPARE(m_view->picDisp->size(), QSize(57, 31));
}

void FileOpenTest::undrawnAndDrawnPixelsAreGone() {
    m_work->picDisp.Line(QPointF(0, 0), QPointF(30, 30), Black, BoxStyle::Filled); // never committed
    const Raster content = patterned(QSize(640, 480)); // the size that is there already
    open(picture("a.bmp", content));
    QVERIFY(m_work->picDisp.Image() == content);
}

void FileOpenTest::companionsAreEmptiedAndSized() {
    for (Surface* surface : {&m_work->picSnap, &m_work->picUndo, &m_work->picRegion, &m_work->picMask}) {
        surface->setInnerSize(QSize(33, 22));
        surface->setPicture(patterned(QSize(33, 22)));
    }
    open(picture("a.bmp", patterned(QSize(57, 31))));
    for (Surface* surface : {&m_work->picSnap, &m_work->picUndo}) {
        QVERIFY(surface->Picture().isEmpty());
        QCOMPARE(surface->innerSize(), QSize(57, 31));
    }
    for (Surface* surface : {&m_work->picRegion, &m_work->picMask}) {
        QVERIFY(surface->Picture().isEmpty());
        QCOMPARE(surface->innerSize(), QSize(33, 22)); // as it was
    }
}

void FileOpenTest::labelsShowPathAndSize() {
    open(picture("Été.bmp", patterned(QSize(57, 31))));
    QCOMPARE(m_fileLabel->size(), 1);
    QCOMPARE(m_fileLabel->at(0).at(0).toString(), path("Été.bmp"));
    QCOMPARE(m_sizeLabel->size(), 1);
    QCOMPARE(m_sizeLabel->at(0).at(0).toString(), QString("L=57  H=31"));
    QCOMPARE(m_work->CurrentFileName, path("Été.bmp"));
    QCOMPARE(m_work->ImageWidth, 57);
    QCOMPARE(m_work->ImageHeight, 31);
}

void FileOpenTest::flagsAreSet() {
    m_work->ImageLoaded = false;
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    open(picture("a.bmp", patterned(QSize(57, 31))));
    QVERIFY(m_work->ImageLoaded);
    QVERIFY(!m_work->ImageModified);
}

void FileOpenTest::undoStaysAvailable() {
    for (const bool available : {true, false}) {
        m_work->UndoAvailable = available;
        open(picture("a.bmp", patterned(QSize(57, 31))));
        QCOMPARE(m_work->UndoAvailable, available);
    }
}

void FileOpenTest::pickerIsReleased() {
    open(picture("a.bmp", patterned(QSize(57, 31))));
    QCOMPARE(m_pickerReleased->size(), 1);
}

void FileOpenTest::focusGoesToThePicture() {
    QWidget other(m_window.get());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    other.show();
    other.setFocus();
    QVERIFY(other.hasFocus());
    open(picture("a.bmp", patterned(QSize(57, 31))));
    QVERIFY(m_view->picDisp->hasFocus());
}

void FileOpenTest::scrollsBackToTheCorner() {
    open(picture("a.bmp", patterned(QSize(1000, 700))));
    m_view->HScroll1->setValue(150);
    m_view->VScroll1->setValue(60);
    QCOMPARE(m_view->picDisp->pos(), QPoint(-150, -60));
    open(picture("b.bmp", patterned(QSize(1000, 700))));
    QCOMPARE(m_view->HScroll1->value(), 0);
    QCOMPARE(m_view->VScroll1->value(), 0);
    QCOMPARE(m_view->picDisp->pos(), QPoint(0, 0));
}

void FileOpenTest::pictureLargerThanTheViewport() {
    open(picture("a.bmp", patterned(QSize(1000, 700))));
    QCOMPARE(m_view->HScroll1->maximum(), 200);
    QCOMPARE(m_view->HScroll1->singleStep(), 4);
    QCOMPARE(m_view->HScroll1->pageStep(), 10);
    QCOMPARE(m_view->VScroll1->maximum(), 100);
    QCOMPARE(m_view->VScroll1->singleStep(), 6);
    QCOMPARE(m_view->VScroll1->pageStep(), 6);
}

void FileOpenTest::pictureSmallerThanTheViewport() {
    open(picture("a.bmp", patterned(QSize(1000, 700))));
    open(picture("b.bmp", patterned(QSize(799, 600))));
    QCOMPARE(m_view->HScroll1->maximum(), 0);
    QCOMPARE(m_view->VScroll1->maximum(), 0);
}

void FileOpenTest::cancelChangesNothing() {
    const Raster before = m_work->picDisp.Image();
    m_work->CurrentFileName = "before";
    m_dialogs->cancelOpen();
    m_open->mnuFileOpen_Click();
    QVERIFY(m_work->picDisp.Image() == before);
    QCOMPARE(m_work->CurrentFileName, QString("before"));
    QCOMPARE(m_dialogs->messages.size(), 0);
    QCOMPARE(m_fileLabel->size() + m_sizeLabel->size() + m_pickerReleased->size(), 0);
}

void FileOpenTest::emptyNameOnlyMovesTheFocus() {
    m_work->CurrentFileName = "before";
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    open(QString());
    QVERIFY(m_view->picDisp->hasFocus());
    QCOMPARE(m_work->CurrentFileName, QString("before"));
    QCOMPARE(m_dialogs->messages.size(), 0);
    QCOMPARE(m_fileLabel->size() + m_sizeLabel->size(), 0);
}

void FileOpenTest::unreadableFileLeavesAnEmptiedPicture_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::newRow("missing") << "none.bmp" << error::FileNotFound;
    QTest::newRow("missing folder") << "none/a.bmp" << error::PathNotFound;
    QTest::newRow("no picture") << "text.bmp" << error::InvalidPicture;
    QTest::newRow("folder") << "folder" << error::PathFileAccess;
}

void FileOpenTest::unreadableFileLeavesAnEmptiedPicture() {
    QFETCH(QString, name);
    QFETCH(int, number);
    openAndModify();
    openUnreadable(name);
    const MessageBox& box = m_dialogs->messages.last();
    QCOMPARE(box.text,
             QString("mnuFileOpen_Click\r\n%1     %2").arg(number).arg(RuntimeError::descriptionOf(number)));
    QCOMPARE(box.buttons, Buttons::Ok);
    QCOMPARE(box.icon, Icon::None);
    QCOMPARE(box.title, QString());
    QVERIFY(m_work->picDisp.Picture().isEmpty());
    QVERIFY(m_work->picDisp.AutoSize());
    QVERIFY(m_work->picDisp.Image() == Raster(m_work->picDisp.innerSize(), White));
    QCOMPARE(m_work->CurrentFileName, path(name));
}

void FileOpenTest::unreadableFileLeavesTheRest_data() {
    unreadableFileLeavesAnEmptiedPicture_data();
}

// Everything but the work picture still tells of the picture before.
void FileOpenTest::unreadableFileLeavesTheRest() {
    QFETCH(QString, name);
    openAndModify();
    openUnreadable(name);
    QVERIFY(!m_work->picUndo.Picture().isEmpty());
    QCOMPARE(m_work->ImageWidth, 1000);
    QCOMPARE(m_view->HScroll1->maximum(), 200);
    QCOMPARE(m_view->HScroll1->value(), 150);
    QVERIFY(m_work->ImageModified);
    QVERIFY(m_work->ImageLoaded);
    QCOMPARE(m_fileLabel->size() + m_sizeLabel->size() + m_pickerReleased->size(), 0);
}

void FileOpenTest::goodFileAfterABadOne() {
    m_dialogs->answer(Answer::Ok);
    open(path("none.bmp"));
    open(picture("a.bmp", patterned(QSize(57, 31))));
    QVERIFY(m_work->picDisp.Image() == patterned(QSize(57, 31)));
    QVERIFY(!m_work->picDisp.AutoSize());
}

// Scroll positions have 16 bits: what the viewport overflows by more is an overflow.
void FileOpenTest::pictureTooWideToScroll() {
    open(picture("fits.bmp", Raster(QSize(800 + 32'767, 10), White)));
    QCOMPARE(m_view->HScroll1->maximum(), 32'767);
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    m_dialogs->answer(Answer::Ok);
    open(picture("wide.bmp", Raster(QSize(800 + 32'768, 10), White)));
    QCOMPARE(m_dialogs->messages.last().text,
             QString("mnuFileOpen_Click\r\n6     ") + RuntimeError::descriptionOf(error::Overflow));
    QCOMPARE(m_work->picDisp.innerSize(), QSize(800 + 32'768, 10));
    QCOMPARE(m_fileLabel->last().at(0).toString(), path("wide.bmp"));
    QCOMPARE(m_sizeLabel->last().at(0).toString(), QString("L=33567  H=10")); // of the picture before
    QVERIFY(m_work->ImageModified);
}

void FileOpenTest::unchangedPictureIsNotAskedFor() {
    open(picture("a.bmp", patterned(QSize(57, 31))));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileOpenTest::questionIsAsked() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    open(picture("a.bmp", patterned(QSize(57, 31))));
    const MessageBox& box = m_dialogs->messages.at(0);
    QCOMPARE(box.text, QString("Enregistrer l'image?")); // no blank before the question mark
    QCOMPARE(box.title, QString("Image modifiée"));
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
    QCOMPARE(box.icon, Icon::Question);
    QCOMPARE(m_work->picDisp.innerSize(), QSize(57, 31));
    QCOMPARE(m_dialogs->saves.size(), 0);
}

void FileOpenTest::cancelledQuestionStops() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Cancel);
    m_open->mnuFileOpen_Click();
    QCOMPARE(m_dialogs->opens.size(), 0);
    QVERIFY(m_work->ImageModified);
    QCOMPARE(m_work->picDisp.innerSize(), WorkPicture::InitialSize);
}

void FileOpenTest::yesSavesFirst() {
    const QString other = picture("a.bmp", patterned(QSize(57, 31)));
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->chooseSave(path("saved.bmp"), 1);
    open(other);
    QVERIFY(LoadPicture(path("saved.bmp")) == Raster(WorkPicture::InitialSize, White));
    QCOMPARE(m_work->picDisp.innerSize(), QSize(57, 31));
    QCOMPARE(m_work->CurrentFileName, other);
}

void FileOpenTest::yesAndCancelledSaveStops() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->cancelSave();
    m_open->mnuFileOpen_Click();
    QCOMPARE(m_dialogs->opens.size(), 0);
    QVERIFY(m_work->SaveCancelled);
    QVERIFY(m_work->ImageModified);
}

void FileOpenTest::yesAndFailedSaveGoesOn() {
    const QString other = picture("a.bmp", patterned(QSize(57, 31)));
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->chooseSave(path("none/saved.bmp"), 1);
    m_dialogs->answer(Answer::Ok); // the message that tells of it
    open(other);
    QCOMPARE(m_work->picDisp.innerSize(), QSize(57, 31));
}

OVRANO_TEST(FileOpenTest)
#include "tst_fileopen.moc"
