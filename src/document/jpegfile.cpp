#include "document/jpegfile.h"

#include "document/bmprows.h"
#include "document/jpegencoder.h"

#include <QFileInfo>

namespace ovrano {

namespace {

QString besideAsJpg(const QString& path) {
    const QString extension = QFileInfo(path).suffix();
    return path.chopped(extension.size()) +
           (extension.isEmpty() ? QStringLiteral(".jpg") : QStringLiteral("jpg"));
}

} // namespace

void ConvertBMPtoJPG(const QString& bmpPath, int ratio, int /*flag*/, SafeFile::Purpose purpose) {
    BmpRows rows(bmpPath);
    SafeFile file(besideAsJpg(bmpPath), purpose);
    JpegEncoder(file).write(rows, ratio);
    file.commit();
}

} // namespace ovrano
