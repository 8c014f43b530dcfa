#include "drawing.h"

#include "bodies.h"
#include "document/drawingbudget.h"
#include "document/picturereader.h"
#include "document/selfcontainedsvg.h"
#include "document/vectorpicture.h"
#include "feedback.h"
#include "finding.h"

#include <QSvgRenderer>
#include <QXmlStreamReader>

namespace ovrano::fuzz {

namespace {

/// Every reference of every element stays within the picture.
void requireNothingFromOutside(const QByteArray& svg) {
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        reader.readNext();
        require(!reader.isProcessingInstruction() && !reader.isDTD(), "instructions to who draws it remain");
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            if (attribute.name() == QStringLiteral("href"))
                require(attribute.value().startsWith(QLatin1Char('#')) ||
                            attribute.value().startsWith(QStringLiteral("data:")),
                        "a reference leads out of the picture");
    }
    require(!reader.hasError(), "what is drawn is not well-formed");
}

} // namespace

bool isLargeDrawing(const QByteArray& svg) {
    constexpr qint64 MostElementPixels = 20'000'000;
    try {
        EventYield yield;
        const SelfContainedSvg drawing = selfContainedSvg(svg, yield);
        const QSize size = QSvgRenderer(drawing.svg).defaultSize();
        requireAcceptable(size);
        return qMax<qint64>(drawing.drawnElements, 10) * DrawingBudget::costOf(size) > MostElementPixels;
    } catch (const RuntimeError&) {
        return false; // is refused at once
    }
}

void drawVector(const QByteArray& svg) {
    if (isLargeDrawing(svg))
        return;
    const Reading once = reading([&] { return renderVectorPicture(svg); });
    require(once == reading([&] { return renderVectorPicture(svg); }), "drawn otherwise the second time");
    require(!once.picture || !once.picture->isEmpty(), "an empty picture");
}

void makeSelfContained(const QByteArray& svg) {
    EventYield yield;
    SelfContainedSvg once;
    if (reading([&] {
            once = selfContainedSvg(svg, yield);
            return Raster();
        }).refusedWith != 0)
        return;
    requireNothingFromOutside(once.svg);
    const SelfContainedSvg again = selfContainedSvg(once.svg, yield);
    // References that led outside count the first time.
    require(again.drawnElements <= once.drawnElements, "a greater count the second time");
    note(static_cast<quint64>(once.drawnElements));
}

} // namespace ovrano::fuzz
