// Writes the odd files into a folder, for a fuzzer to start from: hostile_seeds FOLDER

#include "document/filetools.h"
#include "variant.h"

#include <QCoreApplication>
#include <QCryptographicHash>

using namespace ovrano;

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    if (count != 2)
        qFatal("usage: hostile_seeds FOLDER");
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    for (const hostile::Variant& variant : hostile::allVariants()) {
        const QByteArray name = QCryptographicHash::hash(variant.content, QCryptographicHash::Sha1).toHex();
        put(folder.filePath(QString::fromLatin1(name)), variant.content);
    }
    return 0;
}
