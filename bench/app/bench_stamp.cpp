#include "app/programwindow.h"
#include "app/topics.h"
#include "support/comparison.h"
#include "support/pictures.h"
#include "support/program.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>

namespace ovrano::bench {

namespace {

constexpr double Frame = 16; // milliseconds
constexpr int Layers = 61;   // that depth 4 comes to
constexpr int TwipsPerPixel = 15;
const QString Text = QStringLiteral("Votre texte");

/// The text in its layers, without a turn and without a photograph: less than what we do.
QStringList converterScript() {
    QStringList arguments = {
        QStringLiteral("-size"),   QStringLiteral("720x170"),         QStringLiteral("xc:white"),
        QStringLiteral("-family"), QStringLiteral("Liberation Sans"), QStringLiteral("-pointsize"),
        QStringLiteral("96")}; // 72 points on a screen
    for (int layer = 0; layer < Layers; ++layer)
        arguments << QStringLiteral("-fill")
                  << QStringLiteral("rgb(%1,%2,%3)").arg(layer).arg(64 + layer).arg(128 + layer)
                  << QStringLiteral("-annotate")
                  << QStringLiteral("+%1+%2").arg(layer / TwipsPerPixel).arg(layer / TwipsPerPixel + 120)
                  << Text;
    return arguments;
}

/// The same, turned and laid over a photograph, which has to be read for that.
QStringList wholeConverterScript(const QString& photograph) {
    return QStringList({photograph, QStringLiteral("(")}) + converterScript() +
           QStringList({QStringLiteral("-transparent"), QStringLiteral("white"),
                        QStringLiteral("-background"), QStringLiteral("none"), QStringLiteral("-rotate"),
                        QStringLiteral("-30"), QStringLiteral(")"), QStringLiteral("-composite"),
                        QStringLiteral("null:")});
}

void addConverter(Comparison& ways, const QString& photograph) {
    const QString converter = imageConverter();
    if (converter.isEmpty()) {
        ways.without("ImageMagick", "which is not installed");
        return;
    }
    ways.against("ImageMagick, the layers alone",
                 processWay(converter, converterScript() << QStringLiteral("null:")), 1.0 / 20, 7);
    ways.against("ImageMagick, all of it, with reading the photo",
                 processWay(converter, wholeConverterScript(photograph)), {}, 7);
}

/// The same layers; the editor tells itself how long they took, so that its start does not count.
QString editorScript() {
    return QStringLiteral(
               "(let* ((image (car (gimp-image-new 720 170 RGB)))"
               " (page (car (gimp-layer-new image 720 170 RGB-IMAGE \"page\" 100 LAYER-MODE-NORMAL)))"
               " (layer 0) (start (gettimeofday)) (end 0))"
               " (gimp-image-insert-layer image page 0 0)"
               " (gimp-drawable-fill page FILL-WHITE)"
               " (while (< layer %1)"
               " (gimp-context-set-foreground (list layer (+ 64 layer) (+ 128 layer)))"
               " (gimp-floating-sel-anchor (car (gimp-text-fontname image page (quotient layer %2)"
               " (quotient layer %2) \"%3\" 0 FALSE 96 PIXELS \"Liberation Sans\")))"
               " (set! layer (+ layer 1)))"
               " (set! end (gettimeofday))"
               " (gimp-message (string-append \"elapsed=\""
               " (number->string (+ (* 1000000 (- (car end) (car start))) (- (cadr end) (cadr start)))))))")
        .arg(Layers)
        .arg(TwipsPerPixel)
        .arg(Text);
}

double secondsInEditor(const QString& editor) {
    const QString output =
        outputOf(editor, {QStringLiteral("-i"), QStringLiteral("-d"), QStringLiteral("-b"), editorScript(),
                          QStringLiteral("-b"), QStringLiteral("(gimp-quit 0)")});
    const auto found = QRegularExpression(QStringLiteral("elapsed=([0-9.]+)")).match(output);
    if (!found.hasMatch())
        qFatal("the editor does not tell its time: %s", qPrintable(output));
    return found.captured(1).toDouble() / 1e6;
}

void addEditor(Comparison& ways) {
    if (const QString editor = installedOf({QStringLiteral("gimp")}); editor.isEmpty())
        ways.without("GIMP", "which is not installed");
    else
        ways.against(
            "GIMP in batch, the layers alone", [=] { return secondsInEditor(editor); }, 1.0 / 60,
            Comparison::Few);
}

} // namespace

void stamping() {
    compare("the whole stamp on 12 MP, button to visible block", [](Comparison& ways) {
        const auto program = std::make_shared<ProgramWindow>();
        const QImage picture = photo(TwelveMegapixels);
        const auto folder =
            std::make_shared<QTemporaryDir>(memoryFolder() + QStringLiteral("/ovrano-bench-XXXXXX"));
        const QString photograph = folder->filePath(QStringLiteral("photo.bmp"));
        picture.save(photograph);
        program->setPicture(picture);
        program->chooseText();
        const auto anotherText = [=] {
            program->setText(QStringLiteral("Autre")); // so that nothing of the last stamp can be used again
            program->stamp();
            program->setText(Text);
        };
        ways.ours(timed(anotherText, [program, folder] { program->stamp(); })).within(Frame);
        addConverter(ways, photograph);
        addEditor(ways);
    });
}

} // namespace ovrano::bench
