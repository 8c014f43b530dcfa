#pragma once

#include "document/filesave.h"
#include "document/filetools.h"
#include "support/answeringdialogs.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace ovrano {

/// Rows of the save dialog's type list.
enum SaveRow { Bmp = 1, Jpeg100, Jpeg80, Jpeg50, JpegCustom, Gif };

/// What tests of saving stand on: a work picture of 120 × 90 pixels, a folder of their own, a user who
/// answers.
class SaveTest : public QObject {
protected:
    void setUp() {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        m_dialogs = std::make_unique<AnsweringDialogs>();
        m_work = std::make_unique<WorkPicture>(*m_dialogs);
        m_work->picDisp.setAutoSize(true);
        m_work->picDisp.setPicture(gradient(QSize(120, 90)));
        m_save = std::make_unique<FileSave>(*m_work, *m_dialogs);
        m_label = std::make_unique<QSignalSpy>(m_work.get(), &WorkPicture::fileNameShown);
    }
    void tearDown() {
        m_label.reset();
        m_save.reset();
        m_work.reset();
        m_dialogs.reset(); // tells of answers that nobody asked for while the test can still fail
    }

    /// One way to save in each format.
    static void everyFormat() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("name");
        QTest::newRow("BMP") << int{Bmp} << "a.bmp";
        QTest::newRow("JPEG") << int{Jpeg80} << "a.jpg";
        QTest::newRow("GIF") << int{Gif} << "a.gif";
    }

    QString path(const QString& name) const { return m_dir->filePath(name); }
    QStringList names() const { return namesIn(m_dir->path()); }
    void save(const QString& name, int row) {
        m_dialogs->chooseSave(path(name), row);
        m_save->mnuFileSave_Click();
    }
    void saveAtTypedRatio(const QString& name, const QString& ratio) {
        m_dialogs->type(ratio);
        save(name, JpegCustom);
    }
    /// The number in the one error message that came up; negative when it is not that one message.
    int reported() const {
        if (m_dialogs->messages.size() != 1)
            return -1;
        const QStringList lines = m_dialogs->messages.at(0).text.split("\r\n");
        const bool right = lines.at(0) == "Erreur lors de l'enregistrement du fichier !";
        return right ? lines.at(1).section(' ', 0, 0).toInt() : -2;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<WorkPicture> m_work;
    std::unique_ptr<FileSave> m_save;
    std::unique_ptr<QSignalSpy> m_label;
};

} // namespace ovrano
