#include "bodies.h"
#include "document/filetools.h"
#include "support/processortime.h"
#include "support/testprogram.h"
#include "unsetmemory.h"

using namespace ovrano;

/// The files that the fuzzers have found worth keeping, every one that once did harm among them.
class CorporaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { fuzz::prepareBodies(); }

    void unsetMemoryIsFilled();
    void keptFiles_data();
    void keptFiles();
};

// Without this the bodies could not tell what a decoder leaves as it was.
void CorporaTest::unsetMemoryIsFilled() {
    constexpr std::size_t Bytes = 5000;
    for (const unsigned char byte : {uchar{0xA5}, uchar{0x11}}) {
        const fuzz::UnsetMemory unset(byte);
        const QByteArray memory(Bytes, Qt::Uninitialized);
        QVERIFY(memory.count(static_cast<char>(byte)) > 4900);
    }
}

void CorporaTest::keptFiles_data() {
    QTest::addColumn<int>("body");
    for (int body = 0; body < static_cast<int>(fuzz::bodies().size()); ++body)
        QTest::newRow(fuzz::bodies().at(static_cast<std::size_t>(body)).name) << body;
}

void CorporaTest::keptFiles() {
    constexpr double Longest = 5000; // ms
    QFETCH(int, body);
    const fuzz::Body& one = fuzz::bodies().at(static_cast<std::size_t>(body));
    const QDir folder(QStringLiteral(OVRANO_CORPUS) + QLatin1Char('/') + QLatin1String(one.name));
    const QStringList names = folder.entryList(QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString& name : names) {
        const testing::ProcessorTime time;
        try {
            one.run(contentOf(folder.filePath(name)));
        } catch (const std::exception& found) {
            QFAIL(qPrintable(name + QStringLiteral(": ") + QString::fromUtf8(found.what())));
        }
        QVERIFY2(time.milliseconds() < Longest, qPrintable(name));
    }
}

OVRANO_TEST(CorporaTest)
#include "tst_corpora.moc"
