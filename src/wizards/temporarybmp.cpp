#include "wizards/temporarybmp.h"

#include "document/bmpfile.h"
#include "document/files.h"
#include "document/picturereader.h"
#include "document/setaside.h"
#include "platform/paths.h"
#include "platform/runtimeerror.h"

#include <QScopeGuard>
#include <QTemporaryDir>

namespace ovrano {

namespace {

StoredPicture throughFileIn(const QString& folder, const Raster& picture) {
    const QString path = AddBackslash(folder) + QStringLiteral("Temp.bmp");
    const SetAside usersOwn(path, QString());
    const auto deleted = qScopeGuard([&] {
        if (FileExists(path))
            skipOnError([&] { deleteFile(path); });
    });
    SavePicture(picture, path, SafeFile::Purpose::Temporary);
    return {LoadPicture(path), path};
}

} // namespace

StoredPicture throughTemporaryBmp(const Raster& picture, const QString& folder) {
    try {
        return throughFileIn(folder, picture);
    } catch (const RuntimeError&) {
        const QTemporaryDir privateFolder;
        if (!privateFolder.isValid())
            throw;
        return throughFileIn(privateFolder.path(), picture);
    }
}

} // namespace ovrano
