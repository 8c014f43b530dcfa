#pragma once

#include "document/filesave.h"
#include "document/filetools.h"
#include "failing/watchedfolder.h"
#include "model/scripteddialogs.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace ovrano::failing {

/// A way to save: the row of the save dialog's type list, and a name.
struct Format {
    int row = 0;
    QString name;
};

/// One for each of the three files that are written: BMP; JPEG with two temporary files; GIF with one.
inline const std::vector<Format>& formats() {
    static const std::vector<Format> all{{1, "a.bmp"}, {2, "a.jpg"}, {6, "a.gif"}};
    return all;
}

inline void everyFormat() {
    QTest::addColumn<Format>("format");
    for (const Format& format : formats())
        QTest::newRow(qPrintable(format.name)) << format;
}

/// A user saves a picture through the program's own dialog into a folder, where an old picture may stand
/// under the name, and files of his own under the names of the temporary ones.
class Saving {
public:
    static QByteArray oldPicture() { return QByteArray(5000, 'o'); }
    static QByteArray usersBmp() { return QByteArrayLiteral("the user's own BMP"); }
    static QByteArray usersJpg() { return QByteArrayLiteral("the user's own JPEG"); }

    explicit Saving(Format format, QSize size = QSize(32, 24))
        : m_format(std::move(format))
        , m_work(m_dialogs)
        , m_save(m_work, m_dialogs) {
        m_work.picDisp.setAutoSize(true);
        m_work.picDisp.setPicture(patterned(size));
        save();
        m_whole = contentOf(target());
        if (m_whole.isEmpty())
            qFatal("nothing has been saved");
        empty();
    }

    /// In memory where there is such a disk: saving waits for the disk.
    static QString newFolder() {
        const QString memory = QStringLiteral("/dev/shm");
        const QString place = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
        return place + QStringLiteral("/ovrano-failing-XXXXXX");
    }

    void prepare() {
        empty();
        put(target(), oldPicture());
        put(path("Temp.bmp"), usersBmp());
        put(path("Temp.jpg"), usersJpg());
    }
    void empty() { m_folder = std::make_unique<QTemporaryDir>(newFolder()); }

    /// What the user is told; empty when it came through.
    QString save() { return saveAs(m_format.name); }
    QString saveAs(const QString& name) {
        m_dialogs.messages.clear();
        m_dialogs.savePath = path(name);
        m_dialogs.saveRow = m_format.row;
        m_save.mnuFileSave_Click();
        return m_dialogs.messages.join(QLatin1Char('|'));
    }

    QString folder() const { return m_folder->path(); }
    QString path(const QString& name) const { return folder() + QLatin1Char('/') + name; }
    QString target() const { return path(m_format.name); }
    /// What an undisturbed save writes.
    const QByteArray& whole() const { return m_whole; }

    /// The calls of a save that nothing disturbs.
    std::vector<Step> steps() {
        const WatchedFolder watched(folder().toStdString());
        save();
        return watched.steps();
    }

    /// What is against the promises about files that were there before, one line each.
    QString brokenPromises(bool toldOfFailure) const {
        QString broken;
        const QByteArray content = contentOf(target());
        if (content != m_whole && content != oldPicture())
            broken += QStringLiteral("%1 is neither old nor new; ").arg(m_format.name);
        if (content != m_whole && !toldOfFailure)
            broken += QStringLiteral("nothing new and nothing told; ");
        if (!isKept("Temp.bmp", "Temp (1).bmp", usersBmp()) ||
            !isKept("Temp.jpg", "Temp (1).jpg", usersJpg()))
            broken += QStringLiteral("the user's own file has gone; ");
        return broken;
    }
    /// Names beyond those of prepare().
    QStringList strangers() const {
        QStringList names = namesIn(folder());
        for (const QString& expected : {m_format.name, QString("Temp.bmp"), QString("Temp.jpg")})
            names.removeAll(expected);
        return names;
    }

private:
    bool isKept(const QString& name, const QString& other, const QByteArray& content) const {
        return contentOf(path(name)) == content || contentOf(path(other)) == content;
    }

    const Format m_format;
    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>(newFolder());
    model::ScriptedDialogs m_dialogs;
    WorkPicture m_work;
    FileSave m_save;
    QByteArray m_whole;
};

/// The number in a message of a failed save; negative when it is no such message, or its text is not that of
/// the number.
inline int toldNumber(const QString& message) {
    const QStringList lines = message.split("\r\n");
    if (lines.size() != 2 || lines.at(0) != "Erreur lors de l'enregistrement du fichier !")
        return -1;
    const int number = lines.at(1).section(' ', 0, 0).toInt();
    const QString text = QString::number(number) + QString(5, ' ') + RuntimeError::descriptionOf(number);
    return lines.at(1) == text ? number : -2;
}

inline qsizetype openDescriptors() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size();
}

} // namespace ovrano::failing

Q_DECLARE_METATYPE(ovrano::failing::Format)
