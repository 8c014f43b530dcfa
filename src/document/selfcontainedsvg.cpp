#include "document/selfcontainedsvg.h"

#include "document/drawingbudget.h"
#include "document/picturereader.h"
#include "platform/runtimeerror.h"

#include <QBuffer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace ovrano {

namespace {

/// Such a BMP file may leave pixels out, and who draws it would show what the memory held there.
bool isRunLengthBmp(const QByteArray& content) {
    constexpr int CompressionAt = 30;
    const QByteArray compression = content.mid(CompressionAt, 1);
    return content.startsWith("BM") && (compression == "\1" || compression == "\2"); // of bytes, of half ones
}

QString embeddedPng(const Raster& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!picture.toImage().save(&buffer, "PNG"))
        throw RuntimeError(error::OutOfMemory);
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(buffer.data().toBase64());
}

/// The references of one vector picture: which of them may stay.
class References {
public:
    /// What is to be written in place of a reference; empty when it has to go. Without blanks around it, so
    /// that who draws finds the name "n" behind "#n" as it was counted.
    QString kept(const QString& written) {
        QString reference = written.trimmed();
        if (reference.startsWith(QLatin1Char('#')))
            return reference;
        return reference.startsWith(QStringLiteral("data:")) ? keptPicture(reference) : QString();
    }

private:
    /// "data:image/png;base64,…": what stands behind the last mark is what is decoded when it is drawn.
    QString keptPicture(const QString& reference) {
        const QString mark = QStringLiteral("base64,");
        const qsizetype at = reference.lastIndexOf(mark);
        if (at < 0)
            return QString();
        const QByteArray content = QByteArray::fromBase64(reference.mid(at + mark.size()).toLatin1());
        const QSize size = announcedPictureSize(content);
        const qint64 pixels = qint64{size.width()} * size.height();
        if (size.isEmpty() || pixels > m_pixelsLeft)
            return QString();
        m_pixelsLeft -= pixels;
        QString kept;
        skipOnError([&] {
            const Raster picture = decodePicture(content);
            kept = isRunLengthBmp(content) ? embeddedPng(picture) : reference;
        });
        return kept;
    }

    qint64 m_pixelsLeft = MostEmbeddedPixels;
};

bool isReference(const QXmlStreamAttribute& attribute) {
    return attribute.name() == QStringLiteral("href");
}

/// Names keep their prefixes as they are written: those who draw look for "xlink:href" literally.
void copyStart(const QXmlStreamReader& from, QXmlStreamWriter& to, References& references) {
    to.writeStartElement(from.qualifiedName().toString());
    for (const QXmlStreamNamespaceDeclaration& space : from.namespaceDeclarations()) {
        const QString prefix = space.prefix().toString();
        to.writeAttribute(prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix,
                          space.namespaceUri().toString());
    }
    for (const QXmlStreamAttribute& attribute : from.attributes()) {
        QString value = attribute.value().toString();
        if (isReference(attribute))
            value = references.kept(value);
        if (!isReference(attribute) || !value.isEmpty())
            to.writeAttribute(attribute.qualifiedName().toString(), value);
    }
}

/// All names of an element: "id" and "xml:id" both count when it is drawn.
QStringList namesOf(const QXmlStreamReader& from) {
    QStringList names;
    for (const QXmlStreamAttribute& attribute : from.attributes())
        if (attribute.name() == QStringLiteral("id"))
            names.append(attribute.value().toString());
    return names;
}

/// The elements that a <use> may draw once more, "href" and "xlink:href"; none for every other element.
QStringList reusedBy(const QXmlStreamReader& from) {
    QStringList reused;
    if (from.name() == QStringLiteral("use"))
        for (const QXmlStreamAttribute& attribute : from.attributes())
            if (isReference(attribute))
                reused.append(attribute.value().toString().trimmed().mid(1));
    return reused;
}

} // namespace

SelfContainedSvg selfContainedSvg(const QByteArray& svg, EventYield& yield) {
    QByteArray copy;
    QXmlStreamReader from(svg);
    QXmlStreamWriter to(&copy);
    DrawingBudget budget;
    References references;
    while (!from.atEnd()) {
        from.readNext();
        if (from.isStartElement()) {
            yield();
            budget.enter(namesOf(from), reusedBy(from));
            copyStart(from, to, references);
        } else if (from.isEndElement()) {
            budget.leave();
            to.writeEndElement();
        } else if (from.isCharacters()) {
            to.writeCharacters(from.text().toString());
        }
    }
    if (from.hasError())
        throw RuntimeError(error::InvalidPicture);
    return {copy, budget.drawnElements()};
}

} // namespace ovrano
