#include "flatbench.h"
#include "support/testprogram.h"
#include "ui/ccontrolflater.h"
#include "ui/relief.h"

#include <QLineEdit>
#include <QScreen>
#include <QStyleOption>
#include <QWindow>

using namespace ovrano;

namespace {

constexpr QRect Place(50, 50, 120, 26);

constexpr QPoint OnText(20, 13);

/// What brings a box into a state.
enum class Cause { Rest, Pointer, Keyboard, Press, OpenList, Disabling };

FlatState stateAfter(Cause cause) {
    switch (cause) {
    case Cause::Pointer:
    case Cause::Keyboard:
        return FlatState::Hot;
    case Cause::Press:
    case Cause::OpenList:
        return FlatState::Down;
    case Cause::Disabling:
        return FlatState::Disabled;
    case Cause::Rest:
        break;
    }
    return FlatState::Normal;
}

void press(const QComboBox& box) {
    pointAt(box, OnText);
    QTest::mousePress(box.window()->windowHandle(), Qt::LeftButton, {}, box.pos() + OnText);
}

void release(const QComboBox& box) {
    QTest::mouseRelease(box.window()->windowHandle(), Qt::LeftButton, {}, box.pos() + OnText);
}

/// Brings a box into a state as a user would.
void bring(cControlFlater& flater, QComboBox& box, Cause cause) {
    box.setEnabled(cause != Cause::Disabling);
    if (cause == Cause::Pointer)
        pointAt(box, OnText);
    if (cause == Cause::Keyboard)
        box.setFocus();
    if (cause == Cause::Press)
        press(box);
    if (cause == Cause::OpenList)
        box.showPopup();
    QVERIFY(becomes(flater, stateAfter(cause)));
}

/// The drop-down button of a box of Place's size: the desktop's arrow field, as far as it is within the
/// frame.
QRect dropDownButton() {
    QStyleOptionComboBox option;
    option.rect = QRect(QPoint(), Place.size());
    const QRect arrow =
        QApplication::style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow);
    return QRect(arrow.left(), 3, Place.width() - 3 - arrow.left(), Place.height() - 6);
}

struct Colours {
    explicit Colours(const QWidget& widget)
        : face(widget.palette().color(QPalette::Button))
        , highlight(widget.palette().color(QPalette::Light))
        , shadow(widget.palette().color(QPalette::Dark)) {}

    QColor face;
    QColor highlight;
    QColor shadow;
};

/// Pixels of a picture's part that have a colour.
int count(const QImage& image, const QRect& part, const QColor& colour) {
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            found += image.pixel(x, y) == colour.rgb() ? 1 : 0;
    return found;
}

} // namespace

class TestFlatCombo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Form::restPointer(); }
    void edgesFollowTheTable_data();
    void edgesFollowTheTable();
    void everyChangeComesToTheScreen();
    void edgesAreSharpAtScaleTwo();
    void edgesCanBeToldFromABlackFace();
    void textAndArrowAreThere_data() { addThemes(); }
    void textAndArrowAreThere();
    void textStandsOnPaper();
    void placeholderKeepsItsColour();
    void iconIsShown();
    void paperIsOutlinedWhereItIsAsTheFace();
    void editFieldLiesWithinTheFrame();
    void sizesStay_data();
    void sizesStay();
    void keyboardFocusIsShown();
};

void TestFlatCombo::edgesFollowTheTable_data() {
    QTest::addColumn<QPalette>("theme");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<Cause>("cause");
    const std::pair<const char*, QPalette> themes[] = {
        {"light", lightTheme()}, {"dark", darkTheme()}, {"high contrast", contrastTheme()}};
    const std::pair<const char*, Cause> causes[] = {
        {"at rest", Cause::Rest},  {"pointed at", Cause::Pointer}, {"with the keyboard", Cause::Keyboard},
        {"pressed", Cause::Press}, {"open", Cause::OpenList},      {"disabled", Cause::Disabling}};
    for (const auto& [theme, palette] : themes)
        for (const auto& [name, cause] : causes)
            for (const bool editable : {false, true})
                QTest::addRow("%s, %s, %s", theme, name, editable ? "editable" : "list")
                    << palette << editable << cause;
}

void TestFlatCombo::edgesFollowTheTable() {
    QFETCH(QPalette, theme);
    QFETCH(bool, editable);
    QFETCH(Cause, cause);
    Form form;
    form.setPalette(theme);
    auto* box = form.add(new QComboBox, Place);
    box->addItem(QStringLiteral("Arial"));
    box->setEditable(editable);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    bring(flater, *box, cause);

    const FlatState state = stateAfter(cause);
    const Colours colours(*box);
    QColor topLeft = colours.face;
    QColor bottomRight = colours.face;
    if (state == FlatState::Hot) {
        topLeft = colours.highlight;
        bottomRight = colours.shadow;
    } else if (state == FlatState::Down) {
        topLeft = colours.shadow;
        bottomRight = colours.highlight;
    }
    const QImage image = shot(*box);
    const QRect outer(QPoint(), Place.size());
    COMPARE_EDGE(image, outer, topLeft, bottomRight);
    COMPARE_EDGE(image, outer.adjusted(1, 1, -1, -1), colours.face, colours.face);
    COMPARE_EDGE(image, outer.adjusted(2, 2, -2, -2), colours.face, colours.face);
    COMPARE_EDGE(image, dropDownButton(), topLeft, bottomRight);
    box->hidePopup();
    if (cause == Cause::Press)
        release(*box);
}

void TestFlatCombo::everyChangeComesToTheScreen() {
    Form form;
    form.setPalette(lightTheme());
    auto* box = form.add(new QComboBox, Place);
    box->setEditable(true);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    // What the window shows by itself, without being drawn for the test.
    const auto shows = [&](const QColor& topLeft, const QColor& bottomRight) {
        const auto fault = [&] {
            const QPixmap screen = form.screen()->grabWindow(form.winId());
            return edgeFault(screen.toImage(), Place, topLeft, bottomRight);
        };
        return QTest::qWaitFor([&] { return fault().isEmpty(); });
    };
    const Colours colours(*box);
    QVERIFY(shows(colours.face, colours.face));
    box->setFocus();
    QVERIFY(shows(colours.highlight, colours.shadow));
    press(*box);
    QVERIFY(shows(colours.shadow, colours.highlight));
    release(*box);
    QVERIFY(shows(colours.highlight, colours.shadow));
    press(*box);
    QVERIFY(shows(colours.shadow, colours.highlight));
    Form::restPointer(); // the button is still held
    QVERIFY(shows(colours.highlight, colours.shadow));
    box->clearFocus();
    QVERIFY(shows(colours.face, colours.face));
    release(*box);
}

void TestFlatCombo::edgesAreSharpAtScaleTwo() {
    Form form;
    form.setPalette(lightTheme());
    auto* box = form.add(new QComboBox, Place);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    bring(flater, *box, Cause::Pointer);
    const QImage single = shot(*box);
    QImage image(Place.size() * 2, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    box->render(&image);
    const QRect interior(6, 6, image.width() - 12, image.height() - 12);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!interior.contains(x, y))
                QCOMPARE(image.pixel(x, y), single.pixel(x / 2, y / 2));
}

void TestFlatCombo::edgesCanBeToldFromABlackFace() {
    for (const QColor& face : {QColor(Qt::black), QColor(Qt::white)}) {
        QPalette plain(face, face);
        plain.setColor(QPalette::ButtonText, face == QColor(Qt::black) ? Qt::yellow : Qt::black);
        plain.setColor(QPalette::Light, face);
        plain.setColor(QPalette::Dark, face);
        const Relief relief = reliefOf(plain);
        QCOMPARE(relief.face, face);
        QVERIFY(canBeToldApart(relief.highlight, face));
        QVERIFY(canBeToldApart(relief.shadow, face));
        QVERIFY(qGray(relief.highlight.rgb()) > qGray(relief.shadow.rgb())); // raised looks raised
    }
    // One edge that can be seen is enough.
    QPalette halfPlain(Qt::white, Qt::white);
    halfPlain.setColor(QPalette::Light, Qt::white);
    halfPlain.setColor(QPalette::Dark, Qt::gray);
    QCOMPARE(reliefOf(halfPlain).highlight, QColor(Qt::white));
    QCOMPARE(reliefOf(halfPlain).shadow, QColor(Qt::gray));
}

void TestFlatCombo::textAndArrowAreThere() {
    QFETCH(QPalette, theme);
    Form form;
    form.setPalette(theme);
    auto* box = form.add(new QComboBox, Place);
    box->addItem(QStringLiteral("HHHHH"));
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    const QImage image = shot(*box);
    const QColor arrow = box->palette().color(QPalette::ButtonText);
    QVERIFY(count(image, dropDownButton(), arrow) > 8);
    const QRect text(4, 4, dropDownButton().left() - 8, Place.height() - 8);
    QVERIFY(count(image, text, box->palette().color(QPalette::Text)) > 20);
    QVERIFY(count(image, text, box->palette().color(QPalette::Base)) > 200);
}

void TestFlatCombo::textStandsOnPaper() {
    // White on dark buttons, black on white paper.
    Form form;
    QPalette mixed(QColor(40, 40, 40), QColor(40, 40, 40));
    mixed.setColor(QPalette::Base, Qt::white);
    mixed.setColor(QPalette::Text, Qt::black);
    mixed.setColor(QPalette::ButtonText, Qt::white);
    form.setPalette(mixed);
    auto* box = form.add(new QComboBox, Place);
    box->addItem(QStringLiteral("HHHHH"));
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    for (const QString& style : {QStringLiteral("fusion"), QStringLiteral("windows")}) {
        QApplication::setStyle(style);
        for (const bool focus : {false, true}) {
            if (focus)
                box->setFocus();
            else
                box->clearFocus();
            const QImage image = shot(*box);
            const QRect withinFocus(7, 7, 70, Place.height() - 14);
            QVERIFY2(count(image, withinFocus, Qt::black) > 20, qPrintable(style));
        }
    }
    QApplication::setStyle(QStringLiteral("fusion"));
}

void TestFlatCombo::placeholderKeepsItsColour() {
    Form form;
    QPalette palette = lightTheme();
    palette.setColor(QPalette::PlaceholderText, QColor(200, 0, 200));
    form.setPalette(palette);
    auto* box = form.add(new QComboBox, Place);
    box->addItem(QStringLiteral("Arial"));
    box->setPlaceholderText(QStringLiteral("HHHHH"));
    box->setCurrentIndex(-1);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    QVERIFY(count(shot(*box), QRect(4, 4, 80, Place.height() - 8), QColor(200, 0, 200)) > 10);
}

void TestFlatCombo::iconIsShown() {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    Form form;
    auto* box = form.add(new QComboBox, Place);
    box->addItem(QIcon(red), QStringLiteral("Arial"));
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    for (const bool editable : {false, true}) {
        box->setEditable(editable);
        QCOMPARE(count(shot(*box), QRect(QPoint(), Place.size()), Qt::red), 16 * 16);
    }
}

void TestFlatCombo::paperIsOutlinedWhereItIsAsTheFace() {
    Form form;
    form.setPalette(contrastTheme());
    auto* box = form.add(new QComboBox, Place);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    const QRect paper(QPoint(3, 3), QPoint(dropDownButton().left() - 1, Place.height() - 4));
    for (const bool editable : {false, true}) {
        box->setEditable(editable);
        const QImage image = shot(*box);
        const QColor outline = image.pixelColor(paper.topLeft());
        QVERIFY(canBeToldApart(outline, Qt::black));
        COMPARE_EDGE(image, paper, outline, outline);
    }
    form.setPalette(darkTheme());
    COMPARE_EDGE(shot(*box), paper, QColor(25, 25, 25), QColor(25, 25, 25));
}

void TestFlatCombo::editFieldLiesWithinTheFrame() {
    Form form;
    auto* box = form.add(new QComboBox, Place);
    box->setEditable(true);
    cControlFlater flater;
    flater.Attach(box);
    QVERIFY(form.appear());
    const QRect room(QPoint(3, 3), QPoint(dropDownButton().left() - 1, Place.height() - 4));
    for (const int height : {26, 22, 40}) {
        box->resize(Place.width(), height);
        const QRect field = box->lineEdit()->geometry();
        QVERIFY(QRect(room.topLeft(), QSize(room.width(), height - 6)).contains(field));
        QVERIFY(field.height() >= std::min(box->fontMetrics().height(), height - 6));
        QVERIFY(field.width() >= 90);
    }
}

void TestFlatCombo::sizesStay_data() {
    QTest::addColumn<QString>("style");
    QTest::newRow("fusion") << QStringLiteral("fusion");
    QTest::newRow("windows") << QStringLiteral("windows");
}

void TestFlatCombo::sizesStay() {
    QFETCH(QString, style);
    QApplication::setStyle(style);
    for (const bool editable : {false, true}) {
        QComboBox box;
        box.addItem(QStringLiteral("Arial"));
        box.setEditable(editable);
        const QSize hint = box.sizeHint();
        const QSize least = box.minimumSizeHint();
        cControlFlater flater;
        flater.Attach(&box);
        QCOMPARE(box.sizeHint(), hint);
        QCOMPARE(box.minimumSizeHint(), least);
    }
    QApplication::setStyle(QStringLiteral("fusion"));
}

void TestFlatCombo::keyboardFocusIsShown() {
    Form form;
    form.setPalette(lightTheme());
    auto* first = form.add(new QComboBox, Place);
    auto* second = form.add(new QComboBox, Place.translated(0, 40));
    cControlFlater flater;
    flater.Attach(second);
    QVERIFY(form.appear());
    first->setFocus();
    pointAt(*second, QPoint(20, 13));
    const QImage hot = shot(*second);
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QVERIFY(shot(*second) != hot); // raised both times, but with a mark
}

OVRANO_TEST(TestFlatCombo)
#include "tst_flatcombo.moc"
