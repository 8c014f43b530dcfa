#include "document/filetools.h"
#include "document/vectorpicture.h"
#include "failing/watchedfolder.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>

using namespace ovrano;
using namespace ovrano::failing;

/// A vector picture can name files, addresses and programs. None of them is touched when it is drawn.
class NothingOutsideTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void touchesAreSeen();
    void nothingIsTouched_data();
    void nothingIsTouched();

private:
    QString secret() const { return m_folder->filePath(QStringLiteral("secret.png")); }
    QStringList touched(const QByteArray& svg) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// What happened to files of a folder, and all that would have left the program.
QStringList described(const std::vector<Step>& steps, const QString& folder) {
    QStringList touched;
    for (const Step& step : steps) {
        const QString path = QString::fromStdString(step.path);
        if (step.call == Call::Outside || path.startsWith(folder))
            touched.append(path);
    }
    return touched;
}

} // namespace

void NothingOutsideTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    put(secret(), encoded(Raster(QSize(8, 8), Black), "PNG"));
}

QStringList NothingOutsideTest::touched(const QByteArray& svg) const {
    const WatchedFolder everything("/");
    try {
        renderVectorPicture(svg);
    } catch (const RuntimeError&) { // refused: all the better
    }
    return described(everything.steps(), m_folder->path());
}

/// Without this what follows would prove nothing.
void NothingOutsideTest::touchesAreSeen() {
    const WatchedFolder everything("/");
    QVERIFY(!QImage(secret()).isNull());
    QVERIFY(described(everything.steps(), m_folder->path()).contains(secret()));
    QCOMPARE(socket(AF_INET, SOCK_STREAM, 0), -1);
    QCOMPARE(fork(), -1);
    const QStringList outside = described(everything.steps(), m_folder->path());
    QVERIFY(outside.contains("socket") && outside.contains("fork"));
}

void NothingOutsideTest::nothingIsTouched_data() {
    QTest::addColumn<QString>("elements"); // with %1 for the address
    QTest::newRow("image") << R"svg(<image width="8" height="8" xlink:href="%1"/>)svg";
    QTest::newRow("image, plain name") << R"svg(<image width="8" height="8" href="%1"/>)svg";
    QTest::newRow("use") << R"svg(<use xlink:href="%1#a"/>)svg";
    QTest::newRow("filter")
        << R"svg(<filter id="f"><feImage href="%1"/></filter><rect width="9" height="9" filter="url(#f)"/>)svg";
    QTest::newRow("fill") << R"svg(<rect width="9" height="9" fill="url(%1#a)"/>)svg";
    QTest::newRow("style")
        << R"svg(<style>@import url("%1"); rect { fill: url(%1) }</style><rect width="9" height="9"/>)svg";
    QTest::newRow("style attribute")
        << R"svg(<rect width="9" height="9" style="fill:url('%1');background:url(%1)"/>)svg";
    QTest::newRow("font")
        << R"svg(<font-face font-family="f"><font-face-src><font-face-uri xlink:href="%1"/></font-face-src></font-face><text y="9" font-family="f">a</text>)svg";
    QTest::newRow("typeface")
        << R"svg(<style>@font-face { font-family: f; src: url(%1) }</style><text y="9" font-family="f">a</text>)svg";
    QTest::newRow("script") << R"svg(<script xlink:href="%1">system("id")</script>)svg";
    QTest::newRow("foreign object")
        << R"svg(<foreignObject width="9" height="9"><iframe xmlns="http://www.w3.org/1999/xhtml" src="%1"/></foreignObject>)svg";
    QTest::newRow("inclusion")
        << R"svg(<xi:include xmlns:xi="http://www.w3.org/2001/XInclude" href="%1" parse="text"/>)svg";
    QTest::newRow("animation")
        << R"svg(<image width="8" height="8"><set attributeName="href" to="%1"/></image>)svg";
    QTest::newRow("link") << R"svg(<a xlink:href="%1"><rect width="9" height="9"/></a>)svg";
    QTest::newRow("video")
        << R"svg(<video width="8" height="8" xlink:href="%1"/><audio xlink:href="%1"/>)svg";
}

void NothingOutsideTest::nothingIsTouched() {
    QFETCH(QString, elements);
    const QStringList addresses{secret(),
                                "file://" + secret(),
                                "secret.png",
                                "http://127.0.0.1:9/secret.png",
                                "ftp://127.0.0.1/secret.png",
                                "//127.0.0.1/secret.png",
                                "|id"};
    const QString frame =
        R"(%2<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
        R"(width="20" height="20">%3</svg>)";
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_folder->path());
    for (const QString& address : addresses) {
        const QString sheet = QString(R"(<?xml-stylesheet href="%1" type="text/css"?>)").arg(address);
        const QString entity = QString(R"(<!DOCTYPE svg [<!ENTITY e SYSTEM "%1">]>)").arg(address);
        const QString drawn = QString(elements).replace("%1", address);
        QCOMPARE(touched(QString(frame).replace("%2", sheet).replace("%3", drawn).toUtf8()), QStringList());
        QCOMPARE(touched(QString(frame)
                             .replace("%2", entity)
                             .replace("%3", drawn + "<text y='9'>&e;</text>")
                             .toUtf8()),
                 QStringList());
    }
    QDir::setCurrent(before);
}

OVRANO_TEST(NothingOutsideTest)
#include "tst_nothingoutside.moc"
