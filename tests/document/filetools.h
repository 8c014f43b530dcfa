#pragma once

#include "platform/raster.h"
#include "platform/runtimeerror.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ovrano {

/// The number of the run-time error that an action throws, 0 when it comes through.
template<typename Action>
int errorOf(Action&& action) {
    try {
        action();
        return 0;
    } catch (const RuntimeError& caught) {
        return caught.number();
    }
}

inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QString put(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

/// What a file of this picture in one of Qt's formats holds.
inline QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        qFatal("cannot encode %s", format);
    return buffer.data();
}

inline QByteArray encoded(const Raster& picture, const char* format) {
    return encoded(picture.toImage(), format);
}

/// The names in a folder, hidden ones too.
inline QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

/// A picture in which neighbours differ in every channel and no two rows are alike.
inline Raster patterned(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb((x * 7 + y) & 255, (y * 5 + x / 3) & 255, (x * y + 31) & 255));
    return Raster::fromImage(image);
}

/// Smooth enough for a JPEG to keep it.
inline Raster gradient(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 255 / size.width(), y * 255 / size.height(), 128));
    return Raster::fromImage(image);
}

/// The system's administrator may do everything: while this lives the tests are nobody in particular.
class Unprivileged {
public:
    Unprivileged() {
        constexpr uid_t Nobody = 65534;
        if (m_root && setresuid(Nobody, Nobody, 0) != 0)
            qFatal("cannot give up privileges");
    }
    Q_DISABLE_COPY_MOVE(Unprivileged)
    ~Unprivileged() {
        if (m_root && setresuid(0, 0, 0) != 0)
            qFatal("cannot take privileges back");
    }

private:
    const bool m_root = getuid() == 0;
};

/// A disk on which no file can grow beyond a size.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*const m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
    rlimit m_before = {};
};

/// Opens a folder of a test to everybody, or to nobody's writing.
inline void allow(const QString& path, mode_t mode) {
    if (chmod(qPrintable(path), mode) != 0)
        qFatal("cannot change the mode of %s", qPrintable(path));
}

} // namespace ovrano
