#include "platform/qtdialogs.h"
#include "support/testprogram.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>
#include <QWindow>
#include <QtTest>

#include <functional>

using namespace ovrano;

namespace {

/// The modal window that is open, when it is of a kind and on the screen: one that is about to be shown would
/// miss a click.
template<typename Window>
Window* openWindow() {
    auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
    const bool shown =
        window && window->isVisible() && window->windowHandle() && window->windowHandle()->isExposed();
    return shown ? window : nullptr;
}

/// Does something with the modal window that is open when its turn comes; a window that never opens fails
/// the test after half a minute.
template<typename Window>
void whenOpen(std::function<void(Window&)> act) {
    auto* timer = new QTimer(qApp);
    auto tries = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, tries, act] {
        auto* window = openWindow<Window>();
        if (!window && ++*tries < 3000)
            return;
        timer->stop();
        timer->deleteLater();
        if (!window) {
            QTest::qFail("the window did not open", __FILE__, __LINE__);
            QApplication::closeAllWindows();
            return;
        }
        const QPointer<Window> guard(window);
        act(*window);
        if (guard && QTest::currentTestFailed())
            guard->close(); // a failed check left the dialog unanswered
    });
    timer->start(10);
}

void typeAndAccept(QFileDialog& dialog, const QString& name) {
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    edit->setText(name);
    // Not by the Return key, which a list of proposals may take while the folder is still being read.
    QMetaObject::invokeMethod(&dialog, "accept");
}

FileRequest saveRequest(const QString& folder) {
    FileRequest request;
    request.title = QStringLiteral("Enregistrer l'image Sous...");
    request.types = {{QStringLiteral("Image en mode point  (*.BMP)"), {QStringLiteral("*.BMP")}},
                     {QStringLiteral("Format JPG-Ratio 80%  (*.JPG)"), {QStringLiteral("*.JPG")}},
                     {QStringLiteral("Fichier GIF 256 couleurs"), {QStringLiteral("*.gif")}}};
    request.fileName = folder + QStringLiteral("/propos.bmp");
    return request;
}

void makeFile(const QString& path) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("x");
}

} // namespace

class TestQtDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void messageBoxAnswers_data();
    void messageBoxAnswers();
    void messageBoxTextAndTitle();
    void inputBoxAnswers();
    void openFileGivesPathAndType();
    void allFilesShowsNamesWithoutADot();
    void openFileCancelled();
    void saveFileShowsTypesAsTheyStand();
    void saveFileTellsTheChosenType();
    void saveFileAsksForTheFileThatIsReallyReplaced();
    void saveFileRefusedReplacementAsksAgain();
    void foldersAreRememberedByKind();
    void colourDialogStartsFromTheColour();

private:
    QTranslator m_french;
};

void TestQtDialogs::initTestCase() {
    QCoreApplication::setApplicationName(QStringLiteral("Ovrano"));
    QVERIFY(m_french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QApplication::installTranslator(&m_french);
}

void TestQtDialogs::messageBoxAnswers_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<Answer>("answer");
    QTest::newRow("yes") << int(QMessageBox::Yes) << Answer::Yes;
    QTest::newRow("no") << int(QMessageBox::No) << Answer::No;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << Answer::Cancel;
    QTest::newRow("Escape") << -1 << Answer::Cancel;
}

void TestQtDialogs::messageBoxAnswers() {
    QFETCH(int, button);
    QtDialogs dialogs;
    whenOpen<QMessageBox>([button](QMessageBox& box) {
        if (button < 0)
            QTest::keyClick(&box, Qt::Key_Escape);
        else
            QTest::mouseClick(box.button(static_cast<QMessageBox::StandardButton>(button)), Qt::LeftButton);
    });
    const MessageBox question{QStringLiteral("Enregistrer l'image ?"), QStringLiteral("Image modifiée"),
                              Buttons::YesNoCancel, Icon::Question};
    QTEST(dialogs.messageBox(question), "answer");
}

void TestQtDialogs::messageBoxTextAndTitle() {
    QtDialogs dialogs;
    QString text, title, cancel;
    QMessageBox::Icon icon = QMessageBox::Critical;
    const auto read = [&](QMessageBox& box) {
        text = box.text();
        title = box.windowTitle();
        icon = box.icon();
        QCOMPARE(box.textFormat(), Qt::PlainText);
        box.accept();
    };
    whenOpen<QMessageBox>(read);
    QCOMPARE(dialogs.messageBox({QStringLiteral("f\r\n53     <b>"), QString(), Buttons::Ok, Icon::None}),
             Answer::Ok);
    QCOMPARE(text, QStringLiteral("f\n53     <b>"));
    QCOMPARE(title, QStringLiteral("Ovrano"));
    QCOMPARE(icon, QMessageBox::NoIcon);
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        cancel = box.button(QMessageBox::Cancel)->text().remove(QLatin1Char('&'));
        read(box);
    });
    dialogs.messageBox({QStringLiteral("x"), QStringLiteral("Erreur"), Buttons::YesNoCancel, Icon::Question});
    QCOMPARE(title, QStringLiteral("Erreur"));
    QCOMPARE(icon, QMessageBox::Question);
    QCOMPARE(cancel, QStringLiteral("Annuler")); // the toolkit speaks French
}

void TestQtDialogs::inputBoxAnswers() {
    QtDialogs dialogs;
    const InputBox box{QStringLiteral("Ratio"), QStringLiteral("Valeur"), QStringLiteral("100")};
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        QCOMPARE(dialog.textValue(), QStringLiteral("100"));
        QCOMPARE(dialog.labelText(), QStringLiteral("Ratio"));
        dialog.setTextValue(QStringLiteral("55"));
        dialog.accept();
    });
    QCOMPARE(dialogs.inputBox(box), QStringLiteral("55"));
    whenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    QCOMPARE(dialogs.inputBox(box), QString());
}

void TestQtDialogs::openFileGivesPathAndType() {
    const QTemporaryDir folder;
    makeFile(folder.filePath(QStringLiteral("photo.JPG")));
    QtDialogs dialogs;
    FileRequest request;
    request.title = QStringLiteral("Ouvrir une image de fond");
    request.types = {{QStringLiteral("Fichiers Images(BMP-GIF-JPEG"), {"*.bmp", "*.jpg"}},
                     {QStringLiteral("Tous les fichiers(*.*)"), {"*.*"}}};
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), request.title);
        const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        QCOMPARE(types->itemText(0), QStringLiteral("Fichiers Images(BMP-GIF-JPEG"));
        QCOMPARE(types->count(), 2);
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        typeAndAccept(dialog, folder.filePath(QStringLiteral("photo.JPG")));
    });
    const auto choice = dialogs.openFile(request);
    QVERIFY(choice);
    QCOMPARE(choice->path, folder.filePath(QStringLiteral("photo.JPG")));
    QCOMPARE(choice->typeIndex, 1);
}

void TestQtDialogs::allFilesShowsNamesWithoutADot() {
    QtDialogs dialogs;
    FileRequest request;
    request.title = QStringLiteral("x");
    request.types = {{QStringLiteral("Tous les fichiers(*.*)"), {"*.*"}}};
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->itemText(0),
                 QStringLiteral("Tous les fichiers(*.*)"));
        QVERIFY(QDir::match(dialog.nameFilters().first().section(QLatin1Char('('), -1).chopped(1),
                            QStringLiteral("bmp")));
        dialog.reject();
    });
    QVERIFY(!dialogs.openFile(request));
}

void TestQtDialogs::openFileCancelled() {
    QtDialogs dialogs;
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(!dialogs.openFile(FileRequest{QStringLiteral("x"), {}, 0, QString(), {}}));
}

void TestQtDialogs::saveFileShowsTypesAsTheyStand() {
    const QTemporaryDir folder;
    QtDialogs dialogs;
    const FileRequest request = saveRequest(folder.path());
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        for (int i = 0; i < types->count(); ++i)
            QCOMPARE(types->itemText(i), request.types.at(i).description);
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                 QStringLiteral("propos.bmp"));
        dialog.reject();
    });
    QVERIFY(!dialogs.saveFile(request));
}

void TestQtDialogs::saveFileTellsTheChosenType() {
    const QTemporaryDir folder;
    QtDialogs dialogs;
    for (int row = 0; row < 3; ++row) {
        FileRequest request = saveRequest(folder.path());
        request.typeIndex = row;
        whenOpen<QFileDialog>(
            [&](QFileDialog& dialog) { typeAndAccept(dialog, folder.filePath(QStringLiteral("neuf.x"))); });
        const auto choice = dialogs.saveFile(request);
        QVERIFY(choice);
        QCOMPARE(choice->typeIndex, row);
    }
}

void TestQtDialogs::saveFileAsksForTheFileThatIsReallyReplaced() {
    const QTemporaryDir folder;
    makeFile(folder.filePath(QStringLiteral("a.jpg")));
    makeFile(folder.filePath(QStringLiteral("typed")));
    QtDialogs dialogs;
    FileRequest request = saveRequest(folder.path());
    request.target = [&](const QString&, int) { return folder.filePath(QStringLiteral("a.jpg")); };
    bool asked = false;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            asked = true;
            QVERIFY(box.text().contains(QStringLiteral("« a.jpg »")));
            QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
        });
        typeAndAccept(dialog, folder.filePath(QStringLiteral("a.b.c")));
    });
    QCOMPARE(dialogs.saveFile(request)->path, folder.filePath(QStringLiteral("a.b.c")));
    QVERIFY(asked);
    // The typed file exists, but another one will be written.
    request.target = [&](const QString&, int) { return folder.filePath(QStringLiteral("bmp")); };
    whenOpen<QFileDialog>(
        [&](QFileDialog& dialog) { typeAndAccept(dialog, folder.filePath(QStringLiteral("typed"))); });
    QVERIFY(dialogs.saveFile(request));
}

void TestQtDialogs::saveFileRefusedReplacementAsksAgain() {
    const QTemporaryDir folder;
    makeFile(folder.filePath(QStringLiteral("a.bmp")));
    QtDialogs dialogs;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            whenOpen<QFileDialog>(
                [&](QFileDialog& again) { typeAndAccept(again, folder.filePath(QStringLiteral("b.bmp"))); });
            QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
        });
        typeAndAccept(dialog, folder.filePath(QStringLiteral("a.bmp")));
    });
    QCOMPARE(dialogs.saveFile(saveRequest(folder.path()))->path, folder.filePath(QStringLiteral("b.bmp")));
}

void TestQtDialogs::foldersAreRememberedByKind() {
    const QTemporaryDir one, other;
    makeFile(one.filePath(QStringLiteral("p.bmp")));
    QtDialogs dialogs;
    FileRequest open;
    open.title = QStringLiteral("Ouvrir une image de fond");
    FileRequest save = saveRequest(QString());
    save.fileName.clear();
    whenOpen<QFileDialog>(
        [&](QFileDialog& dialog) { typeAndAccept(dialog, one.filePath(QStringLiteral("p.bmp"))); });
    dialogs.openFile(open);
    whenOpen<QFileDialog>(
        [&](QFileDialog& dialog) { typeAndAccept(dialog, other.filePath(QStringLiteral("q.bmp"))); });
    dialogs.saveFile(save);
    QString folder;
    const auto readFolder = [&](QFileDialog& dialog) {
        folder = dialog.directory().absolutePath();
        dialog.reject();
    };
    whenOpen<QFileDialog>(readFolder);
    dialogs.openFile(open);
    QCOMPARE(folder, one.path());
    whenOpen<QFileDialog>(readFolder);
    dialogs.saveFile(save);
    QCOMPARE(folder, other.path());
}

void TestQtDialogs::colourDialogStartsFromTheColour() {
    QtDialogs dialogs;
    whenOpen<QColorDialog>([](QColorDialog& dialog) {
        QCOMPARE(dialog.currentColor(), QColor(0, 64, 128));
        dialog.setCurrentColor(QColor(10, 20, 30));
        dialog.accept();
    });
    QCOMPARE(dialogs.chooseColour(rgb(0, 64, 128)), std::optional<Colour>(rgb(10, 20, 30)));
    whenOpen<QColorDialog>([](QColorDialog& dialog) { dialog.reject(); });
    QVERIFY(!dialogs.chooseColour(White));
}

OVRANO_TEST(TestQtDialogs)
#include "tst_qtdialogs.moc"
