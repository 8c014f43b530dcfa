#include "editing/pastequestion.h"

#include <QStringList>

namespace ovrano {

namespace {

QString sizeLine(const QString& what, QSize size) {
    return QStringLiteral("%1 L=%2 H=%3").arg(what).arg(size.width()).arg(size.height());
}

} // namespace

PasteQuestion PasteQuestion::aboutClipboard() {
    return {QStringLiteral("Image"), QStringLiteral("Colle image"),
            QStringLiteral("Largeur/Hauteur de l'image à coller est plus large ")};
}

PasteQuestion PasteQuestion::aboutFile() {
    return {QStringLiteral("Image en cours"), QStringLiteral("Coller image"),
            QStringLiteral("Largeur/Hauteur de l'image dans le presse papier est plus grande")};
}

QString PasteQuestion::text(QSize workSize, QSize pastedSize) const {
    const QStringList lines = {sizeLine(work, workSize), sizeLine(pasted, pastedSize),
                               reason + QStringLiteral(" que la taille du support. "),
                               QStringLiteral("Agrandir la Largeur/Hauteur de l'image en cours ?")};
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace ovrano
