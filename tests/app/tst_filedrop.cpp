#include "app/mainwindow.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

/// Files and texts that are dropped on the window.
class TestFileDrop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void droppedPictureIsOpened_data();
    void droppedPictureIsOpened();
    void changesAreAskedFor();
    void severalFilesAreRefused();
    void noPictureIsReported();
    void textStaysTheFields();

private:
    /// Whether it was taken.
    bool drop(QMimeData& data, const char* target = nullptr) {
        QWidget* on = target ? m_window->findChild<QWidget*>(QLatin1String(target)) : m_window.get();
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(on, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(on, &event);
        QCoreApplication::processEvents();
        return event.isAccepted();
    }
    QString picture() {
        const QString path = m_folder.filePath(QStringLiteral("photo.png"));
        QImage image(70, 50, QImage::Format_RGB32);
        image.fill(Qt::green);
        if (!image.save(path))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    QTemporaryDir m_folder;
    AnsweringDialogs m_dialogs;
    std::unique_ptr<MainWindow> m_window;
};

void TestFileDrop::init() {
    m_dialogs.messages.clear();
    m_window = std::make_unique<MainWindow>(m_dialogs);
    m_window->show();
}

void TestFileDrop::droppedPictureIsOpened_data() {
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("window") << QByteArray();
    QTest::newRow("text field") << QByteArray("txbWriteText");
}

void TestFileDrop::droppedPictureIsOpened() {
    QFETCH(QByteArray, target);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(picture())});
    QVERIFY(drop(data, target.isEmpty() ? nullptr : target.constData()));
    QCOMPARE(m_window->work().picDisp.innerSize(), QSize(70, 50));
    QCOMPARE(m_window->findChild<QLabel*>(QStringLiteral("lblFileSpec"))->text(), picture());
    QCOMPARE(m_window->findChild<QLineEdit*>(QStringLiteral("txbWriteText"))->text(), QString("Votre texte"));
}

void TestFileDrop::changesAreAskedFor() {
    m_window->work().ImageModified = true;
    m_dialogs.answer(Answer::Cancel);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(picture())});
    QVERIFY(drop(data));
    QCOMPARE(m_dialogs.messages.first().text, QString("Enregistrer l'image?"));
    QCOMPARE(m_window->work().picDisp.innerSize(), WorkPicture::InitialSize);
}

void TestFileDrop::severalFilesAreRefused() {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(picture()), QUrl::fromLocalFile(picture())});
    QVERIFY(!drop(data));
    data.setUrls({QUrl(QStringLiteral("https://example.org/photo.png"))});
    QVERIFY(!drop(data));
}

void TestFileDrop::noPictureIsReported() {
    m_dialogs.answer(Answer::Ok);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("missing.png")))});
    QVERIFY(drop(data));
    QVERIFY(m_dialogs.messages.first().text.startsWith(QStringLiteral("mnuFileOpen_Click\r\n53 ")));
    QCOMPARE(m_window->work().picDisp.innerSize(), WorkPicture::InitialSize);
}

void TestFileDrop::textStaysTheFields() {
    QMimeData data;
    data.setText(QStringLiteral("mot"));
    QVERIFY(!drop(data));
    QVERIFY(drop(data, "txbWriteText"));
    QVERIFY(m_window->findChild<QLineEdit*>(QStringLiteral("txbWriteText"))->text().contains("mot"));
}

OVRANO_TEST(TestFileDrop)
#include "tst_filedrop.moc"
