#include "document/filetools.h"
#include "document/picturereader.h"
#include "support/testprogram.h"
#include "variant.h"

using namespace ovrano;
using namespace ovrano::hostile;

namespace {

/// How many steps a channel of two colours differs at most.
int difference(Colour a, Colour b) {
    return qMax(qAbs(redOf(a) - redOf(b)), qMax(qAbs(greenOf(a) - greenOf(b)), qAbs(blueOf(a) - blueOf(b))));
}

/// Where two pictures differ most, in words; nothing when they do not by more than the tolerance.
QByteArray differenceOf(const Raster& is, const Raster& expected, int tolerance) {
    if (is.size() != expected.size())
        return QByteArray::number(is.width()) + " x " + QByteArray::number(is.height());
    QByteArray worst;
    for (int y = 0; y < is.height(); ++y)
        for (int x = 0; x < is.width(); ++x)
            if (const int steps = difference(is.pixel(x, y), expected.pixel(x, y)); steps > tolerance) {
                tolerance = steps;
                worst = QStringLiteral("at %1, %2: %3 instead of %4")
                            .arg(x)
                            .arg(y)
                            .arg(is.pixel(x, y), 8, 16)
                            .arg(expected.pixel(x, y), 8, 16)
                            .toLatin1();
            }
    return worst;
}

/// What opening gives; an empty picture when it is refused.
Raster opened(const QByteArray& content) {
    try {
        return decodePicture(content);
    } catch (const RuntimeError&) {
        return Raster();
    }
}

} // namespace

/// Files that other programs write: each opens right or is refused.
class VariantsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensRight_data();
    void opensRight();
    void cutAnywhereItIsRefused_data() { opensRight_data(); }
    void cutAnywhereItIsRefused();
};

void VariantsTest::opensRight_data() {
    QTest::addColumn<Variant>("variant");
    for (const Variant& variant : allVariants())
        QTest::newRow(variant.name.constData()) << variant;
}

void VariantsTest::opensRight() {
    QFETCH(Variant, variant);
    if (variant.expected.isEmpty()) {
        const int number = errorOf([&] { decodePicture(variant.content); });
        QVERIFY2(number == error::InvalidPicture || number == error::OutOfMemory,
                 number == 0 ? "is opened" : "another error");
        return;
    }
    Raster picture;
    QCOMPARE(errorOf([&] { picture = decodePicture(variant.content); }), 0);
    const QByteArray difference = differenceOf(picture, variant.expected, variant.tolerance);
    QVERIFY2(difference.isEmpty(), difference.constData());
}

// Whatever is missing at the end: never half a picture. Bytes that nobody needs may be missing.
void VariantsTest::cutAnywhereItIsRefused() {
    QFETCH(Variant, variant);
    if (variant.expected.isEmpty())
        return;
    const Raster whole = opened(variant.content);
    const qsizetype step = 1 + variant.content.size() / 300;
    for (qsizetype length = 0; length < variant.content.size(); length += step) {
        const Raster cut = opened(variant.content.left(length));
        QVERIFY2(cut.isEmpty() || cut == whole,
                 qPrintable(QStringLiteral("%1 bytes of %2").arg(length).arg(variant.content.size())));
    }
}

OVRANO_TEST(VariantsTest)
#include "tst_variants.moc"
