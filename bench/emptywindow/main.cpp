#include <QApplication>
#include <QLabel>

/// The least that a program of the toolkit can show: what its start takes nobody can start faster than.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLabel window(QStringLiteral("Rien que la fenêtre"));
    window.setAlignment(Qt::AlignTop);
    window.resize(900, 480);
    window.show();
    return QApplication::exec();
}
