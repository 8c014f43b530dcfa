#include "app/programwindow.h"
#include "app/topics.h"
#include "support/comparison.h"
#include "support/pictures.h"
#include "support/program.h"
#include "support/table.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace ovrano::bench {

namespace {

constexpr int Megapixels = 64;
constexpr int DragSteps = 1000;
constexpr int Stamps = 200;

/// A line of what the system knows about this process, in MB (10⁶ bytes).
double processMegabytes(const QByteArray& line) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& row : status.readAll().split('\n'))
        if (row.startsWith(line + ':'))
            return row.mid(line.size() + 1).simplified().split(' ').first().toDouble() * 1024 / 1e6;
    return 0;
}

double residentNow() {
    return processMegabytes("VmRSS");
}

void drag(ProgramWindow& program, int steps, QSize over) {
    program.grab();
    for (int i = 0; i < steps; ++i)
        program.dragTo(QPoint(i * 37 % over.width(), i * 23 % over.height()));
    program.release();
}

/// Measured once things are in their places: the first steps give the block its own pixels.
void printGrowth(ProgramWindow& program, const char* name, QSize over) {
    constexpr int FirstSteps = 50;
    drag(program, FirstSteps, over);
    std::printf("%s before %f\n", name, residentNow());
    drag(program, DragSteps, over);
    std::printf("%s after %f\n", name, residentNow());
}

void stampOften(ProgramWindow& program, int count) {
    for (int i = 0; i < count; ++i) {
        program.setText(i % 2 == 0 ? QStringLiteral("Votre texte") : QStringLiteral("Un autre"));
        program.stamp();
    }
}

/// The numbers that the measured process has printed.
double numberIn(const QString& output, const char* name) {
    for (const QString& line : output.split(u'\n'))
        if (line.startsWith(QLatin1String(name) + u' '))
            return line.mid(qsizetype(std::strlen(name))).toDouble();
    qFatal("nothing about %s: %s", name, qPrintable(output));
}

void printGrowthRow(const QString& output, const std::string& work, const std::string& name) {
    constexpr double Noise = 1.01;
    printRow(ratioRow("memory, 64 MP, after " + work, numberIn(output, (name + " after").c_str()), "before",
                      numberIn(output, (name + " before").c_str()), " MB", Noise));
}

} // namespace

void printMemory(const char* picture) {
    ProgramWindow program;
    std::printf("started %f\n", residentNow());
    program.open(QString::fromLocal8Bit(picture));
    std::printf("opened %f\n", residentNow());
    program.chooseText();
    program.setText(QStringLiteral("Votre texte"));
    program.stamp();
    if (!program.window().work().UndoAvailable || !program.window().block().HasSelection)
        qFatal("no block is lifted, or nothing can be undone");
    std::printf("lifted %f\n", residentNow());
    printGrowth(program, "visible drags", QSize(800, 500));
    printGrowth(program, "far drags", squareOf(Megapixels));
    stampOften(program, 10);
    std::printf("stamps before %f\n", residentNow());
    stampOften(program, Stamps);
    std::printf("stamps after %f\n", residentNow());
    std::printf("peak %f\n", processMegabytes("VmHWM"));
}

void memory() {
    if (!isWanted("memory"))
        return;
    const QTemporaryDir folder(memoryFolder() + QStringLiteral("/ovrano-bench-XXXXXX"));
    const QString jpeg = folder.filePath(QStringLiteral("photo.jpg"));
    photo(squareOf(Megapixels)).save(jpeg, "JPEG", 90);
    const QString output =
        outputOf(QCoreApplication::applicationFilePath(), {QLatin1String(MemoryOption), jpeg});
    const double pixels = Megapixels * 4;
    const std::string size = "the picture's 32-bit size";
    printRow(ratioRow("memory, 64 MP, picture open", numberIn(output, "opened"), size, pixels, " MB", {}));
    printRow(ratioRow("memory, 64 MP, block lifted, undo available", numberIn(output, "lifted"), size, pixels,
                      " MB", 1.4));
    printGrowthRow(output, "1,000 drag steps in the window", "visible drags");
    printGrowthRow(output, "1,000 drag steps all over the picture", "far drags");
    printGrowthRow(output, "200 stamps", "stamps");
    printRow(ratioRow("memory, 64 MP, at the end of all that", numberIn(output, "stamps after"), size, pixels,
                      " MB", 1.4));
    printRow(ratioRow("memory, 64 MP, the peak", numberIn(output, "peak"), size, pixels, " MB", {}));
}

} // namespace ovrano::bench
