#include "platform/screen.h"

#include <QCursor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QRegularExpression>

namespace ovrano {

void setScreenMousePointer(MousePointer pointer) {
    const bool waiting = screenMousePointer() == MousePointer::Hourglass;
    if (pointer == MousePointer::Hourglass && !waiting)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (pointer != MousePointer::Hourglass && waiting)
        QGuiApplication::restoreOverrideCursor();
}

MousePointer screenMousePointer() {
    const QCursor* over = QGuiApplication::overrideCursor();
    return over && over->shape() == Qt::WaitCursor ? MousePointer::Hourglass : MousePointer::Default;
}

QString withoutFoundry(QString family) {
    static const QRegularExpression foundry(QStringLiteral(R"( \[[^\]]*\]$)"));
    return family.remove(foundry);
}

QStringList screenFonts() {
    QStringList plain;
    for (const QString& family : QFontDatabase::families())
        plain.append(withoutFoundry(family));
    plain.removeDuplicates();
    return plain;
}

} // namespace ovrano
