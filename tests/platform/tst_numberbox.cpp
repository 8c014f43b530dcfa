#include "platform/controls.h"
#include "support/testprogram.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

using namespace ovrano;

namespace {

/// A box with the even numbers from 10 to 40, shown with one of them chosen.
std::unique_ptr<QComboBox> evenNumbers(const QString& chosen = QStringLiteral("30")) {
    auto box = std::make_unique<QComboBox>();
    makeNumberBox(*box);
    addNumbers(*box, 10, 40, 2);
    box->setCurrentIndex(box->findText(chosen));
    return box;
}

void turnWheel(QComboBox& box, int eighthsOfDegree) {
    QWheelEvent event(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, eighthsOfDegree),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &event);
}

} // namespace

class NumberBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keysGoOnFromWhatIsTyped_data();
    void keysGoOnFromWhatIsTyped();
    void wheelGoesOnFromWhatIsTyped();
    void typingAloneChoosesNothing();
    void whatIsReachedIsAnnouncedOnce();
    void typedDigitsAreNotCompleted();
};

void NumberBoxTest::keysGoOnFromWhatIsTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("below");
    QTest::addColumn<QString>("above");
    QTest::newRow("listed") << "20"
                            << "22"
                            << "18";
    QTest::newRow("between two") << "21"
                                 << "22"
                                 << "20";
    QTest::newRow("a fraction") << "20.5"
                                << "22"
                                << "20";
    QTest::newRow("with a unit") << "20 px"
                                 << "22"
                                 << "18";
    QTest::newRow("below the list") << "3"
                                    << "10"
                                    << "3";
    QTest::newRow("above the list") << "500"
                                    << "500"
                                    << "40";
    QTest::newRow("the last") << "40"
                              << "40"
                              << "38";
    QTest::newRow("the first") << "10"
                               << "12"
                               << "10";
    QTest::newRow("nothing") << ""
                             << "32"
                             << "28"; // from the one chosen last
}

void NumberBoxTest::keysGoOnFromWhatIsTyped() {
    QFETCH(const QString, typed);
    QFETCH(const QString, below);
    QFETCH(const QString, above);
    for (const bool down : {true, false}) {
        const auto box = evenNumbers();
        box->setEditText(typed);
        QTest::keyClick(box.get(), down ? Qt::Key_Down : Qt::Key_Up);
        QCOMPARE(box->currentText(), down ? below : above);
    }
}

void NumberBoxTest::wheelGoesOnFromWhatIsTyped() {
    for (const int turned : {-120, 120}) {
        const auto box = evenNumbers();
        box->show();
        box->setEditText(QStringLiteral("20"));
        turnWheel(*box, turned);
        QCOMPARE(box->currentText(), turned < 0 ? QStringLiteral("22") : QStringLiteral("18"));
    }
}

void NumberBoxTest::typingAloneChoosesNothing() {
    const auto box = evenNumbers();
    QSignalSpy chosen(box.get(), &QComboBox::currentIndexChanged);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box.get(), QStringLiteral("14"));
    QCOMPARE(chosen.size(), 0);
    box->lineEdit()->setCursorPosition(1);
    QTest::keyClicks(box.get(), QStringLiteral("2"));
    QCOMPARE(box->lineEdit()->cursorPosition(), 2); // stays where the user types
}

void NumberBoxTest::whatIsReachedIsAnnouncedOnce() {
    for (const char* typed : {"20", "21"}) {
        const auto box = evenNumbers();
        box->setEditText(QLatin1String(typed));
        QSignalSpy edited(box.get(), &QComboBox::editTextChanged);
        QSignalSpy activated(box.get(), &QComboBox::activated);
        QTest::keyClick(box.get(), Qt::Key_Down);
        QCOMPARE(edited.size(), 1);
        QCOMPARE(activated.size(), 1);
        QCOMPARE(edited.first().first().toString(), QStringLiteral("22"));
    }
}

void NumberBoxTest::typedDigitsAreNotCompleted() {
    const auto box = evenNumbers();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box.get(), QStringLiteral("1"));
    QCOMPARE(box->currentText(), QStringLiteral("1"));
}

OVRANO_TEST(NumberBoxTest)
#include "tst_numberbox.moc"
