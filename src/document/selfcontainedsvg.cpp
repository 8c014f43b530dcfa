#include "document/selfcontainedsvg.h"

#include "document/drawingbudget.h"
#include "document/picturereader.h"
#include "platform/runtimeerror.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace ovrano {

namespace {

/// "data:image/png;base64,…" of a picture that can be drawn. What stands behind the last mark is what is
/// decoded when it is drawn.
bool isEmbeddedPicture(const QString& reference) {
    const QString mark = QStringLiteral("base64,");
    const qsizetype at = reference.lastIndexOf(mark);
    return reference.startsWith(QStringLiteral("data:")) && at >= 0 &&
           isPlausiblePicture(QByteArray::fromBase64(reference.mid(at + mark.size()).toLatin1()));
}

bool isReference(const QXmlStreamAttribute& attribute) {
    return attribute.name() == QStringLiteral("href");
}

bool staysInside(const QString& reference) {
    return reference.startsWith(QLatin1Char('#')) || isEmbeddedPicture(reference);
}

/// Names keep their prefixes as they are written: those who draw look for "xlink:href" literally.
void copyStart(const QXmlStreamReader& from, QXmlStreamWriter& to) {
    to.writeStartElement(from.qualifiedName().toString());
    for (const QXmlStreamNamespaceDeclaration& space : from.namespaceDeclarations()) {
        const QString prefix = space.prefix().toString();
        to.writeAttribute(prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix,
                          space.namespaceUri().toString());
    }
    for (const QXmlStreamAttribute& attribute : from.attributes())
        if (!isReference(attribute) || staysInside(attribute.value().toString().trimmed()))
            to.writeAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
}

/// The element that a <use> draws once more; empty for every other element.
QString reusedBy(const QXmlStreamReader& from) {
    if (from.name() == QStringLiteral("use"))
        for (const QXmlStreamAttribute& attribute : from.attributes())
            if (isReference(attribute))
                return attribute.value().toString().trimmed().mid(1);
    return QString();
}

} // namespace

QByteArray selfContainedSvg(const QByteArray& svg) {
    QByteArray copy;
    QXmlStreamReader from(svg);
    QXmlStreamWriter to(&copy);
    DrawingBudget budget;
    while (!from.atEnd()) {
        from.readNext();
        if (from.isStartElement()) {
            budget.enter(from.attributes().value(QStringLiteral("id")).toString(), reusedBy(from));
            copyStart(from, to);
        } else if (from.isEndElement()) {
            budget.leave();
            to.writeEndElement();
        } else if (from.isCharacters()) {
            to.writeCharacters(from.text().toString());
        }
    }
    if (from.hasError() || !budget.isKept())
        throw RuntimeError(error::InvalidPicture);
    return copy;
}

} // namespace ovrano
