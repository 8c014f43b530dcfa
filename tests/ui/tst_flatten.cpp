#include "flatbench.h"
#include "support/testprogram.h"
#include "ui/flatstyle.h"
#include "ui/flatten.h"
#include "ui/relief.h"

#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

#include <memory>

using namespace ovrano;

namespace {

constexpr QSize Size(100, 26);

bool isFlat(const QWidget& widget) {
    return FlatStyle::instance().isWornBy(widget);
}

QToolButton* autoRaised() {
    auto* button = new QToolButton;
    button->setAutoRaise(true);
    return button;
}

/// A form with one control of each kind.
class AllKinds {
public:
    Form form;
    QPushButton* const button = form.add(new QPushButton, QRect(QPoint(0, 0), Size));
    QToolButton* const tool = form.add(new QToolButton, QRect(QPoint(0, 30), Size));
    QToolButton* const raising = form.add(autoRaised(), QRect(QPoint(0, 60), Size));
    QLineEdit* const field = form.add(new QLineEdit, QRect(QPoint(0, 90), Size));
    QListWidget* const list = form.add(new QListWidget, QRect(QPoint(0, 120), QSize(100, 60)));
    QComboBox* const box = form.add(new QComboBox, QRect(QPoint(0, 190), Size));
    QComboBox* const editable = form.add(editableBox(), QRect(QPoint(0, 220), Size));
    QSpinBox* const spin = form.add(new QSpinBox, QRect(QPoint(0, 250), Size));
    QProgressBar* const progress = form.add(new QProgressBar, QRect(QPoint(0, 270), Size));

    /// The kinds that are flat, in the order above.
    QStringList flatOnes() const {
        QStringList flat;
        for (const auto& [name, widget] : std::initializer_list<std::pair<const char*, const QWidget*>>{
                 {"button", button},
                 {"tool", tool},
                 {"raising", raising},
                 {"field", field},
                 {"list", list},
                 {"box", box},
                 {"editable", editable},
                 {"inner field", editable->lineEdit()},
                 {"box's list", box->view()},
                 {"spin", spin},
                 {"spin's field", spin->findChild<QLineEdit*>()},
                 {"progress", progress}})
            if (isFlat(*widget))
                flat.append(QLatin1String(name));
        return flat;
    }

private:
    static QComboBox* editableBox() {
        auto* box = new QComboBox;
        box->setEditable(true);
        return box;
    }
};

/// Notes the controls that are given another style, each once for every time.
class StyleWatch : public QObject {
public:
    StyleWatch() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::StyleChange)
            changed.append(watched);
        return false;
    }

    QObjectList changed;
};

void compareStaticEdge(QWidget& widget) {
    const Relief relief = reliefOf(widget.palette());
    COMPARE_EDGE(shot(widget), widget.rect(), relief.shadow, relief.highlight);
}

} // namespace

class TestFlatten : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlsOfOneType_data();
    void controlsOfOneType();
    void buttonsAndTextBoxes();
    void combos();
    void wholeForm();
    void buttonsThenFieldsThenListsThenCombos();
    void otherWindowsAreLeftAlone();
    void listOfCombosGrowsAndForgets();
    void formWithoutCombos();
    void imageComboIsACombo();
    void staticEdge_data() { addThemes(); }
    void staticEdge();
    void buttonRisesAndSinks_data() { addThemes(); }
    void buttonRisesAndSinks();
    void defaultAndFocusAreShown();
    void fieldShowsTheKeyboard();
    void sizesAndTextsStay();
    void frameCanBeSwitchedOff();
    void followsTheApplicationsStyle();
    void followsThePalette();
};

void TestFlatten::controlsOfOneType_data() {
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QStringList>("flat");
    const QStringList buttons = {QStringLiteral("button"), QStringLiteral("tool")};
    QTest::newRow("buttons") << QStringLiteral("commandbutton") << buttons;
    QTest::newRow("any case") << QStringLiteral("CommandBUTTON") << buttons;
    QTest::newRow("text boxes") << QStringLiteral("textbox") << QStringList(QStringLiteral("field"));
    QTest::newRow("lists") << QStringLiteral("listbox") << QStringList(QStringLiteral("list"));
    QTest::newRow("unknown") << QStringLiteral("button") << QStringList();
    QTest::newRow("empty") << QString() << QStringList();
}

void TestFlatten::controlsOfOneType() {
    QFETCH(QString, typeName);
    AllKinds all;
    FlattenControlsOfType(all.form, typeName);
    QTEST(all.flatOnes(), "flat");
}

void TestFlatten::buttonsAndTextBoxes() {
    AllKinds all;
    FlattenButtonsAndTextBoxes(all.form);
    QCOMPARE(all.flatOnes(), QStringList({"button", "tool", "field"}));
}

void TestFlatten::combos() {
    AllKinds all;
    AttachFlatCombos(all.form);
    QCOMPARE(all.flatOnes(), QStringList({"box", "editable"}));
    QVERIFY(cControlFlater::of(all.box));
    QVERIFY(cControlFlater::of(all.editable));
}

void TestFlatten::wholeForm() {
    AllKinds all;
    auto* frame = all.form.add(new QGroupBox, QRect(150, 0, 200, 100));
    auto* nested = new QComboBox(frame);
    flattenForm(all.form);
    QCOMPARE(all.flatOnes(), QStringList({"button", "tool", "raising", "field", "list", "box", "editable"}));
    QVERIFY(cControlFlater::of(nested));
    QVERIFY(!isFlat(*frame));
    QVERIFY(!isFlat(all.form));
}

void TestFlatten::buttonsThenFieldsThenListsThenCombos() {
    Form form;
    auto* box = form.add(new QComboBox, QRect(QPoint(0, 0), Size));
    auto* list = form.add(new QListWidget, QRect(QPoint(0, 30), Size));
    auto* field = form.add(new QLineEdit, QRect(QPoint(0, 60), Size));
    auto* button = form.add(new QPushButton, QRect(QPoint(0, 90), Size));
    const StyleWatch watch;
    flattenForm(form);
    flattenForm(form); // what is flat already is left alone
    // Last come what slides and the like: here the scroll bars of the list.
    QCOMPARE(watch.changed.first(4), QObjectList({button, field, list, box}));
    QCOMPARE(watch.changed.size(), 6);
}

void TestFlatten::otherWindowsAreLeftAlone() {
    Form form;
    QDialog dialog(&form);
    QPushButton button(&dialog);
    QComboBox box(&dialog);
    flattenForm(form);
    QVERIFY(!isFlat(button));
    QVERIFY(!cControlFlater::of(&box));
    flattenForm(dialog);
    QVERIFY(isFlat(button));
    QVERIFY(cControlFlater::of(&box));
}

void TestFlatten::listOfCombosGrowsAndForgets() {
    const auto before = flatCombos().size();
    auto first = std::make_unique<AllKinds>();
    flattenForm(first->form);
    QCOMPARE(flatCombos().size(), before + 2);
    {
        AllKinds second;
        flattenForm(second.form);
        QCOMPARE(flatCombos().size(), before + 4);
        flattenForm(second.form); // every control once
        QCOMPARE(flatCombos().size(), before + 4);
        delete first->box;
        QCOMPARE(flatCombos().size(), before + 3);
        QCOMPARE(flatCombos().back()->control(), second.editable);
    }
    QCOMPARE(flatCombos().size(), before + 1);
    QCOMPARE(flatCombos().back()->control(), first->editable);
    first.reset();
    QCOMPARE(flatCombos().size(), before);
}

void TestFlatten::formWithoutCombos() {
    const auto before = flatCombos().size();
    Form form;
    flattenForm(form);
    auto* button = form.add(new QPushButton, QRect(QPoint(), Size));
    flattenForm(form);
    QVERIFY(isFlat(*button));
    QCOMPARE(flatCombos().size(), before);
}

void TestFlatten::imageComboIsACombo() {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    Form form;
    auto* box = form.add(new QComboBox, QRect(QPoint(), Size));
    box->addItem(QIcon(red), QString());
    AttachFlatCombos(form);
    QVERIFY(cControlFlater::of(box));
}

void TestFlatten::staticEdge() {
    QFETCH(QPalette, theme);
    AllKinds all;
    all.form.setPalette(theme);
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    for (QWidget* control : {static_cast<QWidget*>(all.button), static_cast<QWidget*>(all.tool),
                             static_cast<QWidget*>(all.field), static_cast<QWidget*>(all.list)}) {
        compareStaticEdge(*control);
        control->setEnabled(false);
        compareStaticEdge(*control);
    }
    // Within the edge of a field and a list there is nothing but paper.
    all.field->setEnabled(true);
    all.list->setEnabled(true);
    const QColor paper = all.field->palette().color(QPalette::Base);
    for (QWidget* control : {static_cast<QWidget*>(all.field), static_cast<QWidget*>(all.list)})
        COMPARE_EDGE(shot(*control), control->rect().adjusted(1, 1, -1, -1), paper, paper);
}

void TestFlatten::buttonRisesAndSinks() {
    QFETCH(QPalette, theme);
    AllKinds all;
    all.form.setPalette(theme);
    all.button->setCheckable(true);
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    const Relief relief = reliefOf(all.button->palette());
    const QRect inner = all.button->rect().adjusted(1, 1, -1, -1);
    COMPARE_EDGE(shot(*all.button), inner, relief.highlight, relief.shadow);
    QTest::mousePress(all.button, Qt::LeftButton);
    COMPARE_EDGE(shot(*all.button), inner, relief.shadow, relief.highlight);
    compareStaticEdge(*all.button);
    QTest::mouseRelease(all.button, Qt::LeftButton);
    QVERIFY(all.button->isChecked());
    COMPARE_EDGE(shot(*all.button), inner, relief.shadow, relief.highlight);
    all.button->setChecked(false);
    pointAt(*all.button, QPoint(10, 10));
    QVERIFY(QTest::qWaitFor([&] { return shot(*all.button).pixel(5, 5) != relief.face.rgb(); }));
    Form::restPointer();
    QVERIFY(QTest::qWaitFor([&] { return shot(*all.button).pixel(5, 5) == relief.face.rgb(); }));
}

void TestFlatten::defaultAndFocusAreShown() {
    QDialog dialog;
    dialog.setPalette(lightTheme());
    auto* field = new QLineEdit(&dialog);
    auto* button = new QPushButton(&dialog);
    button->setGeometry(0, 40, 100, 26);
    button->setAutoDefault(false);
    flattenForm(dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QColor selection = button->palette().color(QPalette::Highlight);
    const QRect inner = button->rect().adjusted(1, 1, -1, -1);
    QVERIFY(!edgeFault(shot(*button), inner, selection, selection).isEmpty());
    button->setDefault(true);
    COMPARE_EDGE(shot(*button), inner, selection, selection);
    button->setDefault(false);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Tab);
    QVERIFY(button->hasFocus());
    COMPARE_EDGE(shot(*button), inner, selection, selection);
    COMPARE_EDGE(shot(*button), inner.adjusted(1, 1, -1, -1), selection, selection);
    compareStaticEdge(*button);
}

void TestFlatten::fieldShowsTheKeyboard() {
    AllKinds all;
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    all.field->setFocus();
    const QColor selection = all.field->palette().color(QPalette::Highlight);
    COMPARE_EDGE(shot(*all.field), all.field->rect().adjusted(1, 1, -1, -1), selection, selection);
    compareStaticEdge(*all.field);
}

void TestFlatten::sizesAndTextsStay() {
    AllKinds all;
    all.button->setText(QStringLiteral("HHH"));
    all.field->setText(QStringLiteral("HHH"));
    all.list->addItem(QStringLiteral("HHH"));
    QVERIFY(all.form.appear());
    const auto measures = [&] {
        QVariantList measured;
        for (const QWidget* control : {static_cast<QWidget*>(all.button), static_cast<QWidget*>(all.tool),
                                       static_cast<QWidget*>(all.field), static_cast<QWidget*>(all.list),
                                       static_cast<QWidget*>(all.box)})
            measured << control->sizeHint() << control->minimumSizeHint();
        measured << all.field->inputMethodQuery(Qt::ImCursorRectangle) << all.list->viewport()->geometry();
        return measured;
    };
    const QVariantList before = measures();
    const QImage button = shot(*all.button).copy(20, 5, 60, 16);
    flattenForm(all.form);
    QCOMPARE(measures(), before);
    // The letters in the button are where they were.
    const QColor ink = all.button->palette().color(QPalette::ButtonText);
    const QImage after = shot(*all.button).copy(20, 5, 60, 16);
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            QCOMPARE(after.pixelColor(x, y) == ink, button.pixelColor(x, y) == ink);
}

void TestFlatten::frameCanBeSwitchedOff() {
    AllKinds all;
    all.field->setFrame(false);
    all.list->setFrameShape(QFrame::NoFrame);
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    const QColor paper = all.field->palette().color(QPalette::Base);
    COMPARE_EDGE(shot(*all.field), all.field->rect(), paper, paper);
    COMPARE_EDGE(shot(*all.list), all.list->rect(), paper, paper);
}

void TestFlatten::followsTheApplicationsStyle() {
    AllKinds all;
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    for (const QString& name :
         {QStringLiteral("windows"), QStringLiteral("fusion"), QStringLiteral("windows")}) {
        QApplication::setStyle(name);
        QCOMPARE(all.flatOnes(),
                 QStringList({"button", "tool", "raising", "field", "list", "box", "editable"}));
        QCOMPARE(FlatStyle::instance().baseStyle()->name(), name);
        // What the style beneath decides is what the application's decides.
        QPushButton plain(QStringLiteral("Appliquer"));
        plain.setFont(all.button->font());
        all.button->setText(plain.text());
        QCOMPARE(all.button->sizeHint(), plain.sizeHint());
        compareStaticEdge(*all.button);
        compareStaticEdge(*all.field);
    }
    QApplication::setStyle(QStringLiteral("fusion"));
}

void TestFlatten::followsThePalette() {
    AllKinds all;
    flattenForm(all.form);
    QVERIFY(all.form.appear());
    const QPalette before = QApplication::palette();
    for (const QPalette& theme : {darkTheme(), contrastTheme(), lightTheme()}) {
        QApplication::setPalette(theme);
        QCoreApplication::processEvents();
        QCOMPARE(reliefOf(all.button->palette()).shadow.rgb(), theme.color(QPalette::Dark).rgb());
        compareStaticEdge(*all.button);
        compareStaticEdge(*all.field);
    }
    QApplication::setPalette(before);
}

OVRANO_TEST(TestFlatten)
#include "tst_flatten.moc"
