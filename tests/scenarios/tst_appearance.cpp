#include "scenarios/landscape.h"
#include "scenarios/program.h"
#include "support/layoutcheck.h"
#include "support/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QWindow>

using namespace ovrano;
using namespace ovrano::testing;

namespace {

enum class Theme { Light, Dark, HighContrast };

/// White on black with yellow highlights, as people choose it who see little.
QPalette highContrast() {
    QPalette palette(Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
                            QPalette::ToolTipText})
        palette.setColor(role, Qt::white);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::AlternateBase,
                            QPalette::ToolTipBase, QPalette::HighlightedText})
        palette.setColor(role, Qt::black);
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Qt::green);
    return palette;
}

QPalette paletteOf(Theme theme) {
    switch (theme) {
    case Theme::Light:
        break;
    case Theme::Dark:
        return {QColor(50, 50, 53), QColor(32, 32, 34)};
    case Theme::HighContrast:
        return highContrast();
    }
    return QApplication::style()->standardPalette();
}

} // namespace

Q_DECLARE_METATYPE(Theme)

/// All four windows in the desktop's themes: nothing is cut or covered, every text can be read. Pictures of
/// them are left in a folder, named after the screen and the theme, to be looked at.
class TestAppearance : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyWindowInTheTheme_data();
    void everyWindowInTheTheme();

private:
    static void keepPicture(User& user, const QString& window);
    static void judge(User& user, const QString& window);
    static void writeOnPhoto(Program& program);
};

void TestAppearance::everyWindowInTheTheme_data() {
    QTest::addColumn<Theme>("theme");
    QTest::newRow("light") << Theme::Light;
    QTest::newRow("dark") << Theme::Dark;
    QTest::newRow("high-contrast") << Theme::HighContrast;
}

void TestAppearance::keepPicture(User& user, const QString& window) {
    const QImage screen = user.screen();
    const qreal ratio = inGui([] { return QGuiApplication::primaryScreen()->devicePixelRatio(); });
    const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/windows"));
    folder.mkpath(QStringLiteral("."));
    const QString name = QStringLiteral("%1x%2@%3-%4-%5.png")
                             .arg(screen.width())
                             .arg(screen.height())
                             .arg(ratio)
                             .arg(QLatin1String(QTest::currentDataTag()), window);
    if (!screen.save(folder.filePath(name)))
        throw InputError(QStringLiteral("%1 cannot be written").arg(name));
}

void TestAppearance::judge(User& user, const QString& window) {
    user.waitForWindow(window);
    keepPicture(user, window);
    // Screens need not hold a whole number of the program's pixels.
    user.waitFor(
        [&] {
            const QWidget* shown = User::shown(window);
            const QRect screen = shown->screen()->availableGeometry().adjusted(-1, -1, 1, 1);
            // Not the widget's: it keeps what the frame was while the window manager was making it.
            const QRect frame = shown->windowHandle()->frameGeometry();
            return frame.top() < shown->geometry().top() && screen.contains(frame);
        },
        window + QStringLiteral(" inside the screen"));
    const QStringList complaints = inGui([&] {
        const QWidget& shown = *User::shown(window);
        return layoutComplaints(shown) + contrastComplaints(shown);
    });
    if (!complaints.isEmpty())
        throw InputError(window + QStringLiteral(": ") + complaints.join(QStringLiteral("; ")));
}

void TestAppearance::writeOnPhoto(Program& program) {
    const QImage photo = landscape(QSize(1200, 800));
    inGui([&] {
        program.window.work().picDisp.setInnerSize(photo.size());
        program.window.work().picDisp.setPicture(Raster::fromImage(photo));
        program.window.view().fitToPicture();
    });
    program.user.click(QStringLiteral("cmd1Color3DProceed"));
    program.user.waitFor([&] { return program.window.block().HasSelection; }, QStringLiteral("the text"));
}

void TestAppearance::everyWindowInTheTheme() {
    QFETCH(Theme, theme);
    QApplication::setPalette(paletteOf(theme));
    Program program;
    program.playBeside([&] {
        User& user = program.user;
        user.input.strike(Qt::CTRL | Qt::Key_N);
        judge(user, QStringLiteral("FrmNouv3DText"));
        user.input.strike(Qt::Key_Escape);
        user.waitForWindow(QStringLiteral("frmPicText0"));
        writeOnPhoto(program);
        judge(user, QStringLiteral("frmPicText0"));
        for (const auto& [entry, dialog] :
             {std::pair(QStringLiteral("mnuTextWrite(1)"), QStringLiteral("Txt3D")),
              std::pair(QStringLiteral("mnuTextWrite(2)"), QStringLiteral("RotFonts"))}) {
            user.waitForWindow(QStringLiteral("frmPicText0"));
            user.chooseMenu(QStringLiteral("mnuText"), entry);
            judge(user, dialog);
            user.input.strike(Qt::Key_Escape);
        }
        user.waitForWindow(QStringLiteral("frmPicText0"));
    });
}

OVRANO_TEST(TestAppearance)
#include "tst_appearance.moc"
