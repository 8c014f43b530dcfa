#include "support/testprogram.h"
#include "ui/flatbench.h"
#include "ui/flatten.h"
#include "ui/relief.h"

#include <QCheckBox>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QToolButton>

using namespace ovrano;

namespace {

QPalette blackTheme() {
    QPalette palette = contrastTheme();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    return palette;
}

QImage shotOf(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether the edge of a rectangle is drawn in one colour.
bool isOutlined(QWidget& widget, const QRect& part, const QColor& colour) {
    const QImage image = shotOf(widget);
    for (int x = part.left(); x <= part.right(); ++x)
        if (image.pixel(x, part.top()) != colour.rgb() || image.pixel(x, part.bottom()) != colour.rgb())
            return false;
    for (int y = part.top(); y <= part.bottom(); ++y)
        if (image.pixel(part.left(), y) != colour.rgb() || image.pixel(part.right(), y) != colour.rgb())
            return false;
    return true;
}

QRect indicatorOf(const QCheckBox& box) {
    QStyleOptionButton option;
    option.initFrom(&box);
    return box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
}

QRect handleOf(const QAbstractSlider& slider, QStyle::ComplexControl kind, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.orientation = slider.orientation();
    option.state.setFlag(QStyle::State_Horizontal);
    option.minimum = slider.minimum();
    option.maximum = slider.maximum();
    option.sliderPosition = option.sliderValue = slider.value();
    option.singleStep = slider.singleStep();
    option.pageStep = slider.pageStep();
    option.subControls = QStyle::SC_All;
    return slider.style()->subControlRect(kind, &option, part, &slider);
}

/// A form with what shows a state or can be dragged.
struct Indicators {
    explicit Indicators(const QPalette& theme) {
        form.setPalette(theme);
        flattenForm(form);
        form.appear();
    }

    Form form;
    QCheckBox* const check = form.add(new QCheckBox, QRect(10, 10, 100, 24));
    QScrollBar* const bar = form.add(new QScrollBar(Qt::Horizontal), QRect(10, 40, 200, 17));
    QSlider* const slider = form.add(new QSlider(Qt::Horizontal), QRect(10, 70, 200, 24));
    QToolButton* const tool = form.add(new QToolButton, QRect(10, 100, 60, 26));
};

} // namespace

class TestOutlines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void drawnWhereTheStylesOwnVanish();
    void leftAwayElsewhere();
    void disabledOnesArePaler();
    void toolButtonThatIsOnSinks_data();
    void toolButtonThatIsOnSinks();
};

void TestOutlines::drawnWhereTheStylesOwnVanish() {
    const Indicators all(blackTheme());
    QVERIFY(isOutlined(*all.check, indicatorOf(*all.check), Qt::white));
    QVERIFY(isOutlined(*all.bar, handleOf(*all.bar, QStyle::CC_ScrollBar, QStyle::SC_ScrollBarSlider),
                       Qt::white));
    QVERIFY(isOutlined(*all.slider, handleOf(*all.slider, QStyle::CC_Slider, QStyle::SC_SliderHandle),
                       Qt::white));
}

void TestOutlines::leftAwayElsewhere() {
    const Indicators all(lightTheme());
    const QColor text = lightTheme().color(QPalette::WindowText);
    QVERIFY(!isOutlined(*all.check, indicatorOf(*all.check), text));
    QVERIFY(
        !isOutlined(*all.bar, handleOf(*all.bar, QStyle::CC_ScrollBar, QStyle::SC_ScrollBarSlider), text));
    QVERIFY(
        !isOutlined(*all.slider, handleOf(*all.slider, QStyle::CC_Slider, QStyle::SC_SliderHandle), text));
}

void TestOutlines::disabledOnesArePaler() {
    QPalette theme = blackTheme();
    theme.setColor(QPalette::Disabled, QPalette::WindowText, Qt::green);
    const Indicators all(theme);
    all.check->setEnabled(false);
    QVERIFY(isOutlined(*all.check, indicatorOf(*all.check), Qt::green));
}

void TestOutlines::toolButtonThatIsOnSinks_data() {
    addThemes();
    QTest::newRow("black") << blackTheme();
}

void TestOutlines::toolButtonThatIsOnSinks() {
    QFETCH(QPalette, theme);
    const Indicators all(theme);
    all.tool->setAutoRaise(true);
    all.tool->setCheckable(true);
    const QImage off = shotOf(*all.tool);
    all.tool->setChecked(true);
    const QImage on = shotOf(*all.tool);
    QVERIFY(on != off);
    const Relief relief = reliefOf(all.tool->palette());
    QCOMPARE(on.pixel(1, 1), relief.shadow.rgb());
    QCOMPARE(on.pixel(on.width() - 2, on.height() - 2), relief.highlight.rgb());
}

OVRANO_TEST(TestOutlines)
#include "tst_outlines.moc"
