// The simulated mouse and keyboard against a plain window on a real X server.

#include "support/inputerror.h"
#include "support/playuser.h"
#include "support/testprogram.h"
#include "support/user.h"

#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <vector>

using ovrano::testing::InputError;
using ovrano::testing::playUser;
using ovrano::testing::User;

namespace {

/// Notes what the mouse does on it.
class Pad : public QWidget {
public:
    explicit Pad(QWidget* parent)
        : QWidget(parent) {
        setMinimumSize(300, 200);
        setObjectName(QStringLiteral("pad"));
        setMouseTracking(true);
    }

    std::vector<QPoint> moves;
    QPoint pressed;
    QPoint released;
    Qt::MouseButton button = Qt::NoButton;
    int doubleClicks = 0;
    int turned = 0;
    Qt::MouseButtons whileMoving;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        pressed = event->position().toPoint();
        button = event->button();
    }
    void mouseReleaseEvent(QMouseEvent* event) override { released = event->position().toPoint(); }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++doubleClicks; }
    void mouseMoveEvent(QMouseEvent* event) override {
        moves.push_back(event->position().toPoint());
        whileMoving = event->buttons();
    }
    void wheelEvent(QWheelEvent* event) override { turned += event->angleDelta().y(); }
};

} // namespace

class TestX11Input : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }
    void init();
    void cleanup() { m_window.reset(); }

    void clickArrivesWhereItWasAimed();
    void otherButtonsAndDoubleClick();
    void dragPassesBetween();
    void wheelTurnsBothWays();
    void typesWhatTheLayoutLacks();
    void typesCharactersOfManyKinds_data();
    void typesCharactersOfManyKinds();
    void strikesCombinations();
    void unknownKeyIsReported();
    void clickBesideTheProgramIsReported();
    void choosesMenusAndItems();
    void userGoesThroughADialog();
    void errorsCloseWhatWasLeftOpen();
    void closeBoxOfTheFrame();
    void screenshotShowsTheWindow();

private:
    QPoint onPad(QPoint point) const { return m_pad->mapToGlobal(point); }

    std::unique_ptr<QMainWindow> m_window;
    Pad* m_pad = nullptr;
    QLineEdit* m_field = nullptr;
};

void TestX11Input::init() {
    m_window = std::make_unique<QMainWindow>();
    auto* inside = new QWidget;
    auto* layout = new QVBoxLayout(inside);
    m_pad = new Pad(inside);
    m_field = new QLineEdit(inside);
    m_field->setObjectName(QStringLiteral("field"));
    layout->addWidget(m_pad);
    layout->addWidget(m_field);
    m_window->setCentralWidget(inside);
    m_window->setObjectName(QStringLiteral("window"));
    m_window->show();
    User().waitForWindow(QStringLiteral("window"));
}

void TestX11Input::clickArrivesWhereItWasAimed() {
    User user;
    user.input.click(onPad({37, 51}));
    QCOMPARE(m_pad->pressed, QPoint(37, 51));
    QCOMPARE(m_pad->released, QPoint(37, 51));
    QCOMPARE(m_pad->button, Qt::LeftButton);
}

void TestX11Input::otherButtonsAndDoubleClick() {
    User user;
    user.input.click(onPad({10, 10}), Qt::RightButton);
    QCOMPARE(m_pad->button, Qt::RightButton);
    user.input.click(onPad({10, 10}), Qt::MiddleButton);
    QCOMPARE(m_pad->button, Qt::MiddleButton);
    user.input.doubleClick(onPad({60, 60}));
    QCOMPARE(m_pad->doubleClicks, 1);
}

void TestX11Input::dragPassesBetween() {
    User user;
    user.input.moveTo(onPad({20, 20}));
    m_pad->moves.clear();
    user.input.drag(onPad({20, 20}), onPad({100, 60}), 4);
    const std::vector<QPoint> expected = {{40, 30}, {60, 40}, {80, 50}, {100, 60}};
    QCOMPARE(m_pad->moves, expected);
    QCOMPARE(m_pad->whileMoving, Qt::LeftButton);
    QCOMPARE(m_pad->pressed, QPoint(20, 20));
    QCOMPARE(m_pad->released, QPoint(100, 60));
}

void TestX11Input::wheelTurnsBothWays() {
    User user;
    user.input.wheel(onPad({50, 50}), 3);
    QCOMPARE(m_pad->turned, 3 * QWheelEvent::DefaultDeltasPerStep);
    user.input.wheel(onPad({50, 50}), -5);
    QCOMPARE(m_pad->turned, -2 * QWheelEvent::DefaultDeltasPerStep);
}

void TestX11Input::typesWhatTheLayoutLacks() {
    User user;
    user.retype(QStringLiteral("field"), QStringLiteral("Été à Porquerolles"));
    QCOMPARE(m_field->text(), QStringLiteral("Été à Porquerolles"));
    user.retype(QStringLiteral("field"), QStringLiteral("neuf"));
    QCOMPARE(m_field->text(), QStringLiteral("neuf"));
}

void TestX11Input::typesCharactersOfManyKinds_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("digits") << QStringLiteral("0123456789");
    QTest::newRow("signs") << QStringLiteral("/tmp/a_b-c.d (x) [1] {2} <3> #&%\\~");
    QTest::newRow("capitals between small letters") << QStringLiteral("aBcDeF");
    QTest::newRow("accents") << QStringLiteral("çÇéèêëÉÈàâùûïôœŒ");
    QTest::newRow("beyond Latin-1") << QStringLiteral("€ Ω “”");
}

void TestX11Input::typesCharactersOfManyKinds() {
    QFETCH(QString, text);
    User user;
    user.retype(QStringLiteral("field"), text);
    QCOMPARE(m_field->text(), text);
}

void TestX11Input::strikesCombinations() {
    int saved = 0;
    auto* save = new QAction(m_window.get());
    save->setShortcut(Qt::CTRL | Qt::Key_S);
    connect(save, &QAction::triggered, this, [&] { ++saved; });
    m_window->addAction(save);
    User user;
    user.click(QStringLiteral("field"));
    user.input.strike(Qt::CTRL | Qt::Key_S);
    QCOMPARE(saved, 1);
    user.input.type(QStringLiteral("abc"));
    user.input.strike(Qt::SHIFT | Qt::Key_Left);
    QCOMPARE(m_field->selectedText(), QStringLiteral("c"));
    user.input.strike(Qt::Key_Backspace);
    QCOMPARE(m_field->text(), QStringLiteral("ab"));
}

void TestX11Input::unknownKeyIsReported() {
    User user;
    QVERIFY_THROWS_EXCEPTION(InputError, user.input.strike(Qt::Key_LaunchMail));
}

void TestX11Input::clickBesideTheProgramIsReported() {
    User user;
    const QPoint corner = m_window->screen()->geometry().bottomRight();
    QVERIFY(!m_window->windowHandle()->frameGeometry().contains(corner));
    user.input.setPatience(500);
    QVERIFY_THROWS_EXCEPTION(InputError, user.input.click(corner));
}

void TestX11Input::choosesMenusAndItems() {
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("&Fichier"));
    menu->setObjectName(QStringLiteral("mnuFile"));
    menu->addAction(QStringLiteral("&Nouveau"))->setObjectName(QStringLiteral("mnuFileNew"));
    QAction* open = menu->addAction(QStringLiteral("&Ouvrir"));
    open->setObjectName(QStringLiteral("mnuFileOpen"));
    int opened = 0;
    connect(open, &QAction::triggered, this, [&] { ++opened; });
    auto* combo = new QComboBox;
    combo->setObjectName(QStringLiteral("combo"));
    combo->setEditable(true);
    for (int size = 6; size <= 99; ++size)
        combo->addItem(QString::number(size));
    m_window->centralWidget()->layout()->addWidget(combo);
    User user;
    playUser([&] {
        user.chooseMenu(QStringLiteral("mnuFile"), QStringLiteral("mnuFileOpen"));
        user.chooseItem(QStringLiteral("combo"), QStringLiteral("72"));
    });
    QCOMPARE(opened, 1);
    QCOMPARE(combo->currentText(), QStringLiteral("72"));
}

void TestX11Input::userGoesThroughADialog() {
    auto* button = new QPushButton(QStringLiteral("Nom"), m_window->centralWidget());
    button->setObjectName(QStringLiteral("ask"));
    m_window->centralWidget()->layout()->addWidget(button);
    QString answer;
    connect(button, &QPushButton::clicked, this, [&] {
        QInputDialog dialog(m_window.get());
        dialog.setObjectName(QStringLiteral("question"));
        if (dialog.exec() == QDialog::Accepted)
            answer = dialog.textValue();
    });
    User user;
    playUser([&] {
        user.click(QStringLiteral("ask"));
        user.waitForWindow(QStringLiteral("question"));
        user.input.type(QStringLiteral("Zoé"));
        user.input.strike(Qt::Key_Return);
        user.waitForWindow(QStringLiteral("window"));
    });
    QCOMPARE(answer, QStringLiteral("Zoé"));
}

void TestX11Input::errorsCloseWhatWasLeftOpen() {
    auto* button = new QPushButton(QStringLiteral("Nom"), m_window->centralWidget());
    button->setObjectName(QStringLiteral("ask"));
    m_window->centralWidget()->layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, [&] { QInputDialog(m_window.get()).exec(); });
    User user;
    QVERIFY_THROWS_EXCEPTION(InputError, playUser([&] {
                                 user.click(QStringLiteral("ask"));
                                 user.waitFor([] { return QApplication::activeModalWidget() != nullptr; },
                                              QStringLiteral("question"));
                                 user.input.strike(Qt::Key_LaunchMail);
                             }));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestX11Input::closeBoxOfTheFrame() {
    User user;
    // Not the widget's: it keeps what the frame was while the window manager was making it.
    const QWindow& window = *m_window->windowHandle();
    user.waitFor([&] { return window.frameMargins().top() > 0; }, QStringLiteral("a title bar"));
    const QRect frame = window.frameGeometry();
    const int bar = window.frameMargins().top();
    user.input.clickFrame({frame.right() - bar / 2, frame.top() + bar / 2});
    user.waitFor([&] { return !m_window->isVisible(); }, QStringLiteral("the window to close"));
}

void TestX11Input::screenshotShowsTheWindow() {
    m_pad->setAutoFillBackground(true);
    m_pad->setPalette(QPalette(QColor(12, 200, 34)));
    User user;
    const QPoint middle = onPad(m_pad->rect().center());
    user.waitFor([&] { return user.screen().pixelColor(middle) == QColor(12, 200, 34); },
                 QStringLiteral("the pad's colour on the screen"));
}

OVRANO_TEST(TestX11Input)
#include "tst_x11input.moc"
